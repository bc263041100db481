// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::StillTimes: audio whose clock stands still while packets go on.
#pragma once

#include "Kestra/FF/Demux/PacketRepair.h"
#include <cstdint>
#include <deque>
#include <map>
#include <set>

namespace Kestra::FF {

/// Some writers give every packet of audio the same time. The first one has it; those behind follow on, each as long
/// after the one before as that one's samples last. The same time for a few packets says nothing: jitter on a coarse
/// clock, or headers. Everything else comes out as it went in. Other tracks' packets may come out ahead of those that
/// wait for what follows them; those of one track keep their order.
class StillTimes final : public PacketRepair {
public:
    void Push(PacketHandle packet, const AVStream& stream) override;
    void End() override;
    bool Pop(AVPacket& packet) override { return TakeFirst(ready, packet); }
    void Clear() override;

    /// Whether a stream's clock has stood still. Clear() does not forget that.
    bool Found(int stream) const { return found.count(stream) != 0; }

private:
    struct Waiting {
        PacketHandle packet;
        std::int64_t late = 0; ///< by how much it follows what has its time; engine time
    };
    struct Track {
        std::int64_t told = AV_NOPTS_VALUE; ///< the time of the last packet, as the file has it
        std::int64_t length = 0;            ///< of the packets that have that time; engine time
        std::deque<Waiting> waiting;        ///< the second of those and the next ones, while they are few
        bool stands = false;                ///< they are many
    };

    /// Hands out what waits, as late as it follows or as it came.
    void Release(Track& track, AVRational timeBase, bool late);
    static bool AreMany(const Track& track, AVRational timeBase);
    static std::int64_t LengthOf(const AVPacket& packet, const AVStream& stream);

    std::deque<PacketHandle> ready;
    std::map<int, Track> tracks;
    std::set<int> found;
};

} // namespace Kestra::FF
