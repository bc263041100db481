// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::SettingText: numbers as people write them into settings.
#pragma once

#include <boost/rational.hpp>
#include <cstdint>
#include <optional>
#include <string>

namespace ExportCore {

/// Every operation answers nothing for a text that is no such number: signs, blanks and locales' own points included.
/// Numbers too large for their type become its largest.
struct SettingText {
    /// With small letters for A to Z.
    static std::string lowered(std::string text);
    static std::optional<std::int64_t> wholeNumber(const std::string& text);
    /// A number of bits or samples: "2500000", "2500k", "2.5M".
    static std::optional<std::int64_t> amount(const std::string& text);
    /// "23" or "23.5".
    static std::optional<double> decimal(const std::string& text);
    /// "25" or "30000/1001"; nothing, too, for a zero below the line and for parts above 2^31.
    static std::optional<boost::rational<long long>> ratio(const std::string& text);
    /// As a ratio; "29.97" and its like mean the broadcast rate that they abbreviate, 30000/1001, other decimals
    /// themselves. Also "film" (24), "pal" (25), "ntsc" (30000/1001) and "ntsc-film" (24000/1001).
    static std::optional<boost::rational<long long>> frameRate(const std::string& text);

    SettingText() = delete;
};

} // namespace ExportCore
