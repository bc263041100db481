// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::ZipArchive: the entries of a zip file.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

struct zip;

namespace Timeline {

/// Bound to one thread at a time. Trusts nothing that the archive says of itself.
class ZipArchive {
public:
    struct Entry {
        std::string name;
        std::uint64_t index = 0;
        std::uint64_t size = 0;   ///< unpacked, as the archive claims
        std::uint64_t packed = 0; ///< what it takes in the archive
        bool encrypted = false;
        bool link = false; ///< not a plain file
    };

    /// What the unpacking of an archive may take.
    struct Room {
        std::uint64_t free = 0;     ///< where it is unpacked, in bytes
        std::uint64_t unpacked = 0; ///< by now
        std::uint64_t archive = 0;  ///< its own size
    };

    ZipArchive() = default;
    /// The reason why it is none that can be read, as a clause; empty where it is. Once.
    std::string open(const std::string& path);

    /// Folders are none of them. In the order of the archive.
    const std::vector<Entry>& entries() const { return all; }
    /// Of the file.
    std::uint64_t size() const { return bytes; }
    /// Why the entry is not to be unpacked beside what was already, as a clause; empty where it may be.
    static std::string whyNot(const Entry& entry, const Room& room);
    /// Writes the entry into the file, which is there. Why that failed, as a clause; empty where it did not. Fails when
    /// `interrupted`, borrowed unless null, turns true.
    std::string unpack(const Entry& entry, const std::string& path, const std::atomic<bool>* interrupted) const;

private:
    struct Closer {
        void operator()(zip* archive) const noexcept;
    };

    std::unique_ptr<zip, Closer> archive;
    std::vector<Entry> all;
    std::uint64_t bytes = 0;
};

/// Whether the name leads to a place below the folder that it is unpacked to, and to no other on any system.
bool staysInside(const std::string& name);

} // namespace Timeline
