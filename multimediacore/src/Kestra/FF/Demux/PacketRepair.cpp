// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/PacketRepair.h"

namespace Kestra::FF {

bool PacketRepair::TakeFirst(std::deque<PacketHandle>& packets, AVPacket& packet) {
    if (packets.empty())
        return false;
    av_packet_move_ref(&packet, packets.front().get());
    packets.pop_front();
    return true;
}

} // namespace Kestra::FF
