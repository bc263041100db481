// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::Finding: what is wrong or remarkable in a timeline.
#pragma once

#include "EditorTimelineExport.h"
#include <string>

namespace Timeline {

/// A value.
struct EDITORTIMELINE_EXPORT Finding {
    enum class Kind {
        Error,        ///< the timeline cannot be rendered as it is
        MissingMedia, ///< likewise, unless whoever renders it takes black and silence
        Warning,      ///< something is rendered otherwise than the timeline says
    };

    Kind kind = Kind::Error;
    std::string place;   ///< in words: track "V1", clip "a"; empty for the whole file
    std::string pointer; ///< a JSON pointer (RFC 6901) into the file; empty for the whole file
    std::string text;    ///< a sentence without a full stop

    /// The sentence and its place, on one line.
    std::string inWords() const;
};

} // namespace Timeline
