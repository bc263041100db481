// SPDX-License-Identifier: GPL-3.0-or-later
// Engine time: a signed 64-bit count of 1/705 600 000 s.
#pragma once

#include <boost/rational.hpp>
#include <cstdint>

namespace Kestra {

/// Ticks a second. Every common frame and sample period, those of 1000/1001 rates included, is a whole number of ticks.
inline constexpr std::int64_t TIME_BASE = 705'600'000;
inline constexpr std::int64_t TICKS_PER_MILLISECOND = TIME_BASE / 1000;
/// "Not known" for a time or a duration.
inline constexpr std::int64_t TIME_UNKNOWN = INT64_MIN;

/// value * numerator / denominator, rounded to nearest (ties away from zero), with a 128-bit product.
/// denominator must be positive; a result that does not fit is clamped to the ends of the 64-bit range.
constexpr std::int64_t MulDivRound(std::int64_t value, std::int64_t numerator, std::int64_t denominator) {
    __extension__ using Wide = __int128;
    const Wide product = static_cast<Wide>(value) * numerator;
    const Wide half = denominator / 2;
    const Wide rounded = product >= 0 ? (product + half) / denominator : -((-product + half) / denominator);
    constexpr Wide highest = INT64_MAX;
    constexpr Wide lowest = INT64_MIN;
    return static_cast<std::int64_t>(rounded > highest ? highest : (rounded < lowest ? lowest : rounded));
}

/// How many frames of `rate` fit into `duration` ticks, rounded to nearest.
inline std::int64_t TimeToFrames(std::int64_t duration, const boost::rational<long long>& rate) {
    return MulDivRound(duration, rate.numerator(), rate.denominator() * TIME_BASE);
}

/// The time at which frame `index` of `rate` begins.
inline std::int64_t FramesToTime(std::int64_t index, const boost::rational<long long>& rate) {
    return MulDivRound(index, rate.denominator() * TIME_BASE, rate.numerator());
}

/// Samples of `sampleRate` in `duration` ticks, rounded to nearest, and back.
constexpr std::int64_t TimeToSamples(std::int64_t duration, int sampleRate) {
    return MulDivRound(duration, sampleRate, TIME_BASE);
}
constexpr std::int64_t SamplesToTime(std::int64_t samples, int sampleRate) {
    return MulDivRound(samples, TIME_BASE, sampleRate);
}

} // namespace Kestra
