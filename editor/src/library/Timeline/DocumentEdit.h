// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::withMissing, withBlackForMissingPictures, withItem, withoutItem: edited documents.
#pragma once

#include "EditorTimelineExport.h"
#include "Timeline/Document.h"
#include <functional>

namespace Timeline {

/// The document with every medium missing for which `why` gives a reason; an empty one is none. Each clip is asked for
/// once.
EDITORTIMELINE_EXPORT std::shared_ptr<const Document>
withMissing(const Document& document, const std::function<std::string(const MediaReference&)>& why);

/// The document with black where numbered pictures are refused because they are not there.
EDITORTIMELINE_EXPORT std::shared_ptr<const Document> withBlackForMissingPictures(const Document& document);

/// Where an item stands in the document's own tracks.
struct ItemPlace {
    std::size_t track = 0;
    std::size_t item = 0;
};

/// With another item in that place, trimmed or replaced; what follows in the track moves by the difference, with its
/// markers. A
/// transition beside it that does not fit any more is shortened, or goes. Throws std::out_of_range for a place that
/// there is not.
EDITORTIMELINE_EXPORT std::shared_ptr<const Document> withItem(const Document& document, const ItemPlace& place,
                                                               Item item);
/// Without the item in that place and the transitions beside it; what follows moves up. Throws as withItem().
EDITORTIMELINE_EXPORT std::shared_ptr<const Document> withoutItem(const Document& document, const ItemPlace& place);

} // namespace Timeline
