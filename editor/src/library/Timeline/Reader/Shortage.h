// SPDX-License-Identifier: GPL-3.0-or-later
// What an item shows that is not there.
#pragma once

#include "Timeline/Reader/OtioContext.h"

namespace Timeline {

/// What stands in a track for so long.
struct Stretch {
    Excerpt excerpt;
    Kestra::Ticks duration;
};

/// What there is of a source, and whose it is in words: "its media".
struct Existing {
    TimeRange range;
    const char* owner;
};

/// Tells a warning where the stretch goes beyond what there is: at which of its ends, for how long in the time of its
/// track, and what is seen or heard there.
void tellWhatIsBeyond(OtioContext& context, const OtioNode& node, const Stretch& stretch, const Existing& there,
                      Track::Kind kind);

} // namespace Timeline
