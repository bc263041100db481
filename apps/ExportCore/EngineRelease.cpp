// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/EngineRelease.h"

#include "Export/Transcoder.h"
#include "Kestra/Proc/Processor/DeferredRelease.h"
#include <chrono>
#include <utility>

namespace ExportCore {
namespace {

constexpr std::chrono::seconds PATIENCE{2}; // as long as a task's destruction waits

} // namespace

struct EngineRelease::Held {
    std::shared_ptr<const void> run; ///< the thread's alone once it runs
};

// The task is made beforehand: an export may end for want of memory.
EngineRelease::EngineRelease(QObject* parent)
    : QObject(parent)
    , held(std::make_shared<Held>())
    , task(std::make_unique<BackgroundTask>("end-engine",
                                            [held = held](const std::atomic<bool>&) { held->run.reset(); }))
    , patience(this) {
    patience.setSingleShot(true);
    patience.setTimerType(Qt::PreciseTimer);
    connect(task.get(), &BackgroundTask::finished, this, &EngineRelease::onDone);
    connect(&patience, &QTimer::timeout, this, [this] {
        task.reset(); // which leaves it
        onDone();
    });
}

EngineRelease::~EngineRelease() = default;

void EngineRelease::start(std::unique_ptr<Export::Transcoder> transcoder) {
    running = true;
    {
        Kestra::Proc::DeferredRelease release;
        transcoder.reset();
        held->run = release.Take();
    }
    if (!held->run)
        return onDone();
    try {
        task->interrupt(); // from now on its destruction waits for no longer than this does
        patience.start(PATIENCE);
        task->start();
    } catch (const std::exception&) { // no thread is to be had, or no memory for one
        if (task->isRunning())
            return;
        held->run.reset();
        onDone();
    }
}

void EngineRelease::finishHere() {
    patience.stop();
    running = false;
    task.reset();
}

void EngineRelease::onDone() {
    patience.stop();
    if (std::exchange(running, false))
        Q_EMIT ended();
}

} // namespace ExportCore
