// SPDX-License-Identifier: GPL-3.0-or-later
// The commands "render" and "queue".
#pragma once

#include "ExportCore/EventLoopFailures.h"
#include "cli/Options.h"

namespace Cli {

/// Runs one export in the application's event loop and returns the exit code.
int render(const Options& options, ExportCore::EventLoopFailures& failures);
/// The same for the jobs of a queue.
int runQueueFile(const Options& options, ExportCore::EventLoopFailures& failures);

} // namespace Cli
