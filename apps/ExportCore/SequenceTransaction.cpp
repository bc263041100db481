// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/SequenceTransaction.h"

#include "ExportCore/FolderSteps.h"
#include "ExportCore/PictureSwap.h"
#include "ExportCore/PrivateName.h"
#include "Kestra/Proc/Failure.h"
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace ExportCore {
namespace {

using Kestra::Proc::TranscodingError;

[[noreturn]] void fail(int error, const std::string& what, Kestra::SourcePlace place = Kestra::SourcePlace::Here()) {
    Kestra::Proc::FailAsSystem(error, TranscodingError::OutputFailed, what, place);
}

std::string quoted(const QByteArray& path) {
    return '"' + path.toStdString() + '"';
}

/// Users' words take the folder's whole path for that of the output.
QByteArray nameOf(const QByteArray& path) {
    return path.mid(path.lastIndexOf('/') + 1);
}

void removeAll(const QByteArray& folder) noexcept {
    try {
        std::error_code ignored;
        std::filesystem::remove_all(folder.toStdString(), ignored);
    } catch (...) { // no memory: the next export removes it
    }
}

} // namespace

SequenceTransaction::SequenceTransaction(SequenceTarget target)
    : target(std::move(target)) {
    // As a file's.
    constexpr int attempts = 100;
    int error = 0;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        error = create();
        if (error == 0)
            return;
    }
    fail(error, "Cannot make a folder for the pictures of " + quoted(this->target.path));
}

SequenceTransaction::~SequenceTransaction() {
    rollback();
    if (folder >= 0)
        ::close(folder);
}

/// 0, or why another name has to be tried.
int SequenceTransaction::create() {
    const QByteArray place = target.place();
    path = place + (place.endsWith('/') ? "" : "/") + PrivateName::make({});
    // What replaces private files must at no time be readable by others.
    const mode_t mode = target.existed ? 0700 : 0777;
    removal.emplace(path, Kestra::Util::RemovalOnTheSpot::Kind::Folder);
    if (::mkdir(path.constData(), mode) != 0) {
        const int error = errno;
        removal.reset();
        if (error == EEXIST)
            return error;
        fail(error, "Cannot make a folder for the pictures of " + quoted(target.path));
    }
    folder = FolderSteps::open(AT_FDCWD, path.constData());
    const bool locked = folder >= 0 && (flock(folder, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK);
    if (locked && FolderSteps::isSame(folder, path))
        return 0;
    const int error = errno == 0 ? EEXIST : errno;
    // Nobody else makes a folder of that name: what stands there is ours, or is gone.
    ::rmdir(path.constData());
    if (folder >= 0)
        ::close(folder);
    folder = -1;
    return error;
}

/// One call for all pictures: waiting for each of thousands would take minutes on a slow disk.
void SequenceTransaction::sync() const {
    if (syncfs(folder) != 0)
        fail(errno, "Cannot write " + quoted(target.path) + " to the disk");
}

bool SequenceTransaction::commit() {
    requireNotForbidden();
    if (!enter(State::Written, State::Moving))
        fail(ECANCELED, "Cannot put the finished pictures into " + quoted(target.path));
    move();
    state = State::Committed;
    return FolderSteps::sync(target.existed ? target.path : target.place());
}

void SequenceTransaction::move() {
    try {
        requireOwnFolder();
        requireNoRemoval();
        if (target.existed)
            return swapPictures();
        moveFolder();
    } catch (...) {
        if (!stuck)
            state = State::Written;
        throw;
    }
}

bool SequenceTransaction::isCommitted() const {
    return state == State::Committed || (!target.existed && FolderSteps::isSame(folder, target.path));
}

void SequenceTransaction::rollback() noexcept {
    forbid();
    if (enter(State::Written, State::Removed) && FolderSteps::isSame(folder, path))
        removeAll(path);
}

void SequenceTransaction::requireOwnFolder() const {
    if (!FolderSteps::isSame(folder, path))
        Kestra::Proc::Fail(TranscodingError::OutputFailed,
                           "The unfinished pictures of " + quoted(target.path) + " were removed or replaced");
}

/// An end on the spot that has begun goes through all that is in the private folder, old pictures too, and follows it
/// to its place. One that begins from here on has to leave what is there: LeftoverSweep knows what to do.
void SequenceTransaction::requireNoRemoval() {
    if (!removal->withdraw())
        fail(ECANCELED, "Cannot put the finished pictures into " + quoted(target.path));
}

/// Whoever has forbidden it may have told by now that the export has failed.
void SequenceTransaction::requireNotForbidden() const {
    if (forbidden)
        fail(ECANCELED, "Cannot put the finished pictures into " + quoted(target.path));
}

/// An empty folder that has appeared meanwhile is replaced where the file system knows no other renaming.
void SequenceTransaction::moveFolder() const {
    const char* from = path.constData();
    const char* to = target.path.constData();
    requireNotForbidden(); // what was looked at before may have hung
    if (renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0)
        return;
    const bool isUnknown = errno == EINVAL || errno == ENOSYS;
    if (isUnknown)
        requireNotForbidden();
    if (!isUnknown || ::rename(from, to) != 0)
        fail(errno, "Cannot put the finished pictures into " + quoted(target.path));
}

void SequenceTransaction::swapPictures() {
    const Descriptor place(FolderSteps::open(AT_FDCWD, target.path.constData()));
    if (!place)
        fail(errno, "Cannot put the finished pictures into " + quoted(target.path));
    PictureSwap swap(place.Get(), folder, target.name, forbidden);
    stuck = true; // until it is known: what is thrown on the way for want of memory tells nothing
    const int error = swap.run(target.replace);
    stuck = swap.isStuck();
    if (error != 0)
        fail(error,
             "Cannot put the finished pictures into " + quoted(target.path) +
                 (stuck ? " (those that stood there are in its hidden folder " + quoted(nameOf(path)) + ")" : ""));
    state = State::Committed; // whatever becomes of what nobody needs any more
    removeAll(path);          // with the old ones
}

} // namespace ExportCore
