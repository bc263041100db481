// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::MixedDown: sounds that lose by the channels of the first one.
#pragma once

#include "EditorPreset/Preset.h"
#include "ExportCore/ExportRequest.h"
#include "Render/Sequence.h"
#include "Types/Range.h"
#include <cstdint>
#include <string>

namespace ExportCore {

class MixedDown {
public:
    /// Of an export of the range, all where it is empty, whose sound has the composition's `layout`, which some in it
    /// have more channels than, though the preset would take more, and the way out; empty where none do, or the
    /// channels were ordered.
    static std::string note(const Render::Sequence& sequence, const Types::Range& range, std::uint32_t layout,
                            const ExportRequest& request, const Preset& preset);

    MixedDown() = delete;
};

} // namespace ExportCore
