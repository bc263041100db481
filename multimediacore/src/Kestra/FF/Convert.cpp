#include "Kestra/FF/Convert.h"

#include <array>
#include <climits>
#include <utility>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

using Conf::CodecID;
using Conf::PixelFormat;
using Conf::SampleFormats;

namespace {

constexpr std::array<std::pair<PixelFormat, AVPixelFormat>, 23> PIXEL_FORMATS{{
    {PixelFormat::YUV420P, AV_PIX_FMT_YUV420P},     {PixelFormat::YUV422P, AV_PIX_FMT_YUV422P},
    {PixelFormat::YUV444P, AV_PIX_FMT_YUV444P},     {PixelFormat::NV12, AV_PIX_FMT_NV12},
    {PixelFormat::YUVJ420P, AV_PIX_FMT_YUVJ420P},   {PixelFormat::YUV420P10, AV_PIX_FMT_YUV420P10},
    {PixelFormat::YUV422P10, AV_PIX_FMT_YUV422P10}, {PixelFormat::YUV444P10, AV_PIX_FMT_YUV444P10},
    {PixelFormat::P010, AV_PIX_FMT_P010},           {PixelFormat::YUV420P12, AV_PIX_FMT_YUV420P12},
    {PixelFormat::YUV422P12, AV_PIX_FMT_YUV422P12}, {PixelFormat::YUV444P12, AV_PIX_FMT_YUV444P12},
    {PixelFormat::GRAY8, AV_PIX_FMT_GRAY8},         {PixelFormat::GRAY10, AV_PIX_FMT_GRAY10},
    {PixelFormat::RGB24, AV_PIX_FMT_RGB24},         {PixelFormat::BGR24, AV_PIX_FMT_BGR24},
    {PixelFormat::GBRP, AV_PIX_FMT_GBRP},           {PixelFormat::GBRP10, AV_PIX_FMT_GBRP10},
    {PixelFormat::YUVA420P, AV_PIX_FMT_YUVA420P},   {PixelFormat::YUVA422P, AV_PIX_FMT_YUVA422P},
    {PixelFormat::YUVA444P, AV_PIX_FMT_YUVA444P},   {PixelFormat::BGRA, AV_PIX_FMT_BGRA},
    {PixelFormat::RGBA, AV_PIX_FMT_RGBA},
}};

// Both enumerations list packed formats first, then the planar ones, but for libav's 64-bit integers at the end.
constexpr int SAMPLE_FORMAT_COUNT = 10;

constexpr std::array<std::pair<CodecID, AVCodecID>, 20> CODECS{{
    {CodecID::H264, AV_CODEC_ID_H264},
    {CodecID::HEVC, AV_CODEC_ID_HEVC},
    {CodecID::VP9, AV_CODEC_ID_VP9},
    {CodecID::ProRes, AV_CODEC_ID_PRORES},
    {CodecID::MPEG4, AV_CODEC_ID_MPEG4},
    {CodecID::AV1, AV_CODEC_ID_AV1},
    {CodecID::VP8, AV_CODEC_ID_VP8},
    {CodecID::MPEG2, AV_CODEC_ID_MPEG2VIDEO},
    {CodecID::FFV1, AV_CODEC_ID_FFV1},
    {CodecID::DNxHD, AV_CODEC_ID_DNXHD},
    {CodecID::MJPEG, AV_CODEC_ID_MJPEG},
    {CodecID::AAC, AV_CODEC_ID_AAC},
    {CodecID::Opus, AV_CODEC_ID_OPUS},
    {CodecID::MP3, AV_CODEC_ID_MP3},
    {CodecID::FLAC, AV_CODEC_ID_FLAC},
    {CodecID::PCM_S16LE, AV_CODEC_ID_PCM_S16LE},
    {CodecID::PCM_S24LE, AV_CODEC_ID_PCM_S24LE},
    {CodecID::Vorbis, AV_CODEC_ID_VORBIS},
    {CodecID::AC3, AV_CODEC_ID_AC3},
    {CodecID::ALAC, AV_CODEC_ID_ALAC},
}};

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
    if (format == PixelFormat::YUVA444P10)
        return AV_PIX_FMT_YUVA444P10;
    for (const auto& [engine, av] : PIXEL_FORMATS)
        if (engine == format)
            return av;
    return AV_PIX_FMT_NONE;
}

PixelFormat FromAv(AVPixelFormat format) noexcept {
    if (format == AV_PIX_FMT_NONE)
        return PixelFormat::Unknown;
    if (format == AV_PIX_FMT_YUVA444P10)
        return PixelFormat::YUVA444P10;
    for (const auto& [engine, av] : PIXEL_FORMATS)
        if (av == format)
            return engine;
    return PixelFormat::Other;
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

AVChannelLayout ToAvLayout(std::uint32_t layout, int channels) noexcept {
    AVChannelLayout result = {};
    if (layout == 0 || av_channel_layout_from_mask(&result, layout) < 0) {
        result = {};
        result.order = AV_CHANNEL_ORDER_UNSPEC;
        result.nb_channels = channels;
    }
    return result;
}

std::uint32_t FromAv(const AVChannelLayout& layout) noexcept {
    if (layout.order == AV_CHANNEL_ORDER_NATIVE)
        return layout.u.mask <= UINT32_MAX ? static_cast<std::uint32_t>(layout.u.mask) : 0;
    AVChannelLayout usual = {};
    av_channel_layout_default(&usual, layout.nb_channels);
    return usual.order == AV_CHANNEL_ORDER_NATIVE && usual.u.mask <= UINT32_MAX
               ? static_cast<std::uint32_t>(usual.u.mask)
               : 0;
}

AVCodecID ToAv(CodecID id) noexcept {
    for (const auto& [engine, av] : CODECS)
        if (engine == id)
            return av;
    return AV_CODEC_ID_NONE;
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
