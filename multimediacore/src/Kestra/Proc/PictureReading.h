// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::ReadPicture: a picture's pixels for a display.
#pragma once

#include "Kestra/Proc/IDataVideo.h"
#include "KestraExport.h"
#include <cstdint>
#include <vector>

namespace Kestra::Proc {

/// A value: bytes of red, green and blue in sRGB, row by row from the top, without gaps.
struct RgbPicture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels;
};

/// The picture in square pixels and in its shape as shown, at most `width` x `height`; it is not enlarged. Alpha is
/// blended over black, a high dynamic range becomes a standard one. Any thread. Throws std::invalid_argument for a
/// limit without pixels and for a picture of another making.
KESTRA_EXPORT RgbPicture ReadPicture(const IDataVideo& picture, int width, int height);

} // namespace Kestra::Proc
