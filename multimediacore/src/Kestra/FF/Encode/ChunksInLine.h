// Kestra::FF::ChunksInLine: an encoder whose chunks are encoded one after the other, on the thread that reads.
#pragma once

#include "Kestra/FF/Encode/ChunkEncoder.h"
#include "Kestra/FF/Encode/ChunkRule.h"
#include "Kestra/FF/Encode/IEncoderLoop.h"
#include "Kestra/FF/Encode/PacketJoiner.h"
#include <memory>

namespace Kestra::FF {

/// The packets of ChunkedLoop, without a chunk's worth of sound in memory: where two chunks overlap, both of their
/// encoders get each frame.
class ChunksInLine final : public IEncoderLoop {
public:
    /// `model` is open; it encodes nothing.
    ChunksInLine(std::unique_ptr<IEncoderLoop> model, const ChunkRule& rule, std::shared_ptr<PacketJoiner> joiner,
                 std::shared_ptr<ChunkEncoder> encoder);

    AVCodecContext& GetContext() const override { return model->GetContext(); }
    Step Receive(PacketHandle& packet) override;
    /// All frames but the last hold the codec's number of samples; pts count samples, from 0.
    void Send(const AVFrame* frame) override;
    void Close() override { model->Close(); }

private:
    std::int64_t PtsOf(std::int64_t frame) const;
    void EndChunk();
    void Collect(std::int64_t end);

    const std::unique_ptr<IEncoderLoop> model;
    const ChunkRule rule;
    const std::int64_t framesInChunk;
    const std::shared_ptr<PacketJoiner> joiner;
    const std::shared_ptr<ChunkEncoder> encoder;
    std::unique_ptr<ChunkEncoder::Run> current;
    std::unique_ptr<ChunkEncoder::Run> next; ///< it hears its lead-in
    std::int64_t chunkEnd;                   ///< number of the first frame behind the current chunk, if there is one
    std::int64_t sent = 0;                   ///< frames
    EncoderChunk::Packets ready;
    bool ended = false;
};

} // namespace Kestra::FF
