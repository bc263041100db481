// SPDX-License-Identifier: GPL-3.0-or-later
// Reads how fast something of a timeline is played.
#pragma once

#include "Timeline/Reader/OtioContext.h"
#include <boost/rational.hpp>

namespace Timeline {

/// What the effects of an item make of its speed. Those that are switched off have none; those that are not known are
/// told.
boost::rational<long long> readSpeed(OtioContext& context, const OtioNode& node);

} // namespace Timeline
