#include "Kestra/FF/Picture/Premultiply.h"

#include "Kestra/FF/Av/Error.h"
#include <algorithm>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

namespace {

constexpr int CHANNELS = 4;
constexpr int OPAQUE = 255;

bool IsWeighted(int format) noexcept {
    return format == AV_PIX_FMT_BGRA || format == AV_PIX_FMT_RGBA || format == AV_PIX_FMT_ARGB ||
           format == AV_PIX_FMT_ABGR;
}

int AlphaByte(const AVFrame& frame) noexcept {
    return av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format))->comp[3].offset;
}

std::uint8_t* RowOf(const AVFrame& frame, int y) noexcept {
    return frame.data[0] + static_cast<std::ptrdiff_t>(y) * frame.linesize[0];
}

} // namespace

bool NeedsPremultiplying(const AVFrame& frame) noexcept {
    if (!IsWeighted(frame.format))
        return false;
    const int alphaByte = AlphaByte(frame);
    for (int y = 0; y < frame.height; ++y) {
        const std::uint8_t* alpha = RowOf(frame, y) + alphaByte;
        int least = OPAQUE;
        for (int x = 0; x < frame.width; ++x, alpha += CHANNELS)
            least = std::min<int>(least, *alpha);
        if (least < OPAQUE)
            return true;
    }
    return false;
}

FrameHandle Premultiplied(const AVFrame& frame, FramePool& pool) {
    FrameHandle result = pool.Get(static_cast<AVPixelFormat>(frame.format), frame.width, frame.height);
    Check(av_frame_copy_props(result.get(), &frame), Proc::TranscodingError::FilterFailed, "properties of a picture");
    const int alphaByte = AlphaByte(frame);
    for (int y = 0; y < frame.height; ++y) {
        const std::uint8_t* from = RowOf(frame, y);
        std::uint8_t* to = RowOf(*result, y);
        for (int x = 0; x < frame.width; ++x, from += CHANNELS, to += CHANNELS) {
            for (int channel = 0; channel < CHANNELS; ++channel)
                to[channel] = static_cast<std::uint8_t>((from[channel] * from[alphaByte] + OPAQUE / 2) / OPAQUE);
            to[alphaByte] = from[alphaByte];
        }
    }
    return result;
}

void Unpremultiply(AVFrame& frame) noexcept {
    const int alphaByte = AlphaByte(frame);
    for (int y = 0; y < frame.height; ++y) {
        std::uint8_t* pixel = RowOf(frame, y);
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

} // namespace Kestra::FF
