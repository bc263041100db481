// SPDX-License-Identifier: GPL-3.0-or-later
// Colours weighted by alpha, sample by sample, in formats that have no loops of their own.
#pragma once

#include "Kestra/FF/Av/Handles.h"

extern "C" {
#include <libavutil/pixfmt.h>
}

namespace Kestra::FF {

/// RGB and grey whose samples are whole bytes, numbers of 16 bits or floating point in whatever order, packed or not.
bool HasSampleWeights(AVPixelFormat format) noexcept;
/// Whether anything shows through such a frame.
bool IsAnySeenThrough(const AVFrame& frame);
/// Multiplies the colours of such a frame by alpha, black being nothing, in place. The frame has its range tagged.
void WeightSamples(AVFrame& frame);
/// Takes it back.
void UnweightSamples(AVFrame& frame);

} // namespace Kestra::FF
