// SPDX-License-Identifier: GPL-3.0-or-later
// The commands "presets export", "import", "validate" and "diff".
#pragma once

#include "cli/Options.h"

namespace Cli {

/// Does what the options say and returns the exit code. Throws ExportCore::Refusal.
int handlePresetFiles(const Options& options);

} // namespace Cli
