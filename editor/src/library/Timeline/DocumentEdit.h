// Timeline::withMissing: a document without some of its media.
#pragma once

#include "EditorTimelineExport.h"
#include "Timeline/Document.h"
#include <functional>

namespace Timeline {

/// The document with every medium missing for which `why` gives a reason; an empty one is none. Each clip is asked for
/// once.
EDITORTIMELINE_EXPORT std::shared_ptr<const Document>
withMissing(const Document& document, const std::function<std::string(const MediaReference&)>& why);

} // namespace Timeline
