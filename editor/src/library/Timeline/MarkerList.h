// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::markersOf: every marker of a stack.
#pragma once

#include "Timeline/Stack.h"

namespace Timeline {

/// Those of the stack, of its tracks and their items, and what stacks nested in it show of theirs: with the times at
/// which they are met there, forwards, and cut off at the ends of what is shown. A frozen stack has those of its frame
/// for as long as it stands. What is switched off has none.
EDITORTIMELINE_EXPORT std::vector<Marker> markersOf(const Stack& stack);

} // namespace Timeline
