// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Base/Time.h"
#include <gtest/gtest.h>

namespace Kestra {
namespace {

using Rational = boost::rational<long long>;

TEST(Time, HoldsAWholeNumberOfTicksForEveryCommonPeriod) {
    for (const int rate : {24, 25, 30, 48, 50, 60, 90, 100, 120}) {
        EXPECT_EQ(TIME_BASE % rate, 0) << rate;
        EXPECT_EQ(TIME_BASE * 1001 % (rate * 1000), 0) << rate << " x 1000/1001";
    }
    for (const int rate : {8000, 16000, 22050, 24000, 32000, 44100, 48000, 88200, 96000, 192000}) {
        EXPECT_EQ(TIME_BASE % rate, 0) << rate;
    }
}

TEST(Time, RoundsToNearestWithTiesAwayFromZero) {
    EXPECT_EQ(MulDivRound(7, 1, 2), 4);
    EXPECT_EQ(MulDivRound(-7, 1, 2), -4);
    EXPECT_EQ(MulDivRound(10, 1, 3), 3);
    EXPECT_EQ(MulDivRound(-11, 1, 3), -4);
    EXPECT_EQ(MulDivRound(0, 5, 7), 0);
}

TEST(Time, SurvivesProductsBeyond64Bits) {
    EXPECT_EQ(MulDivRound(INT64_MAX, INT64_MAX, INT64_MAX), INT64_MAX);
    EXPECT_EQ(MulDivRound(INT64_MAX, 2, 1), INT64_MAX);
    EXPECT_EQ(MulDivRound(INT64_MIN + 1, 2, 1), INT64_MIN);
}

TEST(Time, CountsFramesWithoutDriftOverADay) {
    const Rational ntsc(30000, 1001);
    for (const std::int64_t frame : {0LL, 1LL, 17LL, 2589408LL}) {
        EXPECT_EQ(TimeToFrames(FramesToTime(frame, ntsc), ntsc), frame);
    }
    EXPECT_EQ(FramesToTime(30000, ntsc), 1001 * TIME_BASE);
}

TEST(Time, CountsSamplesBothWays) {
    EXPECT_EQ(SamplesToTime(48000, 48000), TIME_BASE);
    EXPECT_EQ(TimeToSamples(TIME_BASE / 2, 44100), 22050);
    EXPECT_EQ(TimeToSamples(SamplesToTime(1234567, 44100), 44100), 1234567);
}

} // namespace
} // namespace Kestra
