// SPDX-License-Identifier: GPL-3.0-or-later
// Cli::keepLog: the file of --log.
#pragma once

#include "cli/Options.h"

namespace Cli {

/// From now on it keeps what is told, if one was named. Nothing is written over: a file that is there is gone on with.
/// Throws ExportCore::Refusal where it cannot be written, or is a file that the run reads or makes, or where nobody can
/// tell those, as of a queue that another process runs.
void keepLog(const Options& options);

} // namespace Cli
