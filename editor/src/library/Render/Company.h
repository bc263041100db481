// SPDX-License-Identifier: GPL-3.0-or-later
// Render::Company: what is seen together with a clip.
#pragma once

#include "Render/Scene.h"

namespace Render {

/// A value: how many clips there are in a scene. They share what takes threads and memory.
struct Company {
    static Company in(const Scene& scene) {
        Company company;
        visitMaterials(scene.parts, [&company](const Material& material) {
            ++company.clips;
            company.backwards += material.map.speed < 0 ? 1 : 0;
        });
        return company;
    }

    int clips = 0;
    int backwards = 0; ///< of them
};

} // namespace Render
