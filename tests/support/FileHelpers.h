// SPDX-License-Identifier: GPL-3.0-or-later
// Files of tests, without ceremony.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>
#include <string>
#include <sys/stat.h>

namespace TestFiles {

inline void write(const std::string& path, const QByteArray& content) {
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(content) != content.size())
        qFatal("Cannot write %s", path.c_str());
}

inline QByteArray read(const std::string& path) {
    QFile file(QString::fromStdString(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(not there)");
}

/// Hidden ones included, in order.
inline QStringList namesIn(const std::string& folder) {
    return QDir(QString::fromStdString(folder))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

inline mode_t modeOf(const std::string& path) {
    struct stat state = {};
    return ::stat(path.c_str(), &state) == 0 ? state.st_mode & 07777 : 0;
}

} // namespace TestFiles
