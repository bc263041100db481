#include "Kestra/FF/FollowingFile.h"

#include "Kestra/FF/FileBytes.h"
#include <algorithm>
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

} // namespace

std::int64_t FindFollowingFile(const ioPath& path, const std::string& format, const std::atomic<bool>& interrupted) {
    FileBytes bytes(path.ToUtf8(), interrupted);
    if (format == "flac")
        return SearchFlac(bytes);
    if (format == "wav" || format == "aiff")
        return BehindChunk(bytes, format == "aiff");
    if (format == "asf")
        return BehindAsf(bytes);
    if (format.compare(0, 3, "mov") == 0)
        return BehindMp4(bytes);
    return format.compare(0, 8, "matroska") == 0 ? BehindMatroska(bytes) : 0;
}

} // namespace Kestra::FF
