// SPDX-License-Identifier: GPL-3.0-or-later
// Tags that a decoded frame is to carry, completed from what its container says.
#pragma once

#include "Kestra/FF/Av/Handles.h"

namespace Kestra::FF {

/// Whether primaries, transfer and matrix are told, or need not be: RGB is taken for that of computers.
bool TellsColour(const AVFrame& frame);

/// Replaces what is unspecified by a guess from codec, format and size (CompleteColour): nothing is left open. Material
/// of stills has sRGB's primaries.
void GuessColour(AVFrame& frame, AVCodecID codec);

/// Fills in the shape of the pixels and the colour description where the decoder left them open, and renames the
/// formats that mean "full range" to the plain ones with the range tagged. The pixels are not touched.
void TagFrame(AVFrame& frame, AVStream& stream, AVFormatContext& context);

} // namespace Kestra::FF
