// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FrameGrid: the periods of a constant frame rate.
#pragma once

#include "Kestra/Base/Quantity.h"
#include "Kestra/Base/Time.h"
#include "KestraExport.h"
#include <boost/rational.hpp>

namespace Kestra {

/// A value. Period n lies from Begin(n) to Begin(n + 1), period 0 begins at time 0; n may be negative. Every time is
/// reckoned from n itself, so nothing adds up.
class KESTRA_EXPORT FrameGrid {
public:
    /// Throws std::invalid_argument for a rate (frames a second) that is not positive.
    explicit FrameGrid(const boost::rational<long long>& rate);

    const boost::rational<long long>& GetRate() const { return rate; }
    Ticks Begin(FrameIndex index) const { return Ticks(FramesToTime(index.Value(), rate)); }
    Ticks Middle(FrameIndex index) const {
        return Ticks(MulDivRound(2 * index.Value() + 1, rate.denominator() * TIME_BASE, 2 * rate.numerator()));
    }
    /// How long `count` periods from period 0 on last.
    Ticks Length(FrameIndex count) const { return Begin(count); }
    /// The period that begins nearest to `time`; the number of frames that a duration holds.
    FrameIndex Nearest(Ticks time) const { return FrameIndex(TimeToFrames(time.Value(), rate)); }
    /// The period in which `time` lies.
    FrameIndex Covering(Ticks time) const {
        const FrameIndex nearest = Nearest(time);
        return Begin(nearest) > time ? nearest - FrameIndex(1) : nearest;
    }

    friend bool operator==(const FrameGrid& a, const FrameGrid& b) { return a.rate == b.rate; }
    friend bool operator!=(const FrameGrid& a, const FrameGrid& b) { return !(a == b); }

private:
    boost::rational<long long> rate;
};

} // namespace Kestra
