// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::ProgressMeter: from packets muxed to the figures of onProgress.
#pragma once

#include "Kestra/Proc/Processor/ProgressReport.h"
#include <chrono>
#include <cstddef>
#include <vector>

namespace Kestra::Proc {

/// Thread-bound. Times of day do not enter: the caller gives readings of the monotonic clock.
class ProgressMeter {
public:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::milliseconds INTERVAL{100};

    /// One duration a stream, TIME_UNKNOWN where it is not known. The longest one is the run's.
    ProgressMeter(const std::vector<std::int64_t>& durations, Clock::time_point start);

    /// `stream` is muxed up to `time`.
    void Advance(std::size_t stream, std::int64_t time);
    /// Nothing follows in `stream`: it no longer holds the position back.
    void End(std::size_t stream);

    /// Whether the last report is long enough ago.
    bool IsDue(Clock::time_point now) const;
    /// Below 100 percent: only Complete says that.
    ProgressReport Report(Clock::time_point now);
    ProgressReport Complete(Clock::time_point now) const;

private:
    struct Track {
        std::int64_t time = 0;
        bool ended = false;
    };

    void UpdatePosition();
    std::int32_t GetPercent() const;
    std::int32_t GetRemainingSeconds(Clock::time_point now) const;

    std::vector<Track> tracks;
    std::int64_t duration;
    std::int64_t position = 0;
    Clock::time_point start;
    Clock::time_point lastReport;
};

} // namespace Kestra::Proc
