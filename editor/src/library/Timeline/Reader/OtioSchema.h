// SPDX-License-Identifier: GPL-3.0-or-later
// Which schemas of OpenTimelineIO are known here, and up to which version.
#pragma once

#include "Timeline/Reader/OtioContext.h"

namespace Timeline {

/// What a schema's object is, whatever it is called in its version.
enum class OtioKind {
    Unknown,
    Timeline,
    Collection,
    Stack,
    Track,
    Clip,
    Gap,
    Transition,
    ExternalReference,
    ImageSequence,
    Generator,
    MissingReference,
    TimeWarp,
    FreezeFrame,
    Effect,
    Marker,
};

/// Unknown for what is no object, too.
OtioKind kindOf(const OtioNode& node);

/// Tells an error where the object's version is newer than what is known, a warning where that is read all the same.
/// Called once for each object that is read.
void checkVersion(OtioContext& context, const OtioNode& node);

} // namespace Timeline
