// SPDX-License-Identifier: GPL-3.0-or-later
// Brings transitions to what their neighbours allow.
#pragma once

#include "Timeline/Reader/OtioContext.h"
#include <utility>

namespace Timeline {

/// A transition and where it stands in the file.
using PlacedTransition = std::pair<Transition, OtioNode>;

/// No two at one place, none longer than the item on a side allows beside the one before it, none without length. What
/// is changed or left out is told, and where a stack lacks what would be seen or heard of it beyond the cut.
/// `transitions` by rising place.
std::vector<Transition> fitTransitions(OtioContext& context, const std::vector<Item>& items,
                                       const std::vector<PlacedTransition>& transitions, Track::Kind kind);

} // namespace Timeline
