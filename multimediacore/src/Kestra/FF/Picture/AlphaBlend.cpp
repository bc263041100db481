#include "Kestra/FF/Picture/AlphaBlend.h"

#include "Kestra/FF/Av/Error.h"
#include <algorithm>
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
const Sample* Row(const AVFrame& frame, int plane, int y) {
    return reinterpret_cast<const Sample*>(frame.data[plane] + static_cast<std::ptrdiff_t>(y) * frame.linesize[plane]);
}

/// The mean alpha of the pixels that share each sample of a row of a subsampled plane.
template <class Sample>
void ShareAlpha(const AVFrame& frame, int y, int shiftX, int shiftY, std::vector<Sample>& row) {
    const int firstY = y << shiftY;
    const int lastY = std::min((y + 1) << shiftY, frame.height);
    int x = 0;
    if (shiftX == 1 && shiftY == 1 && lastY - firstY == 2) {
        // Whole groups of four, the usual case, in a loop that becomes vectors.
        const Sample* above = Row<Sample>(frame, 3, firstY);
        const Sample* below = Row<Sample>(frame, 3, firstY + 1);
        for (; x < frame.width / 2; ++x, above += 2, below += 2)
            row[static_cast<std::size_t>(x)] =
                static_cast<Sample>((std::uint32_t{above[0]} + above[1] + below[0] + below[1] + 2) / 4);
    }
    for (; x < static_cast<int>(row.size()); ++x) {
        const int firstX = x << shiftX;
        const int lastX = std::min((x + 1) << shiftX, frame.width);
        std::uint32_t sum = 0;
        for (int line = firstY; line < lastY; ++line)
            for (int column = firstX; column < lastX; ++column)
                sum += Row<Sample>(frame, 3, line)[column];
        const auto count = static_cast<std::uint32_t>(std::max(1, (lastY - firstY) * (lastX - firstX)));
        row[static_cast<std::size_t>(x)] = static_cast<Sample>((sum + count / 2) / count);
    }
}

/// The mean of the sample and black, weighted by alpha. The division by 2^depth - 1 is exact and needs no divider, so
/// that the compiler makes vectors of the loop.
template <class Sample, class Product>
void BlendRow(const Sample* from, const Sample* alpha, Sample* to, int width, Product black, int depth) {
    const Product highest = (Product{1} << depth) - 1;
    const Product half = Product{1} << (depth - 1);
    for (int x = 0; x < width; ++x) {
        const Product sum = black * (highest - alpha[x]) + Product{from[x]} * alpha[x] + half;
        to[x] = static_cast<Sample>((sum + (sum >> depth)) >> depth);
    }
}

template <class Sample, class Product>
void BlendPlane(const AVFrame& source, AVFrame& result, int plane, Product black,
                const AVPixFmtDescriptor& descriptor) {
    const bool chroma = (plane == 1 || plane == 2) && !(descriptor.flags & AV_PIX_FMT_FLAG_RGB);
    const int shiftX = chroma ? descriptor.log2_chroma_w : 0;
    const int shiftY = chroma ? descriptor.log2_chroma_h : 0;
    const int width = AV_CEIL_RSHIFT(source.width, shiftX);
    const int height = AV_CEIL_RSHIFT(source.height, shiftY);
    std::vector<Sample> shared(shiftX + shiftY > 0 ? static_cast<std::size_t>(width) : 0);
    for (int y = 0; y < height; ++y) {
        if (!shared.empty())
            ShareAlpha(source, y, shiftX, shiftY, shared);
        const Sample* alpha = shared.empty() ? Row<Sample>(source, 3, y) : shared.data();
        auto* to = const_cast<Sample*>(Row<Sample>(result, plane, y));
        BlendRow(Row<Sample>(source, plane, y), alpha, to, width, black, descriptor.comp[3].depth);
    }
}

int BlackOf(int plane, const AVPixFmtDescriptor& descriptor, bool fullRange) {
    const int depth = descriptor.comp[0].depth;
    if (descriptor.flags & AV_PIX_FMT_FLAG_RGB)
        return 0;
    if (plane > 0)
        return 1 << (depth - 1);
    return fullRange ? 0 : 16 << (depth - 8);
}

} // namespace

AVPixelFormat OpaqueFormat(AVPixelFormat format) noexcept {
    for (const Pair& pair : PAIRS)
        if (pair.alpha == format)
            return pair.opaque;
    return AV_PIX_FMT_NONE;
}

bool CanBlend(AVPixelFormat format) noexcept {
    return OpaqueFormat(format) != AV_PIX_FMT_NONE;
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
    for (int plane = 0; plane < 3; ++plane) {
        const auto black =
            static_cast<std::uint32_t>(BlackOf(plane, descriptor, frame.color_range == AVCOL_RANGE_JPEG));
        if (descriptor.comp[0].depth > 8)
            BlendPlane<std::uint16_t, std::uint64_t>(frame, *result, plane, black, descriptor);
        else
            BlendPlane<std::uint8_t, std::uint32_t>(frame, *result, plane, black, descriptor);
    }
    return result;
}

} // namespace Kestra::FF
