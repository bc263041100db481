// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Util::RemovalOnTheSpot: what has to go even where the process ends without destructors.
#pragma once

#include "KestraQtExport.h"
#include <QByteArray>
#include <cstddef>

namespace Kestra::Util {

/// Keeps a folder or a file in mind for as long as it lives, also one that is yet to be made. Thread-safe; so many at a
/// time as are needed by that many exports, those beyond are not kept in mind.
class KESTRAQT_EXPORT RemovalOnTheSpot {
public:
    enum class Kind { Folder, File };

    /// `path` is absolute, in the file system's letters.
    explicit RemovalOnTheSpot(const QByteArray& path, Kind kind = Kind::Folder) noexcept;
    ~RemovalOnTheSpot();
    RemovalOnTheSpot(const RemovalOnTheSpot&) = delete;
    RemovalOnTheSpot& operator=(const RemovalOnTheSpot&) = delete;

    /// Removes every folder that is in mind, with its content, following no links, and then every file: those may stand
    /// where nothing answers. What cannot be removed stays. May be called from a signal handler, on any thread. Only
    /// before an end of the process.
    static void removeAll() noexcept;

private:
    std::size_t place;
};

} // namespace Kestra::Util
