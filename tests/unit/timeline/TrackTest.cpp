// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Document.h"
#include <gtest/gtest.h>

namespace Timeline {
namespace {

using Kestra::Ticks;

Item gap(std::int64_t length) {
    return Item{{}, Ticks(length), true, Gap{}};
}

TEST(Track, FindsTheItemInWhichATimeLies) {
    const Track track(Track::Kind::Video, "V", true, {gap(10), gap(5), gap(1)});
    EXPECT_EQ(track.duration(), Ticks(16));
    EXPECT_EQ(track.startOf(2), Ticks(15));
    const std::vector<std::pair<int, std::size_t>> places{{-3, 0}, {0, 0},  {9, 0},  {10, 1},
                                                          {14, 1}, {15, 2}, {16, 3}, {99, 3}};
    for (const auto& [time, item] : places)
        EXPECT_EQ(track.itemAt(Ticks(time)), item) << time;
}

TEST(Track, WithoutItemsLastsNoTime) {
    const Track track(Track::Kind::Audio, "A", true, {});
    EXPECT_EQ(track.duration(), Ticks(0));
    EXPECT_EQ(track.itemAt(Ticks(0)), 0U);
}

TEST(Stack, IsAsLongAsItsLongestTrack) {
    std::vector<Track> tracks;
    tracks.emplace_back(Track::Kind::Video, "V", true, std::vector<Item>{gap(10)});
    tracks.emplace_back(Track::Kind::Audio, "A", true, std::vector<Item>{gap(7), gap(8)});
    EXPECT_EQ(Stack("", std::move(tracks)).duration(), Ticks(15));
    EXPECT_EQ(Stack("", {}).duration(), Ticks(0));
}

TEST(ImageSequence, NamesItsFilesByNumber) {
    ImageSequence sequence;
    sequence.prefix = "shot.";
    sequence.suffix = ".jpg";
    sequence.firstNumber = 7;
    sequence.step = 2;
    sequence.digits = 4;
    EXPECT_EQ(sequence.nameOf(0), "shot.0007.jpg");
    EXPECT_EQ(sequence.nameOf(3), "shot.0013.jpg");
    EXPECT_EQ(sequence.nameOf(9999), "shot.20005.jpg");
    sequence.firstNumber = -3;
    EXPECT_EQ(sequence.nameOf(0), "shot.-0003.jpg");
}

} // namespace
} // namespace Timeline
