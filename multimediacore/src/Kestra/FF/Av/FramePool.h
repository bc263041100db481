// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::FramePool: frames whose memory is used again.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <array>

namespace Kestra::FF {

/// Bound to one thread at a time; the frames it gives may go anywhere and outlive it.
class FramePool {
public:
    /// A writable frame of that format and size with undefined pixels and no tags. Planes begin at, and rows are a
    /// multiple of, 64 bytes. Throws ProcException for a format that has no planes in memory.
    FrameHandle Get(AVPixelFormat format, int width, int height);

private:
    void Configure(AVPixelFormat format, int width, int height);

    AVPixelFormat format = AV_PIX_FMT_NONE;
    int width = 0;
    int height = 0;
    std::array<int, 4> strides{};
    std::array<std::size_t, 4> sizes{};
    BufferPoolHandle pool;
};

} // namespace Kestra::FF
