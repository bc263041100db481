// SPDX-License-Identifier: GPL-3.0-or-later
// The arithmetic that turns the progress of one pass into that of the whole run.
#pragma once

#include "KTime/KTime.h"
#include <cstdint>

namespace Export {

/// What the engine tells of the running pass: times in engine time, seconds -1 when unknown.
struct PassProgress {
    std::int32_t percent = 0;
    std::int64_t position = 0;
    std::int64_t duration = 0;
    std::int32_t elapsedSeconds = -1;
    std::int32_t remainingSeconds = -1;
};

/// Where the run stands: pass `passIndex` (from 0) of `passCount` (at least 1), `elapsed` after the run's start.
struct RunPosition {
    std::int32_t passIndex = 0;
    std::int32_t passCount = 1;
    KTime elapsed;
};

/// Every pass is an equal share of the hundred.
std::int32_t overallPercent(const PassProgress& pass, const RunPosition& run);

/// KTime(-1), unknown, in the first two seconds of a pass and where no number comes out. On the last pass the engine's
/// own estimate; before it the time spent so far is extrapolated, every pass counting as one whole duration.
KTime remainingTime(const PassProgress& pass, const RunPosition& run);

} // namespace Export
