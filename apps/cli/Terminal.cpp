// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

namespace Cli {

std::optional<int> Terminal::columns(int descriptor) {
    winsize size = {};
    const bool tells = isatty(descriptor) && ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return tells ? std::optional<int>(size.ws_col) : std::nullopt;
}

} // namespace Cli
