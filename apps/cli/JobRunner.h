// SPDX-License-Identifier: GPL-3.0-or-later
// Cli::JobRunner: exports, one after the other, and what is said of them.
#pragma once

#include "ExportCore/EventLoopFailures.h"
#include "ExportCore/ExportOutcome.h"
#include "ExportCore/ExportRequest.h"
#include "cli/Options.h"
#include "process/SignalStop.h"
#include <functional>

namespace Cli {

/// Runs in the application's event loop. One at a time.
class JobRunner {
public:
    explicit JobRunner(ExportCore::EventLoopFailures& failures);

    struct Ended {
        int code = 0; ///< for the exit
        ExportCore::ExportOutcome outcome;
    };
    using BeforePlacing = std::function<void(const QString& made)>;
    /// One export, from its first word to its result or its error, and its report. Ends the process when the export
    /// hangs. What is called before the file is put at its place is so as ExportJob says.
    Ended run(const Options& options, BeforePlacing beforePlacing = {});
    /// Once a signal has come nothing more is to be begun.
    static bool isStopped() { return Process::SignalStop::received() != 0; }

    static ExportCore::ExportRequest requestOf(const Options& options);

private:
    ExportCore::EventLoopFailures& failures;
    Process::SignalStop signalStop;
};

} // namespace Cli
