// SPDX-License-Identifier: GPL-3.0-or-later
// Render::SoundPlanner: what is heard at each sample.
#pragma once

#include "Kestra/Base/SampleGrid.h"
#include "Render/LinkedStacks.h"
#include "Render/ScenePlanner.h"
#include "Render/Window.h"

namespace Render {

/// Samples are counted from the start of a window. Sound that begins where a picture of its stack begins moves with
/// that to the nearest frame, so both stay in step to the sample; without pictures in the window, and for other sound,
/// the exact time counts. A stack is heard where it stands: among pictures only where no sound track beside it has its
/// sound, see LinkedStacks.
class SoundPlanner final : public ScenePlanner {
public:
    SoundPlanner(std::shared_ptr<const Timeline::Document> document, const Window& window,
                 const Kestra::SampleGrid& grid);

    Scene sceneAt(Kestra::SampleIndex sample) const;
    /// The first sample at which a scene is over that begins before it.
    Kestra::SampleIndex endOf(const Scene& scene) const { return sampleAt(scene.end); }
    Kestra::SampleIndex endOf(const Material& material) const { return sampleAt(material.end); }
    /// The sample nearest to a time of the composition; negative before the window.
    Kestra::SampleIndex sampleAt(Kestra::Ticks time) const;

private:
    bool takes(const Timeline::Track& track) const override;
    bool takesClips(const Timeline::Track& track) const override;
    bool takesStack(const Timeline::Track& track, const Timeline::Nested& nested) const override;
    Kestra::Ticks placed(const Timeline::Stack& stack, Kestra::Ticks time, Kestra::Ticks exact) const override;
    const Kestra::FrameGrid* frames() const override { return nullptr; }
    bool isFull(const Timeline::Clip&) const override { return false; }

    const Window window;
    const Kestra::SampleGrid grid;
    const LinkedStacks linked;
};

} // namespace Render
