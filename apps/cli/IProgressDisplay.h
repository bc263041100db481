// SPDX-License-Identifier: GPL-3.0-or-later
// Cli::IProgressDisplay: how a run looks while it goes on.
#pragma once

#include "ExportCore/ExportOutcome.h"
#include "ExportCore/ExportProgress.h"
#include "cli/Options.h"
#include <memory>

namespace Cli {

/// Writes to standard error. Calls in the order of a run: started, progress, ended.
class IProgressDisplay {
public:
    virtual ~IProgressDisplay();
    virtual void started() = 0;
    virtual void progress(const ExportCore::ExportProgress& progress) = 0;
    /// Before the result is printed: leaves the cursor at the start of a line.
    virtual void ended(const ExportCore::ExportOutcome& outcome) = 0;

    /// Automatic is a bar on a terminal and plain lines elsewhere.
    static std::unique_ptr<IProgressDisplay> create(ProgressStyle style);
};

} // namespace Cli
