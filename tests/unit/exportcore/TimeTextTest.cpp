// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/TimeText.h"
#include "ExportCore/Refusal.h"
#include <gtest/gtest.h>
#include <limits>

using ExportCore::TimeText;

namespace {

struct Reading {
    const char* text;
    qint64 milliseconds;
};

class TimeTextReads : public ::testing::TestWithParam<Reading> {};

TEST_P(TimeTextReads, ClockTimesAndSeconds) {
    const auto time = TimeText::parse(GetParam().text);
    ASSERT_TRUE(time) << GetParam().text;
    EXPECT_EQ(time->milliseconds(), GetParam().milliseconds) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(TimeText, TimeTextReads,
                         ::testing::Values(Reading{"0", 0}, Reading{"90", 90'000}, Reading{"90.5", 90'500},
                                           Reading{"3.4", 3400}, Reading{"0.0417083", 42}, Reading{"1.9996", 2000},
                                           Reading{"00:00:00", 0}, Reading{"01:02:03.004", 3'723'004},
                                           Reading{"1:02:03.4", 3'723'400}, Reading{"00:00:59.9999", 60'000},
                                           Reading{"100:00:00", 360'000'000}, Reading{"007", 7000},
                                           Reading{"1:30", 90'000}, Reading{"59:59.25", 3'599'250},
                                           Reading{"90s", 90'000}, Reading{"0.5s", 500}));

class TimeTextRefuses : public ::testing::TestWithParam<const char*> {};

TEST_P(TimeTextRefuses, WhatIsNoTime) {
    EXPECT_FALSE(TimeText::parse(GetParam())) << GetParam();
}

INSTANTIATE_TEST_SUITE_P(TimeText, TimeTextRefuses,
                         ::testing::Values("", " 1", "1 ", "-1", "+1", "s", "1ss", "1:30s", "60:00", "1:60", "1:3",
                                           "120f", ".5", "1.", "00:60:00", "00:00:60", "00:00:1", "00:0:01", "1e3",
                                           "0x10", "nan", "inf", "1,5", "00:00:00.", "99999999999", "9999999:00:00",
                                           "1:2:3:4", "\xd9\xa1"));

TEST(TimeText, CountsFramesOfARate) {
    const auto frames = TimeText::parsePoint("120f");
    ASSERT_TRUE(frames);
    EXPECT_EQ(frames->frames, 120);
    EXPECT_EQ(frames->at(25).milliseconds(), 4800);
    EXPECT_EQ(frames->at(boost::rational<long long>(30000, 1001)).milliseconds(), 4004);
    EXPECT_THROW(frames->at(std::nullopt), ExportCore::Refusal);
    EXPECT_EQ(TimeText::parsePoint("90")->at(std::nullopt), KTime(90'000));
    for (const char* const text : {"f", "-1f", "1.5f", "1:00f", "4294967296f", "120 f", "120F"})
        EXPECT_FALSE(TimeText::parsePoint(text)) << text;
}

TEST(TimeText, WritesWhatItReads) {
    EXPECT_EQ(TimeText::format(KTime(3'723'004)), "01:02:03.004");
    EXPECT_EQ(TimeText::format(KTime(0)), "00:00:00.000");
    EXPECT_EQ(TimeText::format(KTime(-1500)), "-00:00:01.500");
    for (const qint64 time : {0LL, 1LL, 59'999LL, 3'599'999LL, 360'000'000LL})
        EXPECT_EQ(TimeText::parse(TimeText::format(KTime(time))), KTime(time));
}

TEST(TimeText, WritesTheLongestTimes) {
    EXPECT_EQ(TimeText::format(KTime(std::numeric_limits<qint64>::max())), "2562047788015:12:55.807");
    EXPECT_EQ(TimeText::format(KTime(std::numeric_limits<qint64>::min())), "-2562047788015:12:55.808");
}

} // namespace
