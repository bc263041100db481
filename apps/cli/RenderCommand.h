// The command "render".
#pragma once

#include "ExportCore/EventLoopFailures.h"
#include "cli/Options.h"

namespace Cli {

/// Runs one export in the application's event loop and returns the exit code.
int render(const Options& options, ExportCore::EventLoopFailures& failures);

} // namespace Cli
