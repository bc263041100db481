// Timeline::PrivateFolder: a temporary folder that goes with its owner.
#pragma once

#include <string>

namespace Timeline {

/// Below the system's folder for temporary files, for this user alone (0700). Removed with all that is in it; what
/// cannot be removed stays, silently.
class PrivateFolder {
public:
    /// Throws std::system_error.
    PrivateFolder();
    ~PrivateFolder();
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;

    /// Absolute.
    const std::string& path() const { return folder; }

private:
    std::string folder;
};

} // namespace Timeline
