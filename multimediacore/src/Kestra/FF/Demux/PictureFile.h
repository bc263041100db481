// SPDX-License-Identifier: GPL-3.0-or-later
// What the structure of a file of one picture tells, without decoding it.
#pragma once

#include "Kestra/Conf/PixelFormat.h"
#include <cstdint>
#include <string>
#include <vector>

namespace Kestra::FF {

struct PictureFile {
    std::string codec; ///< the decoder library's name
    int width = 0;
    int height = 0;
    std::string pixelFormat; ///< the engine's name; empty for one that no encoder here makes
    Conf::ColourInfo colour; ///< as far as the file tells
    std::string fault;       ///< why the file is not whole; empty where it is
};

/// Goes through all the bytes of a PNG or JPEG file. It is whole where every part stands in its place, is as long as it
/// says and has its checksum (PNG), and where the file ends with the picture's end.
PictureFile ReadPictureFile(const std::vector<std::uint8_t>& bytes);

} // namespace Kestra::FF
