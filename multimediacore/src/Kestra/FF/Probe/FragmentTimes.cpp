// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Probe/FragmentTimes.h"

#include "Kestra/FF/Demux/FilmBoxes.h"
#include <algorithm>
#include <bitset>

namespace Kestra::FF {

namespace {

// Reordered pictures come again and again: so many show all there is.
constexpr std::int64_t ENOUGH_FRAMES = 64;

enum RunFlags : unsigned {
    HasDataOffset = 0x1,
    HasFirstFlags = 0x4,
    HasDuration = 0x100,
    HasSize = 0x200,
    HasFlags = 0x400,
    HasOffset = 0x800
};

std::int64_t WordsOf(unsigned flags) {
    return static_cast<std::int64_t>(std::bitset<32>(flags).count());
}

bool HasEditList(FileBytes& bytes, const FilmBox& film, int track) {
    const auto wanted = static_cast<std::uint64_t>(track);
    for (const FilmBox& part : BoxesIn(bytes, film.content, film.end)) {
        const FilmBox header = FindBox(bytes, part, {"tkhd"});
        const bool isLong = bytes.Number(header.content, 1, true) == 1;
        if (part.name == "trak" && bytes.Number(header.content + (isLong ? 20 : 12), 4, true) == wanted)
            return FindBox(bytes, part, {"edts", "elst"}).end != 0;
    }
    return true; // nothing is known of it
}

class Runs {
public:
    explicit Runs(FileBytes& bytes)
        : bytes(bytes) {}
    void TakeFragment(const FilmBox& fragment, std::uint64_t track) {
        for (const FilmBox& part : BoxesIn(bytes, fragment.content, fragment.end))
            if (part.name == "traf" && bytes.Number(FindBox(bytes, part, {"tfhd"}).content + 4, 4, true) == track)
                for (const FilmBox& run : BoxesIn(bytes, part.content, part.end))
                    if (run.name == "trun")
                        Take(run);
    }
    bool AreEnough() const { return frames >= ENOUGH_FRAMES; }
    FragmentTimes GetTimes() const { return times; }

private:
    void Take(const FilmBox& run) {
        const auto flags = static_cast<unsigned>(bytes.Number(run.content + 1, 3, true));
        const std::int64_t stride = 4 * WordsOf(flags & (HasDuration | HasSize | HasFlags | HasOffset));
        const auto count = static_cast<std::int64_t>(bytes.Number(run.content + 4, 4, true));
        const std::int64_t begin = run.content + 8 + 4 * WordsOf(flags & (HasDataOffset | HasFirstFlags));
        times.fromStart = times.fromStart || bytes.Number(run.content, 1, true) == 1;
        for (std::int64_t index = 0; index < count && !AreEnough(); ++index, ++frames) {
            const std::int64_t place = begin + index * stride + stride - 4; // offsets are the last of the words
            if (place + 4 > run.end)
                return;
            if (flags & HasOffset)
                times.late = std::max<std::int64_t>(times.late, -SignedAt(place));
        }
    }
    std::int64_t SignedAt(std::int64_t place) {
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(bytes.Number(place, 4, true)));
    }

    FileBytes& bytes;
    std::int64_t frames = 0;
    FragmentTimes times;
};

} // namespace

FragmentTimes FindFragmentTimes(const ioPath& path, int video, int audio, const std::atomic<bool>& interrupted) {
    FileBytes bytes(path.ToUtf8(), interrupted);
    const FilmBox film = FindBox(bytes, BoxOfFile(bytes), {"moov"});
    const auto number = static_cast<std::uint64_t>(video);
    if (FindBox(bytes, film, {"mvex"}).end == 0)
        return {};
    Runs runs(bytes);
    const FilmBox file = BoxOfFile(bytes);
    for (const FilmBox& box : BoxesIn(bytes, file.content, file.end)) {
        if (box.name == "moof")
            runs.TakeFragment(box, number);
        if (runs.AreEnough())
            break;
    }
    FragmentTimes times = runs.GetTimes();
    times.tellsPriming = HasEditList(bytes, film, audio);
    return times;
}

} // namespace Kestra::FF
