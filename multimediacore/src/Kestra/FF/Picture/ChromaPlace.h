// SPDX-License-Identifier: GPL-3.0-or-later
// Where chroma samples stand among the pixels that share them.
#pragma once

#include "Kestra/FF/Av/Handles.h"

namespace Kestra::FF {

/// From the first pixel's middle, in 256ths of a pixel.
struct ChromaPlace {
    int across = 0;
    int down = 0;
};

/// What a frame says, or beside the left pixel, between the rows: where MPEG's codecs have it.
AVChromaLocation ChromaLocationOf(const AVFrame& frame) noexcept;
/// That of frames that are made here.
constexpr AVChromaLocation MADE_LOCATION = AVCHROMA_LOC_LEFT;
ChromaPlace PlaceOf(AVChromaLocation location) noexcept;

} // namespace Kestra::FF
