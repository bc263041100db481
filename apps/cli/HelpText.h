// SPDX-License-Identifier: GPL-3.0-or-later
// Cli::HelpText: what --help prints.
#pragma once

#include "cli/CommandTable.h"

namespace Cli {

struct HelpText {
    /// Of the first row, or of the one with these words; wrapped to so many columns.
    static std::string of(const CommandTable& table, const std::vector<std::string>& words, std::size_t columns);

    HelpText() = delete;
};

} // namespace Cli
