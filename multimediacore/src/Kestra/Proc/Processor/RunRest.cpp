// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Processor/RunRest.h"
#include "Kestra/Proc/Processor/ProcessingRun.h"
#include <utility>

namespace Kestra::Proc {
namespace {

// Longer than the run itself waits for its encoders.
constexpr std::chrono::seconds PATIENCE{3};

} // namespace

RunRest::RunRest(std::shared_ptr<ProcessingRun> run)
    : run(std::move(run)) {}

// A thread that hangs in the output goes on by itself: it holds the run, whose receiver is detached.
RunRest::~RunRest() {
    thread.JoinOrLeave(deadline);
}

void RunRest::Start() {
    thread.Start("kestra-mux", [held = run] { held->Run(); });
}

void RunRest::BeginWait() noexcept {
    deadline = std::chrono::steady_clock::now() + PATIENCE;
}

} // namespace Kestra::Proc
