// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::LeavableThread: a thread with a name that nobody has to wait for for ever.
#pragma once

#include "KestraExport.h"
#include <chrono>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace Kestra {

/// A thread may hang in a foreign call (a read of a network share that is gone) that nothing interrupts. It is then
/// left: it goes on by itself, alone with what its body holds, and lets go of that if it ever comes out. So the body
/// owns, by counted references, everything that it touches.
///
/// The name says to debuggers and process listings what the thread does: at most 15 characters, what is longer is cut.
/// Threads that a library starts from it bear the same name.
///
/// Bound to one thread at a time, which may change between calls.
class KESTRA_EXPORT LeavableThread {
public:
    /// Makes a call on a thread of its own and waits for its end. False when it hangs: it has been left then. Throws
    /// what the body threw. Where no thread is to be had, or no memory for one, the call is made on this one.
    static bool Call(const std::string& name, std::function<void()> body, std::chrono::milliseconds patience);

    LeavableThread() = default;
    /// Leaves a thread that still runs.
    ~LeavableThread();
    LeavableThread(const LeavableThread&) = delete;
    LeavableThread& operator=(const LeavableThread&) = delete;

    /// Runs `body`, lets go of it, and then calls `end`, if there is one, with the exception that left `body`, or null.
    /// All that is on the thread; `end` lets no exception go. Throws std::system_error when there is no thread to be
    /// had. Not while one runs.
    void Start(const std::string& name, std::function<void()> body, std::function<void(std::exception_ptr)> end = {});
    /// Started, and neither joined nor left.
    bool IsRunning() const noexcept { return thread.joinable(); }
    /// Whether the calling thread is this one.
    bool IsCurrent() const noexcept { return thread.get_id() == std::this_thread::get_id(); }
    /// Waits for the thread to end. False when it did not before the deadline: it has been left then. True when there
    /// was none.
    bool JoinOrLeave(std::chrono::steady_clock::time_point deadline);
    void Leave() noexcept;
    /// The exception that left the last body, once it has; null where nothing did, and where an `end` was told it.
    std::exception_ptr GetFailure() const;

private:
    struct Latch;
    std::shared_ptr<Latch> latch;
    std::thread thread;
};

} // namespace Kestra
