// SPDX-License-Identifier: GPL-3.0-or-later
// Times as timelines write them, on the engine's clock.
#pragma once

#include "Kestra/Base/Time.h"
#include "Timeline/Reader/OtioContext.h"
#include <boost/rational.hpp>
#include <optional>

namespace Timeline {

/// The exact rate that a rounded one stands for: 23.98 and 23.976 are 24000/1001. Nothing for what is no rate.
std::optional<boost::rational<long long>> exactRate(double rate);

/// The fraction with a small denominator that a finite number stands for: 0.333333333 is 1/3.
boost::rational<long long> exactFraction(double number);

/// Nothing on a timeline lasts longer.
constexpr long long LONGEST_SECONDS = 366LL * 24 * 3600;
constexpr Kestra::Ticks LONGEST(LONGEST_SECONDS* Kestra::TIME_BASE);

/// `value` periods of `rate`; nothing where that is beyond LONGEST, forwards or backwards.
std::optional<Kestra::Ticks> exactTime(double value, double rate);

/// A RationalTime. Whatever is wrong with it is told as an error; then there is nothing.
std::optional<Kestra::Ticks> readTime(OtioContext& context, const OtioNode& node);

/// A TimeRange, likewise. Its duration is not negative.
std::optional<TimeRange> readRange(OtioContext& context, const OtioNode& node);

} // namespace Timeline
