// SPDX-License-Identifier: GPL-3.0-or-later
// What the program tells its caller.
#pragma once

#include "process/SignalExitCode.h"

namespace Cli {

enum ExitCode : int {
    EXIT_DONE = 0,
    EXIT_EXPORT_FAILED = 1,
    EXIT_BAD_INPUT = 2,
    EXIT_SIGNAL_BASE = Process::EXIT_SIGNAL_BASE, ///< plus the signal's number
};

} // namespace Cli
