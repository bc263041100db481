// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/OutputRemoval.h"

#include "ExportCore/IOutputTransaction.h"
#include <chrono>
#include <utility>

namespace ExportCore {
namespace {

constexpr std::chrono::seconds PATIENCE{2}; // as long as a task's destruction waits

} // namespace

struct OutputRemoval::Held {
    void remove() {
        output->rollback();
        committed = output->isCommitted();
        output.reset(); // which closes it: that may hang, too
        ended = true;
    }

    std::shared_ptr<IOutputTransaction> output; ///< the thread's alone once it runs
    std::atomic<bool> committed{false};
    std::atomic<bool> ended{false};
};

// The task is made beforehand: an export may end for want of memory.
OutputRemoval::OutputRemoval(QObject* parent)
    : QObject(parent)
    , held(std::make_shared<Held>())
    , task(std::make_unique<BackgroundTask>("remove-output",
                                            [held = held](const std::atomic<bool>&) { held->remove(); }))
    , patience(this) {
    patience.setSingleShot(true);
    patience.setTimerType(Qt::PreciseTimer);
    connect(task.get(), &BackgroundTask::finished, this, &OutputRemoval::onDone);
    connect(&patience, &QTimer::timeout, this, &OutputRemoval::onPatienceLost);
}

OutputRemoval::~OutputRemoval() {
    leaveWhatHangs();
}

void OutputRemoval::start(std::shared_ptr<IOutputTransaction> output) {
    running = true;
    left = output;
    held->output = std::move(output);
    try {
        task->interrupt(); // from now on its destruction waits for no longer than this does
        patience.start(PATIENCE);
        task->start();
    } catch (const std::exception&) { // no thread is to be had, or no memory for one
        if (task->isRunning())
            return;
        held->remove();
        onDone();
    }
}

bool OutputRemoval::isCommitted() const {
    return held->committed;
}

void OutputRemoval::onDone() {
    patience.stop();
    running = false;
    Q_EMIT ended();
}

void OutputRemoval::onPatienceLost() {
    leaveWhatHangs();
    hangs = !held->ended;
    running = false;
    Q_EMIT ended();
}

/// An end of the process on the spot must not wait for it either.
void OutputRemoval::leaveWhatHangs() {
    task.reset();
    if (held->ended)
        return;
    if (const auto hanging = left.lock())
        hanging->leave();
}

} // namespace ExportCore
