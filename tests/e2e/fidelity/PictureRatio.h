// SPDX-License-Identifier: GPL-3.0-or-later
// How much of a picture survives an export.
#pragma once

#include <string>

namespace TestFidelity {

/// Signal to noise ratio in dB over all pictures and planes of two files of equal size and length, both read as
/// `pixelFormat`. Throws std::runtime_error when the ffmpeg program cannot compare them.
double pictureRatio(const std::string& path, const std::string& reference, const std::string& pixelFormat);

} // namespace TestFidelity
