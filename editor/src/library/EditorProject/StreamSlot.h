// Project::StreamSlot: the inner stream that is being read just now, which another thread may interrupt.
#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <mutex>
#include <utility>

namespace Project {

/// Everything but interrupt() and isInterrupted() belongs to the reading thread.
template <class I>
class StreamSlot {
public:
    using Pointer = boost::intrusive_ptr<I>;

    explicit operator bool() const { return stream != nullptr; }
    I* operator->() const { return stream.get(); }

    /// A stream that comes after the interrupt is interrupted at once.
    void put(Pointer next) {
        const std::lock_guard<std::mutex> lock(mutex);
        stream.swap(next);
        if (interrupted && stream)
            stream->Interrupt();
        previous = std::move(next);
    }
    void close() {
        put(nullptr);
        previous.reset(); // outside the lock: its end may wait for a thread
    }
    /// Closes, and forgets an interrupt.
    void reset() {
        close();
        const std::lock_guard<std::mutex> lock(mutex);
        interrupted = false;
    }
    void interrupt() {
        const std::lock_guard<std::mutex> lock(mutex);
        interrupted = true;
        if (stream)
            stream->Interrupt();
    }
    bool isInterrupted() const {
        const std::lock_guard<std::mutex> lock(mutex);
        return interrupted;
    }

private:
    mutable std::mutex mutex;
    Pointer stream;
    Pointer previous;
    bool interrupted = false;
};

} // namespace Project
