// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::InterruptibleRead: a call that reads a file and that another thread may interrupt.
#pragma once

#include "Kestra/Proc/Interrupted.h"
#include "Kestra/Proc/ProcException.h"
#include <atomic>

namespace Kestra::FF {

inline void RefuseInterrupted(const std::atomic<bool>& interrupted) {
    if (interrupted)
        KESTRA_THROW(Proc::Interrupted());
}

/// Throws Interrupted instead of what `read` throws once `interrupted`: that tells nothing of the file.
template <class Read>
auto InterruptibleRead(const std::atomic<bool>& interrupted, const Read& read) -> decltype(read()) {
    RefuseInterrupted(interrupted);
    try {
        return read();
    } catch (const Proc::ProcException&) {
        RefuseInterrupted(interrupted);
        throw;
    }
}

} // namespace Kestra::FF
