// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/RunForecast.h"
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <optional>

using ExportCore::RunForecast;

namespace {

/// One pass of a run that is played, times in milliseconds.
struct Pass {
    double length = 0;  ///< from its start to its end
    double latency = 0; ///< until the first packet comes
    double bend = 1;    ///< 1: always as fast; 2: ever slower
};

double partAt(const Pass& pass, double time) {
    const double coming = std::max(0.0, time - pass.latency) / (pass.length - pass.latency);
    return std::pow(std::min(1.0, coming), 1 / pass.bend);
}

/// What the engine says: whole seconds of the pass that it looks at, once it has looked for two of them.
qint64 guessOf(double part, double time, bool isLast, std::size_t passes) {
    constexpr double SETTLING = 2000;
    if (time < SETTLING || part <= 0)
        return -1;
    if (isLast)
        return static_cast<qint64>(std::lround(time * (1 - part) / part / 1000)) * 1000;
    const double done = part / static_cast<double>(passes);
    return static_cast<qint64>(time / done * (1 - done));
}

struct Worst {
    double error = 0; ///< as a part of what was left
    double at = 0;    ///< as a part of the run
    int unknown = 0;  ///< times that nothing was told
};

/// A pass of an encoder that holds pictures back: it takes the first of them in, then one for each that it gives, and
/// at the end gives what it has.
struct HoldingPass {
    int frames = 0;
    int held = 0;
    double opening = 0; ///< milliseconds, once
    double reading = 0; ///< of a picture
    double encoding = 0;

    int read(double time) const {
        const double filled = std::max(0.0, time - opening) / reading;
        const double after = held + (time - opening - held * reading) / (reading + encoding);
        return std::clamp(static_cast<int>(std::min(filled, std::max<double>(held, after))), 0, frames);
    }
    int given(double time) const {
        const double allRead = opening + frames * reading + (frames - held) * encoding;
        if (time > allRead)
            return std::min(frames, frames - held + static_cast<int>((time - allRead) / encoding));
        return std::max(0, read(time) - held);
    }
};

double lengthOf(const Pass& pass) {
    return pass.length;
}
double lengthOf(const HoldingPass& pass) {
    return pass.opening + pass.frames * (pass.reading + pass.encoding);
}

/// What is seen of a pass at a time from its start, nothing where nothing came.
std::optional<RunForecast::Sight> sightOf(const Pass& pass, double time, std::size_t index, std::size_t passes) {
    const double part = partAt(pass, time);
    const double percent = (100.0 * static_cast<double>(index) + std::floor(part * 100)) / static_cast<double>(passes);
    return RunForecast::Sight{static_cast<int>(percent), guessOf(part, time, index + 1 == passes, passes)};
}

std::optional<RunForecast::Sight> sightOf(const HoldingPass& pass, double time, std::size_t index, std::size_t passes) {
    const int given = pass.given(time);
    if (given == 0)
        return {};
    const int whole = given * 100 / pass.frames;
    const double percent = (100.0 * static_cast<double>(index) + whole) / static_cast<double>(passes);
    return RunForecast::Sight{static_cast<int>(percent), -1, static_cast<double>(pass.read(time)) / pass.frames};
}

/// From a tenth of the run on, until that part of it is left.
template <class AnyPass>
Worst worstOf(RunForecast& forecast, const std::vector<AnyPass>& passes, double until) {
    constexpr double INTERVAL = 100;
    double all = 0, begun = 0;
    for (const AnyPass& pass : passes)
        all += lengthOf(pass);
    Worst worst;
    for (std::size_t index = 0; index < passes.size(); ++index) {
        const double length = lengthOf(passes[index]);
        forecast.beginPass(static_cast<qint64>(begun));
        for (double time = INTERVAL; time < length; time += INTERVAL) {
            const auto now = static_cast<qint64>(begun + time);
            if (const auto sight = sightOf(passes[index], time, index, passes.size()))
                forecast.advance(*sight, now);
            const double gone = begun + time, left = all - gone;
            if (gone < all / 10 || left < all * until)
                continue;
            const qint64 told = forecast.remaining(now);
            worst.unknown += told < 0 ? 1 : 0;
            const double error = std::abs(static_cast<double>(told) - left) / left;
            if (told >= 0 && error > worst.error)
                worst = {error, gone / all, worst.unknown};
        }
        begun += length;
    }
    return worst;
}

void expectWithinThirtyPercent(RunForecast forecast, const std::vector<Pass>& passes) {
    const Worst worst = worstOf(forecast, passes, 0.05);
    EXPECT_LE(worst.error, 0.3) << "at " << worst.at << " of the run";
    EXPECT_EQ(worst.unknown, 0);
}

TEST(Forecast, OfASteadyRunIsRightFromATenthOn) {
    for (const double seconds : {10, 60, 3600, 36'000})
        expectWithinThirtyPercent(RunForecast({1, 1000, 1.5}), {{seconds * 1000, 0, 1}});
}

TEST(Forecast, IsNotMisledByAnEncoderThatLooksAheadForSeconds) {
    expectWithinThirtyPercent(RunForecast({1, 1000, 1.5}), {{40'000, 3000, 1}});
    expectWithinThirtyPercent(RunForecast({2, 1000, 2}), {{40'000, 3000, 1}, {80'000, 6000, 1}});
}

TEST(Forecast, KnowsByWhatWasReadHowFastAnEncoderIsThatHoldsPicturesBack) {
    for (const int frames : {600, 6000})
        for (const double encoding : {5.0, 15.0, 50.0}) {
            RunForecast forecast({1, frames, 1});
            const Worst worst = worstOf<HoldingPass>(forecast, {{frames, 48, 300, 10, encoding}}, 0.1);
            EXPECT_LE(worst.error, 0.3) << "at " << worst.at << " of " << frames << " pictures of " << encoding
                                        << " ms";
            EXPECT_EQ(worst.unknown, 0);
        }
}

TEST(Forecast, OfAShortFilmIsNotMisledByHowFastAnEncoderTookMostOfItIn) {
    const std::vector<HoldingPass> films{{60, 26, 300, 10, 500}, {150, 48, 300, 10, 100}, {240, 48, 300, 10, 50}};
    for (const HoldingPass& film : films) {
        RunForecast forecast({1, film.frames, 1});
        const Worst worst = worstOf<HoldingPass>(forecast, {film}, 0.2);
        EXPECT_LE(worst.error, 0.3) << "at " << worst.at << " of " << film.frames << " pictures";
        EXPECT_EQ(worst.unknown, 0);
    }
}

TEST(Forecast, KnowsFromTheFirstPassWhatWillBeDear) {
    RunForecast forecast({2, 1000, 2});
    forecast.beginPass(0);
    qint64 now = 0;
    for (int percent = 1; percent <= 50; ++percent) // of the run; the second half of a pass takes nine times as long
        forecast.advance({percent}, now += percent <= 25 ? 100 : 900);
    forecast.beginPass(now);
    for (int percent = 51; percent <= 75; ++percent)
        forecast.advance({percent}, now += 300);
    EXPECT_NEAR(static_cast<double>(forecast.remaining(now)), 25 * 2700, 2000) << "three times the first pass";
    for (int percent = 76; percent <= 90; ++percent)
        forecast.advance({percent}, now += 2700);
    EXPECT_NEAR(static_cast<double>(forecast.remaining(now)), 10 * 2700, 2000);
}

TEST(Forecast, TellsHowFarThePassHasCome) {
    RunForecast forecast({2, 1000, 1});
    forecast.beginPass(0);
    EXPECT_EQ(forecast.part(), 0);
    forecast.advance({0, -1, 0.10}, 100);
    forecast.advance({0, -1, 0.105}, 200);
    EXPECT_NEAR(forecast.part(), 0.005, 1e-9) << "a tenth is held back";
    forecast.advance({25, -1, 0.6}, 300);
    EXPECT_NEAR(forecast.part(), 0.5, 1e-9);
    forecast.beginPass(400);
    EXPECT_EQ(forecast.part(), 0);
}

TEST(Forecast, CountsWhatWasReadFromTheStartOfItsWindow) {
    EXPECT_EQ(RunForecast::partRead(0, 300, 100), 0) << "the source is brought to its place";
    EXPECT_EQ(RunForecast::partRead(325, 300, 100), 0.25);
    EXPECT_EQ(RunForecast::partRead(500, 300, 100), 1);
    EXPECT_EQ(RunForecast::partRead(500, 0, 0), -1) << "there are no pictures";
}

TEST(Forecast, BeginsEveryPassAnew) {
    RunForecast forecast({2, 600, 2.5});
    const Worst worst = worstOf<HoldingPass>(forecast, {{600, 48, 200, 10, 10}, {600, 48, 200, 10, 40}}, 0.1);
    EXPECT_LE(worst.error, 0.3) << "at " << worst.at;
    EXPECT_EQ(worst.unknown, 0);
}

TEST(Forecast, TakesPercentsForTrueWhereWhatWasReadSaysOtherwise) {
    RunForecast forecast({1, 1000, 1});
    forecast.beginPass(0);
    for (int percent = 0; percent <= 90; ++percent) { // all was read at once
        forecast.advance({percent, -1, 1.0}, percent * 100);
        const double left = 10'000 - percent * 100;
        if (percent < 10)
            continue;
        EXPECT_NEAR(static_cast<double>(forecast.remaining(percent * 100)), left, left * 0.3) << percent;
    }
}

TEST(Forecast, CountsBothPassesWhateverTheyTake) {
    for (const double ratio : {0.8, 1.0, 2.0, 4.0})
        for (const double seconds : {10, 100, 5000})
            expectWithinThirtyPercent(RunForecast({2, 1000, ratio}),
                                      {{seconds * 1000, 300, 1}, {seconds * 1000 * ratio, 600, 1}});
}

TEST(Forecast, OfALaterPassComesToGoByItsOwnPace) {
    RunForecast forecast({2, 1000, 2});
    forecast.beginPass(0);
    forecast.advance({50, 0}, 10'000);
    forecast.beginPass(10'000);
    EXPECT_EQ(forecast.remaining(10'000), 20'000) << "what is expected";
    for (int percent = 51; percent <= 75; ++percent)
        forecast.advance({percent, -1}, 10'000 + (percent - 50) * 1000);
    EXPECT_NEAR(static_cast<double>(forecast.remaining(35'000)), 25'000, 100) << "it takes five times as long";
}

TEST(Forecast, FollowsMaterialThatBecomesSlower) {
    RunForecast forecast({1, 1000, 1});
    const Worst worst = worstOf<Pass>(forecast, {{600'000, 0, 1.15}}, 0.05);
    EXPECT_LE(worst.error, 0.3) << "at " << worst.at;
}

TEST(Forecast, ForgetsWhatTheBeginningWasLike) {
    RunForecast forecast({1, 1000, 1});
    forecast.beginPass(0);
    qint64 now = 0;
    for (int percent = 1; percent <= 90; ++percent)
        forecast.advance({percent, -1}, now += percent <= 30 ? 100 : 1000);
    EXPECT_NEAR(static_cast<double>(forecast.remaining(now)), 10'000, 500);
}

TEST(Forecast, CountsDownBetweenTwoPercents) {
    RunForecast forecast({1, 100, 1});
    forecast.beginPass(0);
    forecast.advance({10, -1}, 1000);
    forecast.advance({20, -1}, 2000);
    EXPECT_EQ(forecast.remaining(2000), 8000);
    EXPECT_EQ(forecast.remaining(2500), 7500);
    EXPECT_EQ(forecast.remaining(99'000), 0);
}

TEST(Forecast, TellsFramesASecondOfThePassThatRuns) {
    RunForecast forecast({2, 1000, 1});
    EXPECT_EQ(forecast.framesPerSecond(), 0);
    forecast.beginPass(0);
    forecast.advance({5, -1}, 1000);
    forecast.advance({10, -1}, 2000);
    EXPECT_NEAR(forecast.framesPerSecond(), 100, 0.01) << "a tenth of a pass in a second";
    EXPECT_EQ(forecast.pass(), 1);
}

TEST(Forecast, IsUnknownWhileNothingHasCome) {
    RunForecast forecast({2, 1000, 1});
    EXPECT_EQ(forecast.remaining(100), -1);
    forecast.advance({10, -1}, 100);
    EXPECT_EQ(forecast.remaining(100), -1) << "no pass has begun";
    forecast.beginPass(200);
    EXPECT_EQ(forecast.remaining(300), -1);
    forecast.advance({0, -1}, 400);
    EXPECT_EQ(forecast.remaining(400), -1);
}

} // namespace
