// SPDX-License-Identifier: GPL-3.0-or-later
// Which frame of a grid shows a moment of its source first.
#include "Kestra/Proc/Filters/SamplingRule.h"
#include <gtest/gtest.h>
#include <stdexcept>

namespace Kestra::Proc {
namespace {

using Pace = SamplingRule::Pace;
using Rate = boost::rational<long long>;

const SamplingRule ANY{FrameGrid(50)}; // periods of 20 ms
const SamplingRule PACED{FrameGrid(50), Pace::Grid};

Ticks at(double milliseconds) {
    return Ticks(static_cast<std::int64_t>(milliseconds * TICKS_PER_MILLISECOND));
}

std::int64_t first(const SamplingRule& rule, double milliseconds) {
    return rule.FirstShowing(at(milliseconds)).Value();
}

std::int64_t after(std::int64_t last, double milliseconds, const SamplingRule& rule = PACED) {
    return rule.FirstShowingAfter(FrameIndex(last), at(milliseconds)).Value();
}

SamplingRule mapped(const Rate& speed, double here = 0, double there = 0, Pace pace = Pace::Any) {
    return SamplingRule(FrameGrid(50), pace, {at(here), at(there), speed});
}

TEST(FramePeriods, BeginWithTheFirstWhoseMiddleIsNotBeforeThePicture) {
    EXPECT_EQ(first(ANY, 0), 0);
    EXPECT_EQ(first(ANY, 9.9), 0);
    EXPECT_EQ(first(ANY, 10), 0);
    EXPECT_EQ(first(ANY, 10.1), 1);
    EXPECT_EQ(first(ANY, 40), 2);
    EXPECT_EQ(first(ANY, -15), -1);
}

TEST(FramePeriods, AgreeWithTheMiddlesAtRatesAndSpeedsThatDivideNothing) {
    const FrameGrid odd(Rate(7919, 313));
    for (const Rate& speed : {Rate(1), Rate(355, 113), Rate(17, 91)}) {
        const SamplingRule rule(odd, Pace::Any, {Ticks(12345), Ticks(98765), speed});
        for (FrameIndex index(-100); index < FrameIndex(2000); ++index) {
            EXPECT_EQ(rule.FirstShowing(rule.Shown(index)), index);
            EXPECT_EQ(rule.FirstShowing(rule.Shown(index) + Ticks(1)), index + FrameIndex(1));
        }
    }
}

TEST(FramePeriods, FollowOnForPicturesThatComeALittleEarlyOrLate) {
    EXPECT_EQ(after(4, 100), 5);
    EXPECT_EQ(after(4, 86), 5);
    EXPECT_EQ(after(4, 114), 5);
    EXPECT_EQ(after(4, 114, ANY), 6) << "only where the source's frames are meant for the grid";
}

TEST(FramePeriods, AreTakenByTheMiddlesForPicturesThatComeTooEarlyOrTooLate) {
    EXPECT_EQ(after(4, 84), 4) << "replaces the one before";
    EXPECT_EQ(after(4, 116), 6);
    EXPECT_EQ(after(4, 300), 15);
}

TEST(FramePeriods, NeverRunBackwards) {
    EXPECT_EQ(after(4, 20), 4);
}

TEST(FramePeriods, FollowTheMapOfTheirTimes) {
    // Twice as fast from 100 ms on, where the source stands at 1 s: frame 5 shows 1.020 s.
    const SamplingRule fast = mapped(2, 100, 1000);
    EXPECT_EQ(fast.Shown(FrameIndex(5)), at(1020));
    EXPECT_EQ(first(fast, 1020), 5);
    EXPECT_EQ(first(fast, 1021), 6);
    EXPECT_EQ(first(mapped(Rate(1, 2)), 20), 2) << "half as fast: frame 2 shows 25 ms";
    EXPECT_EQ(after(4, 48, mapped(Rate(1, 2), 0, 0, Pace::Grid)), 5) << "a period of the grid is 10 ms of the source";
    EXPECT_EQ(after(4, 42, mapped(Rate(1, 2), 0, 0, Pace::Grid)), 4);
}

TEST(FramePeriods, OfAFrozenSourceAllShowOneMoment) {
    const SamplingRule frozen = mapped(0, 0, 500);
    EXPECT_EQ(frozen.Shown(FrameIndex(0)), at(500));
    EXPECT_EQ(frozen.Shown(FrameIndex(9999)), at(500));
    EXPECT_EQ(frozen.FirstShowing(at(500)).Value(), INT64_MIN);
    EXPECT_EQ(frozen.FirstShowing(at(500.1)).Value(), INT64_MAX);
}

TEST(FramePeriods, ShowNothingBeyondTheFurthestTime) {
    const SamplingRule bounded(FrameGrid(50), Pace::Any, {}, at(100));
    EXPECT_EQ(bounded.Shown(FrameIndex(4)), at(90));
    EXPECT_EQ(bounded.Shown(FrameIndex(5)), at(100));
    EXPECT_EQ(bounded.Shown(FrameIndex(50)), at(100));
    EXPECT_EQ(bounded.FirstShowing(at(100)).Value(), 5);
    EXPECT_EQ(bounded.FirstShowing(at(100.1)).Value(), INT64_MAX);
    EXPECT_EQ(bounded.FirstShowingAfter(FrameIndex(4), at(101)).Value(), INT64_MAX);
    const SamplingRule paced(FrameGrid(50), Pace::Grid, {}, at(100));
    EXPECT_EQ(paced.FirstShowingAfter(FrameIndex(4), at(97)).Value(), 5);
    EXPECT_EQ(paced.FirstShowingAfter(FrameIndex(4), at(101)).Value(), INT64_MAX);
    const SamplingRule backwards(FrameGrid(50), Pace::Any, {at(0), at(500), -1}, at(480));
    EXPECT_EQ(backwards.Shown(FrameIndex(0)), at(490));
    EXPECT_EQ(backwards.Shown(FrameIndex(3)), at(480));
}

TEST(FramePeriods, ThatRunBackwardsShowEarlierTimesAndHaveNoFirst) {
    const SamplingRule backwards = mapped(-1, 0, 500);
    EXPECT_TRUE(backwards.RunsBackwards());
    EXPECT_FALSE(mapped(0).RunsBackwards());
    EXPECT_EQ(backwards.Shown(FrameIndex(0)), at(490));
    EXPECT_EQ(backwards.Shown(FrameIndex(3)), at(430));
    EXPECT_THROW(backwards.FirstShowing(at(400)), std::logic_error);
    EXPECT_THROW(backwards.FirstShowingAfter(FrameIndex(1), at(400)), std::logic_error);
}

} // namespace
} // namespace Kestra::Proc
