// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::MixedDown: sounds that lose by the channels of the first one.
#pragma once

#include "EditorPreset/Preset.h"
#include "EditorProject/HeardSound.h"
#include "ExportCore/ExportRequest.h"
#include <cstdint>
#include <string>
#include <vector>

namespace ExportCore {

class MixedDown {
public:
    /// Of an export of these sounds in the composition's `layout`: which of them have more channels than that, though
    /// the preset would take more, and the way out; empty where none do, or the channels were ordered.
    static std::string note(const std::vector<Project::HeardSound>& sounds, std::uint32_t layout,
                            const ExportRequest& request, const Preset& preset);

    MixedDown() = delete;
};

} // namespace ExportCore
