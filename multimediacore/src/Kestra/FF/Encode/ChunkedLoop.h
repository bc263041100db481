// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::ChunkedLoop: an encoder whose chunks are encoded beside each other.
#pragma once

#include "Kestra/FF/Encode/ChunkRule.h"
#include "Kestra/FF/Encode/ChunkWorkers.h"
#include "Kestra/FF/Encode/IEncoderLoop.h"
#include "Kestra/FF/Encode/PacketJoiner.h"
#include <memory>

namespace Kestra::FF {

/// Chunks begin at multiples of a fixed number of frames, so the packets do not depend on how many are encoded at a
/// time. Sound that is not longer than a chunk and what its last packets wait for is one chunk: the encoder's own
/// packets.
class ChunkedLoop final : public IEncoderLoop {
public:
    /// `model` is open; it encodes nothing. The workers have been started with encoders of the same settings.
    ChunkedLoop(std::unique_ptr<IEncoderLoop> model, const ChunkRule& rule, std::shared_ptr<PacketJoiner> joiner,
                std::shared_ptr<ChunkWorkers> workers, int ahead);

    AVCodecContext& GetContext() const override { return model->GetContext(); }
    Step Receive(PacketHandle& packet) override;
    /// All frames but the last hold the codec's number of samples; pts count samples, from 0.
    void Send(const AVFrame* frame) override;
    void Close() override { model->Close(); }

private:
    bool IsWaitingForFrames() const;
    void SubmitChunk(bool last);
    std::int64_t PtsOf(std::int64_t frame) const;

    const std::unique_ptr<IEncoderLoop> model;
    const ChunkRule rule;
    const std::int64_t framesInChunk;
    const std::shared_ptr<PacketJoiner> joiner;
    const std::shared_ptr<ChunkWorkers> workers;
    const std::size_t ahead; ///< chunks that may be on their way
    EncoderChunk::Frames frames;
    std::int64_t firstFrame = 0; ///< number of the first of these
    std::int64_t chunkStart = 0; ///< number of the first one of the next chunk
    EncoderChunk::Packets ready;
    bool ended = false;
};

} // namespace Kestra::FF
