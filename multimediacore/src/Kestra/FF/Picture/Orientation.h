// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::Orientation: which way up frames are shown.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <cstdint>

namespace Kestra::FF {

/// How a frame is brought upright: turned clockwise by 0, 90, 180 or 270 degrees, then, if flipped, turned upside
/// down.
struct Orientation {
    int rotation = 0;
    bool flipped = false;
    /// By how many degrees the frame is to be turned beyond that; 0 where it stands upright then.
    double askew = 0;
};

/// From a display matrix of nine 16.16 numbers. Angles between quarter turns are taken to the nearest one.
Orientation ReadDisplayMatrix(const std::int32_t* matrix);
/// The container's orientation; where it has none, that of the decoded frame (EXIF, SEI).
Orientation FindOrientation(const AVStream& stream, const AVFrame* frame);

} // namespace Kestra::FF
