// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::ChangeLoop: an encoder of WebP pictures that is given only what has changed.
#pragma once

#include "Kestra/FF/Encode/IEncoderLoop.h"
#include "Kestra/FF/Picture/FrameGeometry.h"
#include <memory>

namespace Kestra::FF {

/// A packet is a WebPPart that lasts no time yet: all of the first picture, and of each other one the part outside of
/// which every sample is that of the picture before.
class ChangeLoop final : public IEncoderLoop {
public:
    /// `encoder` is that of whole pictures. It gives a packet, a file of its own, for each frame at once.
    explicit ChangeLoop(std::unique_ptr<IEncoderLoop> encoder);

    AVCodecContext& GetContext() const override { return encoder->GetContext(); }
    Step Receive(PacketHandle& packet) override;
    void Send(const AVFrame* frame) override;
    void Close() override { encoder->Close(); }

private:
    FrameRect PartOf(const AVFrame& frame) const;

    const std::unique_ptr<IEncoderLoop> encoder;
    FrameHandle before;
    PacketHandle made; ///< of a part, for the next Receive
};

} // namespace Kestra::FF
