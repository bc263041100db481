// SPDX-License-Identifier: GPL-3.0-or-later
// Bitrate and quality of video encoders.
#pragma once

#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/FF/Av/Handles.h"

namespace Kestra::FF {

/// Turns the description's bitrate mode into the encoder's terms. "quality": constant quality on the codec's own scale;
/// "abr": the bitrate on average; "vbr": the same, and with `boundedPeak` never above 1.5 times of it over two seconds;
/// "cbr": never above the bitrate over one second. Without a mode the quality counts, else the bitrate as "vbr", else
/// the encoder's default stands. Throws ProcException (CodecRefused) that names a refused value.
void SetRateControl(AVCodecContext& context, const Conf::IFormatCodecVideo& description, bool boundedPeak);

} // namespace Kestra::FF
