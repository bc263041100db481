// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/kestra/EventRecorder.h"
#include <algorithm>
#include <utility>

namespace Kestra::Fakes {

EventRecorder::EventRecorder(std::shared_ptr<Script> script)
    : script(std::move(script)) {}

CallLog::Calls EventRecorder::GetMainEvents() const {
    CallLog::Calls events = script->GetLog()->Get();
    events.erase(std::remove(events.begin(), events.end(), "onProgress"), events.end());
    return events;
}

std::vector<EventRecorder::Progress> EventRecorder::GetProgress() const {
    const std::lock_guard<std::mutex> lock(mutex);
    return progress;
}

std::exception_ptr EventRecorder::GetError() const {
    const std::lock_guard<std::mutex> lock(mutex);
    return error;
}

std::thread::id EventRecorder::GetThread() const {
    const std::lock_guard<std::mutex> lock(mutex);
    return thread;
}

bool EventRecorder::WaitForEnd(std::chrono::milliseconds deadline) const {
    return script->GetLog()->WaitFor(
        [](const CallLog::Calls& calls) {
            return std::any_of(calls.begin(), calls.end(),
                               [](const std::string& call) { return call == "onError" || call == "onFinished"; });
        },
        deadline);
}

// A script may release the processor and, with it, let the test destroy this recorder: nothing is touched after the
// call.
void EventRecorder::Note(const std::string& event) {
    {
        const std::lock_guard<std::mutex> lock(mutex);
        thread = std::this_thread::get_id();
    }
    const auto held = script;
    held->Call(event);
}

void EventRecorder::onError(std::exception_ptr cause) {
    {
        const std::lock_guard<std::mutex> lock(mutex);
        error = std::move(cause);
    }
    Note("onError");
}

void EventRecorder::onProgress(std::int32_t percent, std::int64_t position, std::int64_t duration,
                               std::int32_t elapsedSeconds, std::int32_t remainingSeconds) {
    {
        const std::lock_guard<std::mutex> lock(mutex);
        progress.push_back({percent, position, duration, elapsedSeconds, remainingSeconds});
    }
    Note("onProgress");
}

void EventRecorder::onStarted() {
    Note("onStarted");
}

void EventRecorder::onPaused() {
    Note("onPaused");
}

void EventRecorder::onResumed() {
    Note("onResumed");
}

void EventRecorder::onFinished() {
    Note("onFinished");
}

} // namespace Kestra::Fakes
