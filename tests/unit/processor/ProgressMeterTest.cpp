// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Processor/ProgressMeter.h"
#include "Kestra/Base/Time.h"
#include <gtest/gtest.h>

namespace Kestra::Proc {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

const ProgressMeter::Clock::time_point START = ProgressMeter::Clock::time_point(seconds(1000));

TEST(ProgressMeter, CountsThePositionOfTheSlowestStream) {
    ProgressMeter meter({100, 200}, START);
    meter.Advance(0, 80);
    meter.Advance(1, 30);
    const ProgressReport report = meter.Report(START);
    EXPECT_EQ(report.position, 30);
    EXPECT_EQ(report.duration, 200);
    EXPECT_EQ(report.percent, 15);
}

TEST(ProgressMeter, IsNotHeldBackByAStreamThatHasEnded) {
    ProgressMeter meter({100, 200}, START);
    meter.Advance(0, 50);
    meter.End(0);
    meter.Advance(1, 150);
    EXPECT_EQ(meter.Report(START).position, 150);
    EXPECT_EQ(meter.Report(START).percent, 75);
}

TEST(ProgressMeter, NeverFalls) {
    ProgressMeter meter({100, 100}, START);
    meter.Advance(1, 90);
    meter.End(0);
    EXPECT_EQ(meter.Report(START).percent, 90);
    meter.Advance(1, 40);
    EXPECT_EQ(meter.Report(START).percent, 90);
}

TEST(ProgressMeter, StaysBelowOneHundredUntilTheRunIsComplete) {
    ProgressMeter meter({100}, START);
    meter.Advance(0, 100);
    EXPECT_EQ(meter.Report(START).percent, 99);
    EXPECT_EQ(meter.Complete(START).percent, 100);
}

TEST(ProgressMeter, KeepsThePositionWithinTheDuration) {
    ProgressMeter meter({100}, START);
    meter.Advance(0, 130);
    EXPECT_EQ(meter.Report(START).position, 100);
}

TEST(ProgressMeter, LeavesANegativeTimeOut) {
    ProgressMeter meter({100}, START);
    meter.Advance(0, -20);
    EXPECT_EQ(meter.Report(START).position, 0);
    EXPECT_EQ(meter.Report(START).percent, 0);
}

TEST(ProgressMeter, TakesTheLongestKnownDuration) {
    ProgressMeter meter({TIME_UNKNOWN, 400, 100}, START);
    EXPECT_EQ(meter.Report(START).duration, 400);
}

TEST(ProgressMeter, SaysMinusOneWhenNoDurationIsKnown) {
    ProgressMeter meter({TIME_UNKNOWN}, START);
    meter.Advance(0, 50);
    const ProgressReport report = meter.Report(START + seconds(10));
    EXPECT_EQ(report.duration, -1);
    EXPECT_EQ(report.percent, 0);
    EXPECT_EQ(report.position, 50);
    EXPECT_EQ(report.remainingSeconds, -1);
    EXPECT_EQ(meter.Complete(START + seconds(10)).position, 50);
}

TEST(ProgressMeter, CountsWholeSecondsElapsed) {
    ProgressMeter meter({100}, START);
    EXPECT_EQ(meter.Report(START + milliseconds(1999)).elapsedSeconds, 1);
    EXPECT_EQ(meter.Report(START + milliseconds(2000)).elapsedSeconds, 2);
}

TEST(ProgressMeter, EstimatesTheRestFromTheSpeedSoFar) {
    ProgressMeter meter({100}, START);
    EXPECT_EQ(meter.Report(START + seconds(1)).remainingSeconds, -1) << "nothing is known before the first packet";
    meter.Advance(0, 25);
    EXPECT_EQ(meter.Report(START + seconds(10)).remainingSeconds, 30);
    meter.Advance(0, 50);
    EXPECT_EQ(meter.Report(START + seconds(10)).remainingSeconds, 10);
}

TEST(ProgressMeter, SaysUnknownForARestThatDoesNotFit) {
    ProgressMeter meter({INT64_MAX}, START);
    meter.Advance(0, 1);
    EXPECT_EQ(meter.Report(START + seconds(10)).remainingSeconds, -1);
}

TEST(ProgressMeter, IsDueAtOnceAndThenEveryTenthOfASecond) {
    ProgressMeter meter({100}, START);
    EXPECT_TRUE(meter.IsDue(START));
    meter.Report(START);
    EXPECT_FALSE(meter.IsDue(START + milliseconds(99)));
    EXPECT_TRUE(meter.IsDue(START + milliseconds(100)));
}

TEST(ProgressMeter, ComputesPercentagesOfDaysWithoutOverflow) {
    const std::int64_t month = TIME_BASE * 86400 * 30;
    ProgressMeter meter({month}, START);
    meter.Advance(0, month / 2);
    EXPECT_EQ(meter.Report(START).percent, 50);
}

} // namespace
} // namespace Kestra::Proc
