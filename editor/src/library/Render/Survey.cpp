// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/Survey.h"

#include <set>

namespace Render {

using Kestra::FrameIndex;
using Kestra::SampleIndex;
using Kestra::Proc::MediaInfo;

namespace {

class Surveyor {
public:
    explicit Surveyor(MediaPool& media)
        : media(media) {}

    template <class Has>
    void add(const Scene& scene, const Has& has) {
        survey.blends = survey.blends || !isPlain(scene);
        visitMaterials(scene.parts, [&](const Material& material) {
            const auto source = media.open(material.clip->media);
            if (source && has(source->GetInfo()) && seen.insert(source.get()).second)
                survey.media.push_back(source);
        });
    }
    Survey take() { return std::move(survey); }

private:
    MediaPool& media;
    Survey survey;
    std::set<const Kestra::Proc::IMediaSource*> seen;
};

} // namespace

bool isPlain(const Scene& scene) {
    return scene.parts.empty() || (scene.parts.size() == 1 && !scene.parts.front().fade);
}

Survey Survey::ofPictures(const PicturePlanner& planner, const Window& window, MediaPool& media) {
    Surveyor surveyor(media);
    const FrameIndex end = window.firstFrame() + window.frames();
    for (FrameIndex frame = window.firstFrame(); frame < end;) {
        const Scene scene = planner.sceneAt(frame);
        surveyor.add(scene, [](const MediaInfo& info) { return info.video.has_value(); });
        frame = planner.endOf(scene);
    }
    return surveyor.take();
}

Survey Survey::ofSound(const SoundPlanner& planner, SampleIndex samples, MediaPool& media) {
    Surveyor surveyor(media);
    for (SampleIndex sample; sample < samples;) {
        const Scene scene = planner.sceneAt(sample);
        surveyor.add(scene, [](const MediaInfo& info) { return info.audio.has_value(); });
        sample = planner.endOf(scene);
    }
    return surveyor.take();
}

} // namespace Render
