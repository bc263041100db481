// SPDX-License-Identifier: GPL-3.0-or-later
// Sends the system's temporary directory elsewhere for the time of a test.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>

namespace TestSupport {

class TemporaryPlace {
public:
    explicit TemporaryPlace(const QString& place)
        : before(qgetenv("TMPDIR"))
        , wasSet(qEnvironmentVariableIsSet("TMPDIR")) {
        qputenv("TMPDIR", QFile::encodeName(place));
    }
    TemporaryPlace(const TemporaryPlace&) = delete;
    TemporaryPlace& operator=(const TemporaryPlace&) = delete;
    ~TemporaryPlace() {
        if (wasSet)
            qputenv("TMPDIR", before);
        else
            qunsetenv("TMPDIR");
    }

    /// How many scratch directories stand there now.
    static int scratchDirectories() {
        return QDir(QDir::tempPath()).entryList({QStringLiteral("editor-export-*")}, QDir::Dirs).size();
    }

private:
    const QByteArray before;
    const bool wasSet;
};

} // namespace TestSupport
