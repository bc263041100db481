// SPDX-License-Identifier: GPL-3.0-or-later
// What PNG pictures carry besides the picture.
#pragma once

#include "Kestra/FF/Av/Handles.h"

namespace Kestra::FF {

/// Takes texts and colour profiles out of a packet of PNG or APNG. They are stored compressed, so a small file may
/// hold gigabytes of them, and nobody here reads them. Other packets stay as they are, as do those that hold none.
void DropPngTexts(AVCodecID codec, AVPacket& packet);
/// Likewise of the pieces that APNG keeps in front of its pictures.
void DropPngTexts(AVCodecParameters& parameters);

} // namespace Kestra::FF
