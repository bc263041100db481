#include "Kestra/FF/Encode/ChunksInLine.h"

#include <climits>
#include <iterator>
#include <utility>

namespace Kestra::FF {

ChunksInLine::ChunksInLine(std::unique_ptr<IEncoderLoop> opened, const ChunkRule& rule,
                           std::shared_ptr<PacketJoiner> joiner, std::shared_ptr<ChunkEncoder> encoder)
    : model(std::move(opened))
    , rule(rule)
    , framesInChunk(rule.FramesInChunk(model->GetContext().frame_size))
    , joiner(std::move(joiner))
    , encoder(std::move(encoder))
    , current(std::make_unique<ChunkEncoder::Run>(*this->encoder, INT64_MIN))
    , chunkEnd(framesInChunk) {}

std::int64_t ChunksInLine::PtsOf(std::int64_t frame) const {
    return frame * GetContext().frame_size - GetContext().initial_padding;
}

void ChunksInLine::Send(const AVFrame* frame) {
    if (!frame) {
        ended = true;
        current->Send(nullptr);
        return Collect(INT64_MAX);
    }
    joiner->Hear(*frame);
    // The next chunk is not empty, so this one is not the last.
    if (rule.behind == 0 && sent == chunkEnd)
        EndChunk();
    if (!next && sent >= chunkEnd - rule.leadIn)
        next = std::make_unique<ChunkEncoder::Run>(*encoder, PtsOf(chunkEnd));
    current->Send(frame);
    if (next)
        next->Send(frame);
    ++sent;
    if (rule.behind > 0 && sent == chunkEnd + rule.behind)
        EndChunk();
    Collect(PtsOf(chunkEnd));
}

void ChunksInLine::EndChunk() {
    EncoderChunk::Packets last = current->Finish(PtsOf(chunkEnd));
    std::move(last.begin(), last.end(), std::back_inserter(ready));
    current = next ? std::move(next) : std::make_unique<ChunkEncoder::Run>(*encoder, PtsOf(chunkEnd));
    chunkEnd += framesInChunk;
}

void ChunksInLine::Collect(std::int64_t end) {
    while (PacketHandle packet = current->Take(end))
        ready.push_back(std::move(packet));
}

IEncoderLoop::Step ChunksInLine::Receive(PacketHandle& packet) {
    if (ready.empty())
        return ended ? Step::End : Step::NeedsFrame;
    packet = std::move(ready.front());
    ready.pop_front();
    joiner->Join(*packet);
    return Step::Packet;
}

} // namespace Kestra::FF
