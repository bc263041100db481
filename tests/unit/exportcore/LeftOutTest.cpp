// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/LeftOut.h"
#include <gtest/gtest.h>

using ExportCore::LeftOut;
using Kestra::Proc::ListedTrack;
using Kestra::Proc::MediaContents;
using Kind = Kestra::Proc::ListedTrack::Kind;

namespace {

MediaContents media(const std::vector<Kind>& kinds) {
    MediaContents contents;
    for (const Kind kind : kinds) {
        ListedTrack track;
        track.index = static_cast<int>(contents.tracks.size());
        track.kind = kind;
        contents.tracks.push_back(track);
    }
    return contents;
}

} // namespace

TEST(LeftOut, NamesEveryTrackThatDoesNotCome) {
    MediaContents contents = media({Kind::Picture, Kind::Sound, Kind::Sound, Kind::Subtitles, Kind::Subtitles,
                                    Kind::Data, Kind::Cover, Kind::Attachment, Kind::Chapters});
    contents.tracks[2].language = "eng";
    LeftOut left;
    left.keptTracks = {0, 1, 4};
    EXPECT_EQ(left.of(contents), "left out: 1 sound track (2, eng), 1 subtitle track (3), 1 data track (5), 1 attached "
                                 "picture (6), 1 attachment (7)");
    left.keptTracks = {0, 1, 2, 3, 4, 5, 6, 7};
    EXPECT_EQ(left.of(contents), "");
    EXPECT_EQ(LeftOut().of(media(std::vector<Kind>(9, Kind::Sound))), "left out: 9 sound tracks");
}

TEST(LeftOut, NamesWhatTheMediumSaysOfItself) {
    MediaContents contents;
    contents.programme.title = "A film";
    contents.programme.tags = {{"artist", "somebody"}, {"isrc", "1"}, {"mood", "grave"}};
    contents.programme.chapters = {{0, 1, "One"}, {1, 2, "Two"}};
    EXPECT_EQ(LeftOut().of(contents), "left out: 2 chapters, title, tags");
    LeftOut left;
    left.chapters = left.title = left.tags = true;
    EXPECT_EQ(left.of(contents), "");
    left.lostTimecode = true;
    EXPECT_EQ(left.of(contents), "left out: time code");
    left.lostTimecode = false;
    left.lostTags = {"isrc"};
    EXPECT_EQ(left.of(contents), "left out: tag (isrc)");
    left.lostTags.insert("mood");
    EXPECT_EQ(left.of(contents), "left out: tags (isrc, mood)");
}
