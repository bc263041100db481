// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::IEncoderLoop: frames in, packets out.
#pragma once

#include "Kestra/FF/Av/Handles.h"

namespace Kestra::FF {

/// Ask for packets until it needs a frame. Bound to one thread at a time.
class IEncoderLoop {
public:
    enum class Step { Packet, NeedsFrame, End };

    IEncoderLoop() = default;
    virtual ~IEncoderLoop() = default;
    IEncoderLoop(const IEncoderLoop&) = delete;
    IEncoderLoop& operator=(const IEncoderLoop&) = delete;

    /// An open one with the settings of all packets.
    virtual AVCodecContext& GetContext() const = 0;
    virtual Step Receive(PacketHandle& packet) = 0;
    /// Null ends the stream.
    virtual void Send(const AVFrame* frame) = 0;
    /// Only destruction may follow.
    virtual void Close() = 0;
};

} // namespace Kestra::FF
