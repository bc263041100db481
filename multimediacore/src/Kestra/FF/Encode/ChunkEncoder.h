// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::ChunkEncoder: encodes chunks, each from its lead-in to its last packet.
#pragma once

#include "Kestra/FF/Encode/EncoderChunk.h"
#include "Kestra/FF/Encode/EncoderLoop.h"
#include "Kestra/FF/Encode/PacketJoiner.h"
#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace Kestra::FF {

/// Any number of threads may encode at a time, a chunk each.
class ChunkEncoder {
public:
    /// Opens one more encoder with the same settings, for the beginning or for what lies inside the sound; called by
    /// several threads.
    using OpenOne = std::function<std::unique_ptr<IEncoderLoop>(bool inside)>;

    /// `model` is one of them; it is only looked at. Reusable encoders are kept for chunks to come.
    ChunkEncoder(OpenOne open, bool reusable, const AVCodecContext& model, std::shared_ptr<const PacketJoiner> joiner);

    /// Throws ProcException (EncodeFailed), and Interrupted soon after `cancelled` has become true.
    EncoderChunk::Packets Encode(const EncoderChunk& chunk, const std::atomic<bool>& cancelled);

private:
    void Collect(IEncoderLoop& loop, const EncoderChunk& chunk, EncoderChunk::Packets& packets) const;
    std::unique_ptr<IEncoderLoop> TakeOne(bool inside);
    void KeepOne(std::unique_ptr<IEncoderLoop> loop);
    void RequireSameHeader(const AVCodecContext& context) const;
    void RequireAll(std::int64_t first, std::int64_t end, std::int64_t count) const;
    std::int64_t NumberOf(std::int64_t pts) const { return (pts + padding) / frameSize; }

    const OpenOne open;
    const bool reusable;
    const std::vector<std::uint8_t> header;
    const std::int64_t padding;
    const std::int64_t frameSize;
    const std::shared_ptr<const PacketJoiner> joiner;
    std::mutex mutex; ///< guards what follows
    std::vector<std::unique_ptr<IEncoderLoop>> kept;
};

} // namespace Kestra::FF
