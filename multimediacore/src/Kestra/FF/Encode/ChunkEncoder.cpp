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

ChunkEncoder::Run::Run(ChunkEncoder& encoder, std::int64_t first)
    : encoder(encoder)
    , first(first)
    , loop(encoder.TakeOne(first != INT64_MIN)) {}

void ChunkEncoder::Run::Send(const AVFrame* frame) {
    loop->Send(frame);
    PacketHandle packet;
    while (loop->Receive(packet) == IEncoderLoop::Step::Packet) {
        if (packet->pts < first)
            continue;
        encoder.joiner->Place(packet, encoder.NumberOf(packet->pts));
        packets.push_back(std::move(packet));
    }
}

PacketHandle ChunkEncoder::Run::Take(std::int64_t end) {
    if (packets.empty() || packets.front()->pts >= end)
        return nullptr;
    PacketHandle packet = std::move(packets.front());
    packets.pop_front();
    ++taken;
    return packet;
}

Packets ChunkEncoder::Run::Finish(std::int64_t end) {
    while (!packets.empty() && packets.back()->pts >= end)
        packets.pop_back();
    encoder.RequireAll(first, end, taken + static_cast<std::int64_t>(packets.size()));
    if (encoder.reusable && end != INT64_MAX)
        encoder.KeepOne(std::move(loop));
    return std::move(packets);
}

Packets ChunkEncoder::Encode(const EncoderChunk& chunk, const std::atomic<bool>& cancelled) {
    Run run(*this, chunk.first);
    for (const auto& frame : chunk.frames) {
        if (cancelled)
            KESTRA_THROW(Proc::Interrupted());
        run.Send(frame.get());
    }
    if (chunk.end == INT64_MAX)
        run.Send(nullptr);
    return run.Finish(chunk.end);
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
