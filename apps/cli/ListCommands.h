// The commands "presets" and "info".
#pragma once

#include "cli/Options.h"

namespace Cli {

/// Both print to standard output and return the exit code. Throw ExportCore::Refusal.
int listPresets(const Options& options);
int describeInputs(const Options& options);

} // namespace Cli
