// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/ChunkedLoop.h"

#include <algorithm>
#include <utility>

namespace Kestra::FF {

ChunkedLoop::ChunkedLoop(std::unique_ptr<IEncoderLoop> opened, const ChunkRule& rule,
                         std::shared_ptr<PacketJoiner> joiner, std::shared_ptr<ChunkWorkers> workers, int ahead)
    : model(std::move(opened))
    , rule(rule)
    , framesInChunk(rule.FramesInChunk(model->GetContext().frame_size))
    , joiner(std::move(joiner))
    , workers(std::move(workers))
    , ahead(static_cast<std::size_t>(ahead)) {}

void ChunkedLoop::Send(const AVFrame* frame) {
    if (!frame) {
        ended = true;
        return SubmitChunk(true);
    }
    joiner->Hear(*frame);
    frames.emplace_back(MakeFrameReference(*frame));
    // The next chunk is not empty, so this one is not the last.
    if (firstFrame + static_cast<std::int64_t>(frames.size()) == chunkStart + framesInChunk + std::max(rule.behind, 1))
        SubmitChunk(false);
}

std::int64_t ChunkedLoop::PtsOf(std::int64_t frame) const {
    return frame * GetContext().frame_size - GetContext().initial_padding;
}

void ChunkedLoop::SubmitChunk(bool last) {
    EncoderChunk chunk;
    chunk.frames = frames;
    if (!last && rule.behind == 0)
        chunk.frames.pop_back();
    if (chunkStart > 0)
        chunk.first = PtsOf(chunkStart);
    chunkStart += framesInChunk;
    if (!last)
        chunk.end = PtsOf(chunkStart);
    for (; !frames.empty() && firstFrame < chunkStart - rule.leadIn; ++firstFrame)
        frames.pop_front();
    workers->Submit(std::move(chunk));
}

bool ChunkedLoop::IsWaitingForFrames() const {
    return !ended && workers->GetCount() < ahead && !workers->IsNextDone();
}

IEncoderLoop::Step ChunkedLoop::Receive(PacketHandle& packet) {
    while (ready.empty()) {
        if (IsWaitingForFrames())
            return Step::NeedsFrame;
        if (workers->GetCount() == 0)
            return Step::End;
        ready = workers->Take();
    }
    packet = std::move(ready.front());
    ready.pop_front();
    joiner->Join(*packet);
    return Step::Packet;
}

} // namespace Kestra::FF
