// SPDX-License-Identifier: GPL-3.0-or-later
// The option "--version".
#pragma once

namespace Cli {

/// Prints the program's version and those of the libraries that it runs with; returns the exit code.
int printVersions();

} // namespace Cli
