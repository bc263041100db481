// The frame rates that pictures are usually shot, stored and shown at.
#pragma once

#include "KestraExport.h"
#include <boost/rational.hpp>
#include <vector>

namespace Kestra::Conf {

/// In rising order, from 10 to 240 frames a second.
KESTRA_EXPORT const std::vector<boost::rational<long long>>& StandardRates();

/// The standard rate next to `rate` if it is off by at most half a percent; 0 when there is none.
KESTRA_EXPORT boost::rational<long long> NearStandardRate(double rate);

} // namespace Kestra::Conf
