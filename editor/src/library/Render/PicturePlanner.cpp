// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/PicturePlanner.h"

namespace Render {

PicturePlanner::PicturePlanner(std::shared_ptr<const Timeline::Document> document, const Kestra::FrameGrid& grid,
                               IsFull full)
    : ScenePlanner(std::move(document))
    , grid(grid)
    , full(std::move(full)) {}

bool PicturePlanner::takes(const Timeline::Track& track) const {
    return track.kind() == Timeline::Track::Kind::Video;
}

Kestra::Ticks PicturePlanner::placed(const Timeline::Stack&, Kestra::Ticks, Kestra::Ticks exact) const {
    return grid.Begin(grid.Nearest(exact));
}

} // namespace Render
