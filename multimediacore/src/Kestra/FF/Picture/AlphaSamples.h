// SPDX-License-Identifier: GPL-3.0-or-later
// Alpha samples of frames, changed in place.
#pragma once

#include "Kestra/FF/Av/Handles.h"

namespace Kestra::FF {

/// In bits; 0 without alpha.
int AlphaDepthOf(const AVFrame& frame);
/// What makes samples deeper shifts them, alpha as well: opaque would let a 256th part through. `depthBefore` as
/// AlphaDepthOf tells it of the frame that they come from; nothing is done where that had none.
void WidenAlpha(AVFrame& frame, int depthBefore);
/// Every pixel; nothing is done without alpha.
void MakeOpaque(AVFrame& frame);

} // namespace Kestra::FF
