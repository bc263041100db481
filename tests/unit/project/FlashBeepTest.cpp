// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/FlashBeep.h"
#include "support/MediaProbe.h"
#include <gtest/gtest.h>

namespace {

using TestMedia::FlashBeep;

TEST(FlashBeep, FlashesAndBeepsBeginTogetherToTheSample) {
    const TestMedia::Folder folder;
    FlashBeep media;
    media.rate = {30000, 1001};
    media.period = 30;
    media.frames = 95;
    makeFlashBeep(folder / "a.mov", media);
    const TestMedia::ProbedMedia measured = TestMedia::probe(folder / "a.mov");
    ASSERT_TRUE(measured.video && measured.audio);
    EXPECT_EQ(measured.decodeErrors, 0);
    EXPECT_EQ(measured.video->frames.size(), 95U);
    EXPECT_EQ(measured.audio->samples, 152152); // 95 x 1601.6
    EXPECT_EQ(measured.audio->gaps, 0);
    EXPECT_EQ(measured.audio->onsets, (std::vector<long long>{0, 48048, 96096, 144144}));
    ASSERT_EQ(measured.offsets().size(), 4U);
    for (const double offset : measured.offsets())
        EXPECT_NEAR(offset, 0, 0.0001);
}

TEST(FlashBeep, PicturesTellTheirNumber) {
    const TestMedia::Folder folder;
    FlashBeep media;
    media.frames = 40;
    media.sampleRate = 0;
    makeFlashBeep(folder / "a.mkv", media);
    const TestMedia::ProbedMedia measured = TestMedia::probe(folder / "a.mkv");
    EXPECT_FALSE(measured.audio);
    const std::vector<int> numbers = measured.numbers();
    ASSERT_EQ(numbers.size(), 40U);
    for (int i = 0; i < 40; ++i)
        EXPECT_EQ(numbers[i], i % 25 < 2 ? -1 : i % 16) << i;
}

TEST(FlashBeep, AVariableRateLeavesFramesOutButKeepsTheirTimes) {
    const TestMedia::Folder folder;
    FlashBeep media;
    media.variableFrameRate = true;
    makeFlashBeep(folder / "a.mov", media);
    const TestMedia::ProbedMedia measured = TestMedia::probe(folder / "a.mov");
    ASSERT_TRUE(measured.video);
    EXPECT_LT(measured.video->frames.size(), 80U);
    EXPECT_GT(measured.video->frames.size(), 60U);
    ASSERT_EQ(measured.offsets().size(), 4U);
    for (const double offset : measured.offsets())
        EXPECT_NEAR(offset, 0, 0.0001);
}

TEST(MediaProbe, TellsAnEqualPictureFromADifferentOne) {
    const TestMedia::Folder folder;
    FlashBeep media;
    media.frames = 10;
    media.sampleRate = 0;
    makeFlashBeep(folder / "a.mkv", media);
    media.flashFrames = 3;
    makeFlashBeep(folder / "b.mkv", media);
    EXPECT_EQ(TestMedia::psnr(folder / "a.mkv", folder / "a.mkv"), 99);
    EXPECT_LT(TestMedia::psnr(folder / "a.mkv", folder / "b.mkv"), 95);
    media.frames = 9;
    makeFlashBeep(folder / "c.mkv", media);
    EXPECT_THROW(TestMedia::psnr(folder / "a.mkv", folder / "c.mkv"), std::runtime_error);
}

} // namespace
