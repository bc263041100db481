// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/LogFile.h"

#include "ExportCore/Refusal.h"
#include "cli/ErrorOutput.h"
#include "cli/PlacesInUse.h"
#include "cli/SeveralJobs.h"
#include <algorithm>
#include <cctype>
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

/// As a shell takes it.
std::string commandLine(const std::vector<std::string>& words) {
    std::string line = "editor-export";
    for (const std::string& word : words) {
        const bool isPlain = !word.empty() && std::all_of(word.begin(), word.end(), [](unsigned char letter) {
            return letter >= 0x80 || std::isalnum(letter) != 0 || std::strchr("%+,-./:=@_", letter) != nullptr;
        });
        std::string quoted;
        for (const char letter : word)
            quoted += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
        line += ' ' + (isPlain ? word : '\'' + quoted + '\'');
    }
    return line;
}

} // namespace

void keepLog(const Options& options) {
    if (options.log.empty())
        return;
    if (const std::string why = whyNot(options); !why.empty())
        KESTRA_THROW(Refusal("Cannot keep the log in \"" + options.log + "\": " + why));
    ErrorOutput::keep("editor-export " EDITOREXPORT_VERSION ": " + commandLine(options.words));
}

} // namespace Cli
