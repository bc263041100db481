// SPDX-License-Identifier: GPL-3.0-or-later
// Colour weighted by alpha, as scaling has to see it.
#pragma once

#include "Kestra/FF/Av/FramePool.h"

namespace Kestra::FF {

/// Whether frames of that format are weighted here: planes of whole numbers in the order of this machine, and what
/// HasSampleWeights().
bool CanPremultiply(AVPixelFormat format) noexcept;
/// Whether `frame` is of such a format and shows something through. Where several pixels become one with straight
/// alpha, the colour that transparent ones happen to have is mixed into the edges of the others.
bool NeedsPremultiplying(const AVFrame& frame) noexcept;
/// Such a frame with its colours over black, and its alpha, in a frame of `pool` with the same properties.
FrameHandle Premultiplied(const AVFrame& frame, FramePool& pool);
/// Takes the black out again, in place. The frame has its range tagged.
void Unpremultiply(AVFrame& frame);

} // namespace Kestra::FF
