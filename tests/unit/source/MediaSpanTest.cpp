// SPDX-License-Identifier: GPL-3.0-or-later
// Where a clip begins and ends when its tracks do not begin and end together.
#include "Kestra/FF/Probe/MediaSpan.h"
#include "Kestra/Base/Time.h"
#include "Kestra/FF/Probe/ChunkStart.h"
#include <gtest/gtest.h>

namespace Kestra::FF {
namespace {

constexpr std::int64_t MS = TICKS_PER_MILLISECOND;
constexpr std::int64_t PICTURE_START = 1000 * MS;
constexpr std::int64_t PICTURE_END = 6000 * MS;

VideoSpan picture() {
    return {PICTURE_START, PICTURE_END, 25};
}

AudioSpan sound(std::int64_t start, std::int64_t end, std::int64_t priming = 20 * MS) {
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
    const VideoSpan unknown{PICTURE_START, PICTURE_END, 0};
    EXPECT_EQ(FindOrigin(unknown, sound(300 * MS, PICTURE_END)), 300 * MS);
    EXPECT_EQ(FindOrigin(unknown, sound(PICTURE_START + MS, PICTURE_END)), PICTURE_START);
}

TEST(MediaSpan, EndsWithThePictureWhenSoundGoesOnForLessThanABlockAndAFrame) {
    EXPECT_EQ(FindAudioEnd(picture(), sound(0, PICTURE_END + 59 * MS)), PICTURE_END);
    EXPECT_EQ(FindAudioEnd(picture(), sound(0, PICTURE_END + 60 * MS)), PICTURE_END + 60 * MS);
}

TEST(MediaSpan, LeavesSoundThatEndsWithThePictureOrBeforeAsItIs) {
    EXPECT_EQ(FindAudioEnd(picture(), sound(0, PICTURE_END)), PICTURE_END);
    EXPECT_EQ(FindAudioEnd(picture(), sound(0, PICTURE_END - 30 * MS)), PICTURE_END - 30 * MS);
    EXPECT_EQ(FindAudioEnd(std::nullopt, sound(0, 5 * MS)), 5 * MS);
}

AVCodecParameters aac() {
    AVCodecParameters sound = {};
    sound.codec_id = AV_CODEC_ID_AAC;
    sound.sample_rate = 48000;
    sound.frame_size = 1024;
    return sound;
}

constexpr std::int64_t PERIOD = 40 * MS;
const std::int64_t PRIMING = SamplesToTime(1024, 48000);

TEST(ChunkStart, MovesTheFirstPictureOverEmptyChunksOfLibavAlone) {
    const ChunkShift shift = AlignChunks({0, 2 * PERIOD, 0, PERIOD, true}, aac());
    EXPECT_EQ(shift.firstFrame, PERIOD);
    EXPECT_EQ(shift.audio, PERIOD - PRIMING);
    // A picture that lasts longer than what is put before the sound, and one that somebody else wrote.
    for (const ChunkStart& start : {ChunkStart{0, 3 * PERIOD, 0, PERIOD, true}, {0, 2 * PERIOD, 0, PERIOD, false}}) {
        EXPECT_EQ(AlignChunks(start, aac()).firstFrame, 0);
        EXPECT_EQ(AlignChunks(start, aac()).audio, 0);
    }
}

TEST(ChunkStart, CutsWhatIsLessThanHalfABlockHoweverLongPicturesAre) {
    AVCodecParameters mp2 = aac();
    mp2.codec_id = AV_CODEC_ID_MP2;
    mp2.frame_size = 0; // as AVI leaves it
    for (const std::int64_t period : {10 * MS, 20 * MS, 40 * MS})
        EXPECT_EQ(AlignChunks({0, period, 0, period, true}, mp2).audio, -SamplesToTime(481, 48000));
}

TEST(ChunkStart, MovesTheFirstPictureOfFragmentsOfLibavByThePrimingAlone) {
    constexpr std::int64_t tick = MS / 10;
    const std::int64_t second = PERIOD + PRIMING + tick / 2;
    EXPECT_EQ(AlignFragments({0, second, 0, PERIOD, true}, aac(), tick).firstFrame, second - PERIOD);
    EXPECT_EQ(AlignFragments({0, second, 0, PERIOD, true}, aac(), tick).audio, 0);
    for (const ChunkStart& start : {ChunkStart{0, second, 0, PERIOD, false},
                                    {0, second + tick, 0, PERIOD, true},
                                    {0, PERIOD, 0, PERIOD, true},
                                    {0, second, PERIOD, PERIOD, true}})
        EXPECT_EQ(AlignFragments(start, aac(), tick).firstFrame, 0);
}

TEST(ChunkStart, SoundDoesNotWaitForReorderedPictures) {
    EXPECT_EQ(AlignChunks({0, PERIOD, 2 * PERIOD, PERIOD, false}, aac()).audio, 2 * PERIOD);
    EXPECT_EQ(AlignChunks({0, PERIOD, 2 * PERIOD, PERIOD, true}, aac()).audio, 2 * PERIOD - PRIMING);
    EXPECT_EQ(AlignChunks({0, PERIOD, 2 * PERIOD, PERIOD, true}, aac()).firstFrame, 0);
}

} // namespace
} // namespace Kestra::FF
