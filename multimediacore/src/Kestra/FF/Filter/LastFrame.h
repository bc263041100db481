// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::LastFrame: what became of a frame, for when it comes again.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <utility>

namespace Kestra::FF {

/// Bound to one thread at a time. Holding the frame keeps its memory from being given to another one, so the same
/// memory means the same pixels.
class LastFrame {
public:
    /// The frame that `make` gave for these pixels when they came last; calls it when other pixels came since.
    template <class Make>
    const AVFrame& Get(const AVFrame& frame, const Make& make) {
        if (!source || source->data[0] != frame.data[0] || source->format != frame.format ||
            source->width != frame.width || source->height != frame.height) {
            result = make(frame);
            source = MakeFrameReference(frame);
        }
        return *result;
    }
    void Forget() {
        source.reset();
        result.reset();
    }

private:
    FrameHandle source;
    FrameHandle result;
};

} // namespace Kestra::FF
