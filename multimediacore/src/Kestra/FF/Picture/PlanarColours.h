// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::PlanarColours: colours of planar YUV in an ordinary range, by zimg.
#pragma once

#include "Kestra/FF/Av/FramePool.h"
#include "Kestra/FF/Picture/ColourConverter.h"
#include "Kestra/FF/Picture/ZimgGraph.h"

namespace Kestra::FF {

/// Takes a part of ColourConverter's work that can be done in an eighth of the time: what becomes eight bits without
/// alpha, where nothing has a high range, with tables of the transfers, whose results are within a step of the exact
/// ones. Bound to one thread at a time.
class PlanarColours {
public:
    /// `change` as IsNeeded wants it; transfers and primaries are those of its classes. Null, and nothing is done,
    /// where that is somebody else's work. Tags and side data are the frame's.
    FrameHandle Convert(const AVFrame& frame, const ColourChange& change, AVPixelFormat format);

private:
    ZimgGraph::Side builtSource;
    ZimgGraph::Side builtTarget;
    std::unique_ptr<ZimgGraph> graph; ///< null where zimg knows no way
    FramePool pool;
};

} // namespace Kestra::FF
