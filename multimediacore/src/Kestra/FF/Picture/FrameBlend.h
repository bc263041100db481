// SPDX-License-Identifier: GPL-3.0-or-later
// Two frames as one: mixed, or one over the other.
#pragma once

#include "Kestra/FF/Av/Handles.h"

namespace Kestra::FF {

/// Whether its format does.
bool CarriesAlpha(const AVFrame& frame) noexcept;

/// Frames and `result` have one size, and one planar format of YUV or RGB (8 to 16 bits or floating point) or its
/// sibling with alpha, which is straight. The result's format has alpha where the result has. Pixels are written,
/// nothing else.
/// `weight` (0 to 1) of `to`, the rest of `from`; colours weighted by their alpha. A null frame is transparent; one of
/// the two is there.
void MixFrames(const AVFrame* from, const AVFrame* to, double weight, AVFrame& result);
/// Whether a mix of these has alpha.
bool MixHasAlpha(const AVFrame* from, const AVFrame* to) noexcept;
/// `top`, which has alpha, over `bottom`. The result has alpha where bottom has.
void LayOver(const AVFrame& bottom, const AVFrame& top, AVFrame& result);

} // namespace Kestra::FF
