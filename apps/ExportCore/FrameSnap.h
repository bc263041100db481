// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::FrameSnap: cuts brought to where frames begin.
#pragma once

#include "Types/Range.h"
#include <boost/rational.hpp>

namespace ExportCore {

struct FrameSnap {
    /// Both ends moved to the nearest start of a frame of `rate`, to the millisecond: pictures can be cut nowhere else,
    /// and sound that is cut elsewhere comes out of step. At least one frame remains.
    static Types::Range range(const Types::Range& range, const boost::rational<long long>& rate);

    FrameSnap() = delete;
};

} // namespace ExportCore
