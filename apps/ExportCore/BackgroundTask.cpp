// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/BackgroundTask.h"

#include <chrono>
#include <ctime>
#include <mutex>
#include <optional>
#include <pthread.h>
#include <utility>

namespace ExportCore {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds PATIENCE{2};
constexpr std::chrono::milliseconds LOOK_INTERVAL{500};

} // namespace

struct BackgroundTask::Shared {
    void run(const Work& work) {
        {
            const std::lock_guard<std::mutex> lock(mutex);
            clockid_t clock = 0;
            if (pthread_getcpuclockid(pthread_self(), &clock) == 0)
                computing = clock;
        }
        work(interrupted);
    }

    void tellEnd(std::exception_ptr error) {
        const std::lock_guard<std::mutex> lock(mutex);
        computing.reset();
        ended = true;
        last = std::move(error);
        try {
            if (task)
                task->forwarder.Forward([owner = task] { owner->end(); });
        } catch (const std::bad_alloc&) { // the task finds out when it looks for life
        }
    }

    bool hasEnded() {
        const std::lock_guard<std::mutex> lock(mutex);
        return ended;
    }

    /// Moved: the task's thread is the last to hold the error, and to free it.
    std::exception_ptr takeError() {
        const std::lock_guard<std::mutex> lock(mutex);
        return std::move(last);
    }

    /// Nanoseconds that the thread has computed; 0 when that cannot be told.
    long long computed() {
        const std::lock_guard<std::mutex> lock(mutex);
        timespec now = {};
        if (!computing || clock_gettime(*computing, &now) != 0)
            return 0;
        return now.tv_sec * 1'000'000'000LL + now.tv_nsec;
    }

    std::atomic<bool> interrupted{false};

    std::mutex mutex;                       ///< guards what follows
    BackgroundTask* task = nullptr;         ///< null once it is gone
    std::optional<clockid_t> computing;     ///< the thread's clock while it works
    bool ended = false;                     ///< the work
    std::exception_ptr last;                ///< what it ended with
    std::optional<Clock::time_point> since; ///< the interrupt
};

BackgroundTask::BackgroundTask(std::string threadName, Work work, QObject* parent)
    : QObject(parent)
    , threadName(std::move(threadName))
    , work(std::move(work))
    , shared(std::make_shared<Shared>())
    , timer(this) {
    shared->task = this;
    connect(&timer, &QTimer::timeout, this, &BackgroundTask::lookForLife);
}

BackgroundTask::~BackgroundTask() {
    interrupt();
    Clock::time_point deadline;
    {
        const std::lock_guard<std::mutex> lock(shared->mutex);
        shared->task = nullptr;
        deadline = *shared->since + PATIENCE;
    }
    thread.JoinOrLeave(deadline);
}

void BackgroundTask::start() {
    thread.Start(
        threadName, [held = shared, work = std::exchange(work, nullptr)] { held->run(work); },
        [held = shared](std::exception_ptr error) { held->tellEnd(std::move(error)); });
    running = true;
    timer.start(LOOK_INTERVAL);
}

void BackgroundTask::interrupt() {
    shared->interrupted = true;
    const std::lock_guard<std::mutex> lock(shared->mutex);
    if (!shared->since)
        shared->since = Clock::now();
}

void BackgroundTask::lookForLife() {
    if (shared->hasEnded())
        return end();
    const long long total = shared->computed();
    if (total > 0 && std::exchange(computed, total) != total)
        Q_EMIT alive();
}

void BackgroundTask::end() {
    if (!std::exchange(running, false))
        return;
    timer.stop();
    const std::exception_ptr error = shared->takeError();
    Q_EMIT finished(error);
}

} // namespace ExportCore
