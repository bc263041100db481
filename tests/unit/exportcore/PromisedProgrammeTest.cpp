// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/PromisedProgramme.h"
#include "Kestra/Base/Time.h"
#include <gtest/gtest.h>

using ExportCore::PromisedProgramme;
using Kestra::TICKS_PER_MILLISECOND;
using Kestra::TIME_BASE;
using Kestra::Conf::Subtitles;
using Kestra::Proc::CheckedFile;
using Kestra::Proc::CheckedStream;

namespace {

class Promise : public ::testing::Test {
protected:
    Promise() {
        promised.container = "mp4";
        promised.length = 4 * TIME_BASE;
        promised.tolerance = 2 * TICKS_PER_MILLISECOND;
        promised.programme.title = "A film";
        promised.programme.chapters = {{0, TIME_BASE, "One"}, {TIME_BASE, 4 * TIME_BASE, "Two"}};
        promised.programme.sound.language = "deu";
        Subtitles words;
        words.language = "eng";
        words.cues = {{0, TIME_BASE, "0,0,,,0,0,0,,a"}, {TIME_BASE, 2 * TIME_BASE, "0,0,,,0,0,0,,b"}};
        promised.programme.subtitles = {words};
        file.programme.title = promised.programme.title;
        file.programme.chapters = promised.programme.chapters;
        file.streams.resize(2);
        file.streams[0].kind = CheckedStream::Kind::Audio;
        file.streams[0].language = "ger";
        file.streams[0].isDefault = true;
        file.streams[1].kind = CheckedStream::Kind::Subtitles;
        file.streams[1].language = "eng";
        file.streams[1].packets = 2;
    }

    PromisedProgramme promised;
    CheckedFile file;
};

} // namespace

TEST_F(Promise, IsKeptByAFileThatHasAllOfIt) {
    EXPECT_EQ(promised.faultOf(file), "");
    file.programme.chapters[1].start += TICKS_PER_MILLISECOND;
    file.programme.title += " ";
    EXPECT_EQ(promised.faultOf(file), "");
}

TEST_F(Promise, OfAChapterWithoutATitleIsKeptWhateverAReaderCallsIt) {
    promised.programme.chapters[1].title.clear();
    EXPECT_EQ(promised.faultOf(file), "");
    file.programme.chapters.pop_back();
    EXPECT_NE(promised.faultOf(file), "");
}

TEST_F(Promise, IsKeptByALongTitleThatIsCutOff) {
    promised.programme.chapters[1].title = std::string(150, 'a');
    file.programme.chapters[1].title = std::string(120, 'a');
    EXPECT_EQ(promised.faultOf(file), "");
    file.programme.chapters[1].title = std::string(20, 'a');
    EXPECT_NE(promised.faultOf(file), "");
}

TEST_F(Promise, IsBrokenWithoutTheTitle) {
    file.programme.title = "Another film";
    EXPECT_EQ(promised.faultOf(file), "it does not have its title");
}

TEST_F(Promise, IsBrokenWithoutAChapterAtItsTime) {
    file.programme.chapters[1].start += 10 * TICKS_PER_MILLISECOND;
    EXPECT_EQ(promised.faultOf(file), "it has no chapter \"Two\" at 00:00:01.000");
    file.programme.chapters.pop_back();
    EXPECT_NE(promised.faultOf(file), "");
    promised.length = TIME_BASE;
    promised.programme.subtitles.clear();
    EXPECT_EQ(promised.faultOf(file), "") << "what begins where the file ends may be missing";
}

TEST_F(Promise, IsBrokenWithoutTheSubtitles) {
    file.streams[1].packets = 1;
    EXPECT_EQ(promised.faultOf(file), "it holds 1 subtitles instead of 2");
    file.streams[1].packets = 3;
    EXPECT_NE(promised.faultOf(file), "");
    file.streams.pop_back();
    EXPECT_EQ(promised.faultOf(file), "it lacks a track of subtitles");
    promised.container = "mp3";
    EXPECT_EQ(promised.faultOf(file), "") << "there is no place for them";
}

TEST_F(Promise, IsBrokenWithoutTheLanguages) {
    file.streams[0].language = "eng";
    EXPECT_EQ(promised.faultOf(file), "a track is not told to be in the language deu");
    file.streams[0].language = "de";
    file.streams[1].language.clear();
    EXPECT_NE(promised.faultOf(file), "");
}

TEST_F(Promise, IsBrokenWithoutTheLanguageOfAFurtherSound) {
    CheckedStream second;
    second.kind = CheckedStream::Kind::Audio;
    second.language = "eng";
    file.streams.insert(file.streams.begin() + 1, second);
    promised.programme.furtherSounds = {{"eng", "Commentary"}};
    EXPECT_EQ(promised.faultOf(file), "");
    std::swap(file.streams[0].language, file.streams[1].language);
    EXPECT_EQ(promised.faultOf(file), "a track is not told to be in the language deu");
    std::swap(file.streams[0].language, file.streams[1].language);
    file.streams[1].language = "fra";
    EXPECT_EQ(promised.faultOf(file), "a track is not told to be in the language eng");
}

TEST_F(Promise, IsBrokenWithoutTheMarksOfWhatPlayersBeginWith) {
    file.streams[0].isDefault = false;
    EXPECT_EQ(promised.faultOf(file), "sound track 1 is not marked as what players begin with");
    promised.programme.furtherSounds = {{"", "Commentary", true}};
    CheckedStream second;
    second.kind = CheckedStream::Kind::Audio;
    file.streams.push_back(second);
    EXPECT_EQ(promised.faultOf(file), "sound track 2 is not marked as what players begin with");
    file.streams[2].isDefault = true;
    EXPECT_EQ(promised.faultOf(file), "");
    file.streams[0].isDefault = true;
    EXPECT_EQ(promised.faultOf(file), "sound track 1 is marked as what players begin with");
    file.streams[0].isDefault = false;
    file.streams.emplace_back();
    file.streams.back().kind = CheckedStream::Kind::Video;
    EXPECT_EQ(promised.faultOf(file), "its pictures are not marked as what players begin with");
    promised.container = "ogg";
    EXPECT_EQ(promised.faultOf(file), "") << "there is no place for it";
}

TEST_F(Promise, IsBrokenWhereSubtitlesAreForcedOrNotInsteadOfTheOther) {
    promised.programme.subtitles[0].forced = true;
    EXPECT_EQ(promised.faultOf(file), "its subtitles are not told to be forced");
    file.streams[1].forced = true;
    EXPECT_EQ(promised.faultOf(file), "");
    promised.programme.subtitles[0].forced = false;
    EXPECT_EQ(promised.faultOf(file), "its subtitles are told to be forced");
}

TEST_F(Promise, IsBrokenWhereSubtitlesAreMarkedOrNotInsteadOfTheOtherInFilesThatTell) {
    promised.programme.subtitles[0].isDefault = true;
    promised.container = "mp4";
    EXPECT_EQ(promised.faultOf(file), "");
    promised.container = "mkv";
    EXPECT_EQ(promised.faultOf(file), "its subtitles are not marked as shown by default");
    file.streams[1].isDefault = true;
    EXPECT_EQ(promised.faultOf(file), "");
    promised.programme.subtitles[0].isDefault = false;
    EXPECT_EQ(promised.faultOf(file), "its subtitles are marked as shown by default");
}

TEST_F(Promise, OfChaptersThatBeginLaterHasOneInFrontWhereTheyKnowLengthsOnly) {
    promised.programme.chapters = {{TIME_BASE, 4 * TIME_BASE, "Two"}};
    for (const char* container : {"mkv", "webm", "mp3", "opus"}) {
        promised.container = container;
        promised.addLeadingChapter();
        EXPECT_EQ(promised.programme.chapters.size(), 1U) << container;
    }
    promised.container = "mp4";
    promised.addLeadingChapter();
    ASSERT_EQ(promised.programme.chapters.size(), 2U);
    EXPECT_EQ(promised.programme.chapters[0].end, TIME_BASE);
    EXPECT_EQ(promised.programme.chapters[0].title, "");
    promised.addLeadingChapter();
    EXPECT_EQ(promised.programme.chapters.size(), 2U) << "there it is";
    EXPECT_EQ(promised.faultOf(file), "");
    file.programme.chapters.erase(file.programme.chapters.begin());
    EXPECT_NE(promised.faultOf(file), "");
    promised.programme.chapters.clear();
    promised.addLeadingChapter();
    EXPECT_TRUE(promised.programme.chapters.empty());
}

TEST_F(Promise, IsBrokenWithoutTheCover) {
    promised.programme.cover.bytes = "picture";
    EXPECT_EQ(promised.faultOf(file), "it lacks its cover");
    file.streams.emplace_back();
    file.streams.back().kind = CheckedStream::Kind::Video;
    file.streams.back().isDefault = true;
    EXPECT_EQ(promised.faultOf(file), "") << "beside pictures it has no place";
}
