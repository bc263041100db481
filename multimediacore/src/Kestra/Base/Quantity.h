// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Ticks, FrameIndex, SampleIndex: whole numbers of one unit that cannot be taken for those of another.
#pragma once

#include <cstdint>

namespace Kestra {

/// A value. Counts something, or numbers a place counted from 0; sums and differences keep the unit, anything else goes
/// through Value(), or through FrameGrid, SampleGrid and TimeMap, which know how units relate.
template <class Unit>
class Quantity {
public:
    constexpr Quantity() = default;
    constexpr explicit Quantity(std::int64_t value)
        : value(value) {}

    constexpr std::int64_t Value() const { return value; }

    constexpr Quantity& operator+=(Quantity other) {
        value += other.value;
        return *this;
    }
    constexpr Quantity& operator-=(Quantity other) {
        value -= other.value;
        return *this;
    }
    constexpr Quantity& operator++() {
        ++value;
        return *this;
    }
    /// The sum, or the end of the range where it does not fit.
    friend constexpr Quantity SaturatedSum(Quantity a, Quantity b) {
        std::int64_t sum = 0;
        if (__builtin_add_overflow(a.value, b.value, &sum))
            sum = a.value < 0 ? INT64_MIN : INT64_MAX;
        return Quantity(sum);
    }
    friend constexpr Quantity operator+(Quantity a, Quantity b) { return a += b; }
    friend constexpr Quantity operator-(Quantity a, Quantity b) { return a -= b; }
    friend constexpr bool operator==(Quantity a, Quantity b) { return a.value == b.value; }
    friend constexpr bool operator!=(Quantity a, Quantity b) { return a.value != b.value; }
    friend constexpr bool operator<(Quantity a, Quantity b) { return a.value < b.value; }
    friend constexpr bool operator>(Quantity a, Quantity b) { return a.value > b.value; }
    friend constexpr bool operator<=(Quantity a, Quantity b) { return a.value <= b.value; }
    friend constexpr bool operator>=(Quantity a, Quantity b) { return a.value >= b.value; }

private:
    std::int64_t value = 0;
};

/// Engine time: 1/TIME_BASE s (Kestra/Base/Time.h).
using Ticks = Quantity<struct TickUnit>;
/// Frames of a constant rate.
using FrameIndex = Quantity<struct FrameUnit>;
/// Samples of a constant rate, of each channel.
using SampleIndex = Quantity<struct SampleUnit>;

} // namespace Kestra
