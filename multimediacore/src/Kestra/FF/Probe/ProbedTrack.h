// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::ProbedTrack: what is found out about one track while a file is opened.
#pragma once

#include "Kestra/Base/Time.h"
#include "Kestra/FF/Av/Handles.h"
#include "Kestra/FF/Probe/FrameTimes.h"
#include <deque>

namespace Kestra::FF {

/// Times are engine time on the container's own clock.
struct ProbedTrack {
    int index = -1;
    FrameHandle first;
    std::deque<PacketHandle> waiting; ///< read, not yet decoded
    PacketHandle opening;             ///< the first one in the file
    std::int64_t firstDecodeTime = TIME_UNKNOWN;
    std::int64_t secondDecodeTime = TIME_UNKNOWN;
    std::int64_t firstShown = TIME_UNKNOWN; ///< the earliest that was to be shown, whether it can be decoded or not
    std::int64_t firstMoves = 0;            ///< by how much the first picture is to be shown later than its packet says
    std::int64_t start = TIME_UNKNOWN;
    std::int64_t end = TIME_UNKNOWN;
    std::int64_t lastLength = 0; ///< of the packet that ends last
    bool untimed = false;        ///< some packets have no presentation time
    bool guessed = false;        ///< that packet does not say how long it lasts
    std::int64_t packets = 0;
    int frameSize = 0; ///< samples of a whole block
    FrameTimes times;  ///< of the packets that were read; only of pictures

    /// Moves the packet that has waited longest; false when none does.
    bool TakeWaiting(AVPacket& packet) {
        if (waiting.empty())
            return false;
        av_packet_move_ref(&packet, waiting.front().get());
        waiting.pop_front();
        return true;
    }
};

} // namespace Kestra::FF
