// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/FrameGeometry.h"

#include "Kestra/FF/Av/Error.h"
#include <algorithm>
#include <array>
#include <cstddef>

extern "C" {
#include <libavutil/imgutils.h>
#include <libavutil/intreadwrite.h>
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

namespace {

const AVPixFmtDescriptor& DescriptorOf(int format) {
    const AVPixFmtDescriptor* descriptor = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(format));
    if (!descriptor)
        Fail(Proc::TranscodingError::FilterFailed, "A picture has no known pixel format");
    return *descriptor;
}

// The component that tells how the samples of a plane lie.
int FirstComponent(const AVPixFmtDescriptor& descriptor, int plane) {
    for (int index = 0; index < descriptor.nb_components; ++index)
        if (descriptor.comp[index].plane == plane)
            return index;
    return -1;
}

// Of a component that is none of the chroma planes of YUV.
void ClearComponent(AVFrame& frame, const AVComponentDescriptor& component) {
    const int bytes = (component.depth + component.shift + 7) / 8;
    for (int y = 0; y < frame.height; ++y) {
        std::uint8_t* sample = frame.data[component.plane] + component.offset +
                               static_cast<std::ptrdiff_t>(y) * frame.linesize[component.plane];
        for (int x = 0; x < frame.width; ++x, sample += component.step)
            std::fill_n(sample, bytes, std::uint8_t{0});
    }
}

// libav blackens whole numbers only.
void FillBlackFloat(AVFrame& frame) {
    constexpr std::uint32_t ONE = 0x3F800000;
    const AVPixFmtDescriptor& descriptor = DescriptorOf(frame.format);
    const bool bigEndian = (descriptor.flags & AV_PIX_FMT_FLAG_BE) != 0;
    for (int plane = 0; plane < descriptor.nb_components; ++plane)
        for (int y = 0; y < frame.height; ++y) {
            std::uint8_t* const row = frame.data[plane] + static_cast<std::ptrdiff_t>(y) * frame.linesize[plane];
            for (int x = 0; x < frame.width; ++x)
                if (bigEndian)
                    AV_WB32(row + std::ptrdiff_t{4} * x, plane == 3 ? ONE : 0);
                else
                    AV_WL32(row + std::ptrdiff_t{4} * x, plane == 3 ? ONE : 0);
        }
}

} // namespace

FrameHandle MakeView(const AVFrame& frame, const FrameRect& part) {
    FrameHandle view = MakeFrameReference(frame);
    const AVPixFmtDescriptor& descriptor = DescriptorOf(frame.format);
    for (int plane = 0; plane < 4 && view->data[plane]; ++plane) {
        const int index = FirstComponent(descriptor, plane);
        if (index < 0)
            continue; // a palette
        const bool chroma = (index == 1 || index == 2) && !(descriptor.flags & AV_PIX_FMT_FLAG_RGB);
        const int x = chroma ? part.x >> descriptor.log2_chroma_w : part.x;
        const int y = chroma ? part.y >> descriptor.log2_chroma_h : part.y;
        view->data[plane] += static_cast<std::ptrdiff_t>(y) * view->linesize[plane] +
                             static_cast<std::ptrdiff_t>(x) * descriptor.comp[index].step;
    }
    view->width = part.width;
    view->height = part.height;
    return view;
}

FrameHandle MakeFieldView(const AVFrame& frame, bool bottom) {
    FrameHandle view = MakeFrameReference(frame);
    const AVPixFmtDescriptor& descriptor = DescriptorOf(frame.format);
    for (int plane = 0; plane < 4 && view->data[plane]; ++plane) {
        if (FirstComponent(descriptor, plane) < 0)
            continue;
        if (bottom)
            view->data[plane] += view->linesize[plane];
        view->linesize[plane] *= 2;
    }
    view->height = frame.height / 2;
    return view;
}

FrameRect AlignToChroma(const FrameRect& rect, AVPixelFormat format, int width, int height) {
    const AVPixFmtDescriptor& descriptor = DescriptorOf(format);
    const int stepX = 1 << descriptor.log2_chroma_w;
    const int stepY = 1 << descriptor.log2_chroma_h;
    FrameRect result;
    result.x = std::clamp(rect.x / stepX * stepX, 0, std::max(0, width - 1) / stepX * stepX);
    result.y = std::clamp(rect.y / stepY * stepY, 0, std::max(0, height - 1) / stepY * stepY);
    result.width = std::clamp(rect.width, 1, width - result.x);
    result.height = std::clamp(rect.height, 1, height - result.y);
    return result;
}

void FillBlack(AVFrame& frame, const FrameRect& part) {
    if (part.width <= 0 || part.height <= 0)
        return;
    const FrameHandle view = MakeView(frame, part);
    if (DescriptorOf(view->format).flags & AV_PIX_FMT_FLAG_FLOAT)
        return FillBlackFloat(*view);
    std::array<std::ptrdiff_t, 4> strides{};
    std::copy_n(view->linesize, strides.size(), strides.begin());
    Check(av_image_fill_black(view->data, strides.data(), static_cast<AVPixelFormat>(view->format), view->color_range,
                              view->width, view->height),
          Proc::TranscodingError::FilterFailed, "Blackening a picture failed");
}

void FillClear(AVFrame& frame) {
    const AVPixFmtDescriptor& descriptor = DescriptorOf(frame.format);
    const bool rgb = (descriptor.flags & AV_PIX_FMT_FLAG_RGB) != 0;
    if (!rgb)
        FillBlack(frame, {0, 0, frame.width, frame.height});
    const int alpha = (descriptor.flags & AV_PIX_FMT_FLAG_ALPHA) != 0 ? descriptor.nb_components - 1 : -1;
    // Of red, green and blue nothing at all is black, in floating point as well.
    for (int index = rgb ? 0 : alpha; index >= 0 && index < descriptor.nb_components; ++index)
        ClearComponent(frame, descriptor.comp[index]);
}

void FillAround(AVFrame& frame, const FrameRect& part, bool transparent) {
    const int right = part.x + part.width;
    const int bottom = part.y + part.height;
    const auto fill = [&frame, transparent](const FrameRect& bar) {
        if (transparent && bar.width > 0 && bar.height > 0)
            FillClear(*MakeView(frame, bar));
        else
            FillBlack(frame, bar);
    };
    fill({0, 0, frame.width, part.y});
    fill({0, bottom, frame.width, frame.height - bottom});
    fill({0, part.y, part.x, part.height});
    fill({right, part.y, frame.width - right, part.height});
}

} // namespace Kestra::FF
