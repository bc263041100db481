// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Filters/ReadAheadQueue.h"

#include "Kestra/Proc/Interrupted.h"
#include "Kestra/Proc/ProcException.h"
#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>
#include <utility>

namespace Kestra::Proc {
namespace {

using Clock = std::chrono::steady_clock;

// From the interrupt on. What reads files comes out at once; what hangs in one never does.
constexpr std::chrono::seconds PATIENCE{2};

} // namespace

struct ReadAheadQueue::Shared {
    Shared(Reader reader, const QueueLimits& limits)
        : reader(std::move(reader))
        , queue(limits) {}

    void Read();
    void End(std::exception_ptr failure);
    bool WaitUntilOut();
    void ThrowIfInterrupted();

    const Reader reader;
    BoundedQueue<IData> queue;

    std::mutex mutex; ///< guards what follows
    std::condition_variable changed;
    bool out = false; ///< the thread calls the reader no more
    std::optional<Clock::time_point> interrupted;
};

ReadAheadQueue::ReadAheadQueue(Reader reader, const QueueLimits& limits)
    : shared(std::make_shared<Shared>(std::move(reader), limits)) {}

ReadAheadQueue::~ReadAheadQueue() {
    Interrupt();
    Finish();
}

void ReadAheadQueue::Start(const std::string& threadName) {
    shared->out = false;
    shared->queue.Reset();
    thread.Start(
        threadName, [held = shared] { held->Read(); },
        [held = shared](std::exception_ptr failure) { held->End(std::move(failure)); });
}

void ReadAheadQueue::Stop() {
    if (!Finish())
        KESTRA_THROW(ProcException(TranscodingError::Stalled, "A thread that reads ahead hangs in its source"));
}

bool ReadAheadQueue::Finish() {
    if (!thread.IsRunning())
        return !left;
    shared->queue.Cancel();
    left = !shared->WaitUntilOut();
    if (left) {
        thread.Leave();
        return false;
    }
    thread.JoinOrLeave(Clock::now() + PATIENCE);
    shared->queue.Clear();
    return true;
}

bool ReadAheadQueue::Shared::WaitUntilOut() {
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [this] { return out || interrupted; });
    if (!out)
        changed.wait_until(lock, *interrupted + PATIENCE, [this] { return out; });
    return out;
}

void ReadAheadQueue::Shared::Read() {
    while (queue.WaitForRoom()) {
        auto piece = reader();
        if (!piece || !queue.Push(std::move(piece)))
            return;
    }
}

// The queue ends where the source did, or failed. Where it was cancelled this says nothing.
void ReadAheadQueue::Shared::End(std::exception_ptr failure) {
    queue.Fail(std::move(failure));
    const std::lock_guard<std::mutex> lock(mutex);
    out = true;
    changed.notify_all();
}

boost::intrusive_ptr<IData> ReadAheadQueue::Pop() {
    shared->ThrowIfInterrupted();
    auto piece = shared->queue.Pop();
    if (!piece) // the queue's end, unless an interrupt cancelled it
        shared->ThrowIfInterrupted();
    return piece;
}

void ReadAheadQueue::Shared::ThrowIfInterrupted() {
    const std::lock_guard<std::mutex> lock(mutex);
    if (interrupted)
        KESTRA_THROW(Interrupted());
}

// In one step: a queue that is cancelled while nobody is told of an interrupt would look ended.
void ReadAheadQueue::Interrupt() {
    const std::lock_guard<std::mutex> lock(shared->mutex);
    if (!shared->interrupted)
        shared->interrupted = Clock::now();
    shared->queue.Cancel();
    shared->changed.notify_all();
}

void ReadAheadQueue::ClearInterrupt() {
    const std::lock_guard<std::mutex> lock(shared->mutex);
    shared->interrupted.reset();
}

} // namespace Kestra::Proc
