// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::ChangeLoop: WebP pictures of which only what has changed is encoded, several beside each other.
#pragma once

#include "Kestra/FF/Encode/ChunkWorkers.h"
#include "Kestra/FF/Encode/IEncoderLoop.h"
#include "Kestra/FF/Picture/FrameGeometry.h"
#include <deque>
#include <memory>

namespace Kestra::FF {

/// A packet is a WebPPart that lasts no time yet: all of the first picture, and of each other one the part outside of
/// which every sample is that of the picture before. Each is encoded by itself, so packets do not depend on how many
/// are at a time.
class ChangeLoop final : public IEncoderLoop {
public:
    /// `model` is that of whole pictures; it encodes nothing. As many pictures are encoded at a time as `threads`.
    ChangeLoop(std::unique_ptr<IEncoderLoop> model, int threads);

    AVCodecContext& GetContext() const override { return model->GetContext(); }
    Step Receive(PacketHandle& packet) override;
    void Send(const AVFrame* frame) override;
    void Close() override { model->Close(); }

private:
    FrameRect PartOf(const AVFrame& frame) const;

    /// The workers' too, also of one that hangs and was left.
    const std::shared_ptr<IEncoderLoop> model;
    const std::size_t ahead; ///< pictures that may be on their way
    FrameHandle before;
    std::deque<FrameRect> parts; ///< of those on their way
    bool ended = false;
    ChunkWorkers workers;
};

} // namespace Kestra::FF
