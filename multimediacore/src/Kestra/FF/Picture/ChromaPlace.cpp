// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/ChromaPlace.h"

namespace Kestra::FF {

AVChromaLocation ChromaLocationOf(const AVFrame& frame) noexcept {
    return frame.chroma_location == AVCHROMA_LOC_UNSPECIFIED ? AVCHROMA_LOC_LEFT : frame.chroma_location;
}

ChromaPlace PlaceOf(AVChromaLocation location) noexcept {
    constexpr int BETWEEN = 128;
    constexpr int SECOND = 256;
    switch (location) {
    case AVCHROMA_LOC_CENTER:
        return {BETWEEN, BETWEEN};
    case AVCHROMA_LOC_TOPLEFT:
        return {0, 0};
    case AVCHROMA_LOC_TOP:
        return {BETWEEN, 0};
    case AVCHROMA_LOC_BOTTOMLEFT:
        return {0, SECOND};
    case AVCHROMA_LOC_BOTTOM:
        return {BETWEEN, SECOND};
    default:
        return {0, BETWEEN};
    }
}

} // namespace Kestra::FF
