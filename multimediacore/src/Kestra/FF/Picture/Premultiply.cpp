// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/Premultiply.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Picture/AlphaBlend.h"
#include "Kestra/FF/Picture/BlendRows.h"
#include "Kestra/FF/Picture/SampleWeights.h"
#include <algorithm>
#include <climits>

extern "C" {
#include <libavutil/imgutils.h>
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

namespace {

constexpr int CHANNELS = 4;
constexpr int OPAQUE = 255;

bool IsPacked(int format) noexcept {
    return format == AV_PIX_FMT_BGRA || format == AV_PIX_FMT_RGBA || format == AV_PIX_FMT_ARGB ||
           format == AV_PIX_FMT_ABGR;
}

bool IsDeep(const AVFrame& frame) noexcept {
    return av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format))->comp[3].depth > CHAR_BIT;
}

int AlphaByte(const AVFrame& frame) noexcept {
    return av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format))->comp[3].offset;
}

std::uint8_t* PixelsOf(const AVFrame& frame, int y) noexcept {
    return frame.data[0] + static_cast<std::ptrdiff_t>(y) * frame.linesize[0];
}

bool IsSeenThrough(const AVFrame& packed) noexcept {
    const int alphaByte = AlphaByte(packed);
    for (int y = 0; y < packed.height; ++y) {
        const std::uint8_t* alpha = PixelsOf(packed, y) + alphaByte;
        int least = OPAQUE;
        for (int x = 0; x < packed.width; ++x, alpha += CHANNELS)
            least = std::min<int>(least, *alpha);
        if (least < OPAQUE)
            return true;
    }
    return false;
}

template <class Sample>
bool ArePlanesSeenThrough(const AVFrame& frame) noexcept {
    const int depth = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format))->comp[3].depth;
    const auto highest = static_cast<Sample>((1U << depth) - 1);
    for (int y = 0; y < frame.height; ++y) {
        const auto* const alpha = RowOf<Sample>(frame, 3, y);
        Sample least = highest;
        for (int x = 0; x < frame.width; ++x)
            least = std::min(least, alpha[x]);
        if (least < highest)
            return true;
    }
    return false;
}

void PremultiplyPixels(const AVFrame& frame, AVFrame& result) {
    const int alphaByte = AlphaByte(frame);
    const int width = frame.width * CHANNELS;
    const std::vector<std::uint8_t> black(static_cast<std::size_t>(width));
    std::vector<std::uint8_t> weights(black.size());
    for (int y = 0; y < frame.height; ++y) {
        const std::uint8_t* const from = PixelsOf(frame, y);
        std::uint8_t* const weightOf = weights.data();
        for (int x = 0; x < width; x += CHANNELS) {
            // Each of the colours by its pixel's alpha, alpha itself by one: by loops that become vectors.
            std::fill_n(weightOf + x, CHANNELS, from[x + alphaByte]);
            weightOf[x + alphaByte] = OPAQUE;
        }
        OverRow(black.data(), from, weightOf, PixelsOf(result, y), width, CHAR_BIT);
    }
}

void UnpremultiplyPixels(AVFrame& frame) noexcept {
    const int alphaByte = AlphaByte(frame);
    for (int y = 0; y < frame.height; ++y) {
        std::uint8_t* pixel = PixelsOf(frame, y);
        for (int x = 0; x < frame.width; ++x, pixel += CHANNELS) {
            const int alpha = pixel[alphaByte];
            if (alpha == 0 || alpha == OPAQUE)
                continue;
            for (int channel = 0; channel < CHANNELS; ++channel)
                pixel[channel] = static_cast<std::uint8_t>(
                    std::min(OPAQUE, (pixel[channel] * OPAQUE + alpha / 2) / alpha)); // scaling may overshoot
            pixel[alphaByte] = static_cast<std::uint8_t>(alpha);
        }
    }
}

/// By value: what goes by reference, as std::clamp does, becomes no vectors.
int Clamped(int value, int lowest, int highest) noexcept {
    const int raised = value < lowest ? lowest : value;
    return raised > highest ? highest : raised;
}

/// Colours are no further from black than their alpha, but for what scaling overshoots; what is transparent is black.
template <class Sample>
void UnpremultiplyRow(Sample* samples, const Sample* alpha, int width, int black, int highest) {
    const auto most = static_cast<float>(highest);
    for (int x = 0; x < width; ++x) {
        const int weight = alpha[x];
        const int colour = Clamped(samples[x] - black, -weight, weight);
        const int divisor = weight < 1 ? 1 : weight;
        const float whole = static_cast<float>(colour) * most / static_cast<float>(divisor);
        const int rounded = static_cast<int>(whole + static_cast<float>(black) + ROUNDING);
        samples[x] = static_cast<Sample>(Clamped(rounded, 0, highest));
    }
}

template <class Sample>
void UnpremultiplyPlanes(AVFrame& frame) {
    const AVPixFmtDescriptor& descriptor = *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    const int highest = (1 << descriptor.comp[3].depth) - 1;
    for (int plane = 0; plane < 3; ++plane) {
        const bool chroma = plane > 0 && !(descriptor.flags & AV_PIX_FMT_FLAG_RGB);
        const int shiftX = chroma ? descriptor.log2_chroma_w : 0;
        const int shiftY = chroma ? descriptor.log2_chroma_h : 0;
        const int width = AV_CEIL_RSHIFT(frame.width, shiftX);
        const int black = BlackOf(plane, descriptor, frame.color_range == AVCOL_RANGE_JPEG);
        std::vector<Sample> shared(static_cast<std::size_t>(width));
        for (int y = 0; y < AV_CEIL_RSHIFT(frame.height, shiftY); ++y) {
            if (shiftX + shiftY > 0)
                ShareAlpha(frame, y, shiftX, shiftY, shared);
            const Sample* const alpha = shiftX + shiftY > 0 ? shared.data() : RowOf<Sample>(frame, 3, y);
            UnpremultiplyRow(RowOf<Sample>(frame, plane, y), alpha, width, black, highest);
        }
    }
}

} // namespace

bool CanPremultiply(AVPixelFormat format) noexcept {
    return CanBlend(format) || HasSampleWeights(format);
}

bool NeedsPremultiplying(const AVFrame& frame) noexcept {
    if (!CanPremultiply(static_cast<AVPixelFormat>(frame.format)))
        return false;
    if (IsPacked(frame.format))
        return IsSeenThrough(frame);
    if (!CanBlend(static_cast<AVPixelFormat>(frame.format)))
        return IsAnySeenThrough(frame);
    return IsDeep(frame) ? ArePlanesSeenThrough<std::uint16_t>(frame) : ArePlanesSeenThrough<std::uint8_t>(frame);
}

FrameHandle Premultiplied(const AVFrame& frame, FramePool& pool) {
    FrameHandle result = pool.Get(static_cast<AVPixelFormat>(frame.format), frame.width, frame.height);
    Check(av_frame_copy_props(result.get(), &frame), Proc::TranscodingError::FilterFailed, "properties of a picture");
    if (IsPacked(frame.format)) {
        PremultiplyPixels(frame, *result);
        return result;
    }
    if (!CanBlend(static_cast<AVPixelFormat>(frame.format))) {
        Check(av_frame_copy(result.get(), &frame), Proc::TranscodingError::FilterFailed, "a copy of a picture");
        WeightSamples(*result);
        return result;
    }
    BlendPlanesOverBlack(frame, *result);
    const int alphaBytes = frame.width * (IsDeep(frame) ? 2 : 1);
    av_image_copy_plane(result->data[3], result->linesize[3], frame.data[3], frame.linesize[3], alphaBytes,
                        frame.height);
    return result;
}

void Unpremultiply(AVFrame& frame) {
    if (IsPacked(frame.format))
        UnpremultiplyPixels(frame);
    else if (!CanBlend(static_cast<AVPixelFormat>(frame.format)))
        UnweightSamples(frame);
    else if (IsDeep(frame))
        UnpremultiplyPlanes<std::uint16_t>(frame);
    else
        UnpremultiplyPlanes<std::uint8_t>(frame);
}

} // namespace Kestra::FF
