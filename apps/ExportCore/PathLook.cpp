// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/PathLook.h"

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <unistd.h>

namespace ExportCore::PathLook {

namespace fs = std::filesystem;

std::optional<struct stat> stateOf(const QByteArray& path) {
    struct stat state = {};
    if (::stat(path.constData(), &state) != 0)
        return std::nullopt;
    return state;
}

bool isSame(const QByteArray& path, const struct stat& other) {
    const auto state = stateOf(path);
    return state && state->st_dev == other.st_dev && state->st_ino == other.st_ino;
}

bool isOf(const Timeline::MediaTarget& medium, const struct stat& file) {
    if (const auto* single = std::get_if<Timeline::MediaFile>(&medium))
        return isSame(QByteArray::fromStdString(single->path.ToUtf8()), file);
    const auto* const sequence = std::get_if<Timeline::ImageSequence>(&medium);
    if (!sequence)
        return false;
    std::error_code error;
    for (fs::directory_iterator entry(sequence->folder.ToUtf8(), error), none; !error && entry != none;
         entry.increment(error))
        if (sequence->isName(entry->path().filename().string()) &&
            isSame(QByteArray::fromStdString(entry->path().string()), file))
            return true;
    return false;
}

bool allows(const QByteArray& path, int mode) {
    return faccessat(AT_FDCWD, path.constData(), mode, AT_EACCESS) == 0;
}

const char* kindOf(mode_t mode) {
    switch (mode & S_IFMT) {
    case S_IFREG:
        return nullptr;
    case S_IFDIR:
        return "it is a folder";
    case S_IFIFO:
        return "it is a pipe";
    case S_IFSOCK:
        return "it is a socket";
    default:
        return "it is a device";
    }
}

QByteArray folderOf(const QByteArray& path) {
    const int slash = path.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : slash == 0 ? QByteArray("/") : path.left(slash);
}

QByteArray resolved(const QByteArray& path) {
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.constData(), nullptr), &std::free);
    return real ? QByteArray(real.get()) : QByteArray();
}

} // namespace ExportCore::PathLook
