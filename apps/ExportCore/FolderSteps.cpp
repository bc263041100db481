// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/FolderSteps.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace ExportCore {
namespace {

struct FolderCloser {
    void operator()(DIR* folder) const noexcept { closedir(folder); }
};

} // namespace

bool FolderSteps::isSame(int file, const QByteArray& path) {
    struct stat own = {}, there = {};
    return fstat(file, &own) == 0 && lstat(path.constData(), &there) == 0 && own.st_dev == there.st_dev &&
           own.st_ino == there.st_ino;
}

int FolderSteps::moveUnlessThere(int fromFolder, const char* from, int toFolder, const char* to) {
    if (renameat2(fromFolder, from, toFolder, to, RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
    // Not every file system knows that kind of renaming; a second name for the file is as exclusive.
    if (::linkat(fromFolder, from, toFolder, to, 0) == 0) {
        ::unlinkat(fromFolder, from, 0);
        return 0;
    }
    const bool isUnknown = errno == EINVAL || isBeyond(errno);
    return isUnknown ? moveOntoPlaceholder(fromFolder, from, toFolder, to) : errno;
}

int FolderSteps::moveOntoPlaceholder(int fromFolder, const char* from, int toFolder, const char* to) {
    const Descriptor placeholder(openat(toFolder, to, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (!placeholder)
        return errno;
    if (::renameat(fromFolder, from, toFolder, to) == 0)
        return 0;
    const int error = errno;
    ::unlinkat(toFolder, to, 0);
    return error;
}

bool FolderSteps::sync(const QByteArray& path) {
    const Descriptor folder(open(AT_FDCWD, path.constData()));
    return folder && (fsync(folder.Get()) == 0 || errno == EINVAL);
}

int FolderSteps::list(int folder, std::vector<std::string>& names) {
    names.clear();
    // Read through a descriptor of its own: the place in a folder belongs to that.
    const int own = openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const std::unique_ptr<DIR, FolderCloser> entries(own < 0 ? nullptr : fdopendir(own));
    if (!entries) {
        const int error = errno;
        if (own >= 0)
            ::close(own);
        return error;
    }
    while (true) {
        errno = 0;
        const dirent* const entry = readdir(entries.get());
        if (!entry)
            return errno;
        if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
            names.emplace_back(entry->d_name);
    }
}

bool FolderSteps::isFile(int folder, const char* name) {
    struct stat state = {};
    return fstatat(folder, name, &state, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(state.st_mode);
}

int FolderSteps::open(int folder, const char* name) {
    return openat(folder, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
}

bool FolderSteps::isBeyond(int error) noexcept {
    return error == EPERM || error == ENOSYS || error == EOPNOTSUPP;
}

} // namespace ExportCore
