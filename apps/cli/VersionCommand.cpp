// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/VersionCommand.h"

#include "Kestra/Proc/LibraryVersions.h"
#include "cli/ExitCode.h"
#include <cstdio>
#include <exception>
#include <qglobal.h>

namespace Cli {

int printVersions() {
    std::printf("editor-export %s\n", EDITOREXPORT_VERSION);
    try {
        for (const Kestra::Proc::LibraryVersion& library : Kestra::Proc::GetLibraryVersions())
            std::printf("%s %s\n", library.name.c_str(), library.version.c_str());
    } catch (const std::exception& error) {
        std::printf("codecs: none (%s)\n", error.what()); // its own version it knows all the same
    }
    std::printf("Qt %s\n", qVersion());
    return EXIT_DONE;
}

} // namespace Cli
