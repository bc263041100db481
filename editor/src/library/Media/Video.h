// SPDX-License-Identifier: GPL-3.0-or-later
// Media::Video: how the pictures of a composition or of an export look.
#pragma once

#include "EditorModelExport.h"
#include "PubSub/Object.h"
#include <cstdint>

namespace Media {

/// A value; a zero denominator or size means "not known".
class EDITORMODEL_EXPORT Video : public virtual PubSub::Object {
public:
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t frameRateNumerator = 0;
    std::uint32_t frameRateDenominator = 0;
    /// Of the whole frame as displayed (16:9), not of one pixel.
    std::uint32_t aspectNumerator = 0;
    std::uint32_t aspectDenominator = 0;
    /// Set in a description that belongs to an export: the composition's own never has it.
    bool exported = false;
};

EDITORMODEL_EXPORT bool operator==(const Video& left, const Video& right);
inline bool operator!=(const Video& left, const Video& right) {
    return !(left == right);
}

} // namespace Media
