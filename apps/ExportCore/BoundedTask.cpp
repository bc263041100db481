// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/BoundedTask.h"

#include <chrono>
#include <exception>
#include <utility>

namespace ExportCore {
namespace {

constexpr std::chrono::seconds PATIENCE{2}; // as long as a task's destruction waits

} // namespace

BoundedTask::BoundedTask(std::string threadName, std::function<void()> work)
    : work(std::move(work))
    , task(std::make_unique<BackgroundTask>(std::move(threadName),
                                            [work = this->work](const std::atomic<bool>&) { work(); }))
    , patience(this) {
    patience.setSingleShot(true);
    patience.setTimerType(Qt::PreciseTimer);
    connect(task.get(), &BackgroundTask::finished, this, &BoundedTask::onDone);
    connect(&patience, &QTimer::timeout, this, [this] {
        task.reset(); // which leaves it
        onDone();
    });
}

BoundedTask::~BoundedTask() = default;

void BoundedTask::start() {
    running = true;
    try {
        task->interrupt(); // from now on its destruction waits for no longer than this does
        patience.start(PATIENCE);
        task->start();
    } catch (const std::exception&) { // no thread is to be had, or no memory for one
        if (task->isRunning())
            return;
        work();
        onDone();
    }
}

void BoundedTask::finishHere() {
    patience.stop();
    running = false;
    task.reset();
}

void BoundedTask::onDone() {
    patience.stop();
    if (std::exchange(running, false))
        Q_EMIT ended();
}

} // namespace ExportCore
