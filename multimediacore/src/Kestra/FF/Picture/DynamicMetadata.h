// SPDX-License-Identifier: GPL-3.0-or-later
// What tells players how to show each frame of a high dynamic range, and is not carried over.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <string>

namespace Kestra::FF {

/// Its name ("HDR10+", "Dolby Vision"), where the frame or its stream has such; else empty.
std::string DynamicMetadataOf(const AVFrame& frame, const AVStream& stream);
/// How frames are coded that are neither YUV nor RGB, and that nothing but such metadata makes colours of; else
/// empty.
std::string ForeignColourModel(const AVStream& stream);

} // namespace Kestra::FF
