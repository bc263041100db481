// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::AllSounds: every sound track of the inputs for one file.
#pragma once

#include "Kestra/Proc/MediaLimits.h"
#include "Render/Sequence.h"
#include <atomic>
#include <string>
#include <vector>

namespace ExportCore {

struct AllSounds {
    /// The sequence of these media, opened, with further sounds where a medium has several tracks. Throws Refusal where
    /// the container holds one, and where media have different numbers of them, unless they have none.
    static Render::Sequence of(const Render::Sequence& opened, const std::vector<Kestra::ioPath>& media,
                               const std::string& container, const std::atomic<bool>& interrupted,
                               const Kestra::Proc::MediaLimits& limits);
    /// Throws Refusal for a timeline with a medium that has several: it is mixed of one of each.
    static void requireOneEach(const Render::Sequence& timeline);

    AllSounds() = delete;
};

} // namespace ExportCore
