// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/FilmBoxes.h"

#include <algorithm>

namespace Kestra::FF {

namespace {

// More than any real file has in one place.
constexpr std::size_t MAX_BOXES = 10'000;

} // namespace

std::vector<FilmBox> BoxesIn(FileBytes& bytes, std::int64_t place, std::int64_t end) {
    std::vector<FilmBox> boxes;
    while (place + 8 <= end && boxes.size() < MAX_BOXES) {
        const std::uint64_t small = bytes.Number(place, 4, true);
        const std::uint64_t size = small == 1 ? bytes.Number(place + 8, 8, true) : small;
        if (size < 8 || size > static_cast<std::uint64_t>(end - place))
            break;
        boxes.push_back(
            {bytes.Name(place + 4), place + (small == 1 ? 16 : 8), place + static_cast<std::int64_t>(size)});
        place = boxes.back().end;
    }
    return boxes;
}

FilmBox FindBox(FileBytes& bytes, FilmBox box, const std::vector<std::string>& path) {
    for (const std::string& name : path) {
        const std::vector<FilmBox> boxes = BoxesIn(bytes, box.content, box.end);
        const auto found = std::find_if(boxes.begin(), boxes.end(), [&](const FilmBox& b) { return b.name == name; });
        if (found == boxes.end())
            return {};
        box = *found;
    }
    return box;
}

FilmBox BoxOfFile(const FileBytes& bytes) {
    return {"", 0, bytes.GetSize()};
}

} // namespace Kestra::FF
