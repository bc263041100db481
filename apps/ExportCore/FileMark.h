// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::FileMark: by what a file is known to be the same and unchanged.
#pragma once

#include "ExportCoreExport.h"
#include <QStringList>
#include <sys/types.h>
#include <vector>

namespace ExportCore {

/// A value.
struct EXPORTCORE_EXPORT FileMark {
    /// One for each path, links followed; all zero where nothing is there. May take as long as the disks do.
    static std::vector<FileMark> of(const QStringList& paths);

    dev_t device = 0;
    ino_t number = 0;
    qint64 size = 0;
    qint64 modified = 0; ///< nanoseconds since 1970

    friend bool operator==(const FileMark& a, const FileMark& b) {
        return a.device == b.device && a.number == b.number && a.size == b.size && a.modified == b.modified;
    }
    friend bool operator!=(const FileMark& a, const FileMark& b) { return !(a == b); }
};

} // namespace ExportCore
