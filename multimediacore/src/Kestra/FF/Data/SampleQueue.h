// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::SampleQueue: blocks of samples in, blocks of any other length out.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include "Kestra/Proc/IDataAudio.h"
#include <cstdint>
#include <deque>

namespace Kestra::FF {

/// All blocks have one format, rate and layout. Samples are copied once, on the way out.
class SampleQueue {
public:
    void Push(FrameHandle samples);
    std::int64_t GetCount() const { return count; }
    void Clear();
    /// Drops up to `samples` from the front.
    void Skip(std::int64_t samples);
    /// The next `samples` in a frame of their own; silence stands for those that are not there. A block at the front
    /// that has just that length is handed out as it is. Empty queue: null.
    FrameHandle Take(int samples);
    /// What is left of the first block, at most `limit` samples, without a copy. Empty queue: null.
    FrameHandle TakeFront(std::int64_t limit);

private:
    std::deque<FrameHandle> blocks;
    int offset = 0; ///< what of the first block is gone
    std::int64_t count = 0;
};

/// A frame of silence.
FrameHandle MakeSamples(AVSampleFormat format, int rate, const AVChannelLayout& layout, int samples);

} // namespace Kestra::FF
