// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::shortageOf: what a clip shows, or a transition beside it, that its medium does not have.
#pragma once

#include "Timeline/Track.h"
#include <string>

namespace ExportCore {

/// What there is of a medium, from its first moment on.
struct MediaLength {
    Kestra::Ticks origin;   ///< which of the excerpt's times that moment is
    Kestra::Ticks duration; ///< above 0
    /// What lies no further beyond an end than this is not worth a word: nobody knows where that is any better.
    Kestra::Ticks atStart, atEnd;
};

/// A clip in its place, with how much of it transitions show before its start and behind its end.
struct PlacedClip {
    const Timeline::Clip& clip;
    Timeline::Track::Kind kind;
    Kestra::Ticks duration;
    Kestra::Ticks before, behind;
};

/// In words, after the medium's name: how long it lasts, what goes beyond it, and what is seen or heard there. Empty
/// where nothing does.
std::string shortageOf(const PlacedClip& placed, const MediaLength& there);

} // namespace ExportCore
