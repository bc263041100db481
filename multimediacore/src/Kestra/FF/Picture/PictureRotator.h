// Kestra::FF::PictureRotator: brings pictures upright.
#pragma once

#include "Kestra/FF/Av/FilterGraph.h"
#include "Kestra/FF/Picture/Orientation.h"
#include <optional>

namespace Kestra::FF {

/// Bound to one thread at a time. Pictures of formats whose chroma planes cannot be turned in place (4:2:2) come out in
/// one that has the same resolution both ways.
class PictureRotator {
public:
    explicit PictureRotator(Orientation orientation);

    /// A new picture, turned, with its tags; the shape of its pixels turns with it.
    FrameHandle Rotate(const AVFrame& picture);
    /// What pictures of that format come out in.
    static AVPixelFormat OutputFormat(AVPixelFormat picture, Orientation orientation);

private:
    Orientation orientation;
    std::optional<FilterGraph> graph;
    int format = -1; ///< of the pictures that the graph is for
};

} // namespace Kestra::FF
