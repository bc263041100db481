// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::FolderSteps: single steps on folders and the names in them.
#pragma once

#include "Kestra/Base/Descriptor.h"
#include <QByteArray>
#include <string>
#include <vector>

namespace ExportCore {

/// Follows no link at the end of a name. Folders are descriptors or AT_FDCWD.
struct FolderSteps {
    /// Whether what is open stands under that name.
    static bool isSame(int file, const QByteArray& path);
    /// Renames, but over nothing. 0, or the system's error: EEXIST where something stands there.
    static int moveUnlessThere(int fromFolder, const char* from, int toFolder, const char* to);
    /// The same for file systems that have neither such a renaming nor second names (some network drives): an empty
    /// file takes the name, and is replaced. Killed between the two, it stays.
    static int moveOntoPlaceholder(int fromFolder, const char* from, int toFolder, const char* to);
    /// Brings the folder itself to the disk. False where that is not possible; true where the file system has no such
    /// thing.
    static bool sync(const QByteArray& folder);
    /// The names of the files in the folder, of whatever kind. 0, or the system's error: then some may be missing.
    static int list(int folder, std::vector<std::string>& names);
    /// Whether a regular file stands in the folder under that name, no link to one.
    static bool isFile(int folder, const char* name);
    /// Opens a folder in a folder; -1 and errno where there is none.
    static int open(int folder, const char* name);

    /// Whether the file system has said by that error that it has no such thing, or that only root may: of owners and
    /// permissions.
    static bool isBeyond(int error) noexcept;

    FolderSteps() = delete;
};

using Kestra::Descriptor;

} // namespace ExportCore
