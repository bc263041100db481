// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::ChunkWorkers: threads that encode chunks of sound, or single pictures, several at a time.
#pragma once

#include "Kestra/Base/LeavableThread.h"
#include "Kestra/FF/Encode/EncoderChunk.h"
#include <atomic>
#include <functional>
#include <list>
#include <memory>

namespace Kestra::FF {

/// All but Interrupt belongs to one thread at a time. Packets come in the order of the chunks, whoever was faster.
class ChunkWorkers {
public:
    /// Called on several threads at a time; ends soon when the flag is set.
    using Encode = std::function<EncoderChunk::Packets(const EncoderChunk& chunk, const std::atomic<bool>& cancelled)>;

    /// As many as there are processors, up to eight.
    static int UsualThreads();

    ChunkWorkers();
    /// Ends the threads as Reset does.
    ~ChunkWorkers();
    ChunkWorkers(const ChunkWorkers&) = delete;
    ChunkWorkers& operator=(const ChunkWorkers&) = delete;

    /// Before the first chunk. A thread starts when there is a chunk that no other has time for.
    void Start(Encode encode, int mostThreads);
    void Submit(EncoderChunk chunk);
    /// Submitted and not taken.
    std::size_t GetCount() const;
    /// Whether Take would not wait.
    bool IsNextDone() const;
    /// Waits for the packets of the earliest chunk that has not been taken. Throws what its encoder threw, and
    /// Interrupted.
    EncoderChunk::Packets Take();
    /// Until Reset: nothing more is encoded, and Take throws. Thread-safe.
    void Interrupt();
    /// As it was made: waits for the threads, some seconds at most; one that still hangs in its codec is left.
    void Reset();

private:
    struct Job;
    struct Shared;

    void StartThread();

    /// The threads' too. Never another one, so that any thread may interrupt.
    const std::shared_ptr<Shared> shared;
    std::deque<std::shared_ptr<Job>> jobs; ///< in order, not taken yet
    std::list<LeavableThread> threads;
    Encode encode;
    std::int64_t resets = 0;
    std::size_t mostThreads = 1;
};

} // namespace Kestra::FF
