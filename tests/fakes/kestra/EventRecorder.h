// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Fakes::EventRecorder: a receiver that remembers what it was told.
#pragma once

#include "Kestra/Proc/IProcessingEvents.h"
#include "fakes/kestra/Script.h"
#include <thread>

namespace Kestra::Fakes {

/// Calls in its script, which may throw or act on the processor: "onStarted", "onProgress", "onError", "onPaused",
/// "onResumed", "onFinished". The getters are thread-safe.
class EventRecorder : public Proc::IProcessingEvents {
public:
    struct Progress {
        std::int32_t percent;
        std::int64_t position;
        std::int64_t duration;
        std::int32_t elapsedSeconds;
        std::int32_t remainingSeconds;
    };

    explicit EventRecorder(std::shared_ptr<Script> script = std::make_shared<Script>());

    Script& GetScript() { return *script; }
    /// What was told, progress left out.
    CallLog::Calls GetMainEvents() const;
    std::vector<Progress> GetProgress() const;
    std::exception_ptr GetError() const;
    /// The thread of the last event.
    std::thread::id GetThread() const;
    /// Until onError or onFinished.
    bool WaitForEnd(std::chrono::milliseconds deadline = DEADLINE) const;

    void onError(std::exception_ptr error) override;
    void onProgress(std::int32_t percent, std::int64_t position, std::int64_t duration, std::int32_t elapsedSeconds,
                    std::int32_t remainingSeconds) override;
    void onStarted() override;
    void onPaused() override;
    void onResumed() override;
    void onFinished() override;

private:
    void Note(const std::string& event);

    const std::shared_ptr<Script> script;
    mutable std::mutex mutex;
    std::vector<Progress> progress;
    std::exception_ptr error;
    std::thread::id thread;
};

} // namespace Kestra::Fakes
