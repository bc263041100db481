// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/TimeText.h"
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <regex>

namespace ExportCore {
namespace {

qint64 toNumber(const std::string& digits) {
    return std::strtoll(digits.c_str(), nullptr, 10);
}

/// Milliseconds of the digits after the point; more than three of them are rounded.
qint64 fractionOf(const std::string& digits) {
    const std::string padded = digits + "0000";
    const qint64 tenths = toNumber(padded.substr(0, 4));
    return (tenths + 5) / 10;
}

} // namespace

const char* const TimeText::FORMS = "HH:MM:SS.mmm, MM:SS (up to 59:59), seconds (90, 90.5s) or frames (120f)";

std::optional<KTime> TimeText::parse(const std::string& text) {
    static const auto& clock = *new std::regex(R"((?:(\d{1,7}):([0-5]\d)|([0-5]?\d)):([0-5]\d)(?:\.(\d{1,12}))?)");
    static const auto& seconds = *new std::regex(R"((\d{1,10})(?:\.(\d{1,12}))?s?)");
    std::smatch parts;
    qint64 whole = 0;
    std::string fraction;
    if (std::regex_match(text, parts, clock)) {
        const qint64 minutes = parts[3].matched ? toNumber(parts[3]) : toNumber(parts[2]);
        whole = (toNumber(parts[1]) * 60 + minutes) * 60 + toNumber(parts[4]);
        fraction = parts[5];
    } else if (std::regex_match(text, parts, seconds)) {
        whole = toNumber(parts[1]);
        fraction = parts[2];
    } else {
        return std::nullopt;
    }
    if (whole > qint64(1'000'000) * 3600)
        return std::nullopt;
    return KTime(whole * 1000 + fractionOf(fraction));
}

std::optional<TimePoint> TimeText::parsePoint(const std::string& text) {
    if (const auto time = parse(text))
        return TimePoint(*time);
    static const auto& frames = *new std::regex(R"((\d{1,10})f)");
    std::smatch parts;
    if (!std::regex_match(text, parts, frames))
        return std::nullopt;
    const qint64 count = toNumber(parts[1]);
    return count <= std::numeric_limits<qint32>::max() ? std::optional(TimePoint::ofFrames(count)) : std::nullopt;
}

std::string TimeText::format(KTime time) {
    const qint64 count = time.milliseconds();
    const auto magnitude = count < 0 ? 0 - static_cast<quint64>(count) : static_cast<quint64>(count);
    char text[40];
    std::snprintf(text, sizeof text, "%s%02llu:%02llu:%02llu.%03llu", count < 0 ? "-" : "", magnitude / 3'600'000,
                  magnitude / 60'000 % 60, magnitude / 1000 % 60, magnitude % 1000);
    return text;
}

} // namespace ExportCore
