// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::OutputRemoval: lets go of an output away from the event loop.
#pragma once

#include "ExportCore/BoundedTask.h"

namespace ExportCore {

class IOutputTransaction;

/// One output, whose private file goes unless it was committed. Lives on the thread that made it. A folder that does
/// not answer is left after two seconds; destruction waits as long for a removal that was started, and leaves it, too.
class OutputRemoval : public QObject {
    Q_OBJECT
public:
    explicit OutputRemoval(QObject* parent = nullptr);
    ~OutputRemoval() override;

    /// Once; takes the output over. ended() comes from the event loop. Where no thread is to be had, or no memory for
    /// one, the output is let go of here, and ended() comes before this returns.
    void start(std::shared_ptr<IOutputTransaction> output);
    /// Started, and its end has not been told.
    bool isRunning() const { return task.isRunning(); }
    /// After ended(): whether what was made stands at its place. False when that is not known.
    bool isCommitted() const;
    /// After ended(): whether the folder did not answer.
    bool isHanging() const { return hangs; }
    /// Whether the object is what works for it.
    bool isWorker(const QObject* object) const { return task.isWorker(object); }

Q_SIGNALS:
    /// Once: nobody has to wait any more.
    void ended();

private:
    struct Held;

    void onEnded();
    void leaveWhatHangs();

    /// The thread's too.
    const std::shared_ptr<Held> held;
    std::weak_ptr<IOutputTransaction> left;
    BoundedTask task;
    bool hangs = false;
};

} // namespace ExportCore
