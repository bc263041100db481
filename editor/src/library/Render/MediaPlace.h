// SPDX-License-Identifier: GPL-3.0-or-later
// Render::mediaMapOf: where in its medium a clip's material stands.
#pragma once

#include "Render/MediaOrigin.h"
#include "Render/Scene.h"

namespace Render {

/// From the composition's time to the medium's, whose first moment is 0.
inline Kestra::TimeMap mediaMapOf(const Material& material, const Kestra::Proc::MediaInfo& info) {
    Kestra::TimeMap map = material.map;
    if (!material.clip->origin)
        map.there -= originOf(*material.clip, info);
    return map;
}

} // namespace Render
