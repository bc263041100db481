#include "Kestra/FF/Demux/ForeignSamples.h"

#include "Kestra/FF/Demux/FileBytes.h"
#include <algorithm>
#include <string>
#include <vector>

namespace Kestra::FF {

namespace {

// More than any real file has in one place.
constexpr std::size_t MAX_BOXES = 10'000;

struct Box {
    std::string name;
    std::int64_t content = 0;
    std::int64_t end = 0;
};

std::vector<Box> BoxesIn(FileBytes& bytes, std::int64_t place, std::int64_t end) {
    std::vector<Box> boxes;
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

/// The first one that lies at the path; an empty one where none does.
Box Find(FileBytes& bytes, Box box, const std::vector<std::string>& path) {
    for (const std::string& name : path) {
        const std::vector<Box> boxes = BoxesIn(bytes, box.content, box.end);
        const auto found = std::find_if(boxes.begin(), boxes.end(), [&](const Box& b) { return b.name == name; });
        if (found == boxes.end())
            return {};
        box = *found;
    }
    return box;
}

bool IsForeign(FileBytes& bytes, const Box& track) {
    constexpr std::int64_t counted = 8; // behind version, flags and the number of entries
    const Box media = Find(bytes, track, {"mdia"});
    const std::string kind = bytes.Name(Find(bytes, media, {"hdlr"}).content + counted);
    const Box description = Find(bytes, media, {"minf", "stbl", "stsd"});
    const Box places = Find(bytes, media, {"minf", "dinf", "dref"});
    if ((kind != "vide" && kind != "soun") || places.end == 0 || description.end == 0)
        return false;
    const std::vector<Box> entries = BoxesIn(bytes, places.content + counted, places.end);
    const std::uint64_t used = bytes.Number(description.content + counted + 14, 2, true);
    if (used < 1 || used > entries.size())
        return false;
    const Box& entry = entries[used - 1];
    const bool isHere = (bytes.Number(entry.content + 3, 1, true) & 1) != 0;
    const bool isNamed = entry.end > entry.content + 5 && bytes.Number(entry.content + 4, 1, true) != 0;
    return (entry.name == "url " || entry.name == "urn ") && !isHere && isNamed;
}

} // namespace

bool HasForeignSamples(const ioPath& path, const std::atomic<bool>& interrupted) {
    FileBytes bytes(path.ToUtf8(), interrupted);
    const Box film = Find(bytes, {"", 0, bytes.GetSize()}, {"moov"});
    const std::vector<Box> parts = BoxesIn(bytes, film.content, film.end);
    return std::any_of(parts.begin(), parts.end(),
                       [&](const Box& part) { return part.name == "trak" && IsForeign(bytes, part); });
}

} // namespace Kestra::FF
