// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::EncoderChunk: a part of a track that an encoder of its own makes packets of.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <climits>
#include <cstdint>
#include <deque>
#include <memory>

namespace Kestra::FF {

/// Neighbours share frames: nobody changes one.
struct EncoderChunk {
    using Frames = std::deque<std::shared_ptr<const AVFrame>>;
    using Packets = std::deque<PacketHandle>;

    Frames frames;                  ///< with the lead-in before its own and those that its last packets wait for
    std::int64_t first = INT64_MIN; ///< pts of its first packet
    std::int64_t end = INT64_MAX;   ///< its packets are before it
};

} // namespace Kestra::FF
