// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::EventSink: the way to the events' receiver, which may be taken away at any moment.
#pragma once

#include "Kestra/Proc/IProcessingEvents.h"
#include "Kestra/Proc/Processor/ProgressReport.h"
#include <atomic>
#include <mutex>

namespace Kestra::Proc {

/// Thread-safe. An event holds the lock: SetReceiver waits for one that is under way, so none reaches the old receiver
/// after it. An event may itself set the receiver or release the processor, hence the recursive lock.
class EventSink {
public:
    void SetReceiver(IProcessingEvents* newReceiver);

    /// Started and Progress let the receiver's exceptions through, the two last events swallow them: nobody is left to
    /// tell.
    void Started();
    void Progress(const ProgressReport& report);
    void Failed(const std::exception_ptr& error) noexcept;
    void Finished() noexcept;

private:
    std::recursive_mutex mutex;
    std::atomic<IProcessingEvents*> receiver{nullptr};
};

} // namespace Kestra::Proc
