// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/LoudnessGain.h"
#include "ExportCore/Refusal.h"
#include <cmath>
#include <gmock/gmock.h>

using ExportCore::LoudnessGain;
using ExportCore::Refusal;
using Kestra::Proc::Loudness;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

double peakAt(double decibels) {
    return std::pow(10, decibels / 20);
}

TEST(LoudnessGain, IsWhatLiesBetweenTheLoudnesses) {
    const LoudnessGain raised = LoudnessGain::to(-14, Loudness{-23.4, peakAt(-20)});
    EXPECT_NEAR(20 * std::log10(raised.factor), 9.4, 1e-9);
    EXPECT_EQ(raised.note, "The sound has -23.4 LUFS and is raised by 9.4 dB");
    const LoudnessGain lowered = LoudnessGain::to(-23, Loudness{-8, 1});
    EXPECT_NEAR(20 * std::log10(lowered.factor), -15, 1e-9);
    EXPECT_EQ(lowered.note, "The sound has -8 LUFS and is lowered by 15 dB");
    EXPECT_EQ(LoudnessGain::to(-14, Loudness{-14.01, 0.5}).note, "The sound has -14 LUFS and stays");
    EXPECT_EQ(LoudnessGain::to(-14, Loudness{-14.01, 0.5}, "Sound track 2").note,
              "Sound track 2 has -14 LUFS and stays");
}

TEST(LoudnessGain, SaysThatPeaksAreTurnedDown) {
    EXPECT_THAT(
        LoudnessGain::to(-14, Loudness{-20, peakAt(-2)}).note,
        HasSubstr("; its peaks are turned down, by 5.5 dB at most, so that it may stay below -14 LUFS, by 5.5 LU at "
                  "worst"));
    EXPECT_THAT(LoudnessGain::to(-14, Loudness{-20, peakAt(-7.1)}).note, HasSubstr("by 0.4 dB at most"));
    EXPECT_THAT(LoudnessGain::to(-14, Loudness{-20, peakAt(-7.1)}).note, Not(HasSubstr("at worst")));
    EXPECT_THAT(LoudnessGain::to(-14, Loudness{-20, peakAt(-7.5)}).note, Not(HasSubstr("peaks")));
}

TEST(LoudnessGain, LeavesWhatHasNoLoudnessAsItIs) {
    const LoudnessGain gain = LoudnessGain::to(-14, {});
    EXPECT_EQ(gain.factor, 1);
    EXPECT_THAT(gain.note, HasSubstr("stays as it is"));
}

TEST(LoudnessGain, GoesNoFurtherThanItCanAndSaysSo) {
    const LoudnessGain gain = LoudnessGain::to(-14, Loudness{-60, peakAt(-50)});
    EXPECT_NEAR(20 * std::log10(gain.factor), 36, 1e-9);
    EXPECT_EQ(gain.note, "The sound has -60 LUFS and is raised by 36 dB, not by the 46 dB to -14 LUFS");
}

TEST(LoudnessGain, IsReadWithAndWithoutItsUnit) {
    EXPECT_EQ(LoudnessGain::parse("-14"), -14);
    EXPECT_EQ(LoudnessGain::parse("-23.5 LUFS"), -23.5);
    EXPECT_EQ(LoudnessGain::parse("-24lkfs"), -24);
    for (const char* const text :
         {"", "loud", "-14 dB", "nan", "inf", "14", "0", "-4.9", "-70.1", "-1e9", "--14", "LUFS"})
        EXPECT_THROW(LoudnessGain::parse(text), Refusal) << text;
}

} // namespace
