// SPDX-License-Identifier: GPL-3.0-or-later
// Texts for other programs, made of the table of commands.
#pragma once

#include "cli/CommandTable.h"

namespace Cli {

/// In troff, for section 1.
std::string manPage(const CommandTable& table);
std::string bashCompletion(const CommandTable& table);
std::string zshCompletion(const CommandTable& table);
std::string fishCompletion(const CommandTable& table);

} // namespace Cli
