// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/LogFile.h"

#include "ExportCore/Refusal.h"
#include "cli/ErrorOutput.h"
#include "cli/PlacesInUse.h"
#include "cli/SeveralJobs.h"
#include <cerrno>
#include <cstring>

namespace Cli {
namespace {

using ExportCore::Refusal;

/// Where they cannot be told, as another process runs the queue, nothing is begun, and nothing that they may be is
/// written to.
std::vector<Options> exportsOf(const Options& options) {
    if (options.command == Options::Command::Queue)
        return exportsOfQueue(options.queueFile);
    return options.each ? exportsOfEach(options) : std::vector<Options>();
}

std::string whyNot(const Options& options) {
    std::string use = PlacesInUse::useByAny({options}, options.log);
    if (use.empty())
        use = PlacesInUse::useByAny(exportsOf(options), options.log);
    if (!use.empty())
        return "it is " + use;
    if (ErrorOutput::keepIn(options.log))
        return {};
    return errno == ENXIO ? "it is a pipe that nobody reads" : std::strerror(errno);
}

} // namespace

void keepLog(const Options& options) {
    if (options.log.empty())
        return;
    if (const std::string why = whyNot(options); !why.empty())
        KESTRA_THROW(Refusal("Cannot keep the log in \"" + options.log + "\": " + why));
}

} // namespace Cli
