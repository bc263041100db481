#include "Kestra/FF/SamplePlacement.h"

#include <algorithm>
#include <cstdlib>

namespace Kestra::FF {

namespace {

// Less than the shortest usual block (20 ms), so that a lost block is noticed.
constexpr std::int64_t JITTER_PER_SECOND = 80;
// More is never jitter.
constexpr std::int64_t JUMPS_PER_SECOND = 2;

} // namespace

std::int64_t PlaceNext(const std::vector<TimedBlock>& blocks, std::int64_t flow, int sampleRate) {
    const std::int64_t jitter = sampleRate / JITTER_PER_SECOND;
    const std::int64_t deviation = std::abs(blocks.front().place - flow);
    if (deviation > sampleRate / JUMPS_PER_SECOND)
        return blocks.front().place;
    std::int64_t expected = flow;
    for (const TimedBlock& block : blocks) {
        if (std::abs(block.place - expected) <= jitter)
            return flow;
        expected += block.count;
    }
    return blocks.front().place;
}

std::int64_t PlaceFirst(const std::vector<TimedBlock>& blocks, int sampleRate) {
    std::vector<std::int64_t> starts;
    std::int64_t before = 0;
    for (const TimedBlock& block : blocks) {
        starts.push_back(block.place - before);
        before += block.count;
    }
    const std::int64_t own = starts.front();
    std::sort(starts.begin(), starts.end());
    for (std::size_t index = 0; index + 1 < starts.size(); ++index)
        if (starts[index + 1] - starts[index] <= sampleRate / JITTER_PER_SECOND)
            return starts[index];
    return own;
}

std::int64_t SnapToGrain(std::int64_t place, std::int64_t phase, int grain, std::int64_t tolerance) {
    if (grain <= 0)
        return place;
    const std::int64_t off = ((place - phase) % grain + grain) % grain;
    const std::int64_t distance = off > grain / 2 ? off - grain : off;
    return std::abs(distance) <= tolerance ? place - distance : place;
}

} // namespace Kestra::FF
