// SPDX-License-Identifier: GPL-3.0-or-later
// Render::originOf: which time of a clip its medium begins with.
#pragma once

#include "Kestra/Proc/IMediaSource.h"
#include "Timeline/Item.h"

namespace Render {

/// Which of the excerpt's times is the medium's first moment. Where the clip does not say, the medium's time code does;
/// an excerpt that begins before that counts from 0.
inline Kestra::Ticks originOf(const Timeline::Clip& clip, const Kestra::Proc::MediaInfo& info) {
    const Kestra::Ticks timecode(info.timecode.value_or(0));
    return clip.origin ? *clip.origin : clip.excerpt.start >= timecode ? timecode : Kestra::Ticks(0);
}

} // namespace Render
