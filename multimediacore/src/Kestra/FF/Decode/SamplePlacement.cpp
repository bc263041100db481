// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Decode/SamplePlacement.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace Kestra::FF {

namespace {

// Less than the shortest usual block (20 ms), so that a lost block is noticed.
constexpr std::int64_t JITTER_PER_SECOND = 80;
// Timestamps strewn evenly over a range differ from each other by a third of it on average, and at its ends are off
// what the rest means by more than that.
constexpr std::int64_t WIDEST_JITTER = 4;

// Of each block against where it lies if the first begins at `flow` and the others follow on.
std::vector<std::int64_t> Deviations(const std::vector<TimedBlock>& blocks, std::int64_t flow) {
    std::vector<std::int64_t> deviations;
    deviations.reserve(blocks.size());
    for (const TimedBlock& block : blocks) {
        deviations.push_back(block.place - flow);
        flow += block.count;
    }
    return deviations;
}

// Of an even number the lower one: a last block alone does not outvote the one before it.
std::int64_t Median(std::vector<std::int64_t> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>((values.size() - 1) / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

} // namespace

std::int64_t GapTolerance(std::int64_t jitter, int sampleRate) {
    return std::max<std::int64_t>(sampleRate / JITTER_PER_SECOND, WIDEST_JITTER * jitter);
}

std::int64_t PlaceNext(const std::vector<TimedBlock>& blocks, std::int64_t flow, int sampleRate,
                       const TimestampHabit& habit) {
    const std::int64_t tolerance = GapTolerance(habit.jitter, sampleRate);
    const std::vector<std::int64_t> deviations = Deviations(blocks, flow + habit.drift);
    const std::int64_t own = deviations.front();
    const std::int64_t common = Median(deviations);
    // Those after a gap tell of it before its place is reached.
    const bool shared = (own < 0) == (common < 0) && 2 * std::abs(own) >= std::abs(common);
    if (!shared || std::abs(own) <= tolerance || std::abs(common) <= tolerance)
        return flow;
    const bool jittery = tolerance > sampleRate / JITTER_PER_SECOND;
    return jittery ? PlaceFirstOfJittery(blocks) : blocks.front().place;
}

std::int64_t PlaceFirst(const std::vector<TimedBlock>& blocks, int sampleRate) {
    std::vector<std::int64_t> starts = Deviations(blocks, 0);
    const std::int64_t own = starts.front();
    std::sort(starts.begin(), starts.end());
    for (std::size_t index = 0; index + 1 < starts.size(); ++index)
        if (starts[index + 1] - starts[index] <= sampleRate / JITTER_PER_SECOND)
            return starts[index];
    return own;
}

std::int64_t PlaceFirstOfJittery(const std::vector<TimedBlock>& blocks) {
    std::vector<std::int64_t> starts = Deviations(blocks, 0);
    std::sort(starts.begin(), starts.end());
    // Without the tenths at the ends, which one wrong timestamp would spoil.
    const auto edge = static_cast<std::ptrdiff_t>(starts.size() / 10);
    const std::int64_t sum = std::accumulate(starts.begin() + edge, starts.end() - edge, std::int64_t{0});
    return sum / (static_cast<std::ptrdiff_t>(starts.size()) - 2 * edge);
}

std::int64_t SnapToGrain(std::int64_t place, std::int64_t phase, int grain, std::int64_t tolerance) {
    if (grain <= 0)
        return place;
    const std::int64_t off = ((place - phase) % grain + grain) % grain;
    const std::int64_t distance = off > grain / 2 ? off - grain : off;
    return std::abs(distance) <= tolerance ? place - distance : place;
}

} // namespace Kestra::FF
