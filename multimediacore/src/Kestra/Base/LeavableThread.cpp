// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Base/LeavableThread.h"

#include <condition_variable>
#include <mutex>
#include <pthread.h>
#include <system_error>
#include <utility>

namespace Kestra {
namespace {

void NameThisThread(const std::string& name) {
    constexpr std::size_t longest = 15; // the kernel's; a longer name is refused whole
    pthread_setname_np(pthread_self(), name.substr(0, longest).c_str());
}

std::exception_ptr FailureOf(const std::function<void()>& body) noexcept {
    try {
        body();
        return nullptr;
    } catch (...) {
        return std::current_exception();
    }
}

} // namespace

struct LeavableThread::Latch {
    void End(std::exception_ptr cause) {
        const std::lock_guard<std::mutex> lock(mutex);
        ended = true;
        failure = std::move(cause);
        changed.notify_all();
    }

    std::mutex mutex;
    std::condition_variable changed;
    bool ended = false;
    std::exception_ptr failure;
};

bool LeavableThread::Call(const std::string& name, std::function<void()> body, std::chrono::milliseconds patience) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    LeavableThread thread;
    try {
        thread.Start(name, body);
    } catch (const std::exception&) { // no thread is to be had, or no memory for one
        body();
        return true;
    }
    body = nullptr; // the thread alone holds it now
    if (!thread.JoinOrLeave(deadline))
        return false;
    if (const std::exception_ptr failure = thread.GetFailure())
        std::rethrow_exception(failure);
    return true;
}

LeavableThread::~LeavableThread() {
    Leave();
}

// Whoever is told of the end finds that the body holds nothing any more.
void LeavableThread::Start(const std::string& name, std::function<void()> body,
                           std::function<void(std::exception_ptr)> end) {
    latch = std::make_shared<Latch>();
    thread = std::thread([name, ended = latch, body = std::move(body), end = std::move(end)]() mutable {
        NameThisThread(name);
        std::exception_ptr failure = FailureOf(body);
        body = nullptr;
        if (end)
            end(std::exchange(failure, nullptr));
        ended->End(std::move(failure));
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

std::exception_ptr LeavableThread::GetFailure() const {
    if (!latch)
        return nullptr;
    const std::lock_guard<std::mutex> lock(latch->mutex);
    return latch->failure;
}

} // namespace Kestra
