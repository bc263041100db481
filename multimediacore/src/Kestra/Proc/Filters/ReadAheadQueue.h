// Kestra::Proc::ReadAheadQueue: a thread that reads a stream ahead of its consumer.
#pragma once

#include "Kestra/Proc/IData.h"
#include <condition_variable>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>

namespace Kestra::Proc {

/// Start, Pop and Stop belong to the consumer's thread; Interrupt is thread-safe. The reader runs on a thread of this
/// queue's own, between Start and Stop, and on no other.
class ReadAheadQueue {
public:
    using Reader = std::function<boost::intrusive_ptr<IData>()>;

    /// Holds at most `items` pieces, and at most `bytes` of memory but for one piece that alone is larger.
    ReadAheadQueue(Reader reader, std::size_t items, std::size_t bytes);
    ~ReadAheadQueue();
    ReadAheadQueue(const ReadAheadQueue&) = delete;
    ReadAheadQueue& operator=(const ReadAheadQueue&) = delete;

    bool IsRunning() const { return thread.joinable(); }
    void Start();
    /// Waits for the piece that is being read, then forgets everything. Does nothing when not running.
    void Stop();
    /// The next piece; null at the end and once interrupted; throws what the reader threw, after the pieces before it.
    boost::intrusive_ptr<IData> Pop();
    /// Makes Pop return null until the next Start.
    void Interrupt();
    void ClearInterrupt();

private:
    void Run();
    bool HasRoom() const;

    const Reader reader;
    const std::size_t maxItems;
    const std::size_t maxBytes;
    std::thread thread;

    std::mutex mutex; ///< guards what follows
    std::condition_variable changed;
    std::deque<boost::intrusive_ptr<IData>> queue;
    std::size_t queuedBytes = 0;
    std::exception_ptr error;
    bool ended = false;
    bool stopping = false;
    bool interrupted = false;
};

} // namespace Kestra::Proc
