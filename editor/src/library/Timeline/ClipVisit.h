// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::visitClips: every clip of a stack.
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

} // namespace Timeline
