// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::PacketRepair: a stage between a file and its reader that mends what containers and their writers get
// wrong.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <deque>

namespace Kestra::FF {

/// Takes packets in the order of the file, and may hold some back until those behind tell what is right of them.
class PacketRepair {
public:
    virtual ~PacketRepair() = default;

    /// `stream` is the packet's.
    virtual void Push(PacketHandle packet, const AVStream& stream) = 0;
    /// No packet follows.
    virtual void End() = 0;
    /// The next packet; false where it takes another one first, or none is left.
    virtual bool Pop(AVPacket& packet) = 0;
    /// Forgets the packets.
    virtual void Clear() = 0;

protected:
    /// Moves the first of them out; false where there is none.
    static bool TakeFirst(std::deque<PacketHandle>& packets, AVPacket& packet);
};

} // namespace Kestra::FF
