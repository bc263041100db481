// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Util/TemporaryDir.h"

#include "Kestra/Proc/ProcException.h"
#include <QDir>
#include <QFile>
#include <cstdio>

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

TemporaryDir::~TemporaryDir() = default;

QString TemporaryDir::path() const {
    return directory.path();
}

} // namespace Kestra::Util
