// SPDX-License-Identifier: GPL-3.0-or-later
// Render::Survey: which media a window shows or plays.
#pragma once

#include "Render/PicturePlanner.h"
#include "Render/Sequence.h"
#include "Render/SoundPlanner.h"

namespace Render {

/// A value.
struct Survey {
    /// Each medium once, in the order in which they appear; of those at the same time the lowest one first. Media
    /// without what is looked for are left out.
    std::vector<MediaPool::Source> media;
    bool blends = false; ///< several are seen or heard at a time, or one goes over into another

    /// The window has pictures.
    static Survey ofPictures(const PicturePlanner& planner, const Window& window, MediaPool& media);
    static Survey ofSound(const SoundPlanner& planner, Kestra::SampleIndex samples, MediaPool& media);
};

/// Whether there is nothing but one clip, or nothing at all.
bool isPlain(const Scene& scene);

} // namespace Render
