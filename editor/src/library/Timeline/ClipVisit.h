// Timeline::visitClips, visitMarkers: every clip and every marker of a stack.
#pragma once

#include "Timeline/Stack.h"

namespace Timeline {

/// Calls `visit(track, item, clip)` for the clips of the stack and of those nested in it that are switched on: tracks
/// from the lowest one on, items in their order.
template <class Visit>
void visitClips(const Stack& stack, const Visit& visit) {
    for (const Track& track : stack.tracks()) {
        if (!track.isEnabled())
            continue;
        for (const Item& item : track.items()) {
            if (!item.enabled)
                continue;
            if (const auto* clip = std::get_if<Clip>(&item.content))
                visit(track, item, *clip);
            else if (const auto* nested = std::get_if<Nested>(&item.content))
                visitClips(*nested->stack, visit);
        }
    }
}

/// Calls `visit(marker)` for the stack's own markers and those of its tracks and their items; not of nested stacks.
template <class Visit>
void visitMarkers(const Stack& stack, const Visit& visit) {
    const auto all = [&visit](const std::vector<Marker>& markers) {
        for (const Marker& marker : markers)
            visit(marker);
    };
    all(stack.markers());
    for (const Track& track : stack.tracks()) {
        all(track.markers());
        for (const Item& item : track.items())
            all(item.markers);
    }
}

} // namespace Timeline
