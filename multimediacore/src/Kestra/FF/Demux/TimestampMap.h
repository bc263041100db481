// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::TimestampMap: where the timestamps of a file restart or jump, and what brings them onto one clock.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace Kestra::FF {

/// Recordings that were put behind each other in one file begin their clocks anew. Which part a packet belongs to is
/// told by its place in the file, so that reading through and reading after a seek agree. Times are in the ticks of
/// the packet's stream, positions are bytes. A value.
class TimestampMap {
public:
    /// From `position` on, `shift` is added to the stream's timestamps. Positions have to rise.
    void Join(int stream, std::int64_t position, std::int64_t shift);
    /// Reading of the stream may begin at `position`; the packet there has that shifted time.
    void AddEntry(int stream, std::int64_t position, std::int64_t time);

    /// Whether the file has one clock from start to end.
    bool IsPlain() const { return joints.empty(); }
    std::int64_t ShiftAt(int stream, std::int64_t position) const;
    /// The entry of the stream furthest into the file whose time is not after `time`; none when all are later.
    std::optional<std::int64_t> FindEntry(int stream, std::int64_t time) const;

private:
    struct Joint {
        std::int64_t position = 0;
        std::int64_t shift = 0;
    };
    struct Entry {
        std::int64_t position = 0;
        std::int64_t time = 0;
    };

    std::map<int, std::vector<Joint>> joints;
    std::map<int, std::vector<Entry>> entries;
};

} // namespace Kestra::FF
