// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::RepeatedTimes: audio of fragments that libav takes for what has been there already.
#pragma once

#include "Kestra/FF/Demux/PacketRepair.h"
#include <cstdint>
#include <deque>
#include <map>

namespace Kestra::FF {

/// Told to write a fragment for each frame, libav's writer gives some packets of audio, one after the other, a time
/// that is late by the length of one, and the packet behind them the same time as the last of them. libav's reader
/// takes that one for a repetition that is to be discarded. Here the late ones move back to where they follow on, and
/// all are heard. Everything else comes out as it went in. Other tracks' packets may come out ahead of those that wait
/// for what follows them.
class RepeatedTimes final : public PacketRepair {
public:
    void Push(PacketHandle packet, const AVStream& stream) override;
    void End() override;
    bool Pop(AVPacket& packet) override { return TakeFirst(ready, packet); }
    void Clear() override;

    /// Whether tracks of the container may be written so.
    static bool AreNeeded(const char* container);

private:
    struct Track {
        std::deque<PacketHandle> late;      ///< wait for a packet that has a time once more
        std::int64_t last = AV_NOPTS_VALUE; ///< the time of the last packet
        std::int64_t step = 0;              ///< from one packet to the next, which is their length where they tell none
        std::int64_t end = AV_NOPTS_VALUE;
        std::int64_t gap = 0; ///< before the first late one
    };

    void Release(Track& track);
    void MoveBack(Track& track);
    static std::int64_t LengthOf(const Track& track, const AVPacket& packet);
    static bool IsLate(const Track& track, const AVPacket& packet);

    std::deque<PacketHandle> ready;
    std::map<int, Track> tracks;
};

} // namespace Kestra::FF
