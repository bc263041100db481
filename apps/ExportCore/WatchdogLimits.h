// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::WatchdogLimits: how long silence may last.
#pragma once

#include <chrono>

namespace ExportCore {

/// The time a whole process is suspended does not count.
struct WatchdogLimits {
    /// From the request to the first sign that the run goes on.
    std::chrono::milliseconds start{120'000};
    /// Between two signs of life. An encoder with a deep look-ahead is silent for long on a slow machine.
    std::chrono::milliseconds progress{300'000};
    /// From a stop to the end of the run.
    std::chrono::milliseconds stop{10'000};
};

} // namespace ExportCore
