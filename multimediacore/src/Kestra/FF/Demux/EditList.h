// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::EditList: what a track of a MOV or MP4 file says of when its samples are shown.
// Source: ISO/IEC 14496-12 (ISO base media file format), 8.6.6 (edit list).
#pragma once

#include "Kestra/Base/ioPath.h"
#include <atomic>
#include <cstdint>

namespace Kestra::FF {

struct EditList {
    /// Where the first edit that shows anything begins, in ticks of the track; -1 where the track has no list.
    std::int64_t mediaTime = -1;
    /// How long nothing is shown before it; engine time.
    std::int64_t wait = 0;
    /// An edit plays at another speed, or holds one sample.
    bool changesSpeed = false;
    /// Nothing is shown for a while between two edits.
    bool pauses = false;
};

/// `track` is the number by which the file itself knows it. An empty list for files of other kinds.
EditList FindEditList(const ioPath& path, int track, const std::atomic<bool>& interrupted);

} // namespace Kestra::FF
