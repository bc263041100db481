// SPDX-License-Identifier: GPL-3.0-or-later
// Cli: files as they are named on the command line.
#pragma once

#include <QString>
#include <string>

namespace Cli {

/// As Qt's classes for files take it: what begins with a colon is to them no file, but built into the program.
QString filePath(const std::string& name);

} // namespace Cli
