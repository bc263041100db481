// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::FileBytes: looks at single bytes of a file's structure.
#pragma once

#include <atomic>
#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

namespace Kestra::FF {

/// The bytes of a file, from its start; zeros beyond its end, and in place of what cannot be read. Once interrupted, it
/// is empty, so whoever goes through it comes to its end.
class FileBytes {
public:
    /// `interrupted` is borrowed for life.
    FileBytes(const std::string& path, const std::atomic<bool>& interrupted);
    std::int64_t GetSize() const { return interrupted ? 0 : size; }
    std::vector<unsigned char> Read(std::int64_t place, std::int64_t count);
    std::uint64_t Number(std::int64_t place, int length, bool bigEndian);
    std::string Name(std::int64_t place);

private:
    const std::atomic<bool>& interrupted;
    std::ifstream file;
    std::int64_t size = 0;
};

/// An element of Matroska: its id, and where its content lies.
struct MatroskaElement {
    std::uint64_t id = 0;
    std::int64_t content = 0;
    std::uint64_t size = 0;
    bool open = false; ///< its size was not known
};

/// The element that begins there; id 0 where none does.
MatroskaElement ReadMatroskaElement(FileBytes& bytes, std::int64_t place);

} // namespace Kestra::FF
