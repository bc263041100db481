// Render::OpenMaterials: the clips that a stream is reading just now.
#pragma once

#include "Render/MediaPool.h"
#include "Render/Scene.h"
#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace Render {

/// A medium that goes on being used, elsewhere, keeps its file and its decoder: what a clip leaves behind is handed to
/// the next one of the same medium. Opened is MaterialPictures or MaterialSound. One thread.
template <class Opened>
class OpenMaterials {
public:
    using Decoded = typename Opened::Decoded;

    /// Closes everything that the scene does not have. What is left behind lives until forgetLeft().
    void keepOnly(const Scene& scene, MediaPool& media) {
        for (std::unique_ptr<Opened>& one : open) {
            if (has(scene, [&one](const Material& material) { return material == one->material(); }))
                continue;
            const MediaPool::Source medium = one->medium();
            Decoded decoded = one->close();
            if (decoded &&
                has(scene, [&](const Material& material) { return media.open(material.clip->media) == medium; }))
                left.emplace_back(medium, std::move(decoded));
            one.reset();
        }
        open.erase(std::remove(open.begin(), open.end(), nullptr), open.end());
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
    /// What another clip of the medium has left behind; null where none has.
    Decoded takeLeft(const MediaPool::Source& medium) {
        const auto found =
            std::find_if(left.begin(), left.end(), [&medium](const auto& entry) { return entry.first == medium; });
        if (found == left.end())
            return nullptr;
        Decoded decoded = std::move(found->second);
        left.erase(found);
        return decoded;
    }
    void forgetLeft() { left.clear(); }

    bool isEmpty() const { return open.empty(); }
    void clear() {
        open.clear();
        left.clear();
    }
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
    std::vector<std::pair<MediaPool::Source, Decoded>> left;
};

} // namespace Render
