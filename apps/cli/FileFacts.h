// SPDX-License-Identifier: GPL-3.0-or-later
// Cli::FileFacts: what tells that files are still the same.
#pragma once

#include <QDateTime>
#include <QFileInfo>
#include <QJsonObject>
#include <string>

namespace Cli {

/// A value: of one file, or of several together.
struct FileFacts {
    static FileFacts of(const QFileInfoList& files);
    /// Of an export's output: the file, the pictures in the folder, or those that are called after the pattern.
    static FileFacts ofOutput(const QString& output);

    int count = 0; ///< 0: there is nothing
    qint64 size = 0;
    QDateTime modified;   ///< the last one of them
    std::string identity; ///< of the first by its name: the same under whatever name it stands

    /// "sizeBytes" and "modified".
    QJsonObject object() const;
};

} // namespace Cli
