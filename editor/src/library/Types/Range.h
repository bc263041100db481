// SPDX-License-Identifier: GPL-3.0-or-later
// Types::Range: a stretch of time.
#pragma once

#include "KTime/KTime.h"

namespace Types {

/// From start (included) to end (not included). The default, zero to zero, stands for "no range".
struct Range {
    KTime start;
    KTime end;

    friend constexpr bool operator==(const Range& left, const Range& right) {
        return left.start == right.start && left.end == right.end;
    }
    friend constexpr bool operator!=(const Range& left, const Range& right) { return !(left == right); }
};

} // namespace Types
