// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::FrameRotator: brings frames upright.
#pragma once

#include "Kestra/FF/Av/FilterGraph.h"
#include "Kestra/FF/Picture/Orientation.h"
#include <optional>

namespace Kestra::FF {

/// Bound to one thread at a time. Frames of formats whose chroma planes cannot be turned in place (4:2:2) come out in
/// one that has the same resolution both ways.
class FrameRotator {
public:
    explicit FrameRotator(Orientation orientation);

    /// A new frame, turned, with its tags; the shape of its pixels turns with it.
    FrameHandle Rotate(const AVFrame& frame);
    /// What frames of that format come out in.
    static AVPixelFormat OutputFormat(AVPixelFormat frame, Orientation orientation);

private:
    Orientation orientation;
    std::optional<FilterGraph> graph;
    int format = -1; ///< of the frames that the graph is for
};

} // namespace Kestra::FF
