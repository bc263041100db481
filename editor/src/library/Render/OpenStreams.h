// Render::OpenStreams: the inner streams that are being read just now, which another thread may interrupt.
#pragma once

#include "Kestra/Base/LeavableThread.h"
#include "Kestra/Proc/Interrupted.h"
#include <algorithm>
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <chrono>
#include <mutex>
#include <new>
#include <utility>
#include <vector>

namespace Render {

/// Everything but interrupt() belongs to the reading thread, and outlives the leases.
template <class I>
class OpenStreams {
public:
    using Pointer = boost::intrusive_ptr<I>;

    /// A stream that is open as long as this lives, unless all are let go before.
    class Lease {
    public:
        Lease() = default;
        Lease(OpenStreams& owner, I* stream)
            : owner(&owner)
            , stream(stream) {}
        Lease(Lease&& other) noexcept
            : owner(other.owner)
            , stream(std::exchange(other.stream, nullptr)) {}
        Lease& operator=(Lease&& other) noexcept {
            std::swap(owner, other.owner);
            std::swap(stream, other.stream);
            return *this;
        }
        ~Lease() {
            if (stream)
                owner->close(stream);
        }

        explicit operator bool() const { return stream != nullptr; }
        I* operator->() const { return stream; }

    private:
        OpenStreams* owner = nullptr;
        I* stream = nullptr;
    };

    OpenStreams() = default;
    OpenStreams(const OpenStreams&) = delete;
    OpenStreams& operator=(const OpenStreams&) = delete;
    ~OpenStreams() { letGo(); }

    /// Throws Interrupted, and takes nothing in, between an interrupt and the reset.
    Lease open(const Pointer& stream) {
        const std::lock_guard<std::mutex> lock(mutex);
        if (interrupted)
            KESTRA_THROW(Kestra::Proc::Interrupted());
        streams.push_back(stream);
        return Lease(*this, stream.get());
    }
    /// Throws as open() does.
    void requireNoInterrupt() {
        const std::lock_guard<std::mutex> lock(mutex);
        if (interrupted)
            KESTRA_THROW(Kestra::Proc::Interrupted());
    }
    /// Lets all go and forgets an interrupt. Their leases may only be destroyed after it.
    void reset() {
        letGo();
        const std::lock_guard<std::mutex> lock(mutex);
        interrupted = false;
    }
    void interrupt() {
        const std::lock_guard<std::mutex> lock(mutex);
        interrupted = true;
        for (const Pointer& stream : streams)
            stream->Interrupt();
    }

private:
    /// It ends outside the lock: it may wait for a thread.
    void close(const I* stream) {
        Pointer last;
        const std::lock_guard<std::mutex> lock(mutex);
        const auto found = std::find(streams.begin(), streams.end(), stream);
        if (found == streams.end())
            return;
        last = std::move(*found);
        streams.erase(found);
    }

    /// As closing each, but not for ever: unlike that of the other calls, the thread may be one that nobody can do
    /// without.
    void letGo() {
        constexpr std::chrono::seconds patience{3}; // a thread that reads ahead has two of them
        std::vector<Pointer> last;
        {
            const std::lock_guard<std::mutex> lock(mutex);
            last.swap(streams);
        }
        if (last.empty())
            return;
        try {
            Kestra::LeavableThread::Call(
                "left-to-close", [held = std::move(last)]() mutable { held.clear(); }, patience);
        } catch (const std::bad_alloc&) { // on the way there, so they were closed here
        }
    }

    std::mutex mutex;
    std::vector<Pointer> streams;
    bool interrupted = false;
};

} // namespace Render
