// SPDX-License-Identifier: GPL-3.0-or-later
// Render::ScenePlanner: finds what stands at a moment of a document.
#pragma once

#include "Kestra/Base/FrameGrid.h"
#include "Render/PlacedTrack.h"
#include "Render/Scene.h"
#include "Timeline/Document.h"
#include <memory>
#include <utility>

namespace Render {

/// What planners of pictures and of sound have in common. Nothing is made in advance: a scene takes logarithmic time in
/// the number of items. Any thread.
class ScenePlanner {
public:
    /// `moment` is the composition's.
    Scene sceneAt(Kestra::Ticks moment) const;

protected:
    explicit ScenePlanner(std::shared_ptr<const Timeline::Document> document);
    ~ScenePlanner() = default;

    const Timeline::Document& document() const { return *shown; }

    /// Whether a track of that stack has something for this planner.
    virtual bool takes(const Timeline::Track& track) const = 0;
    /// Whether clips of such a track do; stacks in it may also where they do not.
    virtual bool takesClips(const Timeline::Track& track) const = 0;
    /// Whether a stack that stands in the track does.
    virtual bool takesStack(const Timeline::Track& track, const Timeline::Nested& nested) const = 0;
    /// Where something begins or ends that stands at `time` of the stack and at `exact` of the composition.
    virtual Kestra::Ticks placed(const Timeline::Stack& stack, Kestra::Ticks time, Kestra::Ticks exact) const = 0;
    /// Of which a nested stack's first and last one are held beyond its duration; null: nothing is held.
    virtual const Kestra::FrameGrid* frames() const = 0;
    /// Whether a clip hides everything below it.
    virtual bool isFull(const Timeline::Clip& clip) const = 0;

private:
    /// Where a search has come to.
    struct Place {
        const Timeline::Track& track;
        const PlacedTrack& placed;
        Kestra::Ticks moment;
        Kestra::Ticks limit; ///< of what lies around
    };

    Scene sceneOf(const Timeline::Stack& stack, const Kestra::TimeMap& map, Kestra::Ticks moment,
                  Kestra::Ticks limit) const;
    /// Likewise of a stack in a track, whose first and last frames are held beyond its duration, as clips' are.
    Scene sceneOfNested(const Timeline::Stack& stack, const Kestra::TimeMap& map, Kestra::Ticks moment,
                        Kestra::Ticks limit) const;
    /// Where a stack begins and where it is over, the earlier moment first. Not of one that is frozen.
    std::pair<Kestra::Ticks, Kestra::Ticks> edgesOf(const Timeline::Stack& stack, const Kestra::TimeMap& map) const;
    Scene sceneOf(const Timeline::Stack& stack, const Timeline::Track& track, const Kestra::TimeMap& map,
                  Kestra::Ticks moment, Kestra::Ticks limit) const;
    Scene sceneOf(const Place& place, const Timeline::Transition& transition) const;
    Scene sceneOf(const Place& place, std::size_t item) const;

    const std::shared_ptr<const Timeline::Document> shown;
};

} // namespace Render
