#include "Kestra/FF/Encode/AudioEncoderChoice.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
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
    if (!codec.supported_samplerates)
        return wanted;
    int above = 0;
    int below = 0;
    for (const int* rate = codec.supported_samplerates; *rate != 0; ++rate) {
        if (*rate >= wanted && (above == 0 || *rate < above))
            above = *rate;
        if (*rate<wanted&& * rate> below)
            below = *rate;
    }
    return above != 0 ? above : below;
}

bool TakesLayout(const AVCodec& codec, const AVChannelLayout& wanted) {
    for (const AVChannelLayout* known = codec.ch_layouts; known->nb_channels != 0; ++known)
        if (av_channel_layout_compare(known, &wanted) == 0)
            return true;
    return false;
}

bool IsPcm(AVCodecID codec) {
    return codec >= AV_CODEC_ID_FIRST_AUDIO && codec < AV_CODEC_ID_ADPCM_IMA_QT;
}

/// A header of WAV has room for the first 18 speakers.
std::uint32_t LayoutInPcm(std::uint32_t wanted) {
    constexpr int SPEAKERS_OF_WAV = 18;
    return Conf::SpeakersOf(wanted) >> SPEAKERS_OF_WAV == 0 ? wanted
                                                            : Conf::DiscreteLayout(Conf::CountChannels(wanted));
}

[[noreturn]] void RefuseLayout(const AVCodec& codec, std::uint32_t wanted, const std::string& reason,
                               SourcePlace place = SourcePlace::Here()) {
    const bool named = !Conf::IsDiscreteLayout(wanted);
    Fail(TranscodingError::CodecRefused,
         std::string(codec.name) + " cannot encode sound of " + std::to_string(Conf::CountChannels(wanted)) +
             " channels" + (named ? std::string(" (") + Conf::LayoutRecord::Find(wanted)->name + ")" : "") + ": " +
             reason + ". PCM in WAV holds any number of channels (preset \"wav\")",
         place);
}

/// The usual speakers of so many channels: other codecs cannot leave open where a channel is heard.
AVChannelLayout WithSpeakers(const AVCodec& codec, std::uint32_t wanted) {
    AVChannelLayout layout = ToAvLayout(wanted);
    if (layout.order == AV_CHANNEL_ORDER_UNSPEC)
        av_channel_layout_default(&layout, Conf::CountChannels(wanted));
    if (layout.order != AV_CHANNEL_ORDER_NATIVE)
        RefuseLayout(codec, wanted, "it has to know where each is heard, and they do not say");
    return layout;
}

std::uint32_t NearestLayout(const AVCodec& codec, std::uint32_t wanted) {
    constexpr int MOST_OF_FLAC = 8;
    if (wanted == Conf::CHANNEL_LAYOUT_UNKNOWN)
        Fail(TranscodingError::CodecRefused, "Neither the stream nor the encoder's description has a channel layout");
    if (IsPcm(codec.id))
        return LayoutInPcm(wanted);
    if (codec.id == AV_CODEC_ID_FLAC && Conf::CountChannels(wanted) > MOST_OF_FLAC)
        RefuseLayout(codec, wanted, "it holds 8 at most");
    const AVChannelLayout layout = WithSpeakers(codec, wanted);
    if (!codec.ch_layouts || TakesLayout(codec, layout))
        return FromAv(layout);
    const AVChannelLayout* best = nullptr;
    for (const AVChannelLayout* known = codec.ch_layouts; known->nb_channels != 0; ++known)
        if (known->nb_channels <= layout.nb_channels && (!best || known->nb_channels > best->nb_channels))
            best = known;
    return FromAv(best ? *best : codec.ch_layouts[0]);
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
    if (!codec.sample_fmts)
        return wanted;
    AVSampleFormat best = codec.sample_fmts[0];
    for (const AVSampleFormat* known = codec.sample_fmts; *known != AV_SAMPLE_FMT_NONE; ++known) {
        if (*known == wanted)
            return wanted;
        if (Unfitness(*known, wanted) < Unfitness(best, wanted))
            best = *known;
    }
    return best;
}

bool IsLossless(AVCodecID codec) {
    return codec == AV_CODEC_ID_FLAC || codec == AV_CODEC_ID_ALAC || IsPcm(codec);
}

/// How many bits of each sample the encoder keeps; 0 when it is lossy.
int BitsKept(const AVCodec& codec, AVSampleFormat format) {
    constexpr int DEEPEST_OF_FLAC = 24;
    if (!IsLossless(codec.id))
        return 0;
    const int room = 8 * av_get_bytes_per_sample(format);
    return IsPcm(codec.id) ? av_get_exact_bits_per_sample(codec.id) : std::min(room, DEEPEST_OF_FLAC);
}

void SetQuality(AVCodecContext& context, double quality) {
    if (!(quality >= -10 && quality <= 1024))
        RefuseSetting(context, "the quality " + Decimal(quality));
    context.flags |= AV_CODEC_FLAG_QSCALE;
    context.global_quality = static_cast<int>(std::lround(quality * FF_QP2LAMBDA));
}

void SetMode(AVCodecContext& context, const std::string& mode) {
    if (context.codec_id == AV_CODEC_ID_OPUS && context.priv_data)
        Check(av_opt_set(context.priv_data, "vbr", mode == "cbr" ? "off" : "on", 0), TranscodingError::CodecRefused,
              "vbr");
    if (context.codec_id == AV_CODEC_ID_MP3 && context.priv_data && (mode == "abr" || mode == "vbr"))
        Check(av_opt_set_int(context.priv_data, "abr", 1, 0), TranscodingError::CodecRefused, "abr");
}

} // namespace

EncodeSamples ChooseSamples(const IFormatCodecAudio& description, const IFormatCodecAudio& stream,
                            const AVCodec& codec) {
    EncodeSamples result;
    const int rate = description.GetSampleRate() > 0 ? description.GetSampleRate() : stream.GetSampleRate();
    result.rate = NearestRate(codec, rate > 0 ? rate : DEFAULT_RATE);
    result.layout = NearestLayout(codec, description.GetChannelLayout() != 0 ? description.GetChannelLayout()
                                                                             : stream.GetChannelLayout());
    auto format = ToAv(static_cast<Conf::SampleFormats>(description.GetSampleFormat()));
    if (format == AV_SAMPLE_FMT_NONE)
        format = ToAv(static_cast<Conf::SampleFormats>(stream.GetSampleFormat()));
    // Made up audio alone says nothing of its format.
    result.format = NearestFormat(codec, format == AV_SAMPLE_FMT_NONE ? AV_SAMPLE_FMT_FLTP : format);
    result.bits = BitsKept(codec, result.format);
    return result;
}

void SetAudioRateControl(AVCodecContext& context, const IFormatCodecAudio& description) {
    const std::string mode = description.GetBitrateMode();
    if (!mode.empty() && mode != "quality" && mode != "abr" && mode != "vbr" && mode != "cbr")
        RefuseSetting(context, "the bitrate mode \"" + mode + "\"");
    if (description.GetBitrate() < 0)
        RefuseSetting(context, "the bitrate " + std::to_string(description.GetBitrate()));
    if (IsLossless(context.codec_id))
        return;
    const double quality = description.GetQuality();
    if ((mode == "quality" || (mode.empty() && description.GetBitrate() == 0)) && quality != 0)
        return SetQuality(context, quality);
    if (description.GetBitrate() != 0)
        context.bit_rate = description.GetBitrate();
    // Without a bound libvorbis takes the bitrate for a quality, and gives noise half as much again.
    if (context.codec_id == AV_CODEC_ID_VORBIS)
        context.rc_max_rate = context.bit_rate;
    SetMode(context, mode);
}

} // namespace Kestra::FF
