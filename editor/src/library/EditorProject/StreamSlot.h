// Project::StreamSlot: the inner stream that is being read just now, which another thread may interrupt.
#pragma once

#include "Kestra/Base/LeavableThread.h"
#include "Kestra/Proc/Interrupted.h"
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <chrono>
#include <mutex>
#include <new>
#include <utility>

namespace Project {

/// Everything but interrupt() belongs to the reading thread.
template <class I>
class StreamSlot {
public:
    using Pointer = boost::intrusive_ptr<I>;

    StreamSlot() = default;
    StreamSlot(const StreamSlot&) = delete;
    StreamSlot& operator=(const StreamSlot&) = delete;
    ~StreamSlot() { letGo(); }

    explicit operator bool() const { return stream != nullptr; }
    I* operator->() const { return stream.get(); }

    /// Throws Interrupted, and takes nothing in, between an interrupt and the reset. The stream before ends outside the
    /// lock: it may wait for a thread.
    void put(Pointer next) { exchange(std::move(next)); }
    void close() { exchange(nullptr); }
    /// Closes, and forgets an interrupt.
    void reset() {
        letGo();
        const std::lock_guard<std::mutex> lock(mutex);
        interrupted = false;
    }
    void interrupt() {
        const std::lock_guard<std::mutex> lock(mutex);
        interrupted = true;
        if (stream)
            stream->Interrupt();
    }

private:
    Pointer exchange(Pointer next) {
        const std::lock_guard<std::mutex> lock(mutex);
        if (interrupted && next)
            KESTRA_THROW(Kestra::Proc::Interrupted());
        stream.swap(next);
        return next;
    }

    /// As close(), but not for ever: unlike that of the other calls, the thread may be one that nobody can do without.
    void letGo() {
        constexpr std::chrono::seconds patience{3}; // a thread that reads ahead has two of them
        Pointer last = exchange(nullptr);
        if (!last)
            return;
        try {
            Kestra::LeavableThread::Call(
                "left-to-close", [held = std::move(last)]() mutable { held.reset(); }, patience);
        } catch (const std::bad_alloc&) { // on the way there, so it was closed here
        }
    }

    std::mutex mutex;
    Pointer stream;
    bool interrupted = false;
};

} // namespace Project
