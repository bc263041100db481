// SPDX-License-Identifier: GPL-3.0-or-later
// Render::PicturePlanner: what is seen in each frame.
#pragma once

#include "Kestra/Base/FrameGrid.h"
#include "Render/ScenePlanner.h"
#include <functional>

namespace Render {

/// Frames are the composition's. What begins or ends does so on the frame nearest to its time.
class PicturePlanner final : public ScenePlanner {
public:
    /// Whether pictures of the clip are opaque and fill the frame.
    using IsFull = std::function<bool(const Timeline::Clip&)>;

    PicturePlanner(std::shared_ptr<const Timeline::Document> document, const Kestra::FrameGrid& grid, IsFull full);

    Scene sceneAt(Kestra::FrameIndex frame) const {
        return ScenePlanner::sceneAt(grid.Middle(frame) - Kestra::Ticks(1));
    }
    /// The first frame at which a scene is over that begins before it.
    Kestra::FrameIndex endOf(const Scene& scene) const { return frameAt(scene.end); }
    Kestra::FrameIndex endOf(const Material& material) const { return frameAt(material.end); }

private:
    Kestra::FrameIndex frameAt(Kestra::Ticks time) const {
        return time == Kestra::Ticks(INT64_MAX) ? Kestra::FrameIndex(INT64_MAX) : grid.Nearest(time);
    }
    bool takes(const Timeline::Track& track) const override;
    bool takesClips(const Timeline::Track& track) const override { return takes(track); }
    bool takesStack(const Timeline::Track&, const Timeline::Nested&) const override { return true; }
    Kestra::Ticks placed(const Timeline::Stack&, Kestra::Ticks, Kestra::Ticks exact) const override;
    const Kestra::FrameGrid* frames() const override { return &grid; }
    bool isFull(const Timeline::Clip& clip) const override { return full(clip); }

    const Kestra::FrameGrid grid;
    const IsFull full;
};

} // namespace Render
