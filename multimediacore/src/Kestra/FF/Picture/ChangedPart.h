// SPDX-License-Identifier: GPL-3.0-or-later
// What of a picture is another one than before.
#pragma once

#include "Kestra/FF/Picture/FrameGeometry.h"

namespace Kestra::FF {

/// The smallest rectangle outside of which every sample of `now` is that of `before`, its corner on even pixels and on
/// whole chroma samples; empty where all are. Both are of one size and format, in planes or packed, of 8 bits.
FrameRect ChangedPart(const AVFrame& before, const AVFrame& now);

} // namespace Kestra::FF
