// SPDX-License-Identifier: GPL-3.0-or-later
// Which frames hold two fields, and which of these is shown first.
#pragma once

#include "Kestra/FF/Av/Handles.h"

namespace Kestra::FF {

/// Whether the track's frames have no flags of their own, judged by the first, and the container says that all are
/// interlaced.
bool OnlyTrackTells(const AVFrame& first, const AVCodecParameters& track) noexcept;
/// Completes the frame's flags where only the track tells. A frame that is one field alone (HEVC) holds nothing
/// that is woven, and loses the flag.
void TagFields(AVFrame& frame, const AVCodecParameters& track, bool onlyTrackTells);

/// Whether the codec codes each of its frames as one field; their flag says so before TagFields.
bool IsLoneField(const AVFrame& frame, AVCodecID codec) noexcept;

/// Whether the track's description says that it is interlaced.
bool SaysInterlaced(const AVCodecParameters& track) noexcept;
/// The first letter of libav's names counts, as for its own decoders.
bool SaysTopFieldFirst(const AVCodecParameters& track) noexcept;

/// "top field first" or "bottom field first".
const char* FieldOrderText(bool topFieldFirst) noexcept;

} // namespace Kestra::FF
