// Project::SampleDepth: the sample format that a timeline's sound, or a part of it, needs.
#pragma once

#include "EditorProject/Timeline.h"
#include "EditorProjectExport.h"
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Project {

/// A value. No clip's samples lose anything in it: what is in floating point goes beyond full scale, which no integer
/// can hold, so one such clip makes all of it floating point, of double precision where a single one's is not enough.
/// Sound that was coded with loss has no depth of its own and counts only where there is no other.
struct EDITORPROJECT_EXPORT SampleDepth {
    std::int32_t format; ///< Kestra::Conf::SampleFormats; unknown where no clip has sound
    int bits = 0;        ///< of each sample; 0 where all sound was coded with loss

    /// Of the clips with these numbers.
    static SampleDepth of(const Timeline& timeline, const std::vector<std::size_t>& clips);
    static bool isFloatingPoint(std::int32_t format);
};

} // namespace Project
