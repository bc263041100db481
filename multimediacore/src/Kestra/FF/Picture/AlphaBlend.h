// SPDX-License-Identifier: GPL-3.0-or-later
// Frames with alpha over black.
#pragma once

#include "Kestra/FF/Av/FramePool.h"

struct AVPixFmtDescriptor;

namespace Kestra::FF {

/// Whether BlendOverBlack takes this format as it is; others with alpha are converted to GBRAP or GBRAP16 first.
bool CanBlend(AVPixelFormat format) noexcept;
/// The format that comes out: the same without alpha.
AVPixelFormat OpaqueFormat(AVPixelFormat format) noexcept;
/// `frame` (alpha straight, its range tagged) over black, in a picture of `pool` with the same properties.
FrameHandle BlendOverBlack(const AVFrame& frame, FramePool& pool);

/// The three planes of colour over black, written to those of `result`. The format is planar.
void BlendPlanesOverBlack(const AVFrame& frame, AVFrame& result);
/// What black is in a plane of the format; chroma is neutral.
int BlackOf(int plane, const AVPixFmtDescriptor& descriptor, bool fullRange) noexcept;

} // namespace Kestra::FF
