// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::OrderTimes: when those pictures of H.264 and HEVC are shown that do not say so.
#pragma once

#include "Kestra/FF/Demux/PacketRepair.h"
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>

namespace Kestra::FF {

/// Of the pictures that begin in one pack of a program stream, one has times, and libav may give it those of the next
/// one. But each says at which place it is shown since the last one that nothing before is needed for. So packets are
/// held back until those behind tell which time belongs to which place. They come out in the order of the file, and
/// those that have their right times as they are.
class OrderTimes final : public PacketRepair {
public:
    /// Finds a picture's place; nothing where it tells none.
    using PlaceFinder = std::function<std::optional<int>(const AVPacket& packet)>;

    /// The place as the parser of the stream's codec tells it; null for codecs whose pictures tell none.
    static PlaceFinder FinderFor(const AVStream& stream);

    /// Of several streams whose pictures tell a place, the first one is put in order.
    void Push(PacketHandle packet, const AVStream& stream) override;
    /// The packet's stream is that of pictures where there is a `finder`, the same for all of them.
    void Push(PacketHandle packet, const PlaceFinder& finder);
    void End() override { ended = true; }
    bool Pop(AVPacket& packet) override;
    void Clear() override { *this = OrderTimes(); }

private:
    struct Waiting {
        PacketHandle packet;
        bool ordered = false;
        int place = 0;
        int sequence = 0; ///< those whose places are counted from the same picture on
    };

    bool CanSettle() const;
    bool IsBehindGap(const Waiting& first) const;
    void Settle(const Waiting& first);
    void Begin(const Waiting& first);
    std::int64_t StartOf(const Waiting& picture) const;
    int Agreeing(const Waiting& first, std::int64_t start) const;
    bool IsNear(std::int64_t time, std::int64_t other) const;

    PlaceFinder videoFinder;
    int videoStream = -1; ///< which that is for
    std::deque<Waiting> queue;
    int pictures = 0; ///< in the queue
    int timed = 0;    ///< those of them that have a time
    int sequence = 0;
    int lastPlace = INT32_MIN;
    int step = 2; ///< of places from one picture to the next
    std::int64_t period = 0;
    std::optional<std::int64_t> start; ///< when place 0 of the sequence that is settled is shown
    int startOf = -1;                  ///< which sequence that is
    std::int64_t lastDecoded = AV_NOPTS_VALUE;
    std::int64_t lastShown = AV_NOPTS_VALUE; ///< the latest
    bool ended = false;
};

} // namespace Kestra::FF
