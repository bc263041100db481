// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::TimeRange: a stretch of time.
#pragma once

#include "Kestra/Base/Quantity.h"

namespace Timeline {

/// A value.
struct TimeRange {
    Kestra::Ticks start{};
    Kestra::Ticks duration{}; ///< never negative

    Kestra::Ticks end() const { return start + duration; }
};

} // namespace Timeline
