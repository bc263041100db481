// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/OtioTime.h"

#include "Kestra/Base/FrameGrid.h"
#include "Kestra/Conf/StandardRates.h"
#include <cmath>

namespace Timeline {
namespace {

using Kestra::Ticks;
using Rate = boost::rational<long long>;

/// What writers with two digits make of 24000/1001 is off by so much.
constexpr double ROUNDED = 0.0002;
constexpr double HIGHEST_RATE = 10'000'000;
constexpr long long LARGEST_DENOMINATOR = 100'000;
constexpr double LARGEST_EXACT = 9007199254740992.0; // 2^53: what a double counts exactly

std::optional<double> readNumber(OtioContext& context, const OtioNode& node, const char* what) {
    if (!node.value().IsNumber()) {
        context.error(node, std::string("the ") + what + " of a time is no number");
        return std::nullopt;
    }
    const double number = node.value().GetDouble();
    if (std::isfinite(number))
        return number;
    context.error(node, std::string("the ") + what + " of a time is not finite");
    return std::nullopt;
}

} // namespace

// By its continued fraction (Khinchin, Continued Fractions, 1964).
Rate exactFraction(double number) {
    long long previousNumerator = 0, previousDenominator = 1, numerator = 1, denominator = 0;
    double rest = std::abs(number);
    for (;;) {
        const auto whole = static_cast<long long>(std::floor(rest));
        const long long nextDenominator = whole * denominator + previousDenominator;
        if (nextDenominator > LARGEST_DENOMINATOR)
            break;
        const long long nextNumerator = whole * numerator + previousNumerator;
        previousNumerator = numerator;
        previousDenominator = denominator;
        numerator = nextNumerator;
        denominator = nextDenominator;
        const double part = rest - static_cast<double>(whole);
        if (part < 1e-9)
            break;
        rest = 1 / part;
    }
    return Rate(number < 0 ? -numerator : numerator, denominator);
}

std::optional<Rate> exactRate(double rate) {
    if (!std::isfinite(rate) || rate <= 0 || rate > HIGHEST_RATE)
        return std::nullopt;
    if (rate == std::floor(rate))
        return Rate(static_cast<long long>(rate));
    const Rate standard = Kestra::Conf::NearStandardRate(rate);
    if (standard > 0 && std::abs(rate / boost::rational_cast<double>(standard) - 1) < ROUNDED)
        return standard;
    const Rate fraction = exactFraction(rate);
    return fraction > 0 ? std::optional(fraction) : std::nullopt;
}

std::optional<Ticks> exactTime(double value, double rate) {
    const auto exact = exactRate(rate);
    if (!exact || !std::isfinite(value) || std::abs(value / rate) > static_cast<double>(LONGEST_SECONDS))
        return std::nullopt;
    if (value == std::floor(value) && std::abs(value) < LARGEST_EXACT)
        return Kestra::FrameGrid(*exact).Begin(Kestra::FrameIndex(static_cast<std::int64_t>(value)));
    const auto ticks = static_cast<long double>(value) * exact->denominator() * Kestra::TIME_BASE / exact->numerator();
    return Ticks(std::llround(ticks));
}

std::optional<Ticks> readTime(OtioContext& context, const OtioNode& node) {
    if (!node.isObject()) {
        context.error(node, "a time is missing");
        return std::nullopt;
    }
    const auto value = readNumber(context, node["value"], "value");
    const auto rate = readNumber(context, node["rate"], "rate");
    if (!value || !rate)
        return std::nullopt;
    const auto time = exactTime(*value, *rate);
    if (!time)
        context.error(node, exactRate(*rate) ? "a time lies more than a year away"
                                             : "a time's rate is not above 0 or beyond all measure");
    return time;
}

std::optional<TimeRange> readRange(OtioContext& context, const OtioNode& node) {
    if (!node.isObject()) {
        context.error(node, "a range of time is missing");
        return std::nullopt;
    }
    const auto start = readTime(context, node["start_time"]);
    const auto duration = readTime(context, node["duration"]);
    if (!start || !duration)
        return std::nullopt;
    if (*duration >= Ticks(0))
        return TimeRange{*start, *duration};
    context.error(node, "a duration is negative");
    return std::nullopt;
}

} // namespace Timeline
