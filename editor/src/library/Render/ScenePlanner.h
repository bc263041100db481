// Render::ScenePlanner: finds what stands at a moment of a document.
#pragma once

#include "Kestra/Base/FrameGrid.h"
#include "Render/PlacedTrack.h"
#include "Render/Scene.h"
#include "Timeline/Document.h"
#include <memory>
#include <optional>

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
    /// Whether a stack that begins at `start` of the track does.
    virtual bool takesStack(const Timeline::Stack& around, const Timeline::Track& track, Kestra::Ticks start) const = 0;
    /// Where something begins or ends that stands at `time` of the stack and at `exact` of the composition.
    virtual Kestra::Ticks placed(const Timeline::Stack& stack, Kestra::Ticks time, Kestra::Ticks exact) const = 0;
    /// Of which the first and the last one are held beyond a nested stack's contents; null: nothing is held.
    virtual const Kestra::FrameGrid* frames() const = 0;
    /// Whether a clip hides everything below it.
    virtual bool isFull(const Timeline::Clip& clip) const = 0;

private:
    /// Where a search has come to.
    struct Place {
        const Timeline::Stack& stack;
        const Timeline::Track& track;
        const PlacedTrack& placed;
        Kestra::Ticks moment;
        Kestra::Ticks limit; ///< of what lies around
    };

    struct Held {
        Kestra::Ticks time; ///< of the stack, at which it stands still
        Kestra::Ticks end;  ///< of the composition, up to which it does
    };

    Scene sceneOf(const Timeline::Stack& stack, const Kestra::TimeMap& map, Kestra::Ticks moment,
                  Kestra::Ticks limit) const;
    /// Likewise of a stack in a track, which holds its first and last pictures beyond its contents, as clips do.
    Scene sceneOfNested(const Timeline::Stack& stack, const Kestra::TimeMap& map, Kestra::Ticks moment,
                        Kestra::Ticks limit) const;
    /// Nothing within a nested stack's contents.
    std::optional<Held> heldOf(const Timeline::Stack& stack, const Kestra::TimeMap& map, Kestra::Ticks moment) const;
    /// The longest one of what this planner takes; null where none has any length.
    const Timeline::Track* longestTrack(const Timeline::Stack& stack) const;
    PlacedTrack placedOn(const Timeline::Stack& stack, const Timeline::Track& track, const Kestra::TimeMap& map) const;
    Scene sceneOf(const Timeline::Stack& stack, const Timeline::Track& track, const Kestra::TimeMap& map,
                  Kestra::Ticks moment, Kestra::Ticks limit) const;
    Scene sceneOf(const Place& place, const Timeline::Transition& transition) const;
    Scene sceneOf(const Place& place, std::size_t item) const;

    const std::shared_ptr<const Timeline::Document> shown;
};

} // namespace Render
