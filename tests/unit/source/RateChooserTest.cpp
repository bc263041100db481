// SPDX-License-Identifier: GPL-3.0-or-later
// Which rate is chosen for pictures that come at these times.
#include "Kestra/FF/Probe/RateChooser.h"
#include "Kestra/Base/Time.h"
#include "Kestra/Proc/RateNote.h"
#include <cmath>
#include <gtest/gtest.h>

namespace Kestra::FF {
namespace {

using Times = std::vector<std::int64_t>;
using Rate = RateChooser::Rate;

constexpr std::int64_t FINE = TIME_BASE / 90000;
constexpr std::int64_t MILLISECOND = TIME_BASE / 1000;

std::int64_t rounded(double seconds, std::int64_t tick) {
    return std::llround(seconds * TIME_BASE / static_cast<double>(tick)) * tick;
}

/// `jitter` seconds either way, the same every time.
Times even(double rate, int count, double jitter = 0, std::int64_t tick = FINE) {
    Times times;
    unsigned random = 12345;
    for (int index = 0; index < count; ++index) {
        random = random * 1664525 + 1013904223;
        const double off = (static_cast<double>(random >> 8) / (1 << 24) * 2 - 1) * jitter;
        times.push_back(rounded(1 + index / rate + off, tick));
    }
    return times;
}

/// Bursts of pictures, each at its own rate.
Times bursts(const std::vector<std::pair<double, int>>& parts, std::int64_t tick = FINE) {
    Times times;
    double time = 0;
    for (const auto& [rate, count] : parts)
        for (int index = 0; index < count; ++index, time += 1 / rate)
            times.push_back(rounded(time, tick));
    return times;
}

RateChoice choose(const Times& times, std::int64_t tick = FINE, const Rate& nominal = 0) {
    return RateChooser({times}, tick, nominal).Choose();
}

TEST(RateChooser, TakesAStandardRateForWhatIsNextToIt) {
    for (const double rate : {29.97 * 1.0004, 29.85, 30.14}) {
        const RateChoice choice = choose(even(rate, 300));
        EXPECT_EQ(choice.rate, rate < 30 && rate > 29.9 ? Rate(30000, 1001) : rate > 30 ? Rate(30) : Rate(30000, 1001));
        EXPECT_FALSE(choice.variable);
    }
    EXPECT_EQ(choose(even(24.9, 200)).rate, Rate(25));
    EXPECT_EQ(choose(even(12.47, 200)).rate, Rate(25, 2));
}

/// Parts of so many pictures at one rate, each `late` seconds later than it would follow on.
Times joined(double rate, int parts, int pictures, double late, std::int64_t tick = FINE) {
    Times times;
    for (int index = 0; index < parts * pictures; ++index)
        times.push_back(rounded(index / rate + index / pictures * late, tick));
    return times;
}

TEST(RateChooser, KeepsTheRateOfPartsThatAreJoinedOffItsGrid) {
    for (const Rate& rate : {Rate(25), Rate(30), Rate(30000, 1001), Rate(24000, 1001), Rate(50)})
        for (const std::int64_t tick : {FINE, MILLISECOND})
            for (const double part : {0.33, 0.7, 0.8}) {
                const double each = boost::rational_cast<double>(rate);
                const RateChoice many = choose(joined(each, 10, 37, part / each, tick), tick);
                EXPECT_EQ(many.rate, rate) << part;
                EXPECT_TRUE(many.variable) << part;
                const RateChoice few = choose(joined(each, 2, 500, part / each, tick), tick);
                EXPECT_EQ(few.rate, rate) << part;
            }
    // Of half the distances that would be another matter.
    EXPECT_NE(choose(joined(25, 100, 2, 0.013)).rate, Rate(25));
}

TEST(RateChooser, KeepsAConstantRateThatIsNoStandardOne) {
    EXPECT_EQ(choose(even(7.5, 100)).rate, Rate(15, 2));
    EXPECT_EQ(choose(even(1, 100)).rate, Rate(1));
    EXPECT_EQ(choose(even(0.2, 10)).rate, Rate(1, 5));
    EXPECT_EQ(choose(even(33, 300)).rate, Rate(33));
    EXPECT_FALSE(choose(even(33, 300)).variable);
}

TEST(RateChooser, KeepsConstantRatesAboveSixty) {
    EXPECT_EQ(choose(even(100, 500)).rate, Rate(100));
    EXPECT_EQ(choose(even(120000 / 1001.0, 500)).rate, Rate(120000, 1001));
    EXPECT_EQ(choose(even(120, 500)).rate, Rate(120));
    EXPECT_EQ(choose(even(240, 900)).rate, Rate(240));
}

TEST(RateChooser, SeesAConstantRateThroughAClockOfMilliseconds) {
    EXPECT_EQ(choose(even(30000 / 1001.0, 300, 0, MILLISECOND), MILLISECOND).rate, Rate(30000, 1001));
    EXPECT_EQ(choose(even(60, 300, 0, MILLISECOND), MILLISECOND).rate, Rate(60));
    EXPECT_FALSE(choose(even(60, 300, 0, MILLISECOND), MILLISECOND).variable);
}

TEST(RateChooser, LetsTheHeaderDecideWhatAShortRunCannot) {
    const Times few = even(30000 / 1001.0, 6, 0, MILLISECOND);
    EXPECT_EQ(choose(few, MILLISECOND, Rate(30000, 1001)).rate, Rate(30000, 1001));
    EXPECT_EQ(choose(few, MILLISECOND, Rate(30)).rate, Rate(30));
}

TEST(RateChooser, DoesNotBelieveAHeaderThatPicturesContradict) {
    EXPECT_EQ(choose(even(30, 300), FINE, Rate(52600, 7131)).rate, Rate(30));
    EXPECT_EQ(choose(even(25, 300), FINE, Rate(50)).rate, Rate(25));
}

TEST(RateChooser, ShowsEveryPictureThatJittersAroundItsGrid) {
    for (const int rate : {25, 30, 50, 60}) {
        const RateChoice choice = choose(even(rate, 150, 0.006));
        EXPECT_EQ(choice.rate, Rate(rate));
        EXPECT_EQ(choice.shown, 150U) << rate;
        EXPECT_TRUE(choice.variable) << rate;
    }
}

TEST(RateChooser, KeepsTheGridOfARecordingThatLostPictures) {
    Times times = even(25, 200);
    for (const int lost : {150, 90, 31, 30})
        times.erase(times.begin() + lost);
    const RateChoice choice = choose(times);
    EXPECT_EQ(choice.rate, Rate(25));
    EXPECT_EQ(choice.shown, 196U);
    EXPECT_FALSE(choice.variable) << "what is lost now and then is no variable rate";
}

TEST(RateChooser, DoesNotTakeAnEvenLossOfPicturesForALowerRate) {
    // Of every 25 pictures one repeats the one before and is not stored: on average they are those of film.
    for (const std::int64_t tick : {FINE, MILLISECOND, TIME_BASE / 25}) {
        Times times = even(25, 100, 0, tick);
        for (const int lost : {76, 51, 26, 1})
            times.erase(times.begin() + lost);
        const RateChoice choice = choose(times, tick, 25);
        EXPECT_EQ(choice.rate, Rate(25)) << tick;
        EXPECT_EQ(choice.shown, 96U) << tick;
        EXPECT_FALSE(choice.variable) << tick;
    }
}

TEST(RateChooser, KeepsTheGridOfAScreenThatSeldomChanges) {
    const Times all = even(30, 300);
    Times times;
    for (std::size_t index = 0; index < all.size(); index += 2 + index % 5)
        times.push_back(all[index]);
    const RateChoice choice = choose(times);
    EXPECT_EQ(choice.rate, Rate(30));
    EXPECT_EQ(choice.shown, times.size());
    EXPECT_TRUE(choice.variable);
}

TEST(RateChooser, TakesTheLowestStandardRateThatShowsNearlyAll) {
    const Times times = bursts({{25, 12}, {40, 10}, {31, 14}, {27, 12}, {36, 15}});
    const RateChoice choice = choose(times, FINE, Rate(52600, 7131));
    EXPECT_TRUE(choice.variable);
    EXPECT_GE(choice.shown, std::ceil(0.95 * 63));
    // 25 would lose one in five.
    EXPECT_TRUE(choice.rate == Rate(30000, 1001) || choice.rate == Rate(30)) << choice.rate;
    EXPECT_EQ(choice.frames, 63U);
}

TEST(RateChooser, TakesSixtyForFilmAndThenSixty) {
    const RateChoice choice = choose(bursts({{24, 89}, {60, 120}}));
    EXPECT_EQ(choice.rate, Rate(60));
    EXPECT_EQ(choice.shown, 209U);
}

TEST(RateChooser, TakesNoMoreThanSixtyForAVariableRateAndCountsWhatIsLeftOut) {
    const RateChoice choice = choose(bursts({{97, 100}, {131, 100}, {83, 100}}));
    EXPECT_EQ(choice.rate, Rate(60));
    EXPECT_LT(choice.shown, 220U);
    EXPECT_EQ(choice.frames, 300U);
}

TEST(RateChooser, IsNotSteadyWhenTwoRunsDiffer) {
    EXPECT_TRUE(RateChooser({even(25, 30), even(25, 90)}, FINE, 0).IsSteady());
    EXPECT_FALSE(RateChooser({even(25, 30), even(30, 90)}, FINE, 0).IsSteady());
    EXPECT_FALSE(RateChooser({even(25, 30), even(25, 90, 0.008)}, FINE, 0).IsSteady());
}

TEST(RateChooser, KnowsTheHeaderOnlyWhereNoTimesAre) {
    EXPECT_EQ(RateChooser({}, FINE, Rate(2997, 100)).Choose().rate, Rate(30000, 1001));
    EXPECT_EQ(RateChooser({}, FINE, Rate(7)).Choose().rate, Rate(7));
    EXPECT_EQ(RateChooser({}, FINE, 0).Choose().rate, Rate(0));
}

std::string noteOf(const RateChoice& choice, bool whole, const Rate& shown) {
    Proc::VideoTrackInfo track;
    track.frameRate = choice.rate;
    track.variableFrameRate = choice.variable;
    track.leftOut = DescribeLeftOut(choice, whole);
    return Proc::RateNote(track, shown);
}

TEST(RateChooser, SaysWhatItChose) {
    EXPECT_EQ(noteOf({Rate(30000, 1001), true, 63, 63}, true, Rate(30000, 1001)),
              "variable frame rate, shown at 29.97 frames a second");
    EXPECT_EQ(noteOf({Rate(25, 2), true, 63, 61}, true, Rate(25, 2)),
              "variable frame rate, shown at 12.5 frames a second, which leaves out 2 of its 63 pictures");
    EXPECT_EQ(noteOf({Rate(30), true, 63, 62}, false, Rate(30)),
              "variable frame rate, shown at 30 frames a second, which leaves out 1 of the first 63 pictures");
    EXPECT_EQ(noteOf({Rate(30), false, 63, 63}, true, Rate(30)), "");
}

TEST(RateChooser, SaysAtWhichOtherRateItsPicturesAreShown) {
    const RateChoice choice{Rate(30), true, 63, 62};
    EXPECT_EQ(noteOf(choice, true, Rate(50)), "variable frame rate, shown at 50 frames a second");
    EXPECT_EQ(noteOf(choice, true, Rate(24000, 1001)),
              "variable frame rate, shown at 23.976 frames a second, which leaves out pictures");
}

} // namespace
} // namespace Kestra::FF
