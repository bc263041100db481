// SPDX-License-Identifier: GPL-3.0-or-later
// The commands "presets" and "info".
#pragma once

#include "cli/Options.h"
#include <atomic>

namespace Cli {

/// Both print to standard output and return the exit code. Throw ExportCore::Refusal.
int listPresets(const Options& options);
/// Ids or tags alone, a line each, for completions.
int describePresets(const Options& options);
/// Ends early when `interrupted` turns true.
int describeInputs(const Options& options, const std::atomic<bool>& interrupted);

} // namespace Cli
