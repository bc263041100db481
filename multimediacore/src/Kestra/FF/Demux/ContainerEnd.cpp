// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/ContainerEnd.h"

#include "Kestra/FF/Demux/FileBytes.h"
#include <algorithm>
#include <string_view>
#include <utility>

namespace Kestra::FF {

namespace {

constexpr std::uint64_t OPEN_32 = 0xFFFFFFFF;
constexpr std::uint64_t OPEN_64 = ~std::uint64_t{0};
// More parts than any real file has.
constexpr int MAX_PARTS = 1'000'000;

ContainerEnd Shortage(const FileBytes& bytes, std::int64_t end, bool ofMedia) {
    ContainerEnd result;
    result.missing = std::max<std::int64_t>(end - bytes.GetSize(), 0);
    result.ofMedia = ofMedia && result.missing > 0;
    return result;
}

/// How a container of chunks writes a chunk: name, then size.
struct Chunks {
    std::int64_t first;
    std::int64_t nameLength;
    int sizeLength;
    bool bigEndian;
    std::int64_t alignment;
    bool sizeHoldsHeader;
    std::string media; ///< name of the chunk that holds pictures or audio
};

// A size of nothing, or of all ones, stands for one that was not known when the file was begun.
ContainerEnd WalkChunks(FileBytes& bytes, const Chunks& form, std::uint64_t mediaSize = 0) {
    const std::int64_t header = form.nameLength + form.sizeLength;
    std::int64_t place = form.first;
    for (int part = 0; part < MAX_PARTS && place + header <= bytes.GetSize(); ++part) {
        const bool isMedia = bytes.Name(place) == form.media;
        std::uint64_t size = bytes.Number(place + form.nameLength, form.sizeLength, form.bigEndian);
        if (isMedia && mediaSize > 0)
            size = mediaSize;
        else if (isMedia && (size == 0 || size == (form.sizeLength == 4 ? OPEN_32 : OPEN_64)))
            return {};
        if (size > static_cast<std::uint64_t>(INT64_MAX / 2))
            return {};
        const std::int64_t length = static_cast<std::int64_t>(size) + (form.sizeHoldsHeader ? 0 : header);
        const std::int64_t end = place + std::max(length, header);
        // Of an odd chunk the padding may be left out at the end.
        if (end > bytes.GetSize())
            return Shortage(bytes, end, isMedia);
        place = (end + form.alignment - 1) / form.alignment * form.alignment;
    }
    return {};
}

ContainerEnd OfWav(FileBytes& bytes) {
    constexpr std::int64_t sizes = 20; // in RF64, the first chunk has the sizes of 64 bits
    const bool large = bytes.Name(0) == "RF64" && bytes.Name(12) == "ds64";
    return WalkChunks(bytes, {12, 4, 4, false, 2, false, "data"}, large ? bytes.Number(sizes + 8, 8, false) : 0);
}

ContainerEnd OfAu(FileBytes& bytes) {
    const std::uint64_t size = bytes.Number(8, 4, true);
    return size == OPEN_32 || size == 0
               ? ContainerEnd()
               : Shortage(bytes, static_cast<std::int64_t>(bytes.Number(4, 4, true) + size), true);
}

ContainerEnd OfAvi(FileBytes& bytes) {
    std::int64_t place = 0;
    // Large files are several of them, one after the other.
    while (bytes.Name(place) == "RIFF") {
        const ContainerEnd end = WalkChunks(bytes, {place + 12, 4, 4, false, 2, false, "LIST"});
        if (end.missing > 0)
            return end;
        const std::int64_t next = place + 8 + static_cast<std::int64_t>(bytes.Number(place + 4, 4, false));
        if (next <= place + 8 || next >= bytes.GetSize())
            return {};
        place = next;
    }
    return {};
}

ContainerEnd OfMp4(FileBytes& bytes) {
    std::int64_t place = 0;
    for (int part = 0; part < MAX_PARTS && place + 8 <= bytes.GetSize(); ++part) {
        std::uint64_t size = bytes.Number(place, 4, true);
        if (size == 1)
            size = bytes.Number(place + 8, 8, true);
        if (size < 8 || size > static_cast<std::uint64_t>(INT64_MAX / 2))
            return {};
        const std::int64_t end = place + static_cast<std::int64_t>(size);
        if (end > bytes.GetSize())
            return Shortage(bytes, end, bytes.Name(place + 4) == "mdat");
        place = end;
    }
    return {};
}

// From one cluster to the next, where the segment does not say how long it is, or says more than there is.
ContainerEnd WalkClusters(FileBytes& bytes, std::int64_t place) {
    constexpr std::uint64_t clusterId = 0x1F43B675;
    for (int part = 0; part < MAX_PARTS && place < bytes.GetSize(); ++part) {
        const MatroskaElement element = ReadMatroskaElement(bytes, place);
        // Where an element is open, only its content could tell.
        if (element.id == 0 || element.open || element.size > static_cast<std::uint64_t>(INT64_MAX / 2))
            return {};
        place = element.content + static_cast<std::int64_t>(element.size);
        if (place > bytes.GetSize())
            return Shortage(bytes, place, element.id == clusterId);
    }
    return {};
}

ContainerEnd OfMatroska(FileBytes& bytes) {
    constexpr std::uint64_t segmentId = 0x18538067;
    const MatroskaElement head = ReadMatroskaElement(bytes, 0);
    const MatroskaElement segment = ReadMatroskaElement(bytes, head.content + static_cast<std::int64_t>(head.size));
    if (segment.id != segmentId)
        return {};
    const bool sized = !segment.open && segment.size < static_cast<std::uint64_t>(INT64_MAX / 2);
    const std::int64_t end = segment.content + static_cast<std::int64_t>(segment.size);
    if (sized && end <= bytes.GetSize())
        return {};
    const ContainerEnd walked = WalkClusters(bytes, segment.content);
    return walked.missing > 0 || !sized ? walked : Shortage(bytes, end, false);
}

ContainerEnd OfOgg(FileBytes& bytes) {
    constexpr std::int64_t longestPage = 65307;
    constexpr std::size_t headerLength = 27;
    constexpr unsigned char lastPage = 4;
    const std::int64_t from = std::max<std::int64_t>(bytes.GetSize() - longestPage, 0);
    const auto tail = bytes.Read(from, bytes.GetSize() - from);
    const std::string_view text(reinterpret_cast<const char*>(tail.data()), tail.size());
    const std::size_t page = text.rfind("OggS");
    if (page == std::string_view::npos)
        return {};
    ContainerEnd result;
    std::size_t end = page + headerLength;
    const std::size_t segments = end <= tail.size() ? tail[page + headerLength - 1] : 0;
    for (std::size_t segment = 0; segment < segments; ++segment)
        end += 1 + (page + headerLength + segment < tail.size() ? tail[page + headerLength + segment] : 0U);
    result.missing = static_cast<std::int64_t>(end) - static_cast<std::int64_t>(std::min(end, tail.size()));
    result.ofMedia = result.missing > 0;
    result.unmarked = result.missing == 0 && (tail[page + 5] & lastPage) == 0;
    return result;
}

// Those of discs have a time in front of each packet, those of broadcasts a sum behind it.
ContainerEnd OfTransport(FileBytes& bytes) {
    constexpr int packets = 5;
    ContainerEnd result;
    for (const auto& [size, sync] : {std::pair(188, 0), std::pair(192, 4), std::pair(204, 0)}) {
        int found = 0;
        while (found < packets && bytes.Number(std::int64_t{found} * size + sync, 1, true) == 0x47)
            ++found;
        if (found == packets) {
            result.withinPacket = bytes.GetSize() % size != 0;
            break;
        }
    }
    return result;
}

ContainerEnd FindEnd(FileBytes& bytes, const std::string& format) {
    if (format == "wav")
        return OfWav(bytes);
    if (format == "w64")
        return WalkChunks(bytes, {40, 16, 8, false, 8, true, "data"});
    if (format == "aiff")
        return WalkChunks(bytes, {12, 4, 4, true, 2, false, "SSND"});
    if (format == "caf")
        return WalkChunks(bytes, {8, 4, 8, true, 1, false, "data"});
    if (format == "au")
        return OfAu(bytes);
    if (format == "avi")
        return OfAvi(bytes);
    if (format == "ogg")
        return OfOgg(bytes);
    if (format.compare(0, 3, "mov") == 0)
        return OfMp4(bytes);
    if (format.compare(0, 8, "matroska") == 0)
        return OfMatroska(bytes);
    if (format == "mpegts")
        return OfTransport(bytes);
    return {};
}

} // namespace

ContainerEnd FindContainerEnd(const ioPath& path, const std::string& format, const std::atomic<bool>& interrupted) {
    FileBytes bytes(path.ToUtf8(), interrupted);
    const ContainerEnd end = FindEnd(bytes, format);
    return interrupted ? ContainerEnd() : end;
}

} // namespace Kestra::FF
