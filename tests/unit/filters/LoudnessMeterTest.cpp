// SPDX-License-Identifier: GPL-3.0-or-later
// How loud sound is, beside the signals of EBU Tech 3341.
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "fakes/streams/SyntheticAudio.h"
#include <cmath>
#include <functional>
#include <gtest/gtest.h>

namespace Kestra {
namespace {

constexpr int RATE = 48000;
constexpr double PI = 3.14159265358979;

Proc::Loudness loudnessOf(Fakes::AudioShape shape) {
    const auto meter = Core::CoreManager::Instance().GetFilterFactory().CreateLoudnessMeter();
    const auto sound = Fakes::MakeAudio(shape);
    while (const auto block = sound->ReadAudio())
        meter->Hear(*block);
    return meter->Finish();
}

/// A tone of 1 kHz; its level in dB depends on the second.
Fakes::AudioShape toneAt(int seconds, std::function<double(double second)> level) {
    Fakes::AudioShape shape;
    shape.samples = std::int64_t{seconds} * RATE;
    shape.wave = [level = std::move(level)](int, std::int64_t index) {
        const double time = static_cast<double>(index) / RATE;
        return std::pow(10, level(time) / 20) * std::sin(2 * PI * 1000 * time);
    };
    return shape;
}

} // namespace

TEST(LoudnessMeter, MeasuresATone) {
    for (const double level : {-23.0, -33.0}) {
        const Proc::Loudness loudness = loudnessOf(toneAt(5, [level](double) { return level; }));
        ASSERT_TRUE(loudness.integrated);
        EXPECT_NEAR(*loudness.integrated, level, 0.1);
        EXPECT_NEAR(20 * std::log10(loudness.truePeak), level, 0.3);
    }
}

TEST(LoudnessMeter, LeavesQuietPartsOutOfTheWhole) {
    const auto level = [](double second) { return second >= 4 && second < 12 ? -23.0 : -60.0; };
    // All of it together would have -26; the blocks of the edges count in part.
    EXPECT_NEAR(loudnessOf(toneAt(16, level)).integrated.value_or(0), -23, 0.25);
}

TEST(LoudnessMeter, HearsEveryFormatAndLayout) {
    for (const Conf::SampleFormats format : {Conf::SAMPLE_FORMAT_S16, Conf::SAMPLE_FORMAT_S32}) {
        Fakes::AudioShape shape = toneAt(2, [](double) { return -20.0; });
        shape.format = format;
        EXPECT_NEAR(loudnessOf(shape).integrated.value_or(0), -20, 0.1);
    }
    Fakes::AudioShape mono = toneAt(2, [](double) { return -20.0; });
    mono.layout = Conf::CHANNEL_LAYOUT_MONO;
    EXPECT_NEAR(loudnessOf(mono).integrated.value_or(0), -23, 0.1); // half as much sound
}

TEST(LoudnessMeter, FindsPeaksBetweenSamples) {
    Fakes::AudioShape shape;
    shape.samples = RATE;
    // A quarter of the rate, sampled an eighth of a turn beside its peaks.
    shape.wave = [](int, std::int64_t index) { return 0.5 * std::sin(PI / 2 * static_cast<double>(index) + PI / 4); };
    EXPECT_NEAR(loudnessOf(shape).truePeak, 0.5, 0.05); // no sample goes beyond 0.354
}

TEST(LoudnessMeter, SaysNothingOfSilenceAndOfWhatIsTooShort) {
    EXPECT_FALSE(loudnessOf(toneAt(0, [](double) { return -20.0; })).integrated);
    EXPECT_FALSE(loudnessOf(toneAt(2, [](double) { return -200.0; })).integrated);
    Fakes::AudioShape shape = toneAt(1, [](double) { return -20.0; });
    shape.samples = RATE / 4;
    EXPECT_FALSE(loudnessOf(shape).integrated);
}

} // namespace Kestra
