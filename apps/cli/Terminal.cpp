// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Terminal.h"

#include <limits>
#include <sys/ioctl.h>
#include <unistd.h>

namespace Cli {

std::optional<int> Terminal::columns(int descriptor) {
    winsize size = {};
    const bool tells = isatty(descriptor) && ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return tells ? std::optional<int>(size.ws_col) : std::nullopt;
}

std::size_t Terminal::outputColumns() {
    const auto known = columns(STDOUT_FILENO);
    return known ? static_cast<std::size_t>(*known) : std::numeric_limits<std::size_t>::max();
}

} // namespace Cli
