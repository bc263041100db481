// SPDX-License-Identifier: GPL-3.0-or-later
// Render::Scene: what is seen or heard at one moment of a composition, and for how long.
#pragma once

#include "Kestra/Base/TimeMap.h"
#include "Timeline/Item.h"
#include <optional>
#include <string>
#include <vector>

namespace Render {

/// A clip at its place. A value; the clip and its name are the document's.
struct Material {
    const Timeline::Clip* clip = nullptr;
    const std::string* name = nullptr;
    /// From the composition's time to that of the excerpt without its origin: the media's own time, where the clip
    /// knows the origin.
    Kestra::TimeMap map{};
    Kestra::Ticks end{}; ///< of the composition: nobody wants it from there on
    /// Of the composition: where what the timeline takes of the clip is over. What is placed on frames may end later.
    Kestra::Ticks until{INT64_MAX};

    friend bool operator==(const Material& a, const Material& b) {
        return a.clip == b.clip && a.map.here == b.map.here && a.map.there == b.map.there &&
               a.map.speed == b.map.speed && a.end == b.end && a.until == b.until;
    }
};

/// From `begin` to `end` of the composition one thing goes over into another.
struct Fade {
    Kestra::Ticks begin{};
    Kestra::Ticks end{};
    /// Set: it stands still at this moment, and all three are of whatever clock has stopped.
    std::optional<Kestra::Ticks> still{};
};

struct Part;
using Parts = std::vector<Part>;

/// Material, or a group that goes over into another one; an empty group is transparent or silent.
struct Part {
    Material material;
    std::optional<Fade> fade{}; ///< set: there is no material
    Parts from{};
    Parts to{};
};

/// A value. Parts lie above each other, the lowest one first, or are heard together.
struct Scene {
    Parts parts;
    bool isFull = false;          ///< whatever lies below is hidden
    Kestra::Ticks end{INT64_MAX}; ///< nothing changes before
};

/// The materials of all parts, each once for each place.
template <class Visit>
void visitMaterials(const Parts& parts, const Visit& visit) {
    for (const Part& part : parts) {
        if (!part.fade)
            visit(part.material);
        visitMaterials(part.from, visit);
        visitMaterials(part.to, visit);
    }
}

} // namespace Render
