// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/FollowingFile.h"

#include "Kestra/FF/Demux/FileBytes.h"
#include <algorithm>
#include <map>
#include <string_view>

namespace Kestra::FF {

namespace {

using namespace std::string_view_literals;

// More parts than any real file has.
constexpr int MAX_PARTS = 1'000'000;
constexpr std::int64_t SEARCHED_AT_ONCE = std::int64_t{1} << 20;

// The name, and the description of the stream, which is the first part, always as long, and may be the last one.
bool IsFlac(std::string_view bytes) {
    return bytes.size() >= 8 && bytes.substr(0, 4) == "fLaC"sv && (bytes[4] & 0x7f) == 0 &&
           bytes.substr(5, 3) == "\0\0\x22"sv;
}

std::int64_t SearchFlac(FileBytes& bytes) {
    constexpr std::int64_t beginning = 8;
    for (std::int64_t place = 1; place < bytes.GetSize(); place += SEARCHED_AT_ONCE) {
        const auto read = bytes.Read(place, std::min(SEARCHED_AT_ONCE + beginning, bytes.GetSize() - place));
        const std::string_view text(reinterpret_cast<const char*>(read.data()), read.size());
        for (std::size_t at = text.find("fLaC"); at != std::string_view::npos; at = text.find("fLaC", at + 1))
            if (IsFlac(text.substr(at)))
                return place + static_cast<std::int64_t>(at);
    }
    return 0;
}

// A file that is one chunk, and may hold a byte more than that says.
std::int64_t BehindChunk(FileBytes& bytes, bool bigEndian) {
    const auto end = static_cast<std::int64_t>(8 + bytes.Number(4, 4, bigEndian));
    for (const std::int64_t place : {end, end + 1})
        if (place < bytes.GetSize() && bytes.Name(place) == bytes.Name(0))
            return place;
    return 0;
}

// Fragments may each have a beginning of their own; then all are read.
std::int64_t BehindMp4(FileBytes& bytes) {
    std::int64_t place = 0;
    std::int64_t second = 0;
    bool described = false;
    for (int part = 0; part < MAX_PARTS && place + 8 <= bytes.GetSize(); ++part) {
        const std::string name = bytes.Name(place + 4);
        const std::uint64_t small = bytes.Number(place, 4, true);
        const std::uint64_t size = small == 1 ? bytes.Number(place + 8, 8, true) : small;
        if (name == "moof" || size < 8 || size > static_cast<std::uint64_t>(bytes.GetSize()))
            return name == "moof" ? 0 : second;
        if (name == "ftyp" && described && second == 0)
            second = place;
        described = described || name == "moov";
        place += static_cast<std::int64_t>(size);
    }
    return second;
}

std::int64_t BehindAsf(FileBytes& bytes) {
    constexpr std::int64_t header = 24;
    std::int64_t place = 0;
    for (int part = 0; part < MAX_PARTS && place + header <= bytes.GetSize(); ++part) {
        if (place > 0 && bytes.Read(place, 16) == bytes.Read(0, 16))
            return place;
        const std::uint64_t size = bytes.Number(place + 16, 8, false);
        if (size < header || size > static_cast<std::uint64_t>(bytes.GetSize()))
            return 0;
        place += static_cast<std::int64_t>(size);
    }
    return 0;
}

std::int64_t BehindMatroska(FileBytes& bytes) {
    const MatroskaElement head = ReadMatroskaElement(bytes, 0);
    const MatroskaElement segment = ReadMatroskaElement(bytes, head.content + static_cast<std::int64_t>(head.size));
    if (segment.open || segment.size >= static_cast<std::uint64_t>(bytes.GetSize()))
        return 0;
    const std::int64_t end = segment.content + static_cast<std::int64_t>(segment.size);
    return end < bytes.GetSize() && ReadMatroskaElement(bytes, end).id == head.id ? end : 0;
}

// Where the place holds what the file begins with, in so many bytes.
std::int64_t IfAgain(FileBytes& bytes, std::int64_t place, std::int64_t length) {
    const bool within = place > 0 && place + length <= bytes.GetSize();
    return within && bytes.Read(place, length) == bytes.Read(0, length) ? place : 0;
}

std::int64_t BehindAu(FileBytes& bytes) {
    return IfAgain(bytes, static_cast<std::int64_t>(bytes.Number(4, 4, true) + bytes.Number(8, 4, true)), 4);
}

// Chunks begin at every eighth byte, and the size of the whole need not count what that takes.
std::int64_t BehindW64(FileBytes& bytes) {
    constexpr std::int64_t name = 16;
    const std::uint64_t size = bytes.Number(name, 8, false);
    if (size >= static_cast<std::uint64_t>(bytes.GetSize()))
        return 0;
    const auto end = static_cast<std::int64_t>(size);
    const std::int64_t exact = IfAgain(bytes, end, name);
    return exact > 0 ? exact : IfAgain(bytes, (end + 7) / 8 * 8, name);
}

std::int64_t BehindCaf(FileBytes& bytes) {
    constexpr std::int64_t header = 12;
    std::int64_t place = 8;
    for (int part = 0; part < MAX_PARTS && place + header <= bytes.GetSize(); ++part) {
        if (IfAgain(bytes, place, 8) > 0)
            return place;
        const std::uint64_t size = bytes.Number(place + 4, 8, true);
        if (size > static_cast<std::uint64_t>(bytes.GetSize()))
            return 0;
        place += header + static_cast<std::int64_t>(size);
    }
    return 0;
}

// Behind the tags that stand there, if any do.
std::int64_t BehindTags(FileBytes& bytes, std::int64_t place) {
    constexpr std::int64_t header = 32;
    return bytes.Name(place) == "APET" ? place + header + static_cast<std::int64_t>(bytes.Number(place + 12, 4, false))
                                       : place;
}

// The sizes of all blocks stand in front of them.
std::int64_t BehindTta(FileBytes& bytes) {
    constexpr std::int64_t header = 22;
    const std::uint64_t length = 256 * bytes.Number(10, 4, false) / 245;
    const std::uint64_t blocks = length > 0 ? (bytes.Number(14, 4, false) + length - 1) / length : 0;
    if (bytes.Name(0) != "TTA1" || blocks > static_cast<std::uint64_t>(bytes.GetSize()) / 4)
        return 0;
    const auto count = static_cast<std::int64_t>(blocks);
    const std::vector<unsigned char> sizes = bytes.Read(header, 4 * count);
    std::int64_t end = header + 4 * count + 4;
    for (std::size_t at = 0; at + 4 <= sizes.size(); at += 4)
        end += sizes[at] | sizes[at + 1] << 8 | sizes[at + 2] << 16 | std::int64_t{sizes[at + 3]} << 24;
    return IfAgain(bytes, BehindTags(bytes, end), 4);
}

// Each block says at which sample it begins, but for those of no samples, which hold what else there is to say, such as
// a checksum. Tags may stand between two files.
std::int64_t BehindWavPack(FileBytes& bytes) {
    constexpr std::int64_t header = 32;
    bool begun = false;
    std::int64_t place = 0;
    for (int part = 0; part < MAX_PARTS && place + header <= bytes.GetSize(); ++part) {
        place = BehindTags(bytes, place);
        if (bytes.Name(place) != "wvpk")
            return 0;
        const bool hasSamples = bytes.Number(place + 20, 4, false) > 0;
        const bool isFirst = hasSamples && bytes.Number(place + 16, 4, false) == 0;
        if (begun && isFirst)
            return place;
        begun = begun || (hasSamples && !isFirst);
        place += 8 + static_cast<std::int64_t>(bytes.Number(place + 4, 4, false));
    }
    return 0;
}

// From one tag to the next, of which there are many: each is looked at once.
std::int64_t BehindFlv(FileBytes& bytes) {
    constexpr std::int64_t tagHeader = 11;
    std::int64_t place = static_cast<std::int64_t>(bytes.Number(5, 4, true)) + 4;
    for (int part = 0; part < MAX_PARTS && place + tagHeader <= bytes.GetSize(); ++part) {
        const std::vector<unsigned char> tag = bytes.Read(place, 4);
        if (tag[0] == 'F' && tag[1] == 'L' && tag[2] == 'V')
            return place;
        place += tagHeader + (tag[1] << 16 | tag[2] << 8 | tag[3]) + 4;
    }
    return 0;
}

// The first partition says where the last one is; what follows on that are its parts, each a name and a size.
std::int64_t BehindMxf(FileBytes& bytes) {
    constexpr std::int64_t name = 16;
    constexpr std::int64_t common = 4; // that all names of parts begin with
    constexpr unsigned char shortSize = 0x80;
    const std::int64_t firstSize =
        bytes.Number(name, 1, true) < shortSize ? 1 : 1 + (bytes.Number(name, 1, true) & 0x7F);
    auto place = static_cast<std::int64_t>(bytes.Number(name + firstSize + 24, 8, true));
    if (place <= 0)
        return 0;
    for (int part = 0; part < MAX_PARTS && IfAgain(bytes, place, common) > 0; ++part) {
        if (IfAgain(bytes, place, name - 2) > 0)
            return place;
        const std::uint64_t first = bytes.Number(place + name, 1, true);
        const int length = first < shortSize ? 0 : static_cast<int>(first & 0x7F);
        const std::uint64_t size = length == 0 ? first : bytes.Number(place + name + 1, std::min(length, 8), true);
        if (size > static_cast<std::uint64_t>(bytes.GetSize()))
            return 0;
        place += name + 1 + length + static_cast<std::int64_t>(size);
    }
    return 0;
}

using Search = std::int64_t (*)(FileBytes& bytes);

Search SearchOf(const std::string& format) {
    static const auto& searches = *new std::map<std::string, Search>{
        {"flac", SearchFlac}, {"asf", BehindAsf},    {"au", BehindAu},   {"w64", BehindW64}, {"caf", BehindCaf},
        {"tta", BehindTta},   {"wv", BehindWavPack}, {"flv", BehindFlv}, {"mxf", BehindMxf}};
    const auto found = searches.find(format);
    return found == searches.end() ? nullptr : found->second;
}

} // namespace

std::int64_t FindFollowingFile(const ioPath& path, const std::string& format, const std::atomic<bool>& interrupted) {
    FileBytes bytes(path.ToUtf8(), interrupted);
    if (const Search search = SearchOf(format))
        return search(bytes);
    if (format == "wav" || format == "aiff")
        return BehindChunk(bytes, format == "aiff");
    if (format.compare(0, 3, "mov") == 0)
        return BehindMp4(bytes);
    return format.compare(0, 8, "matroska") == 0 ? BehindMatroska(bytes) : 0;
}

} // namespace Kestra::FF
