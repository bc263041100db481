// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::Deinterlacer: progressive frames from woven fields.
#pragma once

#include "Kestra/FF/Av/FilterGraph.h"
#include <vector>

namespace Kestra::FF {

/// libavfilter's bwdif. Bound to one thread at a time. What a frame becomes depends on itself and its two neighbours
/// alone, not on how the reader came to it; frames that follow on from each other cost one run of the filter each.
class Deinterlacer {
public:
    /// How many frames come of one.
    enum class Output { Frame, Fields };

    /// `threads`: slices that one frame is worked on in at a time.
    Deinterlacer(Output output, int threads);

    /// One frame, or two, each what one field shows, in the fields' own order; new ones without the flag, with the
    /// frame's other tags. The frame's flag tells which field is first. The neighbours are null at the ends of the
    /// stream. Throws ProcException (FilterFailed).
    std::vector<FrameHandle> Deinterlace(const AVFrame* previous, const AVFrame& picture, const AVFrame* next);
    void Reset();

private:
    bool IsLast(const AVFrame& picture) const;
    void Lead(const AVFrame* previous, const AVFrame& picture);
    void Send(const AVFrame& picture);
    std::vector<FrameHandle> Receive();

    FilterGraph graph;
    FrameHandle last; ///< what the filter took last
};

} // namespace Kestra::FF
