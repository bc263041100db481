// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/ChunkEncoder.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/Proc/Interrupted.h"
#include <string>
#include <utility>

namespace Kestra::FF {

using Packets = EncoderChunk::Packets;
using Proc::TranscodingError;

namespace {

std::vector<std::uint8_t> HeaderOf(const AVCodecContext& context) {
    return {context.extradata, context.extradata + context.extradata_size};
}

} // namespace

ChunkEncoder::ChunkEncoder(OpenOne open, bool reusable, const AVCodecContext& model,
                           std::shared_ptr<const PacketJoiner> joiner)
    : open(std::move(open))
    , reusable(reusable)
    , header(HeaderOf(model))
    , padding(model.initial_padding)
    , frameSize(model.frame_size)
    , joiner(std::move(joiner)) {}

Packets ChunkEncoder::Encode(const EncoderChunk& chunk, const std::atomic<bool>& cancelled) {
    std::unique_ptr<IEncoderLoop> loop = TakeOne(chunk.first != INT64_MIN);
    Packets packets;
    for (const auto& frame : chunk.frames) {
        if (cancelled)
            KESTRA_THROW(Proc::Interrupted());
        loop->Send(frame.get());
        Collect(*loop, chunk, packets);
    }
    const bool last = chunk.end == INT64_MAX;
    if (last) {
        loop->Send(nullptr);
        Collect(*loop, chunk, packets);
    }
    RequireAll(chunk.first, chunk.end, static_cast<std::int64_t>(packets.size()));
    if (reusable && !last)
        KeepOne(std::move(loop));
    return packets;
}

void ChunkEncoder::Collect(IEncoderLoop& loop, const EncoderChunk& chunk, Packets& packets) const {
    PacketHandle packet;
    while (loop.Receive(packet) == IEncoderLoop::Step::Packet) {
        if (packet->pts < chunk.first || packet->pts >= chunk.end)
            continue;
        joiner->Place(packet, NumberOf(packet->pts));
        packets.push_back(std::move(packet));
    }
}

std::unique_ptr<IEncoderLoop> ChunkEncoder::TakeOne(bool inside) {
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (!kept.empty()) {
            auto loop = std::move(kept.back());
            kept.pop_back();
            return loop;
        }
    }
    auto loop = open(inside);
    RequireSameHeader(loop->GetContext());
    return loop;
}

void ChunkEncoder::KeepOne(std::unique_ptr<IEncoderLoop> loop) {
    const std::lock_guard<std::mutex> lock(mutex);
    kept.push_back(std::move(loop));
}

// A file has one header for all of them.
void ChunkEncoder::RequireSameHeader(const AVCodecContext& context) const {
    if (HeaderOf(context) != header)
        Fail(TranscodingError::EncodeFailed, std::string(context.codec->name) + " gave two parts of the sound "
                                                                                "different headers");
}

// The last chunk has as many as come.
void ChunkEncoder::RequireAll(std::int64_t first, std::int64_t end, std::int64_t count) const {
    if (end == INT64_MAX)
        return;
    const std::int64_t wanted = (end - std::max(first, -padding)) / frameSize;
    if (count != wanted)
        Fail(TranscodingError::EncodeFailed,
             "A part of the sound has " + std::to_string(count) + " packets instead of " + std::to_string(wanted));
}

} // namespace Kestra::FF
