// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/LeftoverSweep.h"

#include "ExportCore/FolderSteps.h"
#include "ExportCore/PictureSwap.h"
#include "ExportCore/PrivateName.h"
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace ExportCore {
namespace {

/// A process that cannot be seen from here (another machine's, another container's) still holds its lock, so the lock
/// decides; the process's mark covers the moment between the making of a file and its locking.
bool isLockable(int file) {
    return flock(file, LOCK_EX | LOCK_NB) == 0;
}

bool removeFile(int folder, const char* name) {
    constexpr int CAREFUL = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    // Over NFS only what is open for writing can be locked like this.
    const int writable = openat(folder, name, O_RDWR | CAREFUL);
    const Descriptor file(writable >= 0 ? writable : openat(folder, name, O_RDONLY | CAREFUL));
    struct stat state = {};
    // A second name makes it somebody's own, whatever the first one looks like.
    const bool plain = file && fstat(file.Get(), &state) == 0 && S_ISREG(state.st_mode) && state.st_nlink == 1;
    return plain && isLockable(file.Get()) && unlinkat(folder, name, 0) == 0;
}

/// Of pictures. What was on its way into the folder or out of it when the run died arrives, or comes back.
bool removeFolder(int folder, const QByteArray& path, const std::string& name) {
    const Descriptor own(FolderSteps::open(folder, name.c_str()));
    if (!own || !isLockable(own.Get()) || !PictureSwap::settle(folder, own.Get()))
        return false;
    std::error_code error;
    return std::filesystem::remove_all(path.toStdString() + '/' + name, error) > 0 && !error;
}

bool removeIfDead(int folder, const QByteArray& path, const std::string& name) {
    const auto writer = PrivateName::read(QByteArray::fromStdString(name));
    if (!writer || writer->isAlive())
        return false;
    // The names of folders have no extension.
    const bool isFolder = name.find('.', 1) == std::string::npos;
    return isFolder ? removeFolder(folder, path, name) : removeFile(folder, name.c_str());
}

} // namespace

int LeftoverSweep::run(const QByteArray& path) noexcept {
    try {
        const Descriptor folder(::open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        int removed = 0;
        std::vector<std::string> names;
        if (folder)
            FolderSteps::list(folder.Get(), names); // those that cannot be read wait for the next sweep
        for (const std::string& name : names)
            removed += removeIfDead(folder.Get(), path, name) ? 1 : 0;
        return removed;
    } catch (...) { // no memory
        return 0;
    }
}

} // namespace ExportCore
