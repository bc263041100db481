// SPDX-License-Identifier: GPL-3.0-or-later
// The frame rates that pictures are usually shot, stored and shown at.
#pragma once

#include "KestraExport.h"
#include <boost/rational.hpp>
#include <vector>

namespace Kestra::Conf {

/// Nothing is shot or shown faster. Beyond, a "rate" is the inverse of a container's clock, or a header's nonsense.
constexpr int HIGHEST_FRAME_RATE = 1000;

/// In rising order, from 10 to 240 frames a second.
KESTRA_EXPORT const std::vector<boost::rational<long long>>& StandardRates();

/// The standard rate next to `rate` if it is off by at most half a percent; 0 when there is none.
KESTRA_EXPORT boost::rational<long long> NearStandardRate(double rate);

/// Whether time codes of the rate may drop numbers (SMPTE ST 12-1): that of multiples of 30000/1001.
inline bool IsDropFrameRate(const boost::rational<long long>& rate) {
    return rate.denominator() == 1001 && rate.numerator() % 30000 == 0;
}

} // namespace Kestra::Conf
