// SPDX-License-Identifier: GPL-3.0-or-later
// Render::OpenMaterials: the clips that a stream is reading just now.
#pragma once

#include "Render/MediaPool.h"
#include "Render/Scene.h"
#include <algorithm>
#include <memory>
#include <vector>

namespace Render {

/// Opened is MaterialPictures or MaterialSound. One thread.
template <class Opened>
class OpenMaterials {
public:
    /// Closes everything that the scene does not have. A medium that goes on being used, elsewhere, leaves its file and
    /// its decoder to what is opened of it next.
    void keepOnly(const Scene& scene, MediaPool& media) {
        for (auto one = open.begin(); one != open.end();) {
            const auto isIt = [one](const Material& material) { return material == (*one)->material(); };
            const auto isItsMedium = [one, &media](const Material& material) {
                return media.open(material.clip->media) == (*one)->medium();
            };
            if (has(scene, isIt)) {
                ++one;
                continue;
            }
            const bool goesOn = has(scene, isItsMedium);
            const std::unique_ptr<Opened> last = std::move(*one);
            one = open.erase(one); // before anything that may throw
            if (goesOn)
                last->leave();
        }
    }

    /// Null where none is open.
    template <class Is>
    Opened* find(const Is& is) const {
        const auto found = std::find_if(open.begin(), open.end(), [&is](const auto& one) { return is(*one); });
        return found == open.end() ? nullptr : found->get();
    }
    Opened& add(std::unique_ptr<Opened> one) {
        open.push_back(std::move(one));
        return *open.back();
    }
    bool isEmpty() const { return open.empty(); }
    void clear() { open.clear(); }
    auto begin() const { return open.begin(); }
    auto end() const { return open.end(); }

private:
    template <class Is>
    static bool has(const Scene& scene, const Is& is) {
        bool found = false;
        visitMaterials(scene.parts, [&](const Material& material) { found = found || is(material); });
        return found;
    }

    std::vector<std::unique_ptr<Opened>> open;
};

} // namespace Render
