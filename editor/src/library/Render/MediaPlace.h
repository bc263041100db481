// Render::mediaMapOf: where in its medium a clip's material stands.
#pragma once

#include "Kestra/Proc/IMediaSource.h"
#include "Render/Scene.h"

namespace Render {

/// From the composition's time to the medium's, whose first moment is 0. Where the clip does not say which time code
/// that has, the medium does; an excerpt that begins before that time code counts from 0.
inline Kestra::TimeMap mediaMapOf(const Material& material, const Kestra::Proc::MediaInfo& info) {
    Kestra::TimeMap map = material.map;
    const Kestra::Ticks timecode(info.timecode.value_or(0));
    if (!material.clip->origin && material.clip->excerpt.start >= timecode)
        map.there -= timecode;
    return map;
}

} // namespace Render
