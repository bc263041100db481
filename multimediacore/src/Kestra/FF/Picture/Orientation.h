// Kestra::FF::Orientation: which way up pictures are shown.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <cstdint>

namespace Kestra::FF {

/// How a picture is brought upright: turned clockwise by 0, 90, 180 or 270 degrees, then, if flipped, turned upside
/// down.
struct Orientation {
    int rotation = 0;
    bool flipped = false;
};

/// From a display matrix of nine 16.16 numbers. Angles between quarter turns are taken to the nearest one.
Orientation ReadDisplayMatrix(const std::int32_t* matrix);
/// The container's orientation; where it has none, that of the decoded picture (EXIF, SEI).
Orientation FindOrientation(const AVStream& stream, const AVFrame* picture);

} // namespace Kestra::FF
