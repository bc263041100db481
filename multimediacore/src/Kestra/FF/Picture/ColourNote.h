// SPDX-License-Identifier: GPL-3.0-or-later
// What a change of colour is called before the user.
#pragma once

#include "Kestra/FF/Picture/ColourConverter.h"
#include <string>

namespace Kestra::FF {

/// SourceNote::what for frames that are brought into another colour; empty where there is nothing to tell: a change
/// of matrix or range alone shows the same frame, and a guess that fits changes nothing. `peak` in cd/m2, of a high
/// range. `told`: the source says what its colour is.
std::string ColourNote(const ColourChange& change, double peak, bool told);
/// The names that the standards' codes have in the library: "primaries bt709, transfer smpte428, matrix bt709".
std::string ColourCodes(const Conf::ColourInfo& colour);

} // namespace Kestra::FF
