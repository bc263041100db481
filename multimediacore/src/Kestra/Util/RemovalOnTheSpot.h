// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Util::RemovalOnTheSpot: what has to go even where the process ends without destructors.
#pragma once

#include "KestraQtExport.h"
#include <QByteArray>
#include <atomic>
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

    /// Keeps it in mind no longer. False where its removal may have begun, and the process ends: then nothing may be
    /// put into it that is to last, nor may it get another name.
    bool withdraw() noexcept;

    /// Removes every folder that is in mind, with its content, following no links, and then every file: those may stand
    /// where nothing answers. What cannot be removed stays. May be called from a signal handler, on any thread. Only
    /// before an end of the process.
    static void removeAll() noexcept;

private:
    std::atomic<std::size_t> place; ///< beyond all where nothing is kept in mind
};

} // namespace Kestra::Util
