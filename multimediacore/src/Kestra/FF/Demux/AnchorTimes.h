// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::AnchorTimes: when those pictures of a program stream are shown that do not say so.
#pragma once

#include "Kestra/FF/Demux/PacketRepair.h"
#include <cstdint>
#include <deque>
#include <map>

namespace Kestra::FF {

/// A pack of a program stream has one time, of the first picture that begins in it. When others begin there, libav
/// counts their decoding times on, and where a picture's first bytes stand in the pack before, it gives it the time of
/// the next one and is wrong until the next pack. So packets are held back until what follows tells which times are
/// right. One that others are predicted from is shown when the next of its kind is decoded. Packets come out in the
/// order of the file, and those that have their right times as they are.
class AnchorTimes final : public PacketRepair {
public:
    /// Whether streams of the container leave such times out.
    static bool AreNeeded(const char* container);

    void Push(PacketHandle packet, const AVStream& stream) override;
    /// `codec` is that of the packet's stream.
    void Push(PacketHandle packet, AVCodecID codec);
    void End() override { ended = true; }
    bool Pop(AVPacket& packet) override;
    void Clear() override;

private:
    enum class Kind { Other, Anchor, Between };
    struct Waiting {
        PacketHandle packet;
        Kind kind = Kind::Other;
        bool settled = false; ///< its decoding time is right
        bool counted = false; ///< since it has been counted on from those before
    };
    using Place = std::deque<Waiting>::iterator;

    bool IsFull() const;
    void SettleAll();
    bool Settle(const Place& place);
    bool MeetsAgain(Place place, std::int64_t expected, int& looked) const;
    bool Complete();
    void Show(Waiting& anchor, std::int64_t time, bool corrected);
    bool IsDelayed(int stream) const;

    std::deque<Waiting> queue;
    std::map<int, std::int64_t> expected; ///< when the stream's next picture should be decoded
    std::map<int, bool> delayed;          ///< whether the stream's last picture with times is shown later than decoded
    bool ended = false;
};

} // namespace Kestra::FF
