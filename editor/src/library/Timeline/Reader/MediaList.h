// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::documentOf: a timeline of media one after the other.
#pragma once

#include "EditorTimelineExport.h"
#include "Timeline/Document.h"
#include <vector>

namespace Timeline {

/// A value.
struct ListedMedia {
    Kestra::ioPath path;
    Kestra::Ticks duration{}; ///< above 0
    bool pictures = false;
    bool sound = false;
};

/// Each medium from its first moment on, its pictures in one track, its sound in another; what it lacks is a gap.
EDITORTIMELINE_EXPORT std::shared_ptr<const Document> documentOf(const std::vector<ListedMedia>& list);

} // namespace Timeline
