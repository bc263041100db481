// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the markers of a timeline.
#pragma once

#include "Timeline/Marker.h"
#include "Timeline/Reader/OtioContext.h"
#include <vector>

namespace Timeline {

/// Those of an item, a track or a stack, counted from `start` on. One that cannot be read is a warning and left out.
std::vector<Marker> readMarkers(OtioContext& context, const OtioNode& node, Kestra::Ticks start);

} // namespace Timeline
