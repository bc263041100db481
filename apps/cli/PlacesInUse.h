// SPDX-License-Identifier: GPL-3.0-or-later
// Cli::PlacesInUse: the files that exports read and make.
#pragma once

#include "cli/Options.h"
#include <string>
#include <vector>

namespace Cli {

/// What is written beside an export must be none of them.
struct PlacesInUse {
    /// What the file is to this export, as "one of the inputs"; empty where it is nothing to it. Names that lead to the
    /// same file are the same. Timelines are read for the media that they name.
    static std::string useBy(const Options& exported, const std::string& path);
    /// Likewise to one of several, each with its report, or to the queue that they stand in.
    static std::string useByAny(const std::vector<Options>& exports, const std::string& path);
    /// Whether it is the file of a queue, or what is kept beside that.
    static bool isOfQueue(const std::string& queue, const std::string& path);
    /// What stands there and is no regular file, as "it is a pipe"; empty for one, and where nothing stands.
    static std::string whyNoFile(const std::string& path);

    PlacesInUse() = delete;
};

} // namespace Cli
