// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace Kestra::Proc {

/// The arguments of IProcessingEvents::onProgress.
struct ProgressReport {
    std::int32_t percent = 0;
    std::int64_t position = 0;          ///< engine time
    std::int64_t duration = -1;         ///< engine time; -1 when unknown
    std::int32_t elapsedSeconds = 0;    ///< whole seconds since the run started
    std::int32_t remainingSeconds = -1; ///< -1 when unknown
};

} // namespace Kestra::Proc
