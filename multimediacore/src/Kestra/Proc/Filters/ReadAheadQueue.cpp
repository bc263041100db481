#include "Kestra/Proc/Filters/ReadAheadQueue.h"

#include <algorithm>
#include <utility>

namespace Kestra::Proc {

ReadAheadQueue::ReadAheadQueue(Reader reader, std::size_t items, std::size_t bytes)
    : reader(std::move(reader))
    , maxItems(std::max<std::size_t>(items, 1))
    , maxBytes(bytes) {}

ReadAheadQueue::~ReadAheadQueue() {
    Stop();
}

bool ReadAheadQueue::HasRoom() const {
    return queue.empty() || (queue.size() < maxItems && queuedBytes < maxBytes);
}

void ReadAheadQueue::Start() {
    error = nullptr;
    ended = false;
    stopping = false;
    thread = std::thread([this] { Run(); });
}

void ReadAheadQueue::Stop() {
    if (!thread.joinable())
        return;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        stopping = true;
    }
    changed.notify_all();
    thread.join();
    queue.clear();
    queuedBytes = 0;
}

void ReadAheadQueue::Run() {
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
}

boost::intrusive_ptr<IData> ReadAheadQueue::Pop() {
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [this] { return interrupted || ended || !queue.empty(); });
    if (interrupted)
        return {};
    if (queue.empty()) {
        if (error)
            std::rethrow_exception(error);
        return {};
    }
    auto piece = std::move(queue.front());
    queue.pop_front();
    queuedBytes -= std::min(queuedBytes, piece->GetByteSize());
    lock.unlock();
    changed.notify_all();
    return piece;
}

void ReadAheadQueue::Interrupt() {
    {
        const std::lock_guard<std::mutex> lock(mutex);
        interrupted = true;
    }
    changed.notify_all();
}

void ReadAheadQueue::ClearInterrupt() {
    const std::lock_guard<std::mutex> lock(mutex);
    interrupted = false;
}

} // namespace Kestra::Proc
