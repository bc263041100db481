// SPDX-License-Identifier: GPL-3.0-or-later
// Colour as the standards write it down, in double precision: what conversions are held against.
#pragma once

#include "Kestra/Conf/PixelFormat.h"
#include <array>

namespace ColourReference {

/// Luma and both chromas as code values.
using Code = std::array<double, 3>;

/// What `code` of pictures in `from` is in `to`, both with `bits` a component. Ordinary pictures are shown with
/// BT.1886, their white is 203 cd/m2, a high range is brought below it by the mobius curve from `peak` cd/m2 on.
Code convert(const Code& code, int bits, const Kestra::Conf::ColourInfo& from, int bitsAfter,
             const Kestra::Conf::ColourInfo& to, double peak = 0);

/// Grey of that luminance in cd/m2.
double greyCode(double luminance, int bits, const Kestra::Conf::ColourInfo& colour);

} // namespace ColourReference
