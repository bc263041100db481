#include "Kestra/Base/LeavableThread.h"

#include <condition_variable>
#include <mutex>
#include <utility>

namespace Kestra {

struct LeavableThread::Latch {
    std::mutex mutex;
    std::condition_variable changed;
    bool ended = false;
};

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
