#include "Kestra/Proc/Filters/ReadAheadQueue.h"

#include "Kestra/Proc/Interrupted.h"
#include "Kestra/Proc/ProcException.h"
#include <algorithm>
#include <condition_variable>
#include <deque>
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
    void Run();
    bool HasRoom() const { return queue.empty() || (queue.size() < maxItems && queuedBytes < maxBytes); }

    Reader reader;
    std::size_t maxItems = 1;
    std::size_t maxBytes = 0;

    std::mutex mutex; ///< guards what follows
    std::condition_variable changed;
    std::deque<boost::intrusive_ptr<IData>> queue;
    std::size_t queuedBytes = 0;
    std::exception_ptr error;
    bool ended = false;
    bool stopping = false;
    bool out = false; ///< the thread calls the reader no more
    std::optional<Clock::time_point> interrupted;
};

ReadAheadQueue::ReadAheadQueue(Reader reader, std::size_t items, std::size_t bytes)
    : shared(std::make_shared<Shared>()) {
    shared->reader = std::move(reader);
    shared->maxItems = std::max<std::size_t>(items, 1);
    shared->maxBytes = bytes;
}

ReadAheadQueue::~ReadAheadQueue() {
    Interrupt();
    Finish();
}

void ReadAheadQueue::Start() {
    shared->error = nullptr;
    shared->ended = false;
    shared->stopping = false;
    shared->out = false;
    thread.Start([held = shared] { held->Run(); });
}

void ReadAheadQueue::Stop() {
    if (!Finish())
        KESTRA_THROW(ProcException(TranscodingError::Stalled, "A thread that reads ahead hangs in its source"));
}

bool ReadAheadQueue::Finish() {
    if (!thread.IsRunning())
        return !left;
    std::unique_lock<std::mutex> lock(shared->mutex);
    shared->stopping = true;
    shared->changed.notify_all();
    shared->changed.wait(lock, [this] { return shared->out || shared->interrupted; });
    if (!shared->out)
        shared->changed.wait_until(lock, *shared->interrupted + PATIENCE, [this] { return shared->out; });
    left = !shared->out;
    lock.unlock();
    if (left) {
        thread.Leave();
        return false;
    }
    thread.JoinOrLeave(Clock::now() + PATIENCE);
    shared->queue.clear();
    shared->queuedBytes = 0;
    return true;
}

void ReadAheadQueue::Shared::Run() {
    std::unique_lock<std::mutex> lock(mutex);
    while (!stopping && !ended) {
        lock.unlock();
        boost::intrusive_ptr<IData> piece;
        std::exception_ptr failure;
        try {
            piece = reader();
        } catch (...) {
            failure = std::current_exception();
        }
        lock.lock();
        error = failure;
        ended = !piece;
        if (piece) {
            queuedBytes += piece->GetByteSize();
            queue.push_back(std::move(piece));
        }
        changed.notify_all();
        changed.wait(lock, [this] { return stopping || ended || HasRoom(); });
    }
    out = true;
    changed.notify_all();
}

boost::intrusive_ptr<IData> ReadAheadQueue::Pop() {
    std::unique_lock<std::mutex> lock(shared->mutex);
    shared->changed.wait(lock, [this] { return shared->interrupted || shared->ended || !shared->queue.empty(); });
    if (shared->interrupted)
        KESTRA_THROW(Interrupted());
    if (shared->queue.empty()) {
        if (shared->error)
            std::rethrow_exception(shared->error);
        return {};
    }
    auto piece = std::move(shared->queue.front());
    shared->queue.pop_front();
    shared->queuedBytes -= std::min(shared->queuedBytes, piece->GetByteSize());
    lock.unlock();
    shared->changed.notify_all();
    return piece;
}

void ReadAheadQueue::Interrupt() {
    {
        const std::lock_guard<std::mutex> lock(shared->mutex);
        if (!shared->interrupted)
            shared->interrupted = Clock::now();
    }
    shared->changed.notify_all();
}

void ReadAheadQueue::ClearInterrupt() {
    const std::lock_guard<std::mutex> lock(shared->mutex);
    shared->interrupted.reset();
}

} // namespace Kestra::Proc
