// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Processor/EventSink.h"

namespace Kestra::Proc {

void EventSink::SetReceiver(IProcessingEvents* newReceiver) {
    // Before the lock, so that no further event slips in while this thread waits for the one under way.
    receiver = newReceiver;
    const std::lock_guard<std::recursive_mutex> lock(mutex);
}

void EventSink::Started() {
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    if (IProcessingEvents* current = receiver) {
        current->onStarted();
    }
}

void EventSink::Progress(const ProgressReport& report) {
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    if (IProcessingEvents* current = receiver) {
        current->onProgress(report.percent, report.position, report.duration, report.elapsedSeconds,
                            report.remainingSeconds);
    }
}

void EventSink::Failed(const std::exception_ptr& error) noexcept {
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    try {
        if (IProcessingEvents* current = receiver) {
            current->onError(error);
        }
    } catch (...) {
        return;
    }
}

void EventSink::Finished() noexcept {
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    try {
        if (IProcessingEvents* current = receiver) {
            current->onFinished();
        }
    } catch (...) {
        return;
    }
}

} // namespace Kestra::Proc
