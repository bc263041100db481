// Frames with alpha over black.
#pragma once

#include "Kestra/FF/Av/FramePool.h"

namespace Kestra::FF {

/// Whether BlendOverBlack takes this format as it is; others with alpha are converted to GBRAP or GBRAP16 first.
bool CanBlend(AVPixelFormat format) noexcept;
/// The format that comes out: the same without alpha.
AVPixelFormat OpaqueFormat(AVPixelFormat format) noexcept;
/// `frame` (alpha straight, its range tagged) over black, in a picture of `pool` with the same properties.
FrameHandle BlendOverBlack(const AVFrame& frame, FramePool& pool);

} // namespace Kestra::FF
