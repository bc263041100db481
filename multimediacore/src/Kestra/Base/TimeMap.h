// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::TimeMap: which time of a source is shown at which time of a composition.
#pragma once

#include "Kestra/Base/Quantity.h"
#include "Kestra/Base/Time.h"
#include <boost/rational.hpp>

namespace Kestra {

/// A value: an affine map. At `here` the source shows its time `there`, and `speed` ticks of the source pass in each
/// tick of the composition: 2 is twice as fast, 0 a frozen frame, -1 backwards. As it is made, it maps each time to
/// itself.
struct TimeMap {
    Ticks here{};
    Ticks there{};
    boost::rational<long long> speed = 1;

    /// Rounded to nearest; times, and what lies between them, that do not fit end at the ends of the range.
    Ticks ToSource(Ticks time) const {
        return SaturatedSum(there, Ticks(MulDivRound(Between(here, time), speed.numerator(), speed.denominator())));
    }
    /// The time at which `source` is shown, rounded to nearest. `speed` is not 0.
    Ticks FromSource(Ticks source) const {
        const long long sign = speed.numerator() < 0 ? -1 : 1;
        return SaturatedSum(
            here, Ticks(MulDivRound(Between(there, source), sign * speed.denominator(), sign * speed.numerator())));
    }

private:
    static std::int64_t Between(Ticks from, Ticks to) {
        std::int64_t ticks = 0;
        if (__builtin_sub_overflow(to.Value(), from.Value(), &ticks))
            return to < from ? INT64_MIN : INT64_MAX;
        return ticks;
    }
};

} // namespace Kestra
