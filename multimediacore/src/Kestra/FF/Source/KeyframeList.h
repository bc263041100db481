// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::KeyframeList: where a file that cannot be sought in can be decoded from.
#pragma once

#include "Kestra/FF/Demux/Demuxer.h"
#include <cstdint>
#include <optional>
#include <vector>

namespace Kestra::FF {

/// For containers that give one picture in many a time (program streams): the others are counted on from it, wrongly if
/// reading began between. So such files are read from their start, past as many keyframes as are not wanted.
class KeyframeList {
public:
    static bool IsNeededFor(const Demuxer& demuxer);

    /// How many keyframes stand before the last one that does not begin after `time`, which counts from `origin`;
    /// nothing where every one does. Reads the file through at the first question, and leaves it at its start.
    std::optional<std::size_t> CountBefore(std::int64_t time, Demuxer& demuxer, int track, std::int64_t origin);

private:
    void Read(Demuxer& demuxer, int track, std::int64_t origin);

    std::vector<std::int64_t> times; ///< in the order of the file
};

} // namespace Kestra::FF
