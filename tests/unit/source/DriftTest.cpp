// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Base/Time.h"
#include "Kestra/FF/Decode/AudioDrift.h"
#include "Kestra/FF/Probe/AudioLevels.h"
#include <gtest/gtest.h>
#include <random>

namespace Kestra::FF {
namespace {

constexpr int RATE = 48000;
constexpr std::int64_t BLOCK = 1024;

/// Reads `blocks` blocks whose timestamps are `off(n)` samples late, and corrects as it is told. How far sound is off
/// at the end.
template <class Off>
double readOn(AudioDrift& drift, int blocks, const Off& off, std::int64_t* longest = nullptr) {
    double corrected = 0;
    for (int number = 0; number < blocks; ++number) {
        drift.Take(std::llround(off(number) - corrected), BLOCK);
        if (!drift.IsDue())
            continue;
        const std::int64_t correction = drift.Correct();
        corrected += static_cast<double>(correction);
        if (longest)
            *longest = std::max(*longest, std::abs(correction));
    }
    return off(blocks - 1) - corrected;
}

TEST(AudioDrift, OfNothingCorrectsNothing) {
    AudioDrift drift(RATE, 0);
    std::int64_t longest = 0;
    readOn(
        drift, 2000, [](int number) { return number % 3 * 24; }, &longest);
    EXPECT_EQ(longest, 0);
}

TEST(AudioDrift, OfJitterCorrectsNothing) {
    std::mt19937 random(5);
    std::uniform_int_distribution<int> jitter(-20 * RATE / 1000, 20 * RATE / 1000);
    AudioDrift drift(RATE, 0);
    std::int64_t longest = 0;
    readOn(
        drift, 10000, [&](int) { return jitter(random); }, &longest);
    EXPECT_EQ(longest, 0);
    EXPECT_NEAR(static_cast<double>(drift.GetHabit().jitter), 20.0 * RATE / 1000 * 2 / 3, 80);
}

TEST(AudioDrift, DoesNotAccumulateOverAnHour) {
    for (const double perMillion : {-300.0, -20.0, 50.0, 500.0}) {
        AudioDrift drift(RATE, 0);
        std::int64_t longest = 0;
        const auto off = [=](int number) { return number * BLOCK * perMillion / 1e6; };
        EXPECT_LT(std::abs(readOn(drift, 3600 * RATE / BLOCK, off, &longest)), 0.005 * RATE) << perMillion;
        EXPECT_GT(longest, 0);
        EXPECT_LE(longest, drift.Distance() / 100);
    }
}

TEST(AudioDrift, OfADifferenceThatStaysIsGoneAfterSomeSeconds) {
    AudioDrift drift(RATE, 0);
    std::int64_t longest = 0;
    EXPECT_LT(std::abs(readOn(
                  drift, 10 * RATE / BLOCK, [](int) { return 480; }, &longest)),
              0.001 * RATE);
    EXPECT_LE(longest, drift.Distance() / 100);
}

constexpr std::int64_t LENGTH = SamplesToTime(960, RATE);
constexpr std::int64_t MILLISECOND = TIME_BASE / 1000;

TEST(AudioLevels, OfRoundedTimestampsAreSteady) {
    AudioLevels levels;
    for (std::int64_t number = 0; number < 500; ++number)
        levels.Take(number * LENGTH / MILLISECOND * MILLISECOND, LENGTH + number % 2);
    EXPECT_FALSE(levels.AreJittery());
}

TEST(AudioLevels, OfGapsAreSteady) {
    AudioLevels levels;
    for (std::int64_t number = 0; number < 500; ++number)
        levels.Take(number * LENGTH + number / 20 * 30 * MILLISECOND, LENGTH);
    EXPECT_FALSE(levels.AreJittery());
}

TEST(AudioLevels, OfJitterTellWhereSamplesBeginAndEnd) {
    std::mt19937 random(9);
    std::uniform_int_distribution<std::int64_t> jitter(-10, 10);
    AudioLevels levels;
    levels.Take(108 * MILLISECOND, LENGTH);
    for (std::int64_t number = 1; number < 500; ++number)
        levels.Take(number * LENGTH + (100 + jitter(random)) * MILLISECOND, LENGTH);
    EXPECT_TRUE(levels.AreJittery());
    EXPECT_NEAR(static_cast<double>(levels.GetStart()), 100.0 * MILLISECOND, MILLISECOND);
    EXPECT_EQ(levels.GetEnd() - levels.GetStart(), 500 * LENGTH);
    EXPECT_NEAR(static_cast<double>(levels.GetStartCorrection()), -8.0 * MILLISECOND, MILLISECOND);
}

TEST(AudioLevels, OfJitterAndAGapEndWhereTheLastTimestampsMean) {
    std::mt19937 random(9);
    std::uniform_int_distribution<std::int64_t> jitter(-10, 10);
    AudioLevels levels;
    for (std::int64_t number = 0; number < 500; ++number)
        levels.Take(number * LENGTH + (jitter(random) + (number < 200 ? 0 : 700)) * MILLISECOND, LENGTH);
    EXPECT_TRUE(levels.AreJittery());
    EXPECT_NEAR(static_cast<double>(levels.GetEnd()), 500.0 * LENGTH + 700.0 * MILLISECOND, 2.0 * MILLISECOND);
    EXPECT_NEAR(static_cast<double>(levels.GetStart()), 0, 2.0 * MILLISECOND);
}

} // namespace
} // namespace Kestra::FF
