// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/AlphaBlend.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Picture/BlendRows.h"
#include <vector>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

namespace {

struct Pair {
    AVPixelFormat alpha;
    AVPixelFormat opaque;
};

constexpr Pair PAIRS[] = {
    {AV_PIX_FMT_BGRA, AV_PIX_FMT_BGR0},
    {AV_PIX_FMT_RGBA, AV_PIX_FMT_RGB0},
    {AV_PIX_FMT_ARGB, AV_PIX_FMT_0RGB},
    {AV_PIX_FMT_ABGR, AV_PIX_FMT_0BGR},
    {AV_PIX_FMT_YUVA420P, AV_PIX_FMT_YUV420P},
    {AV_PIX_FMT_YUVA422P, AV_PIX_FMT_YUV422P},
    {AV_PIX_FMT_YUVA444P, AV_PIX_FMT_YUV444P},
    {AV_PIX_FMT_YUVA420P10, AV_PIX_FMT_YUV420P10},
    {AV_PIX_FMT_YUVA422P10, AV_PIX_FMT_YUV422P10},
    {AV_PIX_FMT_YUVA444P10, AV_PIX_FMT_YUV444P10},
    {AV_PIX_FMT_YUVA422P12, AV_PIX_FMT_YUV422P12},
    {AV_PIX_FMT_YUVA444P12, AV_PIX_FMT_YUV444P12},
    {AV_PIX_FMT_YUVA420P16, AV_PIX_FMT_YUV420P16},
    {AV_PIX_FMT_YUVA422P16, AV_PIX_FMT_YUV422P16},
    {AV_PIX_FMT_YUVA444P16, AV_PIX_FMT_YUV444P16},
    {AV_PIX_FMT_GBRAP, AV_PIX_FMT_GBRP},
    {AV_PIX_FMT_GBRAP10, AV_PIX_FMT_GBRP10},
    {AV_PIX_FMT_GBRAP12, AV_PIX_FMT_GBRP12},
    {AV_PIX_FMT_GBRAP16, AV_PIX_FMT_GBRP16},
};

void BlendPacked(const AVFrame& source, AVFrame& result, int alphaByte) {
    for (int y = 0; y < source.height; ++y) {
        const std::uint8_t* from = source.data[0] + static_cast<std::ptrdiff_t>(y) * source.linesize[0];
        std::uint8_t* to = result.data[0] + static_cast<std::ptrdiff_t>(y) * result.linesize[0];
        for (int x = 0; x < source.width; ++x, from += 4, to += 4)
            for (int byte = 0; byte < 4; ++byte)
                to[byte] = static_cast<std::uint8_t>((from[byte] * from[alphaByte] + 127) / 255);
    }
}

template <class Sample>
void BlendPlane(const AVFrame& source, AVFrame& result, int plane, int black, const AVPixFmtDescriptor& descriptor) {
    const bool chroma = (plane == 1 || plane == 2) && !(descriptor.flags & AV_PIX_FMT_FLAG_RGB);
    const int shiftX = chroma ? descriptor.log2_chroma_w : 0;
    const int shiftY = chroma ? descriptor.log2_chroma_h : 0;
    const int width = AV_CEIL_RSHIFT(source.width, shiftX);
    const int height = AV_CEIL_RSHIFT(source.height, shiftY);
    const std::vector<Sample> bottom(static_cast<std::size_t>(width), static_cast<Sample>(black));
    std::vector<Sample> shared(shiftX + shiftY > 0 ? static_cast<std::size_t>(width) : 0);
    for (int y = 0; y < height; ++y) {
        if (!shared.empty())
            ShareAlpha(source, y, shiftX, shiftY, shared);
        const Sample* alpha = shared.empty() ? RowOf<Sample>(source, 3, y) : shared.data();
        OverRow(bottom.data(), RowOf<Sample>(source, plane, y), alpha, RowOf<Sample>(result, plane, y), width,
                descriptor.comp[3].depth);
    }
}

} // namespace

int BlackOf(int plane, const AVPixFmtDescriptor& descriptor, bool fullRange) noexcept {
    const int depth = descriptor.comp[0].depth;
    if (descriptor.flags & AV_PIX_FMT_FLAG_RGB)
        return 0;
    if (plane > 0)
        return 1 << (depth - 1);
    return fullRange ? 0 : 16 << (depth - 8);
}

AVPixelFormat OpaqueFormat(AVPixelFormat format) noexcept {
    for (const Pair& pair : PAIRS)
        if (pair.alpha == format)
            return pair.opaque;
    return AV_PIX_FMT_NONE;
}

bool CanBlend(AVPixelFormat format) noexcept {
    return OpaqueFormat(format) != AV_PIX_FMT_NONE;
}

void BlendPlanesOverBlack(const AVFrame& frame, AVFrame& result) {
    const AVPixFmtDescriptor& descriptor = *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    for (int plane = 0; plane < 3; ++plane) {
        const int black = BlackOf(plane, descriptor, frame.color_range == AVCOL_RANGE_JPEG);
        if (descriptor.comp[0].depth > 8)
            BlendPlane<std::uint16_t>(frame, result, plane, black, descriptor);
        else
            BlendPlane<std::uint8_t>(frame, result, plane, black, descriptor);
    }
}

FrameHandle BlendOverBlack(const AVFrame& frame, FramePool& pool) {
    const auto format = static_cast<AVPixelFormat>(frame.format);
    const AVPixFmtDescriptor& descriptor = *av_pix_fmt_desc_get(format);
    FrameHandle result = pool.Get(OpaqueFormat(format), frame.width, frame.height);
    Check(av_frame_copy_props(result.get(), &frame), Proc::TranscodingError::FilterFailed, "properties of a picture");
    if (!(descriptor.flags & AV_PIX_FMT_FLAG_PLANAR)) {
        BlendPacked(frame, *result, descriptor.comp[3].offset);
        return result;
    }
    BlendPlanesOverBlack(frame, *result);
    return result;
}

} // namespace Kestra::FF
