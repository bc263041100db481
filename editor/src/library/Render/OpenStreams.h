// SPDX-License-Identifier: GPL-3.0-or-later
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

/// Holds every stream that is open, and alone: whoever reads one has a lease of it. Everything but interrupt() belongs
/// to the reading thread, and outlives the leases.
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
                owner->close(stream, nullptr);
        }

        /// Closes the stream, but keeps what it reads from for takeLeft(medium).
        void leave(const void* medium) {
            if (I* const last = std::exchange(stream, nullptr))
                owner->close(last, medium);
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

    /// `source` is what the stream reads from, null where nobody could go on with it. Throws Interrupted, and takes
    /// nothing in, between an interrupt and the reset.
    Lease open(const Pointer& stream, const Pointer& source = nullptr) {
        const std::lock_guard<std::mutex> lock(mutex);
        if (interrupted)
            KESTRA_THROW(Kestra::Proc::Interrupted());
        streams.push_back({stream, source});
        return Lease(*this, stream.get());
    }
    /// Throws as open() does.
    void requireNoInterrupt() {
        const std::lock_guard<std::mutex> lock(mutex);
        if (interrupted)
            KESTRA_THROW(Kestra::Proc::Interrupted());
    }
    /// What a stream of that medium has left; null where none has.
    Pointer takeLeft(const void* medium) {
        const std::lock_guard<std::mutex> lock(mutex);
        const auto found =
            std::find_if(left.begin(), left.end(), [medium](const Left& entry) { return entry.medium == medium; });
        if (found == left.end())
            return nullptr;
        Pointer source = std::move(found->source);
        left.erase(found);
        return source;
    }
    void forgetLeft() {
        std::vector<Left> last;
        const std::lock_guard<std::mutex> lock(mutex);
        last.swap(left);
    }
    /// Closes all, but does not wait for ever: unlike that of the other calls, the thread may be one that nobody can do
    /// without. Leases of them may only be destroyed after it.
    void letGo() {
        constexpr std::chrono::seconds patience{3}; // a thread that reads ahead has two of them
        std::pair<std::vector<Open>, std::vector<Left>> last;
        {
            const std::lock_guard<std::mutex> lock(mutex);
            last.first.swap(streams);
            last.second.swap(left);
        }
        if (last.first.empty() && last.second.empty())
            return;
        try {
            Kestra::LeavableThread::Call(
                "left-to-close",
                [held = std::move(last)]() mutable {
                    held.first.clear();
                    held.second.clear();
                },
                patience);
        } catch (const std::bad_alloc&) { // on the way there, so they were closed here
        }
    }
    /// Lets all go and forgets an interrupt.
    void reset() {
        letGo();
        const std::lock_guard<std::mutex> lock(mutex);
        interrupted = false;
    }
    void interrupt() {
        const std::lock_guard<std::mutex> lock(mutex);
        interrupted = true;
        for (const Open& entry : streams)
            entry.stream->Interrupt();
    }

private:
    struct Open {
        Pointer stream;
        Pointer source;
    };
    struct Left {
        const void* medium;
        Pointer source;
    };

    /// It ends outside the lock: it may wait for a thread.
    void close(const I* stream, const void* medium) {
        Open last = takeOut(stream);
        last.stream.reset(); // before another reads from its source
        // A thread that hung in reading ahead has been left with it.
        const bool isFree = last.source && last.source->GetRefCount() == 1;
        if (!isFree || !medium)
            return;
        const std::lock_guard<std::mutex> lock(mutex);
        left.push_back({medium, std::move(last.source)});
    }
    Open takeOut(const I* stream) {
        const std::lock_guard<std::mutex> lock(mutex);
        const auto found = std::find_if(streams.begin(), streams.end(),
                                        [stream](const Open& entry) { return entry.stream == stream; });
        if (found == streams.end())
            return {};
        Open last = std::move(*found);
        streams.erase(found);
        return last;
    }

    std::mutex mutex;
    std::vector<Open> streams;
    std::vector<Left> left;
    bool interrupted = false;
};

} // namespace Render
