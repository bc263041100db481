// SPDX-License-Identifier: GPL-3.0-or-later
// What stands in the statistics that x264's first pass writes.
#pragma once

#include <string>

namespace Kestra::FF::X264Statistics {

/// By what x264 multiplies the bits of frames when those of its second pass have so many times the pixels.
double BitsForPixels(double factor);

struct Summary {
    double pixels = 0;    ///< of the frames that the first pass was given; 0 where the file does not tell
    double fixedBits = 0; ///< what no quantiser takes away, in all of them together
};
/// Of a file that has been verified.
Summary Read(const std::string& path);

} // namespace Kestra::FF::X264Statistics
