// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::FrameGrain: the grid on which blocks of samples begin.
#pragma once

#include "Kestra/FF/Av/Handles.h"

namespace Kestra::FF {

struct FrameGrain {
    int samples = 0; ///< what every block's length is a multiple of; 0 when there is no such number
    /// The codec has no such number, but the container seems to have one: the habit of whoever wrote it.
    bool ofContainer = false;
};

/// `frameSize` is the decoder's, `firstBlock` the length of the first decoded block. A container's grain is only looked
/// for where its clock is coarser than samples.
FrameGrain FindFrameGrain(const AVStream& stream, int frameSize, int firstBlock);

} // namespace Kestra::FF
