// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Av/Convert.h"

#include "Kestra/Conf/Codec.h"
#include <algorithm>
#include <climits>
#include <vector>

extern "C" {
#include <libavcodec/codec_desc.h>
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

using Conf::CodecID;
using Conf::PixelFormat;
using Conf::SampleFormats;

namespace {

/// Both directions of the engine's table, by number.
class PixelFormatMap {
public:
    PixelFormatMap() {
        for (const Conf::PixelFormatRecord& record : Conf::PixelFormatRecord::All()) {
            const AVPixelFormat av = av_get_pix_fmt(record.name);
            const auto place = static_cast<std::size_t>(record.number);
            toAv.resize(std::max(toAv.size(), place + 1), AV_PIX_FMT_NONE);
            toAv[place] = av;
            if (av != AV_PIX_FMT_NONE)
                fromAv[static_cast<std::size_t>(av)] = record.Format();
        }
    }

    AVPixelFormat ToAv(PixelFormat format) const {
        const auto place = static_cast<std::size_t>(format); // Unknown becomes very large
        return place < toAv.size() ? toAv[place] : AV_PIX_FMT_NONE;
    }
    PixelFormat FromAv(AVPixelFormat format) const {
        const auto place = static_cast<std::size_t>(format);
        return place < fromAv.size() ? fromAv[place] : PixelFormat::Other;
    }

private:
    std::vector<AVPixelFormat> toAv;
    std::vector<PixelFormat> fromAv = std::vector<PixelFormat>(AV_PIX_FMT_NB, PixelFormat::Other);
};

const PixelFormatMap& PixelFormats() {
    static const auto& map = *new PixelFormatMap;
    return map;
}

// Both enumerations have the same order.
constexpr int SAMPLE_FORMAT_COUNT = AV_SAMPLE_FMT_NB;

} // namespace

std::int64_t ToEngineTime(std::int64_t timestamp, AVRational timeBase) {
    if (timestamp == AV_NOPTS_VALUE)
        return TIME_UNKNOWN;
    return MulDivRound(timestamp, TIME_BASE * timeBase.num, timeBase.den);
}

std::int64_t FromEngineTime(std::int64_t time, AVRational timeBase) {
    if (time == TIME_UNKNOWN)
        return AV_NOPTS_VALUE;
    return MulDivRound(time, timeBase.den, TIME_BASE * timeBase.num);
}

AVPixelFormat ToAv(PixelFormat format) noexcept {
    return PixelFormats().ToAv(format);
}

PixelFormat FromAv(AVPixelFormat format) noexcept {
    return format == AV_PIX_FMT_NONE ? PixelFormat::Unknown : PixelFormats().FromAv(format);
}

bool HasAlpha(AVPixelFormat format) noexcept {
    const AVPixFmtDescriptor* descriptor = av_pix_fmt_desc_get(format);
    return descriptor && (descriptor->flags & AV_PIX_FMT_FLAG_ALPHA) != 0;
}

AVSampleFormat ToAv(SampleFormats format) noexcept {
    return format >= 0 && format < SAMPLE_FORMAT_COUNT ? static_cast<AVSampleFormat>(format) : AV_SAMPLE_FMT_NONE;
}

SampleFormats FromAv(AVSampleFormat format) noexcept {
    return format >= 0 && format < SAMPLE_FORMAT_COUNT ? static_cast<SampleFormats>(format)
                                                       : Conf::SAMPLE_FORMAT_UNKNOWN;
}

AVChannelLayout ToAvLayout(std::uint32_t layout) noexcept {
    AVChannelLayout result = {};
    const std::uint64_t speakers = Conf::SpeakersOf(layout);
    if (speakers == 0 || av_channel_layout_from_mask(&result, speakers) < 0) {
        result = {};
        result.order = AV_CHANNEL_ORDER_UNSPEC;
        result.nb_channels = Conf::CountChannels(layout);
    }
    return result;
}

std::uint32_t FromAv(const AVChannelLayout& layout) noexcept {
    if (layout.order == AV_CHANNEL_ORDER_NATIVE)
        if (const std::uint32_t known = Conf::LayoutOfSpeakers(layout.u.mask))
            return known;
    // What they are for has been agreed since there is audio.
    if (layout.order == AV_CHANNEL_ORDER_UNSPEC && layout.nb_channels <= 2)
        return layout.nb_channels == 1   ? Conf::CHANNEL_LAYOUT_MONO
               : layout.nb_channels == 2 ? Conf::CHANNEL_LAYOUT_STEREO
                                         : Conf::CHANNEL_LAYOUT_UNKNOWN;
    return Conf::DiscreteLayout(layout.nb_channels);
}

AVCodecID ToAv(CodecID id) {
    const Conf::Codec* const codec = Conf::Codec::Find(id);
    const AVCodecDescriptor* const descriptor = codec ? avcodec_descriptor_get_by_name(codec->avName) : nullptr;
    return descriptor ? descriptor->id : AV_CODEC_ID_NONE;
}

Conf::ColourInfo ColourOf(const AVFrame& frame) noexcept {
    Conf::ColourInfo colour;
    colour.primaries = frame.color_primaries;
    colour.transfer = frame.color_trc;
    colour.matrix = frame.colorspace;
    colour.range = frame.color_range;
    return colour;
}

void SetColour(AVFrame& frame, const Conf::ColourInfo& colour) noexcept {
    frame.color_primaries = static_cast<AVColorPrimaries>(colour.primaries);
    frame.color_trc = static_cast<AVColorTransferCharacteristic>(colour.transfer);
    frame.colorspace = static_cast<AVColorSpace>(colour.matrix);
    frame.color_range = static_cast<AVColorRange>(colour.range);
}

Conf::FrameInfo MakeFrameInfo(int width, int height, AVRational sampleAspect) {
    Conf::FrameInfo info;
    info.width = static_cast<std::uint32_t>(width);
    info.height = static_cast<std::uint32_t>(height);
    if (sampleAspect.num > 0 && sampleAspect.den > 0 && sampleAspect.num != sampleAspect.den) {
        AVRational aspect = {1, 1};
        av_reduce(&aspect.num, &aspect.den, static_cast<std::int64_t>(width) * sampleAspect.num,
                  static_cast<std::int64_t>(height) * sampleAspect.den, INT_MAX);
        info.aspectNumerator = static_cast<std::uint32_t>(aspect.num);
        info.aspectDenominator = static_cast<std::uint32_t>(aspect.den);
    }
    return info;
}

AVRational SampleAspectOf(const Conf::FrameInfo& frame) {
    if (frame.aspectNumerator == 0 || frame.aspectDenominator == 0 || frame.width == 0 || frame.height == 0)
        return {1, 1};
    AVRational result = {1, 1};
    av_reduce(&result.num, &result.den, static_cast<std::int64_t>(frame.aspectNumerator) * frame.height,
              static_cast<std::int64_t>(frame.aspectDenominator) * frame.width, INT_MAX);
    return result;
}

} // namespace Kestra::FF
