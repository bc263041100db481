// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/EditList.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Demux/FilmBoxes.h"
#include <algorithm>
#include <climits>

namespace Kestra::FF {

namespace {

constexpr std::int64_t MOST_EDITS = 10'000;
constexpr std::uint64_t USUAL_SPEED = 0x10000;

FilmBox FindTrack(FileBytes& bytes, const FilmBox& film, int track) {
    for (const FilmBox& part : BoxesIn(bytes, film.content, film.end)) {
        const FilmBox header = FindBox(bytes, part, {"tkhd"});
        const bool isLong = bytes.Number(header.content, 1, true) == 1;
        if (part.name == "trak" &&
            bytes.Number(header.content + (isLong ? 20 : 12), 4, true) == static_cast<std::uint64_t>(track))
            return part;
    }
    return {};
}

std::int64_t Signed(FileBytes& bytes, std::int64_t place, bool isLong) {
    const std::uint64_t number = bytes.Number(place, isLong ? 8 : 4, true);
    return isLong ? static_cast<std::int64_t>(number) : static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
}

int ClockOf(FileBytes& bytes, const FilmBox& film) {
    const FilmBox header = FindBox(bytes, film, {"mvhd"});
    const bool isLong = bytes.Number(header.content, 1, true) == 1;
    const std::uint64_t clock = bytes.Number(header.content + (isLong ? 20 : 12), 4, true);
    return clock > 0 && clock <= INT_MAX ? static_cast<int>(clock) : 1;
}

} // namespace

EditList FindEditList(const ioPath& path, int track, const std::atomic<bool>& interrupted) {
    FileBytes bytes(path.ToUtf8(), interrupted);
    const FilmBox film = FindBox(bytes, BoxOfFile(bytes), {"moov"});
    const FilmBox list = FindBox(bytes, FindTrack(bytes, film, track), {"edts", "elst"});
    EditList edits;
    if (list.end == 0)
        return edits;
    const bool isLong = bytes.Number(list.content, 1, true) == 1;
    const std::int64_t size = isLong ? 20 : 12;
    const std::int64_t field = isLong ? 8 : 4;
    const auto counted = static_cast<std::int64_t>(bytes.Number(list.content + 4, 4, true));
    const std::int64_t count = std::min({counted, (list.end - list.content - 8) / size, MOST_EDITS});
    std::int64_t wait = 0; // ticks of the film
    bool paused = false;
    for (std::int64_t index = 0; index < count; ++index) {
        const std::int64_t place = list.content + 8 + index * size;
        const std::int64_t begin = Signed(bytes, place + field, isLong);
        if (begin < 0) {
            paused = edits.mediaTime >= 0;
            wait += edits.mediaTime < 0 ? Signed(bytes, place, isLong) : 0;
            continue;
        }
        edits.mediaTime = edits.mediaTime < 0 ? begin : edits.mediaTime;
        edits.pauses = edits.pauses || paused;
        edits.changesSpeed = edits.changesSpeed || bytes.Number(place + 2 * field, 4, true) != USUAL_SPEED;
    }
    edits.wait = ToEngineTime(wait, {1, ClockOf(bytes, film)});
    return edits;
}

} // namespace Kestra::FF
