// SPDX-License-Identifier: GPL-3.0-or-later
// What a media file lists of itself: tracks, chapters, tags, a cover.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include "Kestra/Proc/MediaContents.h"
#include <string>
#include <vector>

namespace Kestra::FF {

/// As the header and what has been read so far tell it. Times count from `origin`, engine time on the container's own
/// clock. Of several chapters that begin at one time the first one counts. Adds to `notes`, as SourceNote::what, what
/// cannot be taken as it is.
Proc::MediaContents ContentsOf(const AVFormatContext& context, std::int64_t origin, std::vector<std::string>& notes);

} // namespace Kestra::FF
