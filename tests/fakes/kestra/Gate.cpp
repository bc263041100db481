// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/kestra/Gate.h"

namespace Kestra::Fakes {

void Gate::Pass() {
    std::unique_lock<std::mutex> lock(mutex);
    reached = true;
    changed.notify_all();
    changed.wait(lock, [this] { return open; });
}

void Gate::Open() {
    const std::lock_guard<std::mutex> lock(mutex);
    open = true;
    changed.notify_all();
}

bool Gate::WaitUntilReached(std::chrono::milliseconds deadline) {
    std::unique_lock<std::mutex> lock(mutex);
    return changed.wait_for(lock, deadline, [this] { return reached; });
}

} // namespace Kestra::Fakes
