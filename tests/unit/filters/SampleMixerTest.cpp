// SPDX-License-Identifier: GPL-3.0-or-later
// Voices summed, with their curves.
#include "Kestra/Core/CoreManager.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Data/DataAudioFF.h"
#include "Kestra/FF/Data/SampleQueue.h"
#include "Kestra/Proc/IFilterFactory.h"
#include <cmath>
#include <gtest/gtest.h>
#include <stdexcept>

namespace Kestra {
namespace {

using Block = boost::intrusive_ptr<Proc::IDataAudio>;
using Curve = Proc::MixVoice::Curve;

constexpr int COUNT = 400;
constexpr int RATE = 48000;

Conf::SampleInfo infoOf(Conf::SampleFormats format, std::uint32_t layout = Conf::CHANNEL_LAYOUT_STEREO) {
    Conf::SampleInfo info;
    info.Init(format, RATE, layout);
    return info;
}

boost::intrusive_ptr<Proc::ISampleMixer> mixerOf(Conf::SampleFormats format = Conf::SAMPLE_FORMAT_FLTP) {
    return Core::CoreManager::Instance().GetFilterFactory().CreateSampleMixer(infoOf(format));
}

/// Both channels hold `left` and `right` throughout.
template <class Sample>
Block constant(double left, double right, int count = COUNT) {
    FF::FrameHandle frame = FF::MakeSamples(sizeof(Sample) == 8 ? AV_SAMPLE_FMT_DBLP : AV_SAMPLE_FMT_FLTP, RATE,
                                            FF::ToAvLayout(Conf::CHANNEL_LAYOUT_STEREO), count);
    std::fill_n(reinterpret_cast<Sample*>(frame->extended_data[0]), count, static_cast<Sample>(left));
    std::fill_n(reinterpret_cast<Sample*>(frame->extended_data[1]), count, static_cast<Sample>(right));
    return new FF::DataAudioFF(std::move(frame), 12345);
}

Proc::MixVoice voice(const Block& block, Curve curve = Curve::Flat, std::int64_t at = 0, std::int64_t length = 0,
                     double gain = 1) {
    return {block, curve, SampleIndex(at), SampleIndex(length), gain};
}

float sampleOf(const Block& block, int channel, int index) {
    return reinterpret_cast<const float*>(FF::FrameOf(*block).extended_data[channel])[index];
}

} // namespace

TEST(SampleMixer, SumsVoicesBeyondFullScaleWithTheirGains) {
    const auto mixer = mixerOf();
    const Block sum = mixer->Mix({voice(constant<float>(0.75, 0.5)), voice(constant<float>(0.5, -0.25)),
                                  voice(constant<float>(0.5, 1), Curve::Flat, 0, 0, 0.5)},
                                 SampleIndex(COUNT));
    EXPECT_EQ(sum->GetSampleCount(), COUNT);
    EXPECT_EQ(sum->GetSampleRate(), RATE);
    for (const int index : {0, COUNT / 2, COUNT - 1}) {
        EXPECT_FLOAT_EQ(sampleOf(sum, 0, index), 1.5F);
        EXPECT_FLOAT_EQ(sampleOf(sum, 1, index), 0.75F);
    }
}

TEST(SampleMixer, SumsInDoublePrecisionToo) {
    const auto mixer = mixerOf(Conf::SAMPLE_FORMAT_DBLP);
    const Block sum =
        mixer->Mix({voice(constant<double>(0.1, 0)), voice(constant<double>(1e-12, 0))}, SampleIndex(COUNT));
    EXPECT_DOUBLE_EQ(reinterpret_cast<const double*>(FF::FrameOf(*sum).extended_data[0])[7], 0.1 + 1e-12);
}

TEST(SampleMixer, FadesWithEqualPower) {
    const auto mixer = mixerOf();
    const Block one = constant<float>(1, 1);
    const Block in = mixer->Mix({voice(one, Curve::FadeIn, 0, COUNT)}, SampleIndex(COUNT));
    const Block out = mixer->Mix({voice(one, Curve::FadeOut, 0, COUNT)}, SampleIndex(COUNT));
    EXPECT_EQ(sampleOf(in, 0, 0), 0);
    EXPECT_EQ(sampleOf(out, 0, 0), 1);
    EXPECT_NEAR(sampleOf(in, 1, COUNT / 2), std::sqrt(0.5), 1e-6);
    for (int index = 0; index < COUNT; ++index) {
        const double up = sampleOf(in, 0, index);
        const double down = sampleOf(out, 0, index);
        ASSERT_NEAR(up, std::sin(index * 1.5707963267948966 / COUNT), 1e-6) << index;
        ASSERT_NEAR(up * up + down * down, 1, 1e-6) << index;
    }
}

TEST(SampleMixer, GoesOnWithAFadeThatBeganInAnEarlierBlock) {
    const auto mixer = mixerOf();
    const Block one = constant<float>(1, 1);
    const Block whole = mixer->Mix({voice(one, Curve::FadeOut, 0, COUNT)}, SampleIndex(COUNT));
    const Block rest =
        mixer->Mix({voice(one->Slice(150, COUNT - 150), Curve::FadeOut, 150, COUNT)}, SampleIndex(COUNT - 150));
    for (int index = 0; index < COUNT - 150; ++index)
        ASSERT_EQ(sampleOf(rest, 0, index), sampleOf(whole, 0, index + 150)) << index;
}

TEST(SampleMixer, HoldsTheEndsOfAFadeAroundIt) {
    const auto mixer = mixerOf();
    const Block one = constant<float>(1, 1);
    const Block in = mixer->Mix({voice(one, Curve::FadeIn, -100, 200)}, SampleIndex(COUNT));
    const Block out = mixer->Mix({voice(one, Curve::FadeOut, -100, 200)}, SampleIndex(COUNT));
    for (const int index : {0, 50, 100}) {
        EXPECT_EQ(sampleOf(in, 0, index), 0) << index;
        EXPECT_EQ(sampleOf(out, 0, index), 1) << index;
    }
    for (const int index : {300, 350, COUNT - 1}) {
        EXPECT_EQ(sampleOf(in, 0, index), 1) << index;
        EXPECT_EQ(sampleOf(out, 0, index), 0) << index;
    }
    const Block step = mixer->Mix({voice(one, Curve::FadeIn, -10, 0)}, SampleIndex(COUNT));
    EXPECT_EQ(sampleOf(step, 0, 9), 0);
    EXPECT_EQ(sampleOf(step, 0, 10), 1);
}

TEST(SampleMixer, GivesSilenceWithoutVoices) {
    const auto mixer = mixerOf();
    const Block silence = mixer->Mix({}, SampleIndex(COUNT));
    EXPECT_EQ(silence->GetSampleCount(), COUNT);
    for (int index = 0; index < COUNT; ++index)
        ASSERT_EQ(sampleOf(silence, 1, index), 0);
    EXPECT_EQ(mixer->Peak(), 0);
}

TEST(SampleMixer, SharesTheSamplesOfOneVoiceThatIsLeftAsItIs) {
    const auto mixer = mixerOf();
    const Block one = constant<float>(0.5, -0.75);
    const Block same = mixer->Mix({voice(one)}, SampleIndex(COUNT));
    EXPECT_EQ(FF::FrameOf(*same).extended_data[0], FF::FrameOf(*one).extended_data[0]);
    EXPECT_EQ(same->GetTime(), 0);
    EXPECT_EQ(same->GetDuration(), 0);
    EXPECT_EQ(one->GetTime(), 12345);
    EXPECT_EQ(mixer->Peak(), 0.75);
}

TEST(SampleMixer, KnowsTheGreatestMagnitudeSoFar) {
    const auto mixer = mixerOf();
    mixer->Mix({voice(constant<float>(0.5, -0.75)), voice(constant<float>(0.25, -0.5))}, SampleIndex(COUNT));
    EXPECT_EQ(mixer->Peak(), 1.25);
    mixer->Mix({voice(constant<float>(0.5, 0.5))}, SampleIndex(COUNT));
    EXPECT_EQ(mixer->Peak(), 1.25);
}

TEST(SampleMixer, RefusesWhatIsNotOfItsFormat) {
    EXPECT_THROW(mixerOf(Conf::SAMPLE_FORMAT_S16), std::invalid_argument);
    EXPECT_THROW(mixerOf(Conf::SAMPLE_FORMAT_FLT), std::invalid_argument);
    EXPECT_THROW(Core::CoreManager::Instance().GetFilterFactory().CreateSampleMixer(
                     infoOf(Conf::SAMPLE_FORMAT_FLTP, Conf::CHANNEL_LAYOUT_UNKNOWN)),
                 std::invalid_argument);
    const auto mixer = mixerOf();
    EXPECT_THROW(mixer->Mix({voice({})}, SampleIndex(COUNT)), std::invalid_argument);
    EXPECT_THROW(mixer->Mix({voice(constant<double>(1, 1))}, SampleIndex(COUNT)), std::invalid_argument);
    EXPECT_THROW(mixer->Mix({voice(constant<float>(1, 1, COUNT - 1))}, SampleIndex(COUNT)), std::invalid_argument);
    EXPECT_THROW(mixer->Mix({}, SampleIndex(0)), std::invalid_argument);
}

} // namespace Kestra
