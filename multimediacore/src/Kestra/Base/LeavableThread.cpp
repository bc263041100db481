#include "Kestra/Base/LeavableThread.h"

#include <condition_variable>
#include <mutex>
#include <system_error>
#include <utility>

namespace Kestra {

struct LeavableThread::Latch {
    std::mutex mutex;
    std::condition_variable changed;
    bool ended = false;
};

bool LeavableThread::Call(std::function<void()> body, std::chrono::milliseconds patience) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    LeavableThread thread;
    try {
        thread.Start(body);
    } catch (const std::system_error&) {
        body();
        return true;
    }
    body = nullptr; // the thread alone holds it now
    return thread.JoinOrLeave(deadline);
}

LeavableThread::~LeavableThread() {
    Leave();
}

void LeavableThread::Start(std::function<void()> body) {
    latch = std::make_shared<Latch>();
    thread = std::thread([ended = latch, body = std::move(body)]() mutable {
        body();
        body = nullptr; // whoever joins finds that nothing is held any more
        const std::lock_guard<std::mutex> lock(ended->mutex);
        ended->ended = true;
        ended->changed.notify_all();
    });
}

bool LeavableThread::JoinOrLeave(std::chrono::steady_clock::time_point deadline) {
    if (!thread.joinable()) {
        return true;
    }
    {
        std::unique_lock<std::mutex> lock(latch->mutex);
        if (!latch->changed.wait_until(lock, deadline, [this] { return latch->ended; })) {
            lock.unlock();
            Leave();
            return false;
        }
    }
    thread.join();
    return true;
}

void LeavableThread::Leave() noexcept {
    if (thread.joinable()) {
        thread.detach();
    }
}

} // namespace Kestra
