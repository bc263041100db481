// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Av/Wording.h"

#include "Kestra/Base/Time.h"
#include <array>
#include <charconv>
#include <cstdlib>

namespace Kestra::FF {

std::string Seconds(std::int64_t time) {
    const std::int64_t milliseconds = MulDivRound(std::abs(time), 1000, TIME_BASE);
    const std::string part = std::to_string(1000 + milliseconds % 1000);
    return (time < 0 ? "-" : "") + std::to_string(milliseconds / 1000) + '.' + part.substr(1) + " s";
}

std::string Decimal(double number) {
    constexpr int decimals = 6;
    std::array<char, 400> text; // the largest has 309 digits
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed, decimals).ptr;
    std::string shown(text.data(), end);
    if (shown.find('.') != std::string::npos)
        shown.erase(shown.find_last_not_of('0') + 1);
    return shown.back() == '.' ? shown.substr(0, shown.size() - 1) : shown;
}

} // namespace Kestra::FF
