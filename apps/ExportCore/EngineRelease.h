// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::EngineRelease: lets go of a transcoder without keeping the event loop.
#pragma once

#include "ExportCore/BoundedTask.h"

namespace Export {
class Transcoder;
}

namespace ExportCore {

/// One transcoder, and with it the threads of its run and what they hold open. Lives on the thread that made it. What
/// does not come to its end is left after two seconds; destruction waits for what is left of them.
class EngineRelease : public QObject {
    Q_OBJECT
public:
    explicit EngineRelease(QObject* parent = nullptr);
    ~EngineRelease() override;

    /// Once. Destroys the transcoder, which may be null, on this thread; its run is interrupted, and waited for on
    /// another one. ended() comes from the event loop, or before this returns: where there is nothing to wait for, and
    /// where no thread is to be had, or no memory for one, which has this one wait.
    void start(std::unique_ptr<Export::Transcoder> transcoder);
    /// Started, and its end has not been told.
    bool isRunning() const { return task.isRunning(); }
    /// What is left of the two seconds is waited for here; ended() does not come any more.
    void finishHere() { task.finishHere(); }
    /// Whether the object is what works for it.
    bool isWorker(const QObject* object) const { return task.isWorker(object); }

Q_SIGNALS:
    /// Once: nobody has to wait any more.
    void ended();

private:
    struct Held;

    /// The thread's too.
    const std::shared_ptr<Held> held;
    BoundedTask task;
};

} // namespace ExportCore
