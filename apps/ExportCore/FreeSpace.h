// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::FreeSpace: room for an output.
#pragma once

#include "ExportCoreExport.h"
#include <QString>
#include <optional>

namespace ExportCore {

struct EXPORTCORE_EXPORT FreeSpace {
    /// Bytes that this user may still write to the file system of the output's folder; nothing where that cannot be
    /// told, as of a folder that is not there. Any thread; like every look at files it may hang in a folder that does
    /// not answer, so not on one that must not.
    static std::optional<qint64> beside(const QString& outputPath);

    FreeSpace() = delete;
};

} // namespace ExportCore
