// SPDX-License-Identifier: GPL-3.0-or-later
// Render::PlacedTrack: the items of a track on the composition's time.
#pragma once

#include "Kestra/Base/TimeMap.h"
#include "Render/Scene.h"
#include "Timeline/Track.h"
#include <functional>

namespace Render {

/// Borrows the track. A track of a stack that runs backwards has its last item first; one of a stack that is frozen
/// shows one item for ever.
class PlacedTrack {
public:
    /// Where an edge of the track lies that stands at `time` of the track and at `exact` of the composition.
    using Place = std::function<Kestra::Ticks(Kestra::Ticks time, Kestra::Ticks exact)>;

    /// `map` leads from the composition's time to the track's. `place` is asked only where that runs forwards.
    PlacedTrack(const Timeline::Track& track, const Kestra::TimeMap& map, Place place);

    /// What stands at a moment. Without an item and a transition: nothing.
    struct Standing {
        const Timeline::Transition* transition = nullptr; ///< that is going on
        std::optional<std::size_t> item{};                ///< without a transition
        Kestra::Ticks end{INT64_MAX};                     ///< up to which it does
    };
    Standing at(Kestra::Ticks moment) const;

    /// Of a transition of the track.
    Fade fadeOf(const Timeline::Transition& transition) const;
    /// Where the item is wanted no more, transitions included.
    Kestra::Ticks endOf(std::size_t item) const;
    /// Where its material is over that begins where the item is placed; not placed itself.
    Kestra::Ticks materialEndOf(std::size_t item) const;
    /// From the composition's time to that of the item's source, as the excerpt says.
    Kestra::TimeMap mapOf(std::size_t item, const Timeline::Excerpt& excerpt) const;
    bool isBackwards() const { return map.speed < 0; }

private:
    Standing atStill() const;
    /// The number of items for a moment before the first or behind the last.
    std::size_t itemAt(Kestra::Ticks moment) const;
    Kestra::Ticks edge(std::size_t index) const;
    const Timeline::Transition* transitionAt(std::size_t index) const;

    const Timeline::Track& track;
    const Kestra::TimeMap map;
    const Place place;
};

} // namespace Render
