// SPDX-License-Identifier: GPL-3.0-or-later
// Sound at another speed.
#include "Kestra/Base/Time.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Data/DataAudioFF.h"
#include "Kestra/FF/Data/SampleQueue.h"
#include "Kestra/Proc/Filters/AudioFilterBase.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Kestra/Proc/Interrupted.h"
#include "fakes/streams/SyntheticAudio.h"
#include <cmath>
#include <gtest/gtest.h>
#include <stdexcept>

namespace Kestra {
namespace {

using Proc::Pitch;
using Speed = boost::rational<long long>;
using Audio = boost::intrusive_ptr<Proc::IStreamAudio>;

constexpr int RATE = 48000;
constexpr double PI = 3.14159265358979323846;

Audio tempoOf(const Audio& source, const Speed& speed, Pitch pitch) {
    return Core::CoreManager::Instance().GetFilterFactory().CreateTempo(source, speed, pitch);
}

/// A tenth of a second of 1 kHz, at full level from its first sample, begins with every second.
double beeps(std::int64_t index, int rate) {
    const std::int64_t place = index % rate;
    return place < rate / 10 ? 0.9 * std::cos(2 * PI * 1000 * static_cast<double>(place) / rate) : 0;
}

Fakes::AudioShape beepShape(int rate = RATE, std::int64_t samples = 4 * RATE) {
    Fakes::AudioShape shape;
    shape.rate = rate;
    shape.samples = samples;
    shape.wave = [rate](int, std::int64_t index) { return beeps(index, rate); };
    return shape;
}

Fakes::AudioShape toneShape(double frequency) {
    Fakes::AudioShape shape;
    shape.samples = 2 * RATE;
    shape.wave = [frequency](int, std::int64_t index) {
        return 0.5 * std::sin(2 * PI * frequency * static_cast<double>(index) / RATE);
    };
    return shape;
}

/// The first channel, to the end; times are checked to go on without gaps.
std::vector<float> samplesOf(const Audio& stream) {
    std::vector<float> samples;
    const std::int64_t start = stream->GetPosition();
    std::int64_t first = -1;
    while (const auto data = stream->ReadAudio()) {
        const AVFrame& block = FF::FrameOf(*data);
        EXPECT_EQ(block.format, AV_SAMPLE_FMT_FLTP);
        if (first < 0)
            first = TimeToSamples(start, block.sample_rate);
        EXPECT_EQ(data->GetTime(), SamplesToTime(first + static_cast<std::int64_t>(samples.size()), block.sample_rate));
        const auto* const values = reinterpret_cast<const float*>(block.extended_data[0]);
        samples.insert(samples.end(), values, values + block.nb_samples);
    }
    EXPECT_FALSE(stream->ReadAudio());
    return samples;
}

/// Where sound begins after at least 50 ms of less than a tenth of full scale.
std::vector<std::int64_t> onsetsOf(const std::vector<float>& samples, int rate = RATE) {
    std::vector<std::int64_t> onsets;
    std::int64_t quiet = rate;
    for (std::size_t index = 0; index < samples.size(); ++index) {
        const bool loud = std::abs(samples[index]) >= 0.1F;
        if (loud && quiet >= rate / 20)
            onsets.push_back(static_cast<std::int64_t>(index));
        quiet = loud ? 0 : quiet + 1;
    }
    return onsets;
}

/// Of the middle half, in cycles a second.
double frequencyOf(const std::vector<float>& samples) {
    int crossings = 0;
    const std::size_t quarter = samples.size() / 4;
    for (std::size_t index = quarter; index < 3 * quarter; ++index)
        crossings += samples[index] < 0 && samples[index + 1] >= 0 ? 1 : 0;
    return crossings * double{RATE} / (2.0 * static_cast<double>(quarter));
}

/// So many channels without speakers, each at a level of its own.
class Discrete final : public Proc::AudioFilterBase {
public:
    Discrete(const Audio& source, int channels)
        : AudioFilterBase(source, "discrete channels")
        , layout(Conf::DiscreteLayout(channels)) {}

    boost::intrusive_ptr<Proc::IDataAudio> ReadAudio() override {
        const auto data = source->ReadAudio();
        if (!data)
            return {};
        const auto samples = static_cast<int>(data->GetSampleCount());
        FF::FrameHandle block = FF::MakeSamples(AV_SAMPLE_FMT_FLTP, RATE, FF::ToAvLayout(layout), samples);
        for (int channel = 0; channel < block->ch_layout.nb_channels; ++channel)
            std::fill_n(reinterpret_cast<float*>(block->extended_data[channel]), samples,
                        static_cast<float>(channel) / 20);
        return new FF::DataAudioFF(std::move(block), data->GetTime());
    }
    void GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const override {
        source->GetAudioFormat(format);
        format->SetChannelLayout(layout);
    }

private:
    const std::uint32_t layout;
};

constexpr Pitch BOTH[] = {Pitch::Kept, Pitch::Moved};
const Speed SPEEDS[] = {{1, 2}, {3, 4}, 2, 3, {1001, 1000}};

} // namespace

TEST(Tempo, LastsAsManySamplesAsItsSpeedMakesOfThem) {
    constexpr std::int64_t SAMPLES = 9001;
    for (const Pitch pitch : BOTH)
        for (const Speed& speed : {Speed(1, 2), Speed(3, 4), Speed(2), Speed(3), Speed(1001, 1000), Speed(1, 100),
                                   Speed(100), Speed(123456789, 100000000)}) {
            Fakes::AudioShape shape = beepShape(RATE, SAMPLES);
            const std::int64_t expected = MulDivRound(SAMPLES, speed.denominator(), speed.numerator());
            const Audio stream = tempoOf(Fakes::MakeAudio(shape), speed, pitch);
            EXPECT_EQ(stream->GetDuration(), SamplesToTime(expected, RATE)) << speed;
            EXPECT_EQ(samplesOf(stream).size(), static_cast<std::size_t>(expected)) << speed;
            shape.durationKnown = false;
            const Audio open = tempoOf(Fakes::MakeAudio(shape), speed, pitch);
            EXPECT_EQ(open->GetDuration(), TIME_UNKNOWN);
            EXPECT_EQ(samplesOf(open).size(), static_cast<std::size_t>(expected)) << speed;
        }
}

TEST(Tempo, HasEverySoundThatBeginsAfterQuietInItsPlaceWithinAMillisecond) {
    for (const Pitch pitch : BOTH)
        for (const Speed& speed : SPEEDS) {
            const auto onsets = onsetsOf(samplesOf(tempoOf(Fakes::MakeAudio(beepShape()), speed, pitch)));
            ASSERT_EQ(onsets.size(), 4U) << speed;
            for (std::size_t beep = 0; beep < onsets.size(); ++beep)
                EXPECT_NEAR(static_cast<double>(onsets[beep]),
                            static_cast<double>(beep) * RATE / boost::rational_cast<double>(speed), RATE / 1000)
                    << speed;
        }
}

TEST(Tempo, HasASuddenSoundWithinOthersInItsPlace) {
    Fakes::AudioShape shape = beepShape();
    shape.wave = [](int, std::int64_t index) {
        const auto place = static_cast<double>(index);
        return 0.05 * std::sin(0.03 * place) + 0.05 * std::sin(0.0171 * place) + 0.9 * beeps(index, RATE);
    };
    for (const Speed& speed : {Speed(1, 2), Speed(3)}) {
        std::vector<float> samples = samplesOf(tempoOf(Fakes::MakeAudio(shape), speed, Pitch::Kept));
        for (float& sample : samples)
            sample /= 5; // the quieter sounds are quiet to onsetsOf
        const auto onsets = onsetsOf(samples);
        ASSERT_EQ(onsets.size(), 4U) << speed;
        for (std::size_t beep = 1; beep < onsets.size(); ++beep)
            EXPECT_NEAR(static_cast<double>(onsets[beep]),
                        static_cast<double>(beep) * RATE / boost::rational_cast<double>(speed), RATE / 1000)
                << speed;
    }
}

TEST(Tempo, HasThemThereAtOtherRatesAndInIntegersToo) {
    for (const int rate : {8000, 44100, 96000}) {
        Fakes::AudioShape shape = beepShape(rate, 3 * rate);
        shape.format = Conf::SAMPLE_FORMAT_S16;
        shape.layout = Conf::CHANNEL_LAYOUT_5POINT1;
        for (const Speed& speed : {Speed(2, 3), Speed(5)}) {
            const auto onsets = onsetsOf(samplesOf(tempoOf(Fakes::MakeAudio(shape), speed, Pitch::Kept)), rate);
            ASSERT_EQ(onsets.size(), 3U) << rate;
            for (std::size_t beep = 0; beep < onsets.size(); ++beep)
                EXPECT_NEAR(static_cast<double>(onsets[beep]),
                            static_cast<double>(beep) * rate / boost::rational_cast<double>(speed), rate / 1000);
        }
    }
}

TEST(Tempo, KeepsThePitchOrMovesItWithTheSpeed) {
    for (const Speed& speed : SPEEDS) {
        const double factor = boost::rational_cast<double>(speed);
        EXPECT_NEAR(frequencyOf(samplesOf(tempoOf(Fakes::MakeAudio(toneShape(440)), speed, Pitch::Kept))), 440, 4)
            << speed;
        EXPECT_NEAR(frequencyOf(samplesOf(tempoOf(Fakes::MakeAudio(toneShape(440)), speed, Pitch::Moved))),
                    440 * factor, 4)
            << speed;
    }
}

TEST(Tempo, KeepsTheLevelThroughout) {
    for (const Pitch pitch : BOTH) {
        const auto samples = samplesOf(tempoOf(Fakes::MakeAudio(toneShape(440)), Speed(3, 4), pitch));
        // Nothing is missing at either end: every 20 ms reach the tone's level.
        for (std::size_t begin = 0; begin + RATE / 50 <= samples.size(); begin += RATE / 50) {
            const auto [low, high] =
                std::minmax_element(samples.begin() + static_cast<std::ptrdiff_t>(begin),
                                    samples.begin() + static_cast<std::ptrdiff_t>(begin) + RATE / 50);
            EXPECT_NEAR(*high, 0.5, 0.05) << begin;
            EXPECT_NEAR(*low, -0.5, 0.05) << begin;
        }
    }
}

TEST(Tempo, SeeksToTheSample) {
    for (const Pitch pitch : BOTH)
        for (const Speed& speed : {Speed(3, 4), Speed(3)}) {
            const Audio stream = tempoOf(Fakes::MakeAudio(beepShape()), speed, pitch);
            const std::vector<float> whole = samplesOf(stream);
            for (const std::int64_t place : {std::int64_t{0}, std::int64_t{12347}, std::int64_t{50001}}) {
                stream->Seek(SamplesToTime(place, RATE), Proc::SeekMode::Exact);
                EXPECT_EQ(stream->GetPosition(), SamplesToTime(place, RATE));
                const std::vector<float> rest = samplesOf(stream);
                ASSERT_EQ(rest.size(), whole.size() - static_cast<std::size_t>(place));
                const auto onsets = onsetsOf(rest);
                const std::vector<float> same(whole.begin() + place, whole.end());
                const auto expected = onsetsOf(same);
                ASSERT_EQ(onsets.size(), expected.size()) << speed;
                for (std::size_t beep = 0; beep < onsets.size(); ++beep)
                    EXPECT_NEAR(static_cast<double>(onsets[beep]), static_cast<double>(expected[beep]), 2);
                for (std::size_t index = 0; pitch == Pitch::Moved && index < rest.size(); ++index)
                    ASSERT_NEAR(rest[index], same[index], 1e-5) << place << " " << index;
            }
            stream->Seek(stream->GetDuration() + TIME_BASE, Proc::SeekMode::Exact);
            EXPECT_FALSE(stream->ReadAudio());
        }
}

TEST(Tempo, GivesTheSameAgainAfterAReset) {
    for (const Pitch pitch : BOTH) {
        const Audio stream = tempoOf(Fakes::MakeAudio(beepShape()), Speed(3, 4), pitch);
        const std::vector<float> first = samplesOf(stream);
        stream->Reset();
        EXPECT_EQ(samplesOf(stream), first);
        stream->Reset();
        stream->ReadAudio();
        stream->Interrupt();
        EXPECT_THROW(samplesOf(stream), Proc::Interrupted);
        stream->Reset();
        EXPECT_EQ(samplesOf(stream), first);
    }
}

TEST(Tempo, TakesChannelsOfWhichNobodySaysWhereTheyAreHeard) {
    for (const int channels : {3, 17})
        for (const Pitch pitch : BOTH) {
            const Audio stream = tempoOf(new Discrete(Fakes::MakeAudio(beepShape()), channels), 2, pitch);
            boost::intrusive_ptr<Conf::IFormatCodecAudio> format;
            stream->GetAudioFormat(format);
            EXPECT_EQ(format->GetChannelLayout(), Conf::DiscreteLayout(channels));
            const auto data = stream->ReadAudio();
            const AVFrame& block = FF::FrameOf(*data);
            EXPECT_EQ(block.ch_layout.order, AV_CHANNEL_ORDER_UNSPEC);
            EXPECT_EQ(block.ch_layout.nb_channels, channels);
            for (int channel = 0; channel < channels; ++channel)
                EXPECT_NEAR(reinterpret_cast<const float*>(block.extended_data[channel])[0], channel / 20.0, 0.02);
        }
}

TEST(Tempo, TellsWhatComes) {
    Fakes::AudioShape shape = beepShape(44100, 44100);
    shape.format = Conf::SAMPLE_FORMAT_S16;
    const Audio stream = tempoOf(Fakes::MakeAudio(shape), 2, Pitch::Kept);
    boost::intrusive_ptr<Conf::IFormatCodecAudio> format;
    stream->GetAudioFormat(format);
    EXPECT_EQ(format->GetSampleFormat(), Conf::SAMPLE_FORMAT_FLTP);
    EXPECT_EQ(format->GetSampleRate(), 44100);
    EXPECT_EQ(format->GetChannelLayout(), static_cast<std::uint32_t>(Conf::CHANNEL_LAYOUT_STEREO));
    EXPECT_TRUE(stream->IsSeekable());
}

TEST(Tempo, IsTheSourceItselfAtItsOwnSpeed) {
    const Audio source = Fakes::MakeAudio(beepShape());
    EXPECT_EQ(tempoOf(source, 1, Pitch::Kept), source);
}

TEST(Tempo, RefusesWhatCannotBe) {
    const Audio source = Fakes::MakeAudio(beepShape());
    EXPECT_THROW(tempoOf({}, 2, Pitch::Kept), std::invalid_argument);
    for (const Speed& speed : {Speed(0), Speed(-1), Speed(1, 101), Speed(101)})
        EXPECT_THROW(tempoOf(source, speed, Pitch::Moved), std::invalid_argument);
}

} // namespace Kestra
