// Where a clip begins and ends when its tracks do not begin and end together.
#include "Kestra/FF/MediaSpan.h"
#include "Kestra/Base/Time.h"
#include <gtest/gtest.h>

namespace Kestra::FF {
namespace {

constexpr std::int64_t MS = TICKS_PER_MILLISECOND;
constexpr std::int64_t PICTURE_START = 1000 * MS;
constexpr std::int64_t PICTURE_END = 6000 * MS;

PictureSpan picture() {
    return {PICTURE_START, PICTURE_END, 25};
}

SoundSpan sound(std::int64_t start, std::int64_t end, std::int64_t priming = 20 * MS) {
    return {start, end, priming, 20 * MS};
}

TEST(MediaSpan, BeginsWithThePictureWhenSoundLeadsByLessThanAFrameAndItsPriming) {
    EXPECT_EQ(FindOrigin(picture(), sound(PICTURE_START - 59 * MS, PICTURE_END)), PICTURE_START);
    EXPECT_NE(FindOrigin(picture(), sound(PICTURE_START - 60 * MS, PICTURE_END)), PICTURE_START);
    EXPECT_NE(FindOrigin(picture(), sound(PICTURE_START - 59 * MS, PICTURE_END, 0)), PICTURE_START);
}

TEST(MediaSpan, KeepsALongerLeadAndBeginsOnTheGridOfThePictures) {
    EXPECT_EQ(FindOrigin(picture(), sound(0, PICTURE_END)), 0);
    EXPECT_EQ(FindOrigin(picture(), sound(10 * MS, PICTURE_END)), 0);
    EXPECT_EQ(FindOrigin(picture(), sound(-10 * MS, PICTURE_END)), -40 * MS);
}

TEST(MediaSpan, TakesALeadThatClocksHaveRoundedForWholeFrames) {
    EXPECT_EQ(FindOrigin(picture(), sound(-1 * MS, PICTURE_END)), 0);
    EXPECT_EQ(FindOrigin(picture(), sound(1 * MS, PICTURE_END)), 0);
}

TEST(MediaSpan, BeginsWithThePictureWhenSoundBeginsLater) {
    EXPECT_EQ(FindOrigin(picture(), sound(PICTURE_START + 700 * MS, PICTURE_END)), PICTURE_START);
}

TEST(MediaSpan, BeginsWithTheOnlyTrackThereIs) {
    EXPECT_EQ(FindOrigin(picture(), std::nullopt), PICTURE_START);
    EXPECT_EQ(FindOrigin(std::nullopt, sound(7 * MS, 20 * MS)), 7 * MS);
}

TEST(MediaSpan, BeginsWithTheEarlierTrackWhereNoRateIsKnown) {
    const PictureSpan unknown{PICTURE_START, PICTURE_END, 0};
    EXPECT_EQ(FindOrigin(unknown, sound(300 * MS, PICTURE_END)), 300 * MS);
    EXPECT_EQ(FindOrigin(unknown, sound(PICTURE_START + MS, PICTURE_END)), PICTURE_START);
}

TEST(MediaSpan, EndsWithThePictureWhenSoundGoesOnForLessThanABlockAndAFrame) {
    EXPECT_EQ(FindSoundEnd(picture(), sound(0, PICTURE_END + 59 * MS)), PICTURE_END);
    EXPECT_EQ(FindSoundEnd(picture(), sound(0, PICTURE_END + 60 * MS)), PICTURE_END + 60 * MS);
}

TEST(MediaSpan, LeavesSoundThatEndsWithThePictureOrBeforeAsItIs) {
    EXPECT_EQ(FindSoundEnd(picture(), sound(0, PICTURE_END)), PICTURE_END);
    EXPECT_EQ(FindSoundEnd(picture(), sound(0, PICTURE_END - 30 * MS)), PICTURE_END - 30 * MS);
    EXPECT_EQ(FindSoundEnd(std::nullopt, sound(0, 5 * MS)), 5 * MS);
}

} // namespace
} // namespace Kestra::FF
