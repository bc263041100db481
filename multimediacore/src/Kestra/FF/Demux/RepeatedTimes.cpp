// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/RepeatedTimes.h"

#include <cstdlib>
#include <cstring>
#include <utility>

namespace Kestra::FF {

namespace {

// Of a gap that is one: what follows it is not held back for longer.
constexpr std::size_t MOST_LATE = 64;

} // namespace

bool RepeatedTimes::AreNeeded(const char* container) {
    return std::strncmp(container, "mov", 3) == 0;
}

std::int64_t RepeatedTimes::LengthOf(const Track& track, const AVPacket& packet) {
    return packet.duration > 0 ? packet.duration : track.step;
}

bool RepeatedTimes::IsLate(const Track& track, const AVPacket& packet) {
    return track.end != AV_NOPTS_VALUE && packet.dts > track.end &&
           std::abs(packet.dts - track.end - LengthOf(track, packet)) <= 1;
}

void RepeatedTimes::Push(PacketHandle packet, const AVStream& stream) {
    if (stream.codecpar->codec_type != AVMEDIA_TYPE_AUDIO || packet->dts == AV_NOPTS_VALUE) {
        ready.push_back(std::move(packet));
        return;
    }
    Track& track = tracks[stream.index];
    const bool follows = !track.late.empty() && packet->dts == track.end;
    const bool repeats = !track.late.empty() && packet->dts == track.late.back()->dts;
    if (repeats && (packet->flags & AV_PKT_FLAG_DISCARD)) {
        packet->flags &= ~AV_PKT_FLAG_DISCARD;
        MoveBack(track);
    } else if (!follows || track.late.size() >= MOST_LATE) {
        Release(track);
    }
    const bool waits = !track.late.empty();
    const bool late = !waits && IsLate(track, *packet);
    if (late)
        track.gap = packet->dts - track.end;
    else if (track.last != AV_NOPTS_VALUE && packet->dts > track.last)
        track.step = packet->dts - track.last;
    track.last = packet->dts;
    track.end = packet->dts + LengthOf(track, *packet);
    (waits || late ? track.late : ready).push_back(std::move(packet));
}

void RepeatedTimes::MoveBack(Track& track) {
    for (const PacketHandle& packet : track.late) {
        packet->dts -= track.gap;
        packet->pts -= packet->pts == AV_NOPTS_VALUE ? 0 : track.gap;
    }
    Release(track);
}

void RepeatedTimes::Release(Track& track) {
    for (PacketHandle& packet : track.late)
        ready.push_back(std::move(packet));
    track.late.clear();
}

void RepeatedTimes::End() {
    for (auto& [index, track] : tracks)
        Release(track);
}

void RepeatedTimes::Clear() {
    ready.clear();
    tracks.clear();
}

} // namespace Kestra::FF
