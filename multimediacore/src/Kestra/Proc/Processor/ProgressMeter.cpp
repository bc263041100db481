// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Processor/ProgressMeter.h"
#include "Kestra/Base/Time.h"
#include <algorithm>
#include <cmath>
#include <limits>

namespace Kestra::Proc {
namespace {

constexpr std::int32_t UNKNOWN = -1;

std::int32_t WholeSeconds(ProgressMeter::Clock::duration time) {
    return static_cast<std::int32_t>(std::chrono::duration_cast<std::chrono::seconds>(time).count());
}

// The longest of those that are known.
std::int64_t Longest(const std::vector<std::int64_t>& durations) {
    std::int64_t longest = UNKNOWN;
    for (const std::int64_t duration : durations) {
        longest = std::max(longest, duration);
    }
    return longest;
}

} // namespace

ProgressMeter::ProgressMeter(const std::vector<std::int64_t>& durations, Clock::time_point start)
    : tracks(durations.size())
    , duration(Longest(durations))
    , start(start)
    , lastReport(start - INTERVAL) {}

void ProgressMeter::Advance(std::size_t stream, std::int64_t time) {
    tracks[stream].time = std::max(tracks[stream].time, time);
    UpdatePosition();
}

void ProgressMeter::End(std::size_t stream) {
    tracks[stream].ended = true;
    UpdatePosition();
}

void ProgressMeter::UpdatePosition() {
    std::int64_t slowest = std::numeric_limits<std::int64_t>::max();
    std::int64_t furthest = 0;
    for (const Track& track : tracks) {
        furthest = std::max(furthest, track.time);
        if (!track.ended) {
            slowest = std::min(slowest, track.time);
        }
    }
    // Never falls: no track goes back, and one that ends lets the others lead.
    position = std::min(slowest, furthest);
    if (duration >= 0) {
        position = std::min(position, duration);
    }
}

bool ProgressMeter::IsDue(Clock::time_point now) const {
    return now - lastReport >= INTERVAL;
}

ProgressReport ProgressMeter::Report(Clock::time_point now) {
    lastReport = now;
    return {GetPercent(), position, duration, WholeSeconds(now - start), GetRemainingSeconds(now)};
}

ProgressReport ProgressMeter::Complete(Clock::time_point now) const {
    return {100, duration >= 0 ? duration : position, duration, WholeSeconds(now - start), 0};
}

std::int32_t ProgressMeter::GetPercent() const {
    if (duration <= 0) {
        return 0;
    }
    __extension__ using Wide = __int128;
    const auto percent = static_cast<std::int32_t>(static_cast<Wide>(position) * 100 / duration);
    return std::min(percent, 99);
}

std::int32_t ProgressMeter::GetRemainingSeconds(Clock::time_point now) const {
    if (duration < 0 || position <= 0) {
        return UNKNOWN;
    }
    const double elapsed = std::chrono::duration<double>(now - start).count();
    const double remaining = elapsed * (static_cast<double>(duration - position) / static_cast<double>(position));
    constexpr double highest = std::numeric_limits<std::int32_t>::max();
    return remaining < highest ? static_cast<std::int32_t>(std::lround(remaining)) : UNKNOWN;
}

} // namespace Kestra::Proc
