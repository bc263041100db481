// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::Document: a whole timeline.
#pragma once

#include "Timeline/Stack.h"

namespace Timeline {

/// Never changes: an edit makes another one, so any number of threads may look at one.
struct Document {
    std::string name;
    std::shared_ptr<const Stack> tracks;        ///< never null
    std::optional<Kestra::Ticks> globalStart{}; ///< the time code at time 0
    std::string metadata{};                     ///< the timeline's own, as JSON; empty where there is none
    /// Unless null, keeps alive what the document's media lie in: files unpacked from an archive.
    std::shared_ptr<const void> resources{};

    Kestra::Ticks duration() const { return tracks->duration(); }
};

} // namespace Timeline
