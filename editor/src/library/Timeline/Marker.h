// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::Marker: a place that somebody named.
#pragma once

#include "Timeline/TimeRange.h"
#include <string>

namespace Timeline {

/// A value.
struct Marker {
    std::string name;
    std::string colour; ///< as the timeline has it, such as "RED"
    std::string comment;
    TimeRange range; ///< in the time of the track or stack, or from the start of the item, that it stands in
};

} // namespace Timeline
