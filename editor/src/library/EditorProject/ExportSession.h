// SPDX-License-Identifier: GPL-3.0-or-later
// Project::ExportSession: the streams of one export.
#pragma once

#include "Media/Video.h"
#include "Types/Range.h"
#include <memory>

namespace Project {

/// What the sound of an export knows of its pictures, by which it is aligned. One thread.
struct ExportSession {
    const Media::Video* pictures = nullptr; ///< their description; null where there are none
    Types::Range range;                     ///< of the pictures
    bool hasSound = false;
};

/// An export offers its pictures right before its sound: the sound joins the session that the pictures have begun.
class ExportSessions {
public:
    std::shared_ptr<ExportSession> begin(const Media::Video* pictures, const Types::Range& range) {
        latest = std::make_shared<ExportSession>(ExportSession{pictures, range});
        return latest;
    }
    /// A session without pictures where none of that range waits for its sound.
    std::shared_ptr<ExportSession> join(const Types::Range& range) {
        const bool waits = latest && !latest->hasSound && latest->pictures && latest->range == range;
        auto joined = waits ? latest : std::make_shared<ExportSession>();
        joined->hasSound = true;
        latest.reset(); // what comes next is another export's
        return joined;
    }

private:
    std::shared_ptr<ExportSession> latest;
};

} // namespace Project
