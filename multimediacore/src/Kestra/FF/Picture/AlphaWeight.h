// Colour weighted by alpha, as scaling has to see it.
#pragma once

#include "Kestra/FF/Av/FramePool.h"

namespace Kestra::FF {

/// Whether `picture` is of a format that is weighted here (packed, 8 bits) and shows something through. Scaled with
/// straight alpha it would mix the colour that transparent pixels happen to have into the edges of the others.
bool NeedsAlphaWeight(const AVFrame& picture) noexcept;
/// Such a picture with its colour multiplied by its alpha, in a picture of `pool` with the same properties.
FrameHandle WeightByAlpha(const AVFrame& picture, FramePool& pool);
/// Divides the colour by the alpha again, in place.
void RemoveAlphaWeight(AVFrame& picture) noexcept;

} // namespace Kestra::FF
