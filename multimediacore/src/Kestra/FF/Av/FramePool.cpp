// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Av/FramePool.h"

#include "Kestra/FF/Av/Error.h"
#include <cstddef>
#include <numeric>

extern "C" {
#include <libavutil/imgutils.h>
}

namespace Kestra::FF {

namespace {

constexpr int ALIGNMENT = 64;
// Vector code reads and writes a little beyond the last row.
constexpr std::size_t PADDING = 256;

int Aligned(int value) {
    return (value + ALIGNMENT - 1) / ALIGNMENT * ALIGNMENT;
}

} // namespace

void FramePool::Configure(AVPixelFormat newFormat, int newWidth, int newHeight) {
    const char* const what = "Laying out a picture failed";
    std::array<int, 4> rows{};
    Check(av_image_fill_linesizes(rows.data(), newFormat, newWidth), Proc::TranscodingError::FilterFailed, what);
    std::array<std::ptrdiff_t, 4> lines{};
    for (std::size_t plane = 0; plane < rows.size(); ++plane) {
        strides[plane] = Aligned(rows[plane]);
        lines[plane] = strides[plane];
    }
    Check(av_image_fill_plane_sizes(sizes.data(), newFormat, newHeight, lines.data()),
          Proc::TranscodingError::FilterFailed, what);
    const std::size_t total = std::accumulate(sizes.begin(), sizes.end(), PADDING + ALIGNMENT);
    pool.reset(Allocated(av_buffer_pool_init(total + sizes.size() * ALIGNMENT, nullptr)));
    format = newFormat;
    width = newWidth;
    height = newHeight;
}

FrameHandle FramePool::Get(AVPixelFormat wantedFormat, int wantedWidth, int wantedHeight) {
    if (!pool || wantedFormat != format || wantedWidth != width || wantedHeight != height)
        Configure(wantedFormat, wantedWidth, wantedHeight);
    FrameHandle frame = MakeFrame();
    frame->format = format;
    frame->width = width;
    frame->height = height;
    frame->buf[0] = Allocated(av_buffer_pool_get(pool.get()));
    std::uint8_t* next = frame->buf[0]->data;
    for (std::size_t plane = 0; plane < sizes.size() && sizes[plane] > 0; ++plane) {
        next += (ALIGNMENT - reinterpret_cast<std::uintptr_t>(next) % ALIGNMENT) % ALIGNMENT;
        frame->data[plane] = next;
        frame->linesize[plane] = strides[plane];
        next += sizes[plane];
    }
    frame->extended_data = frame->data;
    return frame;
}

} // namespace Kestra::FF
