// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::PrivateFolder: a temporary folder that goes with its owner.
#pragma once

#include <string>

namespace Timeline {

/// Below the system's folder for temporary files, or /tmp where there is none, for this user alone (0700). Removed with
/// all that is in it; what cannot be removed stays, silently. What processes that were killed have left of the same
/// user is removed when the next one is made.
class PrivateFolder {
public:
    /// Throws std::system_error.
    PrivateFolder();
    ~PrivateFolder();
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;

    /// Absolute, without links and steps back.
    const std::string& path() const { return folder; }

private:
    std::string folder;
    int mark = -1; ///< a file in it that is locked as long as this lives
};

} // namespace Timeline
