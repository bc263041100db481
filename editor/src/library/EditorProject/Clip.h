// Project::Clip: one media file on the timeline.
#pragma once

#include "Kestra/Base/ioPath.h"
#include "Kestra/Proc/IMediaSource.h"
#include <cstdint>

namespace Project {

/// A value. Times are engine time.
struct Clip {
    Kestra::ioPath path;
    Kestra::Proc::MediaInfo info;
    std::int64_t start = 0;    ///< in the composition
    std::int64_t duration = 0; ///< always positive
};

} // namespace Project
