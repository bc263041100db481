// SPDX-License-Identifier: GPL-3.0-or-later
// Peaks below a ceiling.
#include "Kestra/Base/Time.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/FF/Data/DataAudioFF.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Kestra/Proc/Interrupted.h"
#include "fakes/streams/SyntheticAudio.h"
#include <cmath>
#include <gtest/gtest.h>
#include <stdexcept>

namespace Kestra {
namespace {

using Audio = boost::intrusive_ptr<Proc::IStreamAudio>;

constexpr int RATE = 48000;
constexpr std::int64_t SAMPLES = 2 * RATE + 17;
constexpr std::int64_t LOUD_BEGIN = RATE;
constexpr std::int64_t LOUD_END = RATE + RATE / 10;

/// A tone at a quarter of full scale that is ten times as loud for a tenth of a second.
double waveAt(std::int64_t index) {
    const double level = index >= LOUD_BEGIN && index < LOUD_END ? 2.5 : 0.25;
    return level * std::sin(0.1 * static_cast<double>(index));
}

Fakes::AudioShape shapeOf(std::int64_t samples = SAMPLES) {
    Fakes::AudioShape shape;
    shape.samples = samples;
    shape.wave = [](int, std::int64_t index) { return waveAt(index); };
    return shape;
}

Audio limited(const Audio& source, double ceiling, double gain = 1) {
    return Core::CoreManager::Instance().GetFilterFactory().CreateLimiter(source, ceiling, gain);
}

std::vector<float> samplesOf(const Audio& stream) {
    std::vector<float> samples;
    const std::int64_t first = TimeToSamples(stream->GetPosition(), RATE);
    while (const auto data = stream->ReadAudio()) {
        EXPECT_EQ(data->GetTime(), SamplesToTime(first + static_cast<std::int64_t>(samples.size()), RATE));
        const AVFrame& block = FF::FrameOf(*data);
        EXPECT_EQ(block.format, AV_SAMPLE_FMT_FLTP);
        const auto* const values = reinterpret_cast<const float*>(block.extended_data[1]);
        samples.insert(samples.end(), values, values + block.nb_samples);
    }
    EXPECT_FALSE(stream->ReadAudio());
    return samples;
}

} // namespace

TEST(Limiter, LetsNothingBeyondItsCeiling) {
    for (const double ceiling : {1.0, 0.5}) {
        const auto samples = samplesOf(limited(Fakes::MakeAudio(shapeOf()), ceiling));
        float peak = 0;
        for (const float sample : samples)
            peak = std::max(peak, std::abs(sample));
        EXPECT_LE(peak, static_cast<float>(ceiling) + 1e-6F);
        EXPECT_GE(peak, static_cast<float>(ceiling) * 0.95F);
    }
}

TEST(Limiter, LeavesEverySampleInItsPlaceAndWhatIsQuietAsItIs) {
    const auto samples = samplesOf(limited(Fakes::MakeAudio(shapeOf()), 1));
    ASSERT_EQ(samples.size(), static_cast<std::size_t>(SAMPLES));
    constexpr std::int64_t AHEAD = RATE / 100;
    constexpr std::int64_t RELEASE = RATE / 4;
    for (std::int64_t index = 0; index < SAMPLES; ++index) {
        const bool quiet = index < LOUD_BEGIN - AHEAD || index > LOUD_END + RELEASE;
        ASSERT_NEAR(samples[static_cast<std::size_t>(index)], waveAt(index), quiet ? 1e-6 : 2) << index;
    }
}

TEST(Limiter, GivesAsManySamplesAsItTakesHoweverFew) {
    for (const std::int64_t count : {std::int64_t{0}, std::int64_t{1}, std::int64_t{100}, std::int64_t{1001}})
        EXPECT_EQ(samplesOf(limited(Fakes::MakeAudio(shapeOf(count)), 1)).size(), static_cast<std::size_t>(count));
}

TEST(Limiter, SeeksToTheSample) {
    const Audio stream = limited(Fakes::MakeAudio(shapeOf()), 0.5);
    const auto whole = samplesOf(stream);
    for (const std::int64_t place : {std::int64_t{0}, std::int64_t{12345}, LOUD_BEGIN + 777, LOUD_END + 1234}) {
        stream->Seek(SamplesToTime(place, RATE), Proc::SeekMode::Exact);
        EXPECT_EQ(stream->GetPosition(), SamplesToTime(place, RATE));
        const auto rest = samplesOf(stream);
        ASSERT_EQ(rest.size(), whole.size() - static_cast<std::size_t>(place));
        for (std::size_t index = 0; index < rest.size(); ++index)
            ASSERT_NEAR(rest[index], whole[index + static_cast<std::size_t>(place)], 1e-5) << place << " " << index;
    }
    stream->Seek(stream->GetDuration() + TIME_BASE, Proc::SeekMode::Exact);
    EXPECT_FALSE(stream->ReadAudio());
}

TEST(Limiter, GivesTheSameAgainAfterAReset) {
    const Audio stream = limited(Fakes::MakeAudio(shapeOf()), 0.5);
    const auto first = samplesOf(stream);
    stream->Reset();
    stream->ReadAudio();
    stream->Interrupt();
    EXPECT_THROW(samplesOf(stream), Proc::Interrupted);
    stream->Reset();
    EXPECT_EQ(samplesOf(stream), first);
}

TEST(Limiter, MakesAllOfItLouderOrQuieterBeforeItLimits) {
    for (const double gain : {0.5, 1.0, 3.0}) {
        const auto samples = samplesOf(limited(Fakes::MakeAudio(shapeOf()), 0.9, gain));
        ASSERT_EQ(samples.size(), static_cast<std::size_t>(SAMPLES));
        for (std::int64_t index = 0; index < LOUD_BEGIN - RATE / 100; ++index)
            ASSERT_NEAR(samples[static_cast<std::size_t>(index)], gain * waveAt(index), 1e-6) << gain << ' ' << index;
        EXPECT_LE(*std::max_element(samples.begin(), samples.end()), 0.9F + 1e-6F);
    }
}

TEST(Limiter, RefusesWhatCannotBe) {
    for (const double gain : {0.0, 0.01, 65.0, std::nan("")})
        EXPECT_THROW(limited(Fakes::MakeAudio(shapeOf()), 1, gain), std::invalid_argument);
    EXPECT_THROW(limited({}, 1), std::invalid_argument);
    for (const double ceiling : {0.0, 0.05, 1.1, std::nan("")})
        EXPECT_THROW(limited(Fakes::MakeAudio(shapeOf()), ceiling), std::invalid_argument);
}

} // namespace Kestra
