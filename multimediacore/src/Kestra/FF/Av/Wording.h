// SPDX-License-Identifier: GPL-3.0-or-later
// How messages write numbers: the same in every locale.
#pragma once

#include <cstdint>
#include <string>

namespace Kestra::FF {

/// Engine time as "1.250 s", to the millisecond.
std::string Seconds(std::int64_t time);
/// To six decimals, without the zeros behind: "23.5", "24".
std::string Decimal(double number);

} // namespace Kestra::FF
