// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FolderInUse: keeps a folder where it is while files in it are opened by their names.
#pragma once

#include "KestraExport.h"
#include <functional>
#include <string>

namespace Kestra {

/// For foreign code that does not bear it when its files go under its hands, and for as long as it takes to open them.
/// What has it need not wait for it: whoever takes the folder away leaves that to the last one that uses it.
///
/// Thread-safe. Folders are compared by what their paths say.
class KESTRA_EXPORT FolderInUse {
public:
    /// Of every folder that `path` lies in. Where one of them is being removed, waits until it is gone: then the file
    /// is not there, and whoever looks for it finds that.
    explicit FolderInUse(std::string path);
    /// Removes, on this thread, what waited for this use alone.
    ~FolderInUse();
    FolderInUse(const FolderInUse&) = delete;
    FolderInUse& operator=(const FolderInUse&) = delete;

    /// Calls `remove`, which throws nothing, once nobody uses the folder: before this returns, or when its last use
    /// ends, or else as the process exits. Never waits. Throws std::bad_alloc, without having called it.
    static void Remove(std::string folder, std::function<void()> remove);

private:
    const std::string path;
};

} // namespace Kestra
