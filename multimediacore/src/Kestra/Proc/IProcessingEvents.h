// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::IProcessingEvents: what a stream processor reports, from its own threads.
#pragma once

#include "KestraExport.h"
#include <cstdint>
#include <exception>

namespace Kestra::Proc {

/// Order of a run: onStarted once, onProgress any number of times, then exactly one of onError and onFinished. A run
/// that fails or is stopped before its output is open ends without the first two. The order of the operations is part
/// of the binary interface.
class KESTRA_EXPORT IProcessingEvents {
public:
    virtual ~IProcessingEvents();

    virtual void onError(std::exception_ptr error) = 0;
    /// Percent of this run, never falling; position and duration in engine time; whole seconds, -1 when unknown.
    virtual void onProgress(std::int32_t percent, std::int64_t position, std::int64_t duration,
                            std::int32_t elapsedSeconds, std::int32_t remainingSeconds) = 0;
    virtual void onStarted() = 0;
    virtual void onPaused() = 0;
    virtual void onResumed() = 0;
    virtual void onFinished() = 0;
};

} // namespace Kestra::Proc
