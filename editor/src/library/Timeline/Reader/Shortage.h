// SPDX-License-Identifier: GPL-3.0-or-later
// What a stack shows that is not there.
#pragma once

#include "Timeline/Reader/OtioContext.h"

namespace Timeline {

/// What stands in a track for so long.
struct Stretch {
    Excerpt excerpt;
    Kestra::Ticks duration;
};

/// Tells a warning where the stretch goes beyond the contents that there are of its stack: at which of its ends, for
/// how long in the time of its track, and what is seen or heard there. Of media only who opens them can tell that.
void tellWhatIsBeyond(OtioContext& context, const OtioNode& node, const Stretch& stretch, const TimeRange& contents,
                      Track::Kind kind);

} // namespace Timeline
