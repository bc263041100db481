#include "Kestra/Proc/Processor/EventSink.h"

namespace Kestra::Proc {

void EventSink::SetReceiver(IProcessingEvents* newReceiver) {
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    receiver = newReceiver;
}

void EventSink::Started() {
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    if (receiver != nullptr) {
        receiver->onStarted();
    }
}

void EventSink::Progress(const ProgressReport& report) {
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    if (receiver != nullptr) {
        receiver->onProgress(report.percent, report.position, report.duration, report.elapsedSeconds,
                             report.remainingSeconds);
    }
}

void EventSink::Failed(const std::exception_ptr& error) noexcept {
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    try {
        if (receiver != nullptr) {
            receiver->onError(error);
        }
    } catch (...) {
        return;
    }
}

void EventSink::Finished() noexcept {
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    try {
        if (receiver != nullptr) {
            receiver->onFinished();
        }
    } catch (...) {
        return;
    }
}

} // namespace Kestra::Proc
