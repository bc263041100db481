// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/PictureSwap.h"

#include "ExportCore/FolderSteps.h"
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace ExportCore {
namespace {

// Folders in the private one: of old pictures while they are going, and once all have gone.
const char* const GOING = "going";
const char* const GONE = "gone";

/// Moves files back to where nothing must be lost; false when one could not be moved.
bool moveBack(int from, int to, const std::vector<std::string>& names) {
    bool all = true;
    for (const std::string& name : names)
        all = FolderSteps::moveUnlessThere(from, name.c_str(), to, name.c_str()) == 0 && all;
    return all;
}

bool moveAllBack(int from, int to) {
    std::vector<std::string> names;
    const bool isWhole = FolderSteps::list(from, names) == 0;
    return moveBack(from, to, names) && isWhole;
}

/// The pictures in a folder: every entry of it but the folders above. 0, or the system's error.
int listPictures(int folder, std::vector<std::string>& names) {
    const int error = FolderSteps::list(folder, names);
    names.erase(std::remove_if(names.begin(), names.end(),
                               [](const std::string& name) { return name == GOING || name == GONE; }),
                names.end());
    return error;
}

int syncOf(int folder) {
    return fsync(folder) == 0 || errno == EINVAL ? 0 : errno;
}

} // namespace

PictureSwap::PictureSwap(int folder, int own, Kestra::Conf::NumberedName name, const std::atomic<bool>& forbidden)
    : folder(folder)
    , own(own)
    , name(std::move(name))
    , forbidden(forbidden) {}

int PictureSwap::run(bool replace) {
    std::vector<std::string> made, old;
    if (const int error = listPictures(own, made); error != 0)
        return error;
    if (const int error = FolderSteps::list(folder, old); error != 0)
        return error;
    old.erase(std::remove_if(old.begin(), old.end(), [this](const std::string& file) { return !name.NumberOf(file); }),
              old.end());
    const bool isFit = replace && std::all_of(old.begin(), old.end(), [this](const std::string& file) {
                           return FolderSteps::isFile(folder, file.c_str());
                       });
    if (!old.empty() && !isFit)
        return EEXIST;
    if (const int error = takeOut(old); error != 0)
        return error;
    return bringIn(made);
}

/// What replaces a private file must at no time be readable by others, and stays its owner's. 0, or the system's error.
int PictureSwap::takeOverAccess(const char* old) const {
    struct stat state = {};
    if (fstatat(folder, old, &state, AT_SYMLINK_NOFOLLOW) != 0)
        return errno;
    // Only root may give files away; for everybody else the new file stays their own. One that is not made anew has no
    // successor.
    const auto isRefused = [](int result) { return result != 0 && errno != ENOENT && !FolderSteps::isBeyond(errno); };
    if (isRefused(fchownat(own, old, state.st_uid, state.st_gid, AT_SYMLINK_NOFOLLOW)) ||
        isRefused(fchmodat(own, old, state.st_mode & 07777, 0)))
        return errno;
    return 0;
}

int PictureSwap::takeOut(const std::vector<std::string>& old) {
    if (mkdirat(own, GOING, 0700) != 0)
        return errno;
    const Descriptor going(FolderSteps::open(own, GOING));
    int error = going ? 0 : errno;
    std::vector<std::string> taken;
    for (std::size_t i = 0; error == 0 && i < old.size(); ++i) {
        // Each of these steps may hang for so long that the export has been told as failed meanwhile.
        error = forbidden ? ECANCELED : takeOverAccess(old[i].c_str());
        if (error == 0)
            error = FolderSteps::moveUnlessThere(folder, old[i].c_str(), going.Get(), old[i].c_str());
        if (error == 0)
            taken.push_back(old[i]);
    }
    // On the disk before the first new one: a loss of power must find one of the states that settle() knows.
    error = error == 0 ? syncOf(going.Get()) : error;
    if (error == 0 && (forbidden || renameat(own, GOING, own, GONE) != 0))
        error = forbidden ? ECANCELED : errno;
    error = error == 0 ? syncOf(own) : error;
    if (error == 0)
        return 0;
    renameat(own, GONE, own, GOING);
    stuck = !moveBack(going.Get(), folder, taken);
    if (!stuck)
        unlinkat(own, GOING, AT_REMOVEDIR);
    return error;
}

int PictureSwap::bringIn(const std::vector<std::string>& made) {
    std::vector<std::string> brought;
    int error = 0;
    for (std::size_t i = 0; error == 0 && i < made.size(); ++i) {
        error = FolderSteps::moveUnlessThere(own, made[i].c_str(), folder, made[i].c_str());
        if (error == 0)
            brought.push_back(made[i]);
    }
    if (error == 0)
        return 0;
    // In the reverse order, so that a swap that is broken off on its way back is told as what it is, too.
    const Descriptor gone(FolderSteps::open(own, GONE));
    stuck = !gone || !moveBack(folder, own, brought) || renameat(own, GONE, own, GOING) != 0 ||
            !moveAllBack(gone.Get(), folder);
    if (!stuck)
        unlinkat(own, GOING, AT_REMOVEDIR);
    return error;
}

bool PictureSwap::settle(int folder, int own) noexcept {
    try {
        if (const Descriptor going(FolderSteps::open(own, GOING)); going) {
            moveAllBack(going.Get(), folder);
            return unlinkat(own, GOING, AT_REMOVEDIR) == 0;
        }
        if (const Descriptor gone(FolderSteps::open(own, GONE)); gone) {
            std::vector<std::string> made;
            const bool isWhole = listPictures(own, made) == 0;
            return moveBack(own, folder, made) && isWhole;
        }
        return true;
    } catch (...) { // no memory
        return false;
    }
}

} // namespace ExportCore
