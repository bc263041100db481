// SPDX-License-Identifier: GPL-3.0-or-later
// Fuzz: what the targets share. A target is a program of its own: libFuzzer's, or one that replays a corpus.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// One input; anything but coming back is a fault. Defined by each target.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace Fuzz {

/// Ends the process with `promise` on standard error when that is not kept.
void require(bool kept, const char* promise);

/// A folder for the process, in memory where the system has such a place. Empty at first, removed at the exit.
class Folder {
public:
    Folder();
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string path(const std::string& name) const { return folder + '/' + name; }
    void write(const std::string& name, const std::string& bytes) const;
    void remove(const std::string& name) const;

private:
    std::string folder;
};

/// Takes numbers and texts off the front of an input.
class Bytes {
public:
    Bytes(const std::uint8_t* data, std::size_t size)
        : text(reinterpret_cast<const char*>(data), size) {}

    /// 0 when nothing is left.
    unsigned next();
    /// Up to `separator`, which is taken too, or to the end.
    std::string upTo(const std::string& separator);
    std::string rest() { return upTo({}); }
    bool empty() const { return at >= text.size(); }

private:
    std::string text;
    std::size_t at = 0;
};

} // namespace Fuzz
