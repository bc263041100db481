// Kestra::LeavableThread: a thread that nobody has to wait for for ever.
#pragma once

#include "KestraExport.h"
#include <chrono>
#include <functional>
#include <memory>
#include <thread>

namespace Kestra {

/// A thread may hang in a foreign call (a read of a network share that is gone) that nothing interrupts. It is then
/// left: it goes on by itself, alone with what its body holds, and lets go of that if it ever comes out. So the body
/// owns, by counted references, everything that it touches.
///
/// Bound to one thread at a time, which may change between calls.
class KESTRA_EXPORT LeavableThread {
public:
    /// Makes a call on a thread of its own and waits for its end. False when it hangs: it has been left then. Where no
    /// thread is to be had, it is made on this one.
    static bool Call(std::function<void()> body, std::chrono::milliseconds patience);

    LeavableThread() = default;
    /// Leaves a thread that still runs.
    ~LeavableThread();
    LeavableThread(const LeavableThread&) = delete;
    LeavableThread& operator=(const LeavableThread&) = delete;

    /// `body` lets no exception go and is destroyed on the thread. Throws std::system_error when there is no thread to
    /// be had. Not while one runs.
    void Start(std::function<void()> body);
    /// Started, and neither joined nor left.
    bool IsRunning() const noexcept { return thread.joinable(); }
    /// Whether the calling thread is this one.
    bool IsCurrent() const noexcept { return thread.get_id() == std::this_thread::get_id(); }
    /// Waits for the thread to end. False when it did not before the deadline: it has been left then. True when there
    /// was none.
    bool JoinOrLeave(std::chrono::steady_clock::time_point deadline);
    void Leave() noexcept;

private:
    struct Latch;
    std::shared_ptr<Latch> latch;
    std::thread thread;
};

} // namespace Kestra
