// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/SizeText.h"

#include <array>
#include <cstdio>

namespace ExportCore {

std::string SizeText::format(qint64 bytes) {
    constexpr qint64 THOUSAND = 1000;
    if (bytes < THOUSAND)
        return std::to_string(bytes) + (bytes == 1 ? " byte" : " bytes");
    constexpr std::array<const char*, 6> units{"kB", "MB", "GB", "TB", "PB", "EB"};
    // Above these a figure less is shown, and 999.5 is a thousand of them.
    constexpr double TWO_PLACES = 9.995, ONE_PLACE = 99.95, NO_PLACE = 999.5;
    double value = static_cast<double>(bytes) / THOUSAND;
    std::size_t unit = 0;
    for (; value >= NO_PLACE && unit + 1 < units.size(); ++unit)
        value /= THOUSAND;
    char text[32];
    std::snprintf(text, sizeof text, "%.*f %s", value < TWO_PLACES ? 2 : value < ONE_PLACE ? 1 : 0, value, units[unit]);
    return text;
}

} // namespace ExportCore
