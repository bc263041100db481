// Kestra::FF::PictureRotator: brings pictures upright.
#pragma once

#include "Kestra/FF/Handles.h"
#include "Kestra/FF/TrackShape.h"

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
    void Configure(const AVFrame& picture);
    bool Fits(const AVFrame& picture) const;

    Orientation orientation;
    FilterGraphHandle graph;
    AVFilterContext* input = nullptr;  ///< owned by the graph
    AVFilterContext* output = nullptr; ///< owned by the graph
    int width = 0;
    int height = 0;
    int format = -1;
};

} // namespace Kestra::FF
