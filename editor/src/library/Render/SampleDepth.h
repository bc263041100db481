// SPDX-License-Identifier: GPL-3.0-or-later
// Render::SampleDepth: the sample format that a timeline's sound, or a part of it, needs.
#pragma once

#include "EditorRenderExport.h"
#include "Kestra/Proc/IMediaSource.h"
#include <cstdint>
#include <vector>

namespace Render {

/// A value. No clip's samples lose anything in it: what is in floating point goes beyond full scale, which no integer
/// can hold, so one such clip makes all of it floating point, of double precision where a single one's is not enough.
/// Sound that was coded with loss has no depth of its own and counts only where there is no other.
struct EDITORRENDER_EXPORT SampleDepth {
    std::int32_t format; ///< Kestra::Conf::SampleFormats; unknown where no clip has sound
    int bits = 0;        ///< of each sample; 0 where all sound was coded with loss

    /// Of media that all have sound.
    static SampleDepth of(const std::vector<boost::intrusive_ptr<Kestra::Proc::IMediaSource>>& media);
    static bool isFloatingPoint(std::int32_t format);
    static bool isDouble(std::int32_t format);
};

} // namespace Render
