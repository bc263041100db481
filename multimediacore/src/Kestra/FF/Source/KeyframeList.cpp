// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Source/KeyframeList.h"

#include "Kestra/FF/Av/Convert.h"
#include <algorithm>
#include <cstring>

namespace Kestra::FF {

bool KeyframeList::IsNeededFor(const Demuxer& demuxer) {
    return std::strcmp(demuxer.GetFormatName(), "mpeg") == 0;
}

std::optional<std::size_t> KeyframeList::CountBefore(std::int64_t time, Demuxer& demuxer, int track,
                                                     std::int64_t origin) {
    if (times.empty())
        Read(demuxer, track, origin);
    demuxer.Rewind();
    const auto later = std::upper_bound(times.begin(), times.end(), time);
    if (later == times.begin())
        return std::nullopt;
    return static_cast<std::size_t>(later - times.begin()) - 1;
}

void KeyframeList::Read(Demuxer& demuxer, int track, std::int64_t origin) {
    const AVRational timeBase = demuxer.GetStream(track).time_base;
    const PacketHandle packet = MakePacket();
    demuxer.Rewind();
    while (demuxer.Read(*packet)) {
        const std::int64_t timestamp = packet->pts != AV_NOPTS_VALUE ? packet->pts : packet->dts;
        if (packet->flags & AV_PKT_FLAG_KEY)
            times.push_back(ToEngineTime(timestamp, timeBase) - origin);
    }
}

} // namespace Kestra::FF
