// Colour weighted by alpha, as scaling has to see it.
#pragma once

#include "Kestra/FF/Av/FramePool.h"

namespace Kestra::FF {

/// Whether `frame` is of a format that is weighted here (packed, 8 bits) and shows something through. Scaled with
/// straight alpha it would mix the colour that transparent pixels happen to have into the edges of the others.
bool NeedsPremultiplying(const AVFrame& frame) noexcept;
/// Such a frame with its colour multiplied by its alpha, in a frame of `pool` with the same properties.
FrameHandle Premultiplied(const AVFrame& frame, FramePool& pool);
/// Divides the colour by the alpha again, in place.
void Unpremultiply(AVFrame& frame) noexcept;

} // namespace Kestra::FF
