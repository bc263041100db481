// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::OutputTarget: the place where a finished file will stand.
#pragma once

#include <QByteArray>
#include <sys/types.h>

namespace ExportCore {

/// A value. Links on the way are resolved, so that a link at the target stays one and its destination is replaced.
struct OutputTarget {
    QByteArray path;   ///< absolute, UTF-8
    QByteArray folder; ///< of path
    bool existed = false;
    bool replace = false; ///< whether a file that stands there may be replaced
    mode_t mode = 0;      ///< of the file that stood there
    uid_t owner = 0;
    gid_t group = 0;
};

} // namespace ExportCore
