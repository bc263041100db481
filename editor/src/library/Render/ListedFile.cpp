// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/ListedFile.h"

#include "Kestra/Base/Time.h"
#include "Kestra/Proc/ProcException.h"

namespace Render {

using Kestra::Ticks;

namespace {

/// How long a picture without a length of its own stands.
constexpr Ticks STILL_DURATION{5 * Kestra::TIME_BASE};

} // namespace

Timeline::ListedMedia listed(const Kestra::Proc::IMediaSource& media) {
    const Kestra::Proc::MediaInfo& info = media.GetInfo();
    Timeline::ListedMedia entry{media.GetPath(), Ticks(info.duration), info.video.has_value(), info.audio.has_value()};
    if (info.video && info.video->stillPicture && !info.audio)
        entry.duration = STILL_DURATION;
    if (entry.duration <= Ticks(0))
        KESTRA_THROW(Kestra::Proc::ProcException(Kestra::Proc::TranscodingError::SourceUnreadable,
                                                 "\"" + media.GetPath().ToUtf8() +
                                                     "\" cannot be put on the timeline: it has no length"));
    return entry;
}

} // namespace Render
