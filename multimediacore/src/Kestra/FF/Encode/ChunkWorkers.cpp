// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/ChunkWorkers.h"

#include "Kestra/FF/Encode/DriverSettings.h"
#include "Kestra/Proc/Interrupted.h"
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <utility>

namespace Kestra::FF {

using Packets = EncoderChunk::Packets;

namespace {

constexpr std::chrono::seconds PATIENCE{2};

} // namespace

/// Once done, nobody but the taker touches it.
struct ChunkWorkers::Job {
    explicit Job(EncoderChunk chunk)
        : chunk(std::move(chunk)) {}

    void Run(const Encode& encode, const std::atomic<bool>& cancelled) noexcept;

    EncoderChunk chunk;
    Packets packets;
    std::exception_ptr failure;
    bool done = false;
};

struct ChunkWorkers::Shared {
    void Work(const Encode& encode, std::int64_t start);
    std::shared_ptr<Job> Next(std::int64_t start);

    std::atomic<bool> cancelled{false};

    std::mutex mutex;        ///< guards what follows, and whether a job is done
    std::int64_t resets = 0; ///< a thread that was left at one has nothing to do with what comes later
    std::condition_variable waitingOrCancelled;
    std::condition_variable doneOrCancelled;
    std::deque<std::shared_ptr<Job>> waiting;
    std::size_t idle = 0; ///< threads that wait for one
};

int ChunkWorkers::UsualThreads() {
    constexpr int MOST = 8; // more wait for what is decoded
    return std::min(Processors(), MOST);
}

ChunkWorkers::ChunkWorkers()
    : shared(std::make_shared<Shared>()) {}

ChunkWorkers::~ChunkWorkers() {
    Reset();
}

void ChunkWorkers::Start(Encode encode, int most) {
    this->encode = std::move(encode);
    mostThreads = static_cast<std::size_t>(most);
}

void ChunkWorkers::Submit(EncoderChunk chunk) {
    auto job = std::make_shared<Job>(std::move(chunk));
    jobs.push_back(job);
    bool busy = false;
    {
        const std::lock_guard<std::mutex> lock(shared->mutex);
        shared->waiting.push_back(std::move(job));
        busy = shared->waiting.size() > shared->idle;
    }
    if (busy && threads.size() < mostThreads)
        StartThread();
    shared->waitingOrCancelled.notify_one();
}

// One is enough: where no more are to be had, it takes longer.
void ChunkWorkers::StartThread() {
    threads.emplace_back();
    try {
        threads.back().Start("kestra-chunk", [held = shared, call = encode, at = resets] { held->Work(call, at); });
    } catch (const std::system_error&) {
        threads.pop_back();
        mostThreads = threads.size();
        if (threads.empty())
            throw;
    }
}

void ChunkWorkers::Shared::Work(const Encode& encode, std::int64_t start) {
    while (const std::shared_ptr<Job> job = Next(start)) {
        job->Run(encode, cancelled);
        const std::lock_guard<std::mutex> lock(mutex);
        job->done = true;
        doneOrCancelled.notify_one();
    }
}

std::shared_ptr<ChunkWorkers::Job> ChunkWorkers::Shared::Next(std::int64_t start) {
    std::unique_lock<std::mutex> lock(mutex);
    const auto left = [&] { return cancelled || start != resets; };
    if (left())
        return nullptr;
    ++idle;
    waitingOrCancelled.wait(lock, [&] { return left() || !waiting.empty(); });
    --idle;
    if (left())
        return nullptr;
    auto job = std::move(waiting.front());
    waiting.pop_front();
    return job;
}

void ChunkWorkers::Job::Run(const Encode& encode, const std::atomic<bool>& cancelled) noexcept {
    try {
        packets = encode(chunk, cancelled);
    } catch (...) {
        failure = std::current_exception();
    }
    chunk.frames.clear();
}

std::size_t ChunkWorkers::GetCount() const {
    return jobs.size();
}

bool ChunkWorkers::IsNextDone() const {
    const std::lock_guard<std::mutex> lock(shared->mutex);
    return !jobs.empty() && jobs.front()->done;
}

Packets ChunkWorkers::Take() {
    const std::shared_ptr<Job> job = jobs.front();
    {
        std::unique_lock<std::mutex> lock(shared->mutex);
        shared->doneOrCancelled.wait(lock, [&] { return job->done || shared->cancelled; });
        if (!job->done)
            KESTRA_THROW(Proc::Interrupted());
    }
    jobs.pop_front();
    if (job->failure)
        std::rethrow_exception(std::exchange(job->failure, nullptr)); // its thread may hold the job a little longer
    return std::move(job->packets);
}

void ChunkWorkers::Interrupt() {
    const std::lock_guard<std::mutex> lock(shared->mutex);
    shared->cancelled = true;
    shared->waitingOrCancelled.notify_all();
    shared->doneOrCancelled.notify_all();
}

void ChunkWorkers::Reset() {
    Interrupt();
    const auto deadline = std::chrono::steady_clock::now() + PATIENCE;
    for (LeavableThread& thread : threads)
        thread.JoinOrLeave(deadline);
    threads.clear();
    jobs.clear();
    const std::lock_guard<std::mutex> lock(shared->mutex);
    shared->waiting.clear();
    shared->resets = ++resets;
    shared->cancelled = false;
}

} // namespace Kestra::FF
