// SPDX-License-Identifier: GPL-3.0-or-later
// What nobody expects as a name: of files, of presets, of films.
#pragma once

#include <string>
#include <vector>

namespace TestSupport {

/// Five hundred and fifteen, no two of them alike, in a fixed order. Some hold noughts, some are no UTF-8.
const std::vector<std::string>& oddStrings();

} // namespace TestSupport
