// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::PacketJoiner: makes packets of several encoders look like those of one.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <cstdint>

namespace Kestra::FF {

/// This one does nothing, which suits codecs whose packets do not say where they stand.
class PacketJoiner {
public:
    PacketJoiner() = default;
    virtual ~PacketJoiner() = default;
    PacketJoiner(const PacketJoiner&) = delete;
    PacketJoiner& operator=(const PacketJoiner&) = delete;

    /// Every frame of the track, in order.
    virtual void Hear(const AVFrame&) {}
    /// Called by several threads, also beside the others: what the packet says of its place becomes that of
    /// packet `number` of the track.
    virtual void Place(PacketHandle&, std::int64_t /*number*/) const {}
    /// Every packet of the track, in order, on the thread that calls Hear: what it says of the track becomes that of
    /// all of it.
    virtual void Join(AVPacket&) {}
};

} // namespace Kestra::FF
