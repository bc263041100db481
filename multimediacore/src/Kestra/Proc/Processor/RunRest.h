// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::RunRest: what is left to be waited for of a processor that was released.
#pragma once

#include "Kestra/Base/LeavableThread.h"
#include <chrono>
#include <memory>

namespace Kestra::Proc {

class ProcessingRun;

/// A run and the thread that it runs on. Its destruction, on whatever thread but the run's own, waits for that one as
/// the last release of a processor does, leaves it where it hangs, and lets go of encoders, streams and muxer, which
/// may take its time as well.
class RunRest {
public:
    explicit RunRest(std::shared_ptr<ProcessingRun> run);
    ~RunRest();
    RunRest(const RunRest&) = delete;
    RunRest& operator=(const RunRest&) = delete;

    ProcessingRun& GetRun() const { return *run; }
    void Start();
    bool IsStarted() const noexcept { return thread.IsRunning(); }
    bool IsCurrentThread() const noexcept { return thread.IsCurrent(); }
    /// Nobody waits for the thread any more.
    void Leave() noexcept { thread.Leave(); }
    /// The patience with the thread begins here, and not with the destruction.
    void BeginWait() noexcept;

private:
    std::shared_ptr<ProcessingRun> run;
    LeavableThread thread;
    std::chrono::steady_clock::time_point deadline;
};

} // namespace Kestra::Proc
