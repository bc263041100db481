// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/FrameRotator.h"

#include <string>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

namespace {

constexpr int THREADS = 2;

// Flipping rows alone would leave negative strides, which few consumers expect: a flip stands before something that
// copies.
std::string Chain(Orientation orientation) {
    switch (orientation.rotation) {
    case 90:
        return orientation.flipped ? "transpose=clock_flip" : "transpose=clock";
    case 270:
        return orientation.flipped ? "transpose=cclock_flip" : "transpose=cclock";
    case 180:
        return orientation.flipped ? "hflip" : "vflip,hflip";
    default:
        return orientation.flipped ? "vflip,copy" : "null";
    }
}

} // namespace

FrameRotator::FrameRotator(Orientation orientation)
    : orientation(orientation) {}

AVPixelFormat FrameRotator::OutputFormat(AVPixelFormat frame, Orientation orientation) {
    const AVPixFmtDescriptor* descriptor = av_pix_fmt_desc_get(frame);
    const bool sideways = orientation.rotation % 180 != 0;
    if (!descriptor || !sideways || descriptor->log2_chroma_w == descriptor->log2_chroma_h)
        return frame;
    const bool alpha = (descriptor->flags & AV_PIX_FMT_FLAG_ALPHA) != 0;
    const int depth = descriptor->comp[0].depth;
    if (depth <= 8)
        return alpha ? AV_PIX_FMT_YUVA444P : AV_PIX_FMT_YUV444P;
    if (depth <= 10)
        return alpha ? AV_PIX_FMT_YUVA444P10 : AV_PIX_FMT_YUV444P10;
    if (depth <= 12)
        return alpha ? AV_PIX_FMT_YUVA444P12 : AV_PIX_FMT_YUV444P12;
    return alpha ? AV_PIX_FMT_YUVA444P16 : AV_PIX_FMT_YUV444P16;
}

FrameHandle FrameRotator::Rotate(const AVFrame& frame) {
    if (!graph || frame.format != format) {
        format = frame.format;
        const AVPixelFormat target = OutputFormat(static_cast<AVPixelFormat>(format), orientation);
        graph.emplace("format=" + std::string(av_get_pix_fmt_name(target)) + "," + Chain(orientation),
                      "Turning a picture upright failed", THREADS);
    }
    FrameHandle turned = graph->Filter(frame);
    // The orientation is in the pixels now.
    av_frame_remove_side_data(turned.get(), AV_FRAME_DATA_DISPLAYMATRIX);
    return turned;
}

} // namespace Kestra::FF
