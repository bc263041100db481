// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/OtioTime.h"

#include "Kestra/Base/Time.h"
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace Timeline {
namespace {

using Kestra::Ticks;
using Kestra::TIME_BASE;
using Rate = boost::rational<long long>;

TEST(OtioRates, AreTheExactOnesThatRoundedOnesStandFor) {
    EXPECT_EQ(exactRate(23.976), Rate(24000, 1001));
    EXPECT_EQ(exactRate(23.98), Rate(24000, 1001));
    EXPECT_EQ(exactRate(23.976023976023978), Rate(24000, 1001));
    EXPECT_EQ(exactRate(29.97), Rate(30000, 1001));
    EXPECT_EQ(exactRate(59.94), Rate(60000, 1001));
    EXPECT_EQ(exactRate(24), Rate(24));
    EXPECT_EQ(exactRate(12.5), Rate(25, 2));
    EXPECT_EQ(exactRate(48000), Rate(48000));
    EXPECT_EQ(exactRate(44100), Rate(44100));
    EXPECT_EQ(exactRate(24.5), Rate(49, 2)) << "no standard rate, and none near";
}

TEST(OtioFractions, AreThoseWithASmallDenominator) {
    EXPECT_EQ(exactFraction(1.0 / 3), Rate(1, 3));
    EXPECT_EQ(exactFraction(-0.75), Rate(-3, 4));
    EXPECT_EQ(exactFraction(24000.0 / 1001 / 24), Rate(1000, 1001));
    EXPECT_EQ(exactFraction(0), Rate(0));
    EXPECT_EQ(exactFraction(-100), Rate(-100));
}

TEST(OtioRates, ThatAreNoneAreRefused) {
    for (const double rate : {0.0, -25.0, 1e300, std::nan(""), std::numeric_limits<double>::infinity()})
        EXPECT_FALSE(exactRate(rate)) << rate;
}

TEST(OtioTimes, AreExactWhereTheyCountFrames) {
    for (const std::int64_t frame : {0LL, 1LL, -7LL, 86400LL * 24, 2589408LL})
        EXPECT_EQ(exactTime(static_cast<double>(frame), 23.976), Ticks(frame * (TIME_BASE / 24000 * 1001))) << frame;
    EXPECT_EQ(exactTime(1.5, 25), Ticks(TIME_BASE / 50 * 3)) << "half a frame";
    EXPECT_EQ(exactTime(44100.0 * 3600, 44100), Ticks(TIME_BASE * 3600));
}

TEST(OtioTimes, BeyondAYearAreNone) {
    EXPECT_TRUE(exactTime(365.0 * 86400, 1));
    EXPECT_FALSE(exactTime(400.0 * 86400, 1));
    EXPECT_FALSE(exactTime(-400.0 * 86400, 1));
    EXPECT_FALSE(exactTime(std::nan(""), 25));
    EXPECT_FALSE(exactTime(1, 1e-12)) << "a period that long";
}

} // namespace
} // namespace Timeline
