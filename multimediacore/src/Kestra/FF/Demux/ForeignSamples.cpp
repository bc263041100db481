// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/ForeignSamples.h"

#include "Kestra/FF/Demux/FilmBoxes.h"
#include <algorithm>
#include <string>
#include <vector>

namespace Kestra::FF {

namespace {

bool IsForeign(FileBytes& bytes, const FilmBox& track) {
    constexpr std::int64_t counted = 8; // behind version, flags and the number of entries
    const FilmBox media = FindBox(bytes, track, {"mdia"});
    const std::string kind = bytes.Name(FindBox(bytes, media, {"hdlr"}).content + counted);
    const FilmBox description = FindBox(bytes, media, {"minf", "stbl", "stsd"});
    const FilmBox places = FindBox(bytes, media, {"minf", "dinf", "dref"});
    if ((kind != "vide" && kind != "soun") || places.end == 0 || description.end == 0)
        return false;
    const std::vector<FilmBox> entries = BoxesIn(bytes, places.content + counted, places.end);
    const std::uint64_t used = bytes.Number(description.content + counted + 14, 2, true);
    if (used < 1 || used > entries.size())
        return false;
    const FilmBox& entry = entries[used - 1];
    const bool isHere = (bytes.Number(entry.content + 3, 1, true) & 1) != 0;
    const bool isNamed = entry.end > entry.content + 5 && bytes.Number(entry.content + 4, 1, true) != 0;
    return (entry.name == "url " || entry.name == "urn ") && !isHere && isNamed;
}

} // namespace

bool HasForeignSamples(const ioPath& path, const std::atomic<bool>& interrupted) {
    FileBytes bytes(path.ToUtf8(), interrupted);
    const FilmBox film = FindBox(bytes, BoxOfFile(bytes), {"moov"});
    const std::vector<FilmBox> parts = BoxesIn(bytes, film.content, film.end);
    return std::any_of(parts.begin(), parts.end(),
                       [&](const FilmBox& part) { return part.name == "trak" && IsForeign(bytes, part); });
}

} // namespace Kestra::FF
