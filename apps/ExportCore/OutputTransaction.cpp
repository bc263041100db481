// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/OutputTransaction.h"

#include "ExportCore/FolderSteps.h"
#include "ExportCore/PrivateName.h"
#include "Kestra/Proc/Failure.h"
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
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

} // namespace

OutputTransaction::OutputTransaction(OutputTarget target, QByteArray extension)
    : target(std::move(target))
    , extension(std::move(extension)) {
    // A name that is taken, or taken away by another run's sweep before it could be locked, is not tried again.
    constexpr int attempts = 100;
    int error = 0;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        error = create();
        if (error == 0)
            return;
    }
    fail(error, "Cannot make a file beside " + quoted(this->target.path));
}

OutputTransaction::~OutputTransaction() {
    rollback();
    if (file >= 0)
        ::close(file);
}

/// 0, or why another name has to be tried.
int OutputTransaction::create() {
    path = target.folder + (target.folder.endsWith('/') ? "" : "/") + PrivateName::make(extension);
    // What replaces a private file must at no time be readable by others.
    const mode_t mode = target.existed ? 0600 : 0666;
    removal.emplace(path, Kestra::Util::RemovalOnTheSpot::Kind::File);
    file = ::open(path.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (file < 0) {
        const int error = errno;
        removal.reset();
        if (error == EEXIST)
            return error;
        fail(error, "Cannot make a file beside " + quoted(target.path));
    }
    // A file system without locks is no reason to refuse: the process named by the file's name is then all there is.
    const bool locked = flock(file, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    if (locked && FolderSteps::isSame(file, path)) {
        standing = true;
        return 0;
    }
    const int error = errno == 0 ? EEXIST : errno;
    // Nobody else makes a file of that name: what stands there is ours, or is gone.
    ::unlink(path.constData());
    ::close(file);
    file = -1;
    return error;
}

void OutputTransaction::sync() const {
    if (fsync(file) != 0)
        fail(errno, "Cannot write " + quoted(target.path) + " to the disk");
}

bool OutputTransaction::commit() {
    requireNotForbidden();
    requireOwnFile();
    if (target.existed)
        takeOverAccess();
    moveIntoPlace();
    committed = true;
    standing = false;
    return syncFolder();
}

bool OutputTransaction::isCommitted() const {
    return committed || FolderSteps::isSame(file, target.path);
}

void OutputTransaction::rollback() noexcept {
    forbid();
    if (standing && FolderSteps::isSame(file, path))
        ::unlink(path.constData());
    standing = false;
}

void OutputTransaction::requireOwnFile() const {
    if (!FolderSteps::isSame(file, path))
        Kestra::Proc::Fail(TranscodingError::OutputFailed,
                           "The unfinished file of " + quoted(target.path) + " was removed or replaced");
}

/// Whoever has forbidden it may have told by now that the export has failed.
void OutputTransaction::requireNotForbidden() const {
    if (forbidden)
        fail(ECANCELED, "Cannot put the finished file at " + quoted(target.path));
}

void OutputTransaction::takeOverAccess() const {
    // Only root may give files away; for everybody else the new file stays their own.
    if (fchown(file, target.owner, target.group) != 0 && !FolderSteps::isBeyond(errno))
        fail(errno, "Cannot give " + quoted(target.path) + " its owner");
    if (fchmod(file, target.mode) != 0 && !FolderSteps::isBeyond(errno))
        fail(errno, "Cannot give " + quoted(target.path) + " its permissions");
}

void OutputTransaction::moveIntoPlace() const {
    const char* from = path.constData();
    const char* to = target.path.constData();
    struct stat there = {};
    if (lstat(to, &there) == 0 && !S_ISREG(there.st_mode))
        fail(EEXIST, "Cannot put the finished file at " + quoted(target.path));
    requireNotForbidden(); // what was looked at before may have hung
    if (target.replace) {
        if (::rename(from, to) != 0)
            fail(errno, "Cannot put the finished file at " + quoted(target.path));
        return;
    }
    if (const int error = FolderSteps::moveUnlessThere(AT_FDCWD, from, AT_FDCWD, to); error != 0)
        fail(error, "Cannot put the finished file at " + quoted(target.path));
}

bool OutputTransaction::syncFolder() const {
    return FolderSteps::sync(target.folder);
}

} // namespace ExportCore
