// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/TimestampMap.h"

#include <algorithm>

namespace Kestra::FF {

void TimestampMap::Join(int stream, std::int64_t position, std::int64_t shift) {
    joints[stream].push_back({position, shift});
}

void TimestampMap::AddEntry(int stream, std::int64_t position, std::int64_t time) {
    entries[stream].push_back({position, time});
}

std::int64_t TimestampMap::ShiftAt(int stream, std::int64_t position) const {
    const auto own = joints.find(stream);
    if (own == joints.end())
        return 0;
    const auto later = std::upper_bound(own->second.begin(), own->second.end(), position,
                                        [](std::int64_t at, const Joint& joint) { return at < joint.position; });
    return later == own->second.begin() ? 0 : std::prev(later)->shift;
}

std::optional<std::int64_t> TimestampMap::FindEntry(int stream, std::int64_t time) const {
    const auto own = entries.find(stream);
    if (own == entries.end())
        return std::nullopt;
    // Not in order of time: what overlaps at a joint is in the file twice.
    const auto last = std::find_if(own->second.rbegin(), own->second.rend(),
                                   [time](const Entry& entry) { return entry.time <= time; });
    if (last == own->second.rend())
        return std::nullopt;
    return last->position;
}

} // namespace Kestra::FF
