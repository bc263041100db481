// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::BoundedTask: the last work on what may hang, which the event loop waits for two seconds at most.
#pragma once

#include "ExportCore/BackgroundTask.h"
#include <QTimer>
#include <functional>
#include <memory>

namespace ExportCore {

/// Lives on the thread that made it. What does not come to its end is left after two seconds; destruction waits for
/// what is left of them. The work owns, by counted references, everything that it touches. All that can be made
/// beforehand is: an export may end for want of memory.
class BoundedTask : public QObject {
    Q_OBJECT
public:
    /// `threadName` as for LeavableThread.
    BoundedTask(std::string threadName, std::function<void()> work);
    ~BoundedTask() override;

    /// Once. ended() comes from the event loop. Where no thread is to be had, or no memory for one, the work is done
    /// here, and ended() comes before this returns.
    void start();
    /// Started, and its end has not been told.
    bool isRunning() const { return running; }
    /// What is left of the two seconds is waited for here; ended() does not come any more.
    void finishHere();
    /// Whether the object is what works for it.
    bool isWorker(const QObject* object) const { return object == task.get(); }

Q_SIGNALS:
    /// Once: the work was done, or left.
    void ended();

private:
    void onDone();

    const std::function<void()> work;
    std::unique_ptr<BackgroundTask> task; ///< null once its thread was left
    QTimer patience;
    bool running = false;
};

} // namespace ExportCore
