// SPDX-License-Identifier: GPL-3.0-or-later
// Counts of one unit, and the grids that relate them.
#include "Kestra/Base/FrameGrid.h"
#include "Kestra/Base/SampleGrid.h"
#include "Kestra/Base/TimeMap.h"
#include <gtest/gtest.h>
#include <stdexcept>
#include <type_traits>

namespace Kestra {
namespace {

using Rate = boost::rational<long long>;

template <class A, class B, class = void>
struct Adds : std::false_type {};
template <class A, class B>
struct Adds<A, B, std::void_t<decltype(std::declval<A>() + std::declval<B>())>> : std::true_type {};

TEST(Quantities, OfDifferentUnitsDoNotMeet) {
    EXPECT_TRUE((Adds<Ticks, Ticks>::value));
    EXPECT_FALSE((Adds<Ticks, FrameIndex>::value));
    EXPECT_FALSE((Adds<SampleIndex, FrameIndex>::value));
    EXPECT_FALSE((Adds<Ticks, std::int64_t>::value));
    EXPECT_FALSE((std::is_convertible_v<std::int64_t, Ticks>));
    EXPECT_FALSE((std::is_convertible_v<Ticks, std::int64_t>));
    EXPECT_FALSE((std::is_constructible_v<FrameIndex, SampleIndex>));
}

TEST(FrameGrid, PutsEachTimeIntoThePeriodThatCoversIt) {
    const FrameGrid grid(Rate(30000, 1001));
    for (FrameIndex index(-3); index < FrameIndex(1000); ++index) {
        const Ticks begin = grid.Begin(index);
        const Ticks end = grid.Begin(index + FrameIndex(1));
        EXPECT_EQ(grid.Covering(begin), index);
        EXPECT_EQ(grid.Covering(end - Ticks(1)), index);
        EXPECT_EQ(grid.Nearest(begin), index);
        EXPECT_EQ(grid.Nearest(end - Ticks(1)), index + FrameIndex(1));
        EXPECT_EQ((grid.Middle(index) - begin).Value(), (end - begin).Value() / 2);
    }
}

TEST(FrameGrid, AddsNothingUp) {
    const FrameGrid grid(Rate(30000, 1001));
    EXPECT_EQ(grid.Begin(FrameIndex(30000LL * 3600)), Ticks(1001LL * 3600 * TIME_BASE));
}

TEST(Grids, NeedARate) {
    EXPECT_THROW(FrameGrid(Rate(0)), std::invalid_argument);
    EXPECT_THROW(FrameGrid(Rate(-25)), std::invalid_argument);
    EXPECT_THROW(SampleGrid(0), std::invalid_argument);
    EXPECT_THROW(SampleGrid(-48000), std::invalid_argument);
}

TEST(SampleGrid, FindsEverySampleAgain) {
    const SampleGrid grid(44100);
    for (SampleIndex index(-5); index < SampleIndex(100000); index += SampleIndex(997))
        EXPECT_EQ(grid.Nearest(grid.Begin(index)), index);
    EXPECT_EQ(grid.Length(SampleIndex(44100)), Ticks(TIME_BASE));
}

TEST(TimeMap, ShowsEachTimeAtItsOwnUnlessItIsToldOtherwise) {
    EXPECT_EQ(TimeMap().ToSource(Ticks(12345)), Ticks(12345));
    EXPECT_EQ(TimeMap().FromSource(Ticks(12345)), Ticks(12345));
}

TEST(TimeMap, GoesThereAndBackAtEverySpeed) {
    for (const Rate& speed : {Rate(1), Rate(2), Rate(1, 2), Rate(1001, 1000), Rate(-1), Rate(-3, 7)}) {
        const TimeMap map{Ticks(1000), Ticks(700000), speed};
        EXPECT_EQ(map.ToSource(Ticks(1000)), Ticks(700000)) << speed;
        EXPECT_EQ(map.ToSource(Ticks(1000 + 7000)).Value(), 700000 + boost::rational_cast<std::int64_t>(7000 * speed))
            << speed;
        for (const std::int64_t time : {-69000, 1000, 8000, 71000})
            EXPECT_EQ(map.FromSource(map.ToSource(Ticks(time))), Ticks(time)) << speed;
    }
}

TEST(TimeMap, EndsAtTheEndsOfTheRange) {
    const TimeMap map{Ticks(0), Ticks(INT64_MAX / 2), 100};
    EXPECT_EQ(map.ToSource(Ticks(INT64_MAX / 4)), Ticks(INT64_MAX));
    EXPECT_EQ(TimeMap({Ticks(0), Ticks(INT64_MIN / 2), 100}).ToSource(Ticks(INT64_MIN / 4)), Ticks(INT64_MIN));
}

TEST(TimeMap, EndsThereToWhereWhatLiesBetweenDoesNotFit) {
    const TimeMap late{Ticks(INT64_MAX - 10), Ticks(INT64_MAX - 10)};
    EXPECT_EQ(late.ToSource(Ticks(INT64_MAX)), Ticks(INT64_MAX));
    EXPECT_EQ(late.ToSource(Ticks(INT64_MIN)), Ticks(-11)) << "as early as can be told";
    EXPECT_EQ(late.FromSource(Ticks(INT64_MIN)), Ticks(-11));
    const TimeMap early{Ticks(-10), Ticks(0), 2};
    EXPECT_EQ(early.ToSource(Ticks(INT64_MAX)), Ticks(INT64_MAX));
    EXPECT_EQ(early.FromSource(Ticks(INT64_MAX)), Ticks(INT64_MAX / 2 - 10 + 1));
    EXPECT_EQ(TimeMap({Ticks(INT64_MIN), Ticks(0), -1}).ToSource(Ticks(5)), Ticks(-INT64_MAX));
}

TEST(TimeMap, OfAFrozenFrameShowsOneTime) {
    const TimeMap map{Ticks(5), Ticks(77), 0};
    EXPECT_EQ(map.ToSource(Ticks(1000000)), Ticks(77));
    EXPECT_EQ(map.ToSource(Ticks(-3)), Ticks(77));
}

} // namespace
} // namespace Kestra
