// SPDX-License-Identifier: GPL-3.0-or-later
// Threads that encode chunks: order, failures, ends.
#include "Kestra/FF/Encode/ChunkWorkers.h"
#include "Kestra/Proc/Interrupted.h"
#include <atomic>
#include <condition_variable>
#include <gtest/gtest.h>
#include <memory>
#include <mutex>
#include <set>
#include <stdexcept>
#include <thread>

using namespace Kestra;
using FF::ChunkWorkers;
using FF::EncoderChunk;

namespace {

EncoderChunk Chunk(std::int64_t first) {
    EncoderChunk chunk;
    chunk.first = first;
    return chunk;
}

/// One packet that bears the chunk's first pts.
EncoderChunk::Packets PacketOf(const EncoderChunk& chunk) {
    EncoderChunk::Packets packets;
    packets.push_back(FF::MakePacket());
    packets.front()->pts = chunk.first;
    return packets;
}

/// Passes who waits for a number once so many have arrived.
class Gate {
public:
    void Arrive() {
        const std::lock_guard<std::mutex> lock(mutex);
        ++arrived;
        changed.notify_all();
    }
    void WaitFor(int count) {
        std::unique_lock<std::mutex> lock(mutex);
        changed.wait(lock, [&] { return arrived >= count; });
    }

private:
    std::mutex mutex;
    std::condition_variable changed;
    int arrived = 0;
};

} // namespace

TEST(ChunkWorkers, GivePacketsInTheOrderOfTheChunksWhoeverWasFaster) {
    Gate second;
    ChunkWorkers workers;
    workers.Start(
        [&](const EncoderChunk& chunk, const std::atomic<bool>&) {
            chunk.first == 0 ? second.WaitFor(1) : second.Arrive();
            return PacketOf(chunk);
        },
        2);
    workers.Submit(Chunk(0));
    workers.Submit(Chunk(1));
    EXPECT_EQ(workers.Take().front()->pts, 0);
    EXPECT_EQ(workers.Take().front()->pts, 1);
    EXPECT_EQ(workers.GetCount(), 0U);
}

TEST(ChunkWorkers, AreAsManyAsWereOrderedWhereThereIsWorkForThem) {
    Gate begun;
    std::mutex mutex;
    std::set<std::thread::id> threads;
    ChunkWorkers workers;
    workers.Start(
        [&](const EncoderChunk& chunk, const std::atomic<bool>&) {
            begun.Arrive();
            begun.WaitFor(3);
            const std::lock_guard<std::mutex> lock(mutex);
            threads.insert(std::this_thread::get_id());
            return PacketOf(chunk);
        },
        3);
    for (int number = 0; number < 20; ++number)
        workers.Submit(Chunk(number));
    for (int number = 0; number < 20; ++number)
        EXPECT_EQ(workers.Take().front()->pts, number);
    EXPECT_EQ(threads.size(), 3U);
}

TEST(ChunkWorkers, TellAFailureWhereItsPacketsWouldHaveCome) {
    ChunkWorkers workers;
    workers.Start(
        [](const EncoderChunk& chunk, const std::atomic<bool>&) {
            return chunk.first == 1 ? throw std::runtime_error("the second one") : PacketOf(chunk);
        },
        2);
    for (int number = 0; number < 3; ++number)
        workers.Submit(Chunk(number));
    EXPECT_EQ(workers.Take().front()->pts, 0);
    EXPECT_THROW(workers.Take(), std::runtime_error);
}

TEST(ChunkWorkers, WakeWhoWaitsForThemWhenTheyAreInterruptedAndWorkAgainAfterAReset) {
    Gate begun;
    ChunkWorkers workers;
    const auto untilCancelled = [&](const EncoderChunk& chunk, const std::atomic<bool>& cancelled) {
        begun.Arrive();
        while (!cancelled)
            std::this_thread::yield();
        return PacketOf(chunk);
    };
    workers.Start(untilCancelled, 1);
    workers.Submit(Chunk(0));
    workers.Submit(Chunk(1));
    std::thread interrupter([&] {
        begun.WaitFor(1);
        workers.Interrupt();
    });
    const auto takeBoth = [&] {
        workers.Take(); // the first may have ended
        workers.Take();
    };
    EXPECT_THROW(takeBoth(), Proc::Interrupted);
    interrupter.join();
    workers.Reset();
    workers.Start([](const EncoderChunk& chunk, const std::atomic<bool>&) { return PacketOf(chunk); }, 1);
    workers.Submit(Chunk(7));
    EXPECT_EQ(workers.Take().front()->pts, 7);
}

TEST(ChunkWorkers, HaveNothingToDoWithAThreadThatWasLeft) {
    Gate begun, opened, released;
    std::atomic<int> calls{0};
    auto thread = std::make_shared<int>(); // as long as it has its call
    const std::weak_ptr<int> left = thread;
    ChunkWorkers workers;
    workers.Start(
        [&, held = std::move(thread)](const EncoderChunk& chunk, const std::atomic<bool>&) {
            ++calls;
            begun.Arrive();
            opened.WaitFor(1);
            return PacketOf(chunk);
        },
        1);
    workers.Submit(Chunk(1));
    begun.WaitFor(1);
    workers.Reset();
    workers.Start(
        [&](const EncoderChunk& chunk, const std::atomic<bool>&) {
            released.WaitFor(1);
            return PacketOf(chunk);
        },
        1);
    workers.Submit(Chunk(2));
    workers.Submit(Chunk(3)); // waits for a thread
    opened.Arrive();
    while (!left.expired() && calls < 2)
        std::this_thread::yield();
    EXPECT_EQ(calls, 1);
    released.Arrive();
    EXPECT_EQ(workers.Take().front()->pts, 2);
    EXPECT_EQ(workers.Take().front()->pts, 3);
}
