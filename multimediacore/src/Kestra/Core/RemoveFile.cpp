// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Core/RemoveFile.h"
#include <sys/stat.h>
#include <unistd.h>

namespace Kestra::Core {

bool RemoveFile(const ioPath& path) noexcept {
    struct stat status = {};
    const char* bytes = path.ToUtf8().c_str();
    return lstat(bytes, &status) == 0 && S_ISREG(status.st_mode) && unlink(bytes) == 0;
}

} // namespace Kestra::Core
