// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Util/TemporaryDir.h"

#include "Kestra/Base/FolderInUse.h"
#include "Kestra/Proc/ProcException.h"
#include <QDir>
#include <QFile>
#include <cstdio>
#include <memory>
#include <new>

namespace Kestra::Util {

namespace {

/// Qt knows no place where the one that TMPDIR names is missing, and the current folder is none for scratch files.
QString place() {
    const QString named = QDir::tempPath();
    return named.isEmpty() ? QStringLiteral(P_tmpdir) : named;
}

QString pathTemplate() {
    return QDir(place()).absoluteFilePath(QStringLiteral("editor-export-XXXXXX"));
}

/// What cannot be removed stays, also for want of memory.
void removeFolder(const QString& path) noexcept {
    try {
        QDir(path).removeRecursively();
    } catch (const std::bad_alloc&) {
        return;
    }
}

/// Throws std::bad_alloc, and has removed nothing then.
void removeWhenUnused(const QString& path) {
    // What it waits for may outlast the object that has kept the folder in mind so far.
    auto kept = std::make_shared<RemovalOnTheSpot>(QFile::encodeName(path));
    FolderInUse::Remove(path.toStdString(), [path, kept] { removeFolder(path); });
}

} // namespace

TemporaryDir::TemporaryDir()
    : directory(pathTemplate()) {
    if (!directory.isValid()) {
        KESTRA_THROW(Proc::ProcException(Proc::TranscodingError::OutputNotWritable,
                                         "cannot create a temporary directory " + pathTemplate().toStdString() + ": " +
                                             directory.errorString().toStdString()));
    }
    removal.emplace(QFile::encodeName(path()));
}

TemporaryDir::~TemporaryDir() {
    try {
        removeWhenUnused(path());
        directory.setAutoRemove(false);
    } catch (const std::bad_alloc&) {
        // Then it goes at once, with its member.
        return;
    }
}

QString TemporaryDir::path() const {
    return directory.path();
}

} // namespace Kestra::Util
