// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::retire: lets go of work that may hang, without waiting for it.
#pragma once

#include "ExportCore/BackgroundTask.h"
#include <memory>

namespace Dialog {

/// Interrupts the task, if it still runs; it goes when it comes to its end, at the latest with its last owner, whose
/// destruction waits for it as BackgroundTask's does. Its signals reach nobody any more.
template <class Task>
void retire(std::unique_ptr<Task>& held, QObject& lastOwner) {
    Task* const task = held.release();
    if (!task)
        return;
    task->disconnect();
    task->setParent(&lastOwner);
    if (!task->isRunning())
        return task->deleteLater();
    QObject::connect(task, &ExportCore::BackgroundTask::finished, task, &QObject::deleteLater);
    task->interrupt();
}

} // namespace Dialog
