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

    /// Rounded to nearest; times that do not fit end at the ends of the range.
    Ticks ToSource(Ticks time) const {
        return SaturatedSum(there, Ticks(MulDivRound((time - here).Value(), speed.numerator(), speed.denominator())));
    }
    /// The time at which `source` is shown, rounded to nearest. `speed` is not 0.
    Ticks FromSource(Ticks source) const {
        const long long sign = speed.numerator() < 0 ? -1 : 1;
        return SaturatedSum(
            here, Ticks(MulDivRound((source - there).Value(), sign * speed.denominator(), sign * speed.numerator())));
    }
};

} // namespace Kestra
