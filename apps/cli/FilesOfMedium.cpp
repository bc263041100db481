// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/FilesOfMedium.h"

#include <QDir>
#include <variant>

namespace Cli {

QFileInfoList filesOfMedium(const Timeline::MediaTarget& medium) {
    if (const auto* const file = std::get_if<Timeline::MediaFile>(&medium))
        return {QFileInfo(QString::fromStdString(file->path.ToUtf8()))};
    QFileInfoList pictures;
    if (const auto* const sequence = std::get_if<Timeline::ImageSequence>(&medium))
        for (const QFileInfo& file : QDir(QString::fromStdString(sequence->folder.ToUtf8())).entryInfoList(QDir::Files))
            if (sequence->isName(file.fileName().toStdString()))
                pictures << file;
    return pictures;
}

} // namespace Cli
