// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Filter/SampleMixer.h"

#include "Kestra/Base/Exception.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Data/DataAudioFF.h"
#include "Kestra/FF/Data/SampleQueue.h"
#include <algorithm>
#include <climits>
#include <cmath>
#include <stdexcept>

namespace Kestra::FF {

using Proc::MixVoice;

namespace {

constexpr double QUARTER_TURN = 1.57079632679489661923;

/// How far the fade has come at that sample.
double ProgressOf(const MixVoice& voice, std::int64_t sample) {
    const std::int64_t place = voice.at.Value() + sample;
    if (place < 0)
        return 0;
    return place >= voice.length.Value() ? 1 : static_cast<double>(place) / static_cast<double>(voice.length.Value());
}

double CurveAt(const MixVoice& voice, std::int64_t sample) {
    if (voice.curve == MixVoice::Curve::Flat)
        return 1;
    const double progress = ProgressOf(voice, sample);
    if (voice.curve == MixVoice::Curve::FadeIn)
        return std::sin(QUARTER_TURN * progress);
    return progress < 1 ? std::cos(QUARTER_TURN * progress) : 0; // cos of a rounded quarter turn is not quite 0
}

bool IsLeftAsItIs(const MixVoice& voice) {
    return voice.curve == MixVoice::Curve::Flat && voice.gain == 1;
}

} // namespace

SampleMixer::SampleMixer(const Conf::SampleInfo& info)
    : format(ToAv(info.GetFormatRecord()->format))
    , rate(info.GetRate())
    , layout(ToAvLayout(info.GetLayoutRecord()->layout)) {
    if (format != AV_SAMPLE_FMT_FLTP && format != AV_SAMPLE_FMT_DBLP)
        KESTRA_THROW(std::invalid_argument(std::string("samples of the format \"") + info.GetFormatRecord()->name +
                                           "\" are not mixed; those of \"fltp\" and \"dblp\" are"));
    if (rate <= 0 || layout.nb_channels == 0)
        KESTRA_THROW(std::invalid_argument("a mixer needs a sample rate and a channel layout"));
}

const AVFrame& SampleMixer::Taken(const MixVoice& voice, SampleIndex count) const {
    if (!voice.block)
        KESTRA_THROW(std::invalid_argument("a voice without a block of samples"));
    const AVFrame& block = FrameOf(*voice.block);
    if (block.nb_samples != count.Value() || block.format != format || block.sample_rate != rate ||
        av_channel_layout_compare(&block.ch_layout, &layout) != 0)
        KESTRA_THROW(
            std::invalid_argument("a block of samples is not of the mixer's format, or not as long as ordered"));
    return block;
}

template <class Sample>
FrameHandle SampleMixer::Sum(const std::vector<MixVoice>& voices, SampleIndex count) {
    FrameHandle result = MakeSamples(format, rate, layout, static_cast<int>(count.Value()));
    for (const MixVoice& voice : voices) {
        const AVFrame& block = Taken(voice, count);
        gains.resize(static_cast<std::size_t>(count.Value()));
        for (std::size_t index = 0; index < gains.size(); ++index)
            gains[index] = voice.gain * CurveAt(voice, static_cast<std::int64_t>(index));
        for (int channel = 0; channel < layout.nb_channels; ++channel) {
            const auto* const from = reinterpret_cast<const Sample*>(block.extended_data[channel]);
            auto* const to = reinterpret_cast<Sample*>(result->extended_data[channel]);
            for (std::size_t index = 0; index < gains.size(); ++index)
                to[index] += static_cast<Sample>(from[index] * gains[index]);
        }
    }
    return result;
}

template <class Sample>
void SampleMixer::Measure(const AVFrame& block) {
    for (int channel = 0; channel < layout.nb_channels; ++channel) {
        const auto* const samples = reinterpret_cast<const Sample*>(block.extended_data[channel]);
        for (int index = 0; index < block.nb_samples; ++index)
            peak = std::max(peak, std::abs(static_cast<double>(samples[index])));
    }
}

boost::intrusive_ptr<Proc::IDataAudio> SampleMixer::Mix(const std::vector<MixVoice>& voices, SampleIndex count) {
    if (count.Value() <= 0 || count.Value() > INT_MAX)
        KESTRA_THROW(std::invalid_argument(std::to_string(count.Value()) + " samples cannot be mixed"));
    const bool shared = voices.size() == 1 && IsLeftAsItIs(voices.front());
    const bool doubles = format == AV_SAMPLE_FMT_DBLP;
    FrameHandle sum = shared    ? MakeFrameReference(Taken(voices.front(), count))
                      : doubles ? Sum<double>(voices, count)
                                : Sum<float>(voices, count);
    if (doubles)
        Measure<double>(*sum);
    else
        Measure<float>(*sum);
    boost::intrusive_ptr<Proc::IDataAudio> result = new DataAudioFF(std::move(sum), 0);
    result->SetDuration(0);
    return result;
}

} // namespace Kestra::FF
