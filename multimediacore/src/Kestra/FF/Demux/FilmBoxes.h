// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::FilmBox: what files of the MOV family are made of.
// Source: ISO/IEC 14496-12 (ISO base media file format), 4.2.
#pragma once

#include "Kestra/FF/Demux/FileBytes.h"
#include <string>
#include <vector>

namespace Kestra::FF {

/// Places are bytes of the file.
struct FilmBox {
    std::string name;         ///< four letters
    std::int64_t content = 0; ///< where it begins
    std::int64_t end = 0;     ///< 0 where there is no such box
};

/// The boxes that lie between the places, up to the first one that does not fit; no more than any real file has.
std::vector<FilmBox> BoxesIn(FileBytes& bytes, std::int64_t place, std::int64_t end);

/// The first box that lies at the path within the given one; an empty one where none does.
FilmBox FindBox(FileBytes& bytes, FilmBox box, const std::vector<std::string>& path);

/// The whole file, whose boxes are the outermost ones.
FilmBox BoxOfFile(const FileBytes& bytes);

} // namespace Kestra::FF
