// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/AudioEncoderChoice.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Av/OlderCalls.h"
#include "Kestra/FF/Encode/AudioDriver.h"
#include "Kestra/FF/Encode/DriverSettings.h"
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

namespace Kestra::FF {

using Conf::IFormatCodecAudio;
using Proc::TranscodingError;

namespace {

constexpr int DEFAULT_RATE = 48000;

int NearestRate(const AVCodec& codec, int wanted) {
    if (!SampleRatesOf(codec))
        return wanted;
    int above = 0;
    int below = 0;
    for (const int* known = SampleRatesOf(codec); *known != 0; ++known) {
        const int rate = *known;
        if (rate >= wanted && (above == 0 || rate < above))
            above = rate;
        if (rate < wanted && rate > below)
            below = rate;
    }
    return above != 0 ? above : below;
}

/// How ill `candidate` suits samples of `wanted`: bits that are lost count most, then bits that are made up.
int Unfitness(AVSampleFormat candidate, AVSampleFormat wanted) {
    const auto depth = [](AVSampleFormat format) {
        const AVSampleFormat packed = av_get_packed_sample_fmt(format);
        if (packed == AV_SAMPLE_FMT_FLT)
            return 25; // the bits of its mantissa
        return packed == AV_SAMPLE_FMT_DBL ? 53 : 8 * av_get_bytes_per_sample(packed);
    };
    const int gain = depth(candidate) - depth(wanted);
    return gain >= 0 ? gain : -100 * gain;
}

AVSampleFormat NearestFormat(const AVCodec& codec, AVSampleFormat wanted) {
    if (!SampleFormatsOf(codec))
        return wanted;
    AVSampleFormat best = *SampleFormatsOf(codec);
    for (const AVSampleFormat* known = SampleFormatsOf(codec); *known != AV_SAMPLE_FMT_NONE; ++known) {
        if (*known == wanted)
            return wanted;
        if (Unfitness(*known, wanted) < Unfitness(best, wanted))
            best = *known;
    }
    return best;
}

void SetQuality(AVCodecContext& context, double quality) {
    if (!(quality >= -10 && quality <= 1024))
        RefuseSetting(context, "the quality " + Decimal(quality));
    context.flags |= AV_CODEC_FLAG_QSCALE;
    context.global_quality = static_cast<int>(std::lround(quality * FF_QP2LAMBDA));
}

} // namespace

EncodeSamples ChooseSamples(const IFormatCodecAudio& description, const IFormatCodecAudio& stream,
                            const AVCodec& codec) {
    EncodeSamples result;
    const int rate = description.GetSampleRate() > 0 ? description.GetSampleRate() : stream.GetSampleRate();
    result.rate = NearestRate(codec, rate > 0 ? rate : DEFAULT_RATE);
    const AudioDriver& driver = AudioDriver::Of(codec);
    const std::uint32_t ordered = description.GetChannelLayout();
    const std::uint32_t layout = ordered != 0 ? ordered : stream.GetChannelLayout();
    if (layout == Conf::CHANNEL_LAYOUT_UNKNOWN)
        Fail(TranscodingError::CodecRefused, "Neither the stream nor the encoder's description has a channel layout");
    result.layout = driver.LayoutFor(codec, layout);
    auto format = ToAv(static_cast<Conf::SampleFormats>(description.GetSampleFormat()));
    if (format == AV_SAMPLE_FMT_NONE)
        format = ToAv(static_cast<Conf::SampleFormats>(stream.GetSampleFormat()));
    // Made up audio alone says nothing of its format.
    result.format = NearestFormat(codec, format == AV_SAMPLE_FMT_NONE ? AV_SAMPLE_FMT_FLTP : format);
    result.bits = driver.BitsKept(codec, result.format);
    return result;
}

void SetAudioRateControl(AVCodecContext& context, const IFormatCodecAudio& description) {
    const std::string mode = description.GetBitrateMode();
    if (!mode.empty() && mode != "quality" && mode != "abr" && mode != "vbr" && mode != "cbr")
        RefuseSetting(context, "the bitrate mode \"" + mode + "\"");
    if (description.GetBitrate() < 0)
        RefuseSetting(context, "the bitrate " + std::to_string(description.GetBitrate()));
    const AudioDriver& driver = AudioDriver::Of(*context.codec);
    if (driver.KeepsSamples())
        return;
    const double quality = description.GetQuality();
    if ((mode == "quality" || (mode.empty() && description.GetBitrate() == 0)) && quality != 0)
        return SetQuality(context, quality);
    if (description.GetBitrate() != 0)
        context.bit_rate = description.GetBitrate();
    driver.SetMode(context, mode);
}

} // namespace Kestra::FF
