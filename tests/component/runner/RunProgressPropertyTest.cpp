// SPDX-License-Identifier: GPL-3.0-or-later
// The arithmetic of progress against exact numbers, over everything that an engine could ever report.
#include "Export/RunProgress.h"
#include "Types/Time.h"
#include <algorithm>
#include <boost/multiprecision/cpp_int.hpp>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck.h>
#include <vector>

using Export::overallPercent;
using Export::PassProgress;
using Export::remainingTime;
using Export::RunPosition;

namespace {

/// Wide enough for every product below.
using Whole = boost::multiprecision::int512_t;

constexpr KTime UNKNOWN{-1};
constexpr std::int64_t HIGHEST = std::numeric_limits<std::int64_t>::max();

template <class T>
rc::Gen<T> anyNumber() {
    using Limits = std::numeric_limits<T>;
    const auto whole = rc::gen::inRange<T>(Limits::min(), Limits::max());
    const auto notable = rc::gen::elementOf(std::vector<T>{Limits::min(), Limits::max(), 0, 1, T(-1), 2, 1000});
    return rc::gen::weightedOneOf<T>({{3, whole}, {2, rc::gen::arbitrary<T>()}, {1, notable}});
}

/// Of one pass or of two.
RunPosition anyPosition() {
    RunPosition run;
    run.passCount = *rc::gen::inRange(1, 3);
    run.passIndex = *rc::gen::inRange(0, run.passCount);
    // A clock that jumps shows as time that was never spent, or as negative time.
    run.elapsed = KTime(*anyNumber<std::int64_t>());
    return run;
}

PassProgress anyReport() {
    return {*anyNumber<std::int32_t>(), *anyNumber<std::int64_t>(), *anyNumber<std::int64_t>(),
            *anyNumber<std::int32_t>(), *anyNumber<std::int32_t>()};
}

/// A report of the first of two passes that is settled and moves within its duration: up to a year, in engine time.
PassProgress sensibleReport() {
    constexpr std::int64_t millisecond = 705'600;
    PassProgress pass;
    pass.duration = *rc::gen::inRange<std::int64_t>(1, std::int64_t{366} * 86'400'000) * millisecond;
    pass.position = *rc::gen::inRange<std::int64_t>(millisecond, pass.duration + 1);
    pass.percent = *rc::gen::inRange(0, 101);
    pass.elapsedSeconds = *rc::gen::inRange(2, 1'000'000);
    pass.remainingSeconds = *rc::gen::inRange(-1, 1'000'000);
    return pass;
}

bool settled(const PassProgress& pass) {
    return pass.elapsedSeconds != -1 && Whole(pass.elapsedSeconds) * 1000 >= 2000;
}

Whole durationOf(const PassProgress& pass) {
    return Types::fromAvTime(pass.duration).count();
}

Whole positionOf(const PassProgress& pass) {
    return Types::fromAvTime(pass.position).count();
}

Whole doneOf(const PassProgress& pass, const RunPosition& run) {
    return run.passIndex * durationOf(pass) + positionOf(pass);
}

/// The exact estimate is this over what has been done: the time spent times what is still to be done.
Whole estimateTimesDone(const PassProgress& pass, const RunPosition& run) {
    return run.elapsed.count() * (run.passCount * durationOf(pass) - doneOf(pass, run));
}

} // namespace

TEST(RunProgressProperty, PercentIsTheExactShareTowardsZero) {
    EXPECT_TRUE(rc::check("any report of one pass or two", [] {
        const RunPosition run = anyPosition();
        const PassProgress pass = anyReport();
        // The division of whole numbers is towards zero.
        RC_ASSERT(overallPercent(pass, run) == (Whole(run.passIndex) * 100 + pass.percent) / run.passCount);
    }));
}

TEST(RunProgressProperty, PercentNeverFallsWhileThatOfThePassesDoesNot) {
    EXPECT_TRUE(rc::check("rising percents, pass by pass", [] {
        const int count = *rc::gen::inRange(1, 3);
        int last = 0;
        for (int index = 0; index < count; ++index) {
            auto percents = *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 101));
            percents.push_back(100);
            std::sort(percents.begin(), percents.end());
            for (const int percent : percents) {
                PassProgress pass = anyReport();
                pass.percent = percent;
                const int overall = overallPercent(pass, {index, count, KTime(0)});
                RC_ASSERT(overall >= last);
                RC_ASSERT(overall <= 100);
                last = overall;
            }
        }
        RC_ASSERT(last == 100);
    }));
}

TEST(RunProgressProperty, RemainingTimeIsUnknownUntilThePassHasSettled) {
    EXPECT_TRUE(rc::check("any report", [] {
        const PassProgress pass = anyReport();
        const RunPosition run = anyPosition();
        if (!settled(pass))
            RC_ASSERT(remainingTime(pass, run) == UNKNOWN);
    }));
}

TEST(RunProgressProperty, RemainingTimeOfTheLastPassIsTheEnginesToTheMillisecond) {
    EXPECT_TRUE(rc::check("any settled report of the last pass", [] {
        PassProgress pass = anyReport();
        pass.elapsedSeconds = *rc::gen::inRange(2, std::numeric_limits<std::int32_t>::max());
        RunPosition run = anyPosition();
        run.passIndex = run.passCount - 1;
        const Whole exact = pass.remainingSeconds == -1 ? Whole(-1) : Whole(pass.remainingSeconds) * 1000;
        RC_ASSERT(remainingTime(pass, run).count() == exact);
    }));
}

TEST(RunProgressProperty, RemainingTimeOfAnEarlierPassIsTheExactEstimateWithoutItsFraction) {
    EXPECT_TRUE(rc::check("sensible reports of the first of two passes", [] {
        const PassProgress pass = sensibleReport();
        const RunPosition run{0, 2, KTime(*rc::gen::inRange<std::int64_t>(0, std::int64_t{30} * 86'400'000))};
        const Whole exact = estimateTimesDone(pass, run);
        const Whole done = doneOf(pass, run);
        if (exact / done > HIGHEST / 2)
            return;
        // Doubles carry 53 bits and three operations round: all is compared in units of 2^-50.
        const Whole found = remainingTime(pass, run).count();
        const Whole rounding = exact + (done << 30);
        RC_ASSERT((found * done << 50) <= (exact << 50) + rounding);
        RC_ASSERT(((found + 1) * done << 50) > (exact << 50) - rounding);
    }));
}

TEST(RunProgressProperty, RemainingTimeIsUnknownWithNothingDone) {
    EXPECT_TRUE(rc::check("position and passes so far add up to nothing", [] {
        PassProgress pass = anyReport();
        pass.elapsedSeconds = 5;
        pass.position = 0;
        RC_ASSERT(remainingTime(pass, {0, 2, KTime(*anyNumber<std::int64_t>())}) == UNKNOWN);
        pass.duration = 0;
        RC_ASSERT(remainingTime(pass, {1, 3, KTime(*anyNumber<std::int64_t>())}) == UNKNOWN);
    }));
}

TEST(RunProgressProperty, AnyReportHasAnAnswerNearTheExactOneOrNone) {
    EXPECT_TRUE(rc::check("any report of an earlier pass", [] {
        PassProgress pass = anyReport();
        pass.elapsedSeconds = 5;
        const RunPosition run{*rc::gen::inRange(0, 2), 3, KTime(*anyNumber<std::int64_t>())};
        const KTime found = remainingTime(pass, run);
        const Whole done = doneOf(pass, run);
        if (done == 0 || found == UNKNOWN) {
            RC_ASSERT(found == UNKNOWN);
            return;
        }
        const Whole duration = abs(durationOf(pass));
        const Whole position = abs(positionOf(pass));
        // Where large numbers nearly cancel, the doubles that the formula asks for leave nothing to compare.
        if (abs(done) * 1024 < duration + position)
            return;
        const Whole off = abs(found.count() * done - estimateTimesDone(pass, run));
        const Whole magnitude = abs(Whole(run.elapsed.count())) * (duration * 4 + position);
        RC_ASSERT((off << 38) <= (abs(done) << 38) + magnitude);
    }));
}

TEST(RunProgressProperty, WhatDoesNotFitIsUnknown) {
    EXPECT_TRUE(rc::check("estimates far beyond the range", [] {
        PassProgress pass = sensibleReport();
        pass.position = 705'600; // a millisecond
        pass.duration = *rc::gen::inRange<std::int64_t>(HIGHEST / 2, HIGHEST);
        const std::int64_t elapsed = *rc::gen::inRange<std::int64_t>(HIGHEST / 1024, HIGHEST);
        const bool backwards = *rc::gen::arbitrary<bool>();
        RC_ASSERT(remainingTime(pass, {0, 2, KTime(backwards ? -elapsed : elapsed)}) == UNKNOWN);
    }));
}

TEST(RunProgressProperty, AClockThatWentBackGivesTheEstimateItsSign) {
    EXPECT_TRUE(rc::check("the same report with the time spent negated", [] {
        const PassProgress pass = sensibleReport();
        const std::int64_t elapsed = *rc::gen::inRange<std::int64_t>(1, 86'400'000);
        const KTime forwards = remainingTime(pass, {0, 2, KTime(elapsed)});
        const KTime backwards = remainingTime(pass, {0, 2, KTime(-elapsed)});
        RC_ASSERT(forwards == -backwards);
    }));
}
