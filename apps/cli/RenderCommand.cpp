// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/RenderCommand.h"

#include "cli/JobRunner.h"
#include "cli/SeveralJobs.h"

namespace Cli {

int render(const Options& options, ExportCore::EventLoopFailures& failures) {
    JobRunner runner(failures);
    return options.each ? exportEach(options, runner) : runner.run(options).code;
}

int runQueueFile(const Options& options, ExportCore::EventLoopFailures& failures) {
    JobRunner runner(failures);
    return runQueue(options, runner);
}

} // namespace Cli
