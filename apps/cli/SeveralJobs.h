// SPDX-License-Identifier: GPL-3.0-or-later
// Cli: several exports of one command line.
#pragma once

#include "cli/JobRunner.h"
#include <string>
#include <vector>

namespace Cli {

/// Exports every input by itself into the folder that is the output. Returns the exit code: 0 when all are done, 2 when
/// none was begun, else 1; a signal's when one came, and then nothing more is begun. Throws ExportCore::Refusal where
/// nothing can be begun.
int exportEach(const Options& options, JobRunner& runner);
/// Runs the jobs of a file that are not done yet; likewise, but for 2.
int runQueue(const Options& options, JobRunner& runner);

/// The exports that a command line stands for, but for those with an error in them. Throws ExportCore::Refusal where
/// nothing can be begun.
std::vector<Options> exportsOfEach(const Options& options);
/// Likewise of a queue, with absolute names.
std::vector<Options> exportsOfQueue(const std::string& path);

} // namespace Cli
