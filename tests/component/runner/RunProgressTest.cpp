// SPDX-License-Identifier: GPL-3.0-or-later
#include "Export/RunProgress.h"
#include <gtest/gtest.h>
#include <limits>

using Export::overallPercent;
using Export::PassProgress;
using Export::remainingTime;
using Export::RunPosition;

namespace {

constexpr std::int64_t SECOND = 705'600'000;
constexpr KTime UNKNOWN{-1};
constexpr std::int64_t LOWEST = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t HIGHEST = std::numeric_limits<std::int64_t>::max();

/// `position` of ten seconds, settled.
PassProgress at(std::int64_t position, std::int32_t remainingSeconds = 3) {
    return {50, position, 10 * SECOND, 5, remainingSeconds};
}

RunPosition pass(std::int32_t index, std::int32_t count, qint64 elapsedMilliseconds = 6000) {
    return {index, count, KTime(elapsedMilliseconds)};
}

std::int32_t percentOf(std::int32_t percent, std::int32_t index, std::int32_t count) {
    return overallPercent({percent, 0, 0, 0, 0}, pass(index, count));
}

} // namespace

TEST(RunProgress, OnePassIsTheWholeHundred) {
    for (int percent = 0; percent <= 100; ++percent)
        EXPECT_EQ(percentOf(percent, 0, 1), percent);
}

TEST(RunProgress, EachOfTwoPassesIsAHalf) {
    EXPECT_EQ(percentOf(0, 0, 2), 0);
    EXPECT_EQ(percentOf(50, 0, 2), 25);
    EXPECT_EQ(percentOf(100, 0, 2), 50);
    EXPECT_EQ(percentOf(0, 1, 2), 50);
    EXPECT_EQ(percentOf(50, 1, 2), 75);
    EXPECT_EQ(percentOf(100, 1, 2), 100);
}

TEST(RunProgress, PercentIsTruncatedTowardsZero) {
    EXPECT_EQ(percentOf(99, 0, 2), 49);
    EXPECT_EQ(percentOf(-1, 0, 2), 0);
    EXPECT_EQ(percentOf(50, 2, 3), 83);
}

TEST(RunProgress, PercentOfTheLastPassDoesNotOverflow) {
    EXPECT_EQ(percentOf(std::numeric_limits<std::int32_t>::max(), 1, 2), 1'073'741'873);
}

TEST(RunProgress, TheLastPassTakesTheEnginesEstimate) {
    EXPECT_EQ(remainingTime(at(SECOND, 42), pass(0, 1)), KTime(42'000));
    EXPECT_EQ(remainingTime(at(SECOND, 42), pass(1, 2)), KTime(42'000));
    EXPECT_EQ(remainingTime(at(SECOND, 0), pass(1, 2)), KTime(0));
    EXPECT_EQ(remainingTime(at(SECOND, -1), pass(1, 2)), UNKNOWN);
    EXPECT_EQ(remainingTime(at(SECOND, 2'147'483'647), pass(0, 1)), KTime(2'147'483'647'000));
}

TEST(RunProgress, AnEarlierPassExtrapolatesTheTimeSpent) {
    // 6 s for 5 of 20 seconds leave 18 s for the other 15.
    EXPECT_EQ(remainingTime(at(5 * SECOND), pass(0, 2)), KTime(18'000));
    // The second of three: 15 of 30 seconds done.
    EXPECT_EQ(remainingTime(at(5 * SECOND), pass(1, 3)), KTime(6'000));
    // 1 s for 3 of 20: 5666.67 ms, truncated.
    EXPECT_EQ(remainingTime(at(3 * SECOND), pass(0, 2, 1000)), KTime(5'666));
}

TEST(RunProgress, AnEarlierPassIgnoresTheEnginesEstimate) {
    EXPECT_EQ(remainingTime(at(5 * SECOND, -1), pass(0, 2)), KTime(18'000));
}

TEST(RunProgress, RemainingTimeIsUnknownInTheFirstTwoSecondsOfAnyPass) {
    for (const int elapsedSeconds : {-1, 0, 1, -7, std::numeric_limits<int>::min()}) {
        PassProgress settling = at(5 * SECOND, 30);
        settling.elapsedSeconds = elapsedSeconds;
        EXPECT_EQ(remainingTime(settling, pass(0, 1)), UNKNOWN);
        EXPECT_EQ(remainingTime(settling, pass(0, 2)), UNKNOWN);
        EXPECT_EQ(remainingTime(settling, pass(1, 2)), UNKNOWN);
    }
    PassProgress settled = at(5 * SECOND, 30);
    settled.elapsedSeconds = 2;
    EXPECT_EQ(remainingTime(settled, pass(0, 1)), KTime(30'000));
    EXPECT_EQ(remainingTime(settled, pass(0, 2)), KTime(18'000));
}

TEST(RunProgress, NothingDoneIsUnknownInsteadOfADivisionByZero) {
    EXPECT_EQ(remainingTime(at(0), pass(0, 2)), UNKNOWN);
    EXPECT_EQ(remainingTime(at(0), pass(0, 2, 0)), UNKNOWN);
    EXPECT_EQ(remainingTime({0, 0, 0, 5, 3}, pass(1, 3)), UNKNOWN);
}

TEST(RunProgress, WhatFitsNowhereIsUnknown) {
    // One millisecond done of the longest duration, after the longest time.
    const std::int64_t millisecond = SECOND / 1000;
    EXPECT_EQ(remainingTime({0, millisecond, HIGHEST, 5, 3}, {0, 2, KTime(HIGHEST)}), UNKNOWN);
    EXPECT_EQ(remainingTime({0, millisecond, LOWEST, 5, 3}, {0, 2, KTime(HIGHEST)}), UNKNOWN);
}

TEST(RunProgress, NoTimeSpentIsNoTimeLeftAtTheEndsOfEveryRange) {
    for (const std::int64_t position : {LOWEST, std::int64_t{0}, HIGHEST}) {
        for (const std::int64_t duration : {LOWEST, std::int64_t{0}, HIGHEST}) {
            for (const std::int32_t index : {0, 1, 3}) {
                const KTime remaining = remainingTime({0, position, duration, 5, 5}, pass(index, 3, 0));
                EXPECT_TRUE(remaining == KTime(0) || remaining == UNKNOWN) << remaining.count();
            }
        }
    }
}

TEST(RunProgress, TheEndsOfEveryRangeGiveTheSignOfTheTimeSpentOrNothing) {
    for (const std::int64_t position : {LOWEST, HIGHEST}) {
        for (const std::int64_t duration : {LOWEST, HIGHEST}) {
            const PassProgress extreme{0, position, duration, 5, 5};
            const KTime ahead = remainingTime(extreme, {0, 3, KTime(HIGHEST)});
            const KTime behind = remainingTime(extreme, {0, 3, KTime(-HIGHEST)});
            EXPECT_TRUE(ahead == UNKNOWN || behind == UNKNOWN || ahead == -behind) << position << ' ' << duration;
        }
    }
}
