// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/FileBytes.h"

#include <algorithm>

namespace Kestra::FF {

FileBytes::FileBytes(const std::string& path, const std::atomic<bool>& interrupted)
    : interrupted(interrupted)
    , file(path, std::ios::binary) {
    file.seekg(0, std::ios::end);
    size = file ? static_cast<std::int64_t>(file.tellg()) : 0;
}

std::vector<unsigned char> FileBytes::Read(std::int64_t place, std::int64_t count) {
    std::vector<unsigned char> bytes(static_cast<std::size_t>(std::max<std::int64_t>(count, 0)));
    if (interrupted)
        return bytes;
    file.clear();
    file.seekg(place);
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

std::uint64_t FileBytes::Number(std::int64_t place, int length, bool bigEndian) {
    std::uint64_t number = 0;
    auto bytes = Read(place, length);
    if (!bigEndian)
        std::reverse(bytes.begin(), bytes.end());
    for (const unsigned char byte : bytes)
        number = number << 8 | byte;
    return number;
}

std::string FileBytes::Name(std::int64_t place) {
    const auto bytes = Read(place, 4);
    return {bytes.begin(), bytes.end()};
}

MatroskaElement ReadMatroskaElement(FileBytes& bytes, std::int64_t place) {
    const auto lengthOf = [&](std::int64_t at) {
        const auto first = static_cast<unsigned>(bytes.Number(at, 1, true));
        int length = 1;
        while (length < 9 && (first & (0x100U >> length)) == 0)
            ++length;
        return length;
    };
    MatroskaElement element;
    const int idLength = lengthOf(place);
    const int sizeLength = lengthOf(place + idLength);
    if (idLength > 4 || sizeLength > 8)
        return element;
    element.id = bytes.Number(place, idLength, true);
    const std::uint64_t ones = (std::uint64_t{1} << (7 * sizeLength)) - 1;
    element.size = bytes.Number(place + idLength, sizeLength, true) & ones;
    element.open = element.size == ones;
    element.content = place + idLength + sizeLength;
    return element;
}

} // namespace Kestra::FF
