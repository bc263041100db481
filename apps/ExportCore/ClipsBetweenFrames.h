// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::clipsBetweenFrames: clips that are too short to be seen.
#pragma once

#include "Kestra/Base/FrameGrid.h"
#include "Timeline/Document.h"
#include "Timeline/Finding.h"
#include <vector>

namespace ExportCore {

/// From `start` to `end` in the time of a composition.
struct Stretch {
    Kestra::Ticks start;
    Kestra::Ticks end;
};

/// A warning for each clip with pictures that would be seen in the stretch, begins and ends on the same frame of the
/// grid and stands in no transition: everything begins on the frame nearest to its time. Those of stacks that are
/// frozen are not looked at.
std::vector<Timeline::Finding> clipsBetweenFrames(const Timeline::Document& document, const Kestra::FrameGrid& grid,
                                                  const Stretch& stretch);

} // namespace ExportCore
