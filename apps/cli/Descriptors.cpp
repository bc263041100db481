// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Descriptors.h"

#include <array>
#include <fcntl.h>
#include <unistd.h>

namespace Cli {

void keepStandardOnesFree() noexcept {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(descriptor, F_GETFD) < 0) // the lowest that is free is taken
            open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
}

bool canOpen(int descriptors) noexcept {
    std::array<int, 64> opened{};
    int count = 0;
    while (count < descriptors && count < static_cast<int>(opened.size())) {
        const int file = open("/dev/null", O_RDONLY | O_CLOEXEC);
        if (file < 0)
            break;
        opened[static_cast<std::size_t>(count++)] = file;
    }
    for (int i = 0; i < count; ++i)
        close(opened[static_cast<std::size_t>(i)]);
    return count == descriptors;
}

} // namespace Cli
