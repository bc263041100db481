// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::BackgroundTask: work away from the event loop that nobody has to wait for for ever.
#pragma once

#include "ExportCoreExport.h"
#include "Kestra/Base/LeavableThread.h"
#include "Kestra/Util/FunctorExecutionForwarder.h"
#include <QObject>
#include <QTimer>
#include <atomic>
#include <exception>
#include <functional>
#include <memory>
#include <string>

namespace ExportCore {

/// Lives on the thread that made it; every signal comes from that thread's event loop. Destruction interrupts the work
/// and waits for its end, but some seconds after the interrupt it leaves a thread that hangs: the work owns, by counted
/// references, everything that it touches.
class EXPORTCORE_EXPORT BackgroundTask : public QObject {
    Q_OBJECT
public:
    /// Gets the flag that asks it to come to an end. What it throws is the task's failure.
    using Work = std::function<void(const std::atomic<bool>& interrupted)>;

    /// `threadName` as for LeavableThread.
    BackgroundTask(std::string threadName, Work work, QObject* parent = nullptr);
    ~BackgroundTask() override;

    /// Once.
    void start();
    void interrupt();
    /// Started, and its end has not been told.
    bool isRunning() const { return running; }

Q_SIGNALS:
    /// The work goes on: its thread has computed something. One that hangs in a call computes nothing.
    void alive();
    /// Null when the work was done.
    void finished(std::exception_ptr error);

private:
    struct Shared;

    void lookForLife();
    void end();

    Kestra::Util::FunctorExecutionForwarder forwarder;
    const std::string threadName;
    Work work; ///< the thread's once it runs
    /// The thread's too.
    const std::shared_ptr<Shared> shared;
    Kestra::LeavableThread thread;
    QTimer timer;
    long long computed = 0; ///< nanoseconds
    bool running = false;
};

} // namespace ExportCore
