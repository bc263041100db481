// SPDX-License-Identifier: GPL-3.0-or-later
// KTime: the editor's time value, a signed count of milliseconds.
#pragma once

#include <QMetaType>
#include <QTime>
#include <cstdint>
#include <limits>

/// Default is zero. Arithmetic stops at the ends of the 64-bit range instead of wrapping round.
/// Where a remaining time is reported, KTime(-1) means "unknown". Engine time is another unit: see Types/Time.h.
class KTime {
public:
    constexpr KTime() = default;
    constexpr explicit KTime(qint64 milliseconds)
        : value(milliseconds) {}
    /// The time since midnight; an invalid QTime gives zero.
    explicit KTime(const QTime& time)
        : value(time.isValid() ? time.msecsSinceStartOfDay() : 0) {}

    static constexpr KTime fromSeconds(qint64 seconds) { return KTime(product(seconds, 1000)); }
    static KTime fromQTime(const QTime& time) { return KTime(time); }

    constexpr qint64 count() const { return value; }
    constexpr qint64 milliseconds() const { return value; }
    constexpr bool isNull() const { return value == 0; }

    constexpr KTime& operator+=(KTime other) { return *this = *this + other; }
    constexpr KTime& operator-=(KTime other) { return *this = *this - other; }
    constexpr KTime operator-() const { return KTime() - *this; }

    friend constexpr KTime operator+(KTime left, KTime right) {
        qint64 sum = 0;
        return KTime(__builtin_add_overflow(left.value, right.value, &sum) ? end(right.value < 0) : sum);
    }
    friend constexpr KTime operator-(KTime left, KTime right) {
        qint64 difference = 0;
        return KTime(__builtin_sub_overflow(left.value, right.value, &difference) ? end(right.value > 0) : difference);
    }
    friend constexpr bool operator==(KTime left, KTime right) { return left.value == right.value; }
    friend constexpr bool operator!=(KTime left, KTime right) { return left.value != right.value; }
    friend constexpr bool operator<(KTime left, KTime right) { return left.value < right.value; }
    friend constexpr bool operator>(KTime left, KTime right) { return left.value > right.value; }
    friend constexpr bool operator<=(KTime left, KTime right) { return left.value <= right.value; }
    friend constexpr bool operator>=(KTime left, KTime right) { return left.value >= right.value; }

private:
    static constexpr qint64 end(bool lowest) {
        return lowest ? std::numeric_limits<qint64>::min() : std::numeric_limits<qint64>::max();
    }
    static constexpr qint64 product(qint64 left, qint64 right) {
        qint64 result = 0;
        return __builtin_mul_overflow(left, right, &result) ? end((left < 0) != (right < 0)) : result;
    }

    qint64 value = 0;
};

Q_DECLARE_TYPEINFO(KTime, Q_PRIMITIVE_TYPE);
Q_DECLARE_METATYPE(KTime)
