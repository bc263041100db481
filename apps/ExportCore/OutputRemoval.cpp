// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/OutputRemoval.h"

#include "ExportCore/IOutputTransaction.h"
#include <atomic>
#include <utility>

namespace ExportCore {

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

OutputRemoval::OutputRemoval(QObject* parent)
    : QObject(parent)
    , held(std::make_shared<Held>())
    , task("remove-output", [held = held] { held->remove(); }) {
    connect(&task, &BoundedTask::ended, this, &OutputRemoval::onEnded);
}

OutputRemoval::~OutputRemoval() {
    task.finishHere();
    leaveWhatHangs();
}

void OutputRemoval::start(std::shared_ptr<IOutputTransaction> output) {
    left = output;
    held->output = std::move(output);
    task.start();
}

bool OutputRemoval::isCommitted() const {
    return held->committed;
}

void OutputRemoval::onEnded() {
    leaveWhatHangs();
    hangs = !held->ended;
    Q_EMIT ended();
}

/// An end of the process on the spot must not wait for it either.
void OutputRemoval::leaveWhatHangs() {
    if (held->ended)
        return;
    if (const auto hanging = left.lock())
        hanging->leave();
}

} // namespace ExportCore
