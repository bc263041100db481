// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Fakes::Gate: holds threads until a test lets them go.
#pragma once

#include "fakes/kestra/CallLog.h"

namespace Kestra::Fakes {

/// Thread-safe. Once open it stays open.
class Gate {
public:
    /// Waits until the gate is open.
    void Pass();
    void Open();
    /// True once a thread has come to the gate; false when the deadline passes first.
    bool WaitUntilReached(std::chrono::milliseconds deadline = DEADLINE);

private:
    std::mutex mutex;
    std::condition_variable changed;
    bool reached = false;
    bool open = false;
};

} // namespace Kestra::Fakes
