// SPDX-License-Identifier: GPL-3.0-or-later
// Fakes::ScratchFolder: a folder for one test's files.
#pragma once

#include <filesystem>
#include <string>

namespace Fakes {

/// Made when constructed, removed with all that is in it when destroyed. Also keeps the media libraries from writing
/// their reports between the test's own lines.
class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::string File(const std::string& name) const { return (folder / name).string(); }

private:
    std::filesystem::path folder;
};

} // namespace Fakes
