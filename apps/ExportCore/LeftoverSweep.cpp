#include "ExportCore/LeftoverSweep.h"

#include "ExportCore/PrivateName.h"
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ExportCore {
namespace {

struct FolderCloser {
    void operator()(DIR* folder) const noexcept { closedir(folder); }
};

/// A process that cannot be seen from here (another machine's, another container's) still holds its lock, so the lock
/// decides; the process's mark covers the moment between the making of a file and its locking.
bool removeIfDead(int folder, const char* name) {
    const auto writer = PrivateName::read(name);
    if (!writer || writer->isAlive())
        return false;
    const int file = openat(folder, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return false;
    struct stat state = {};
    // A second name makes it somebody's own, whatever the first one looks like.
    const bool plain = fstat(file, &state) == 0 && S_ISREG(state.st_mode) && state.st_nlink == 1;
    const bool dead = plain && flock(file, LOCK_EX | LOCK_NB) == 0;
    const bool removed = dead && unlinkat(folder, name, 0) == 0;
    close(file);
    return removed;
}

} // namespace

int LeftoverSweep::run(const QByteArray& folder) noexcept {
    const std::unique_ptr<DIR, FolderCloser> entries(opendir(folder.constData()));
    int removed = 0;
    while (entries) {
        const dirent* entry = readdir(entries.get());
        if (!entry)
            break;
        removed += removeIfDead(dirfd(entries.get()), entry->d_name) ? 1 : 0;
    }
    return removed;
}

} // namespace ExportCore
