// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::MediaLocator: finds the files that a timeline names.
#pragma once

#include "Kestra/Base/ioPath.h"
#include <string>
#include <variant>

namespace Timeline {

/// A value. A name is a path, absolute or relative to the timeline's folder, or a URL of the scheme "file" (RFC 8089),
/// percent-encoded or not. What is not in its place is looked for below the folder for media: by its relative path, and
/// by its name alone. Nothing is opened.
class MediaLocator {
public:
    enum class Wanted { File, Folder };
    struct Trouble {
        std::string why; ///< a clause: "is not there"
        bool isHere;     ///< something is wrong with what stands there, or with the name; otherwise there is nothing
    };
    using Result = std::variant<Kestra::ioPath, Trouble>;

    /// `mediaRoot` may be empty.
    MediaLocator(std::string timelineFolder, std::string mediaRoot);

    /// The path is absolute.
    Result locate(const std::string& name, Wanted wanted) const;

private:
    Result atPath(const std::string& path, Wanted wanted) const;
    Result belowRoot(const std::string& path, const std::string& why, Wanted wanted) const;

    std::string folder;
    std::string root;
};

} // namespace Timeline
