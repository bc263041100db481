// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Probe/AudioLevels.h"

#include "Kestra/Base/Time.h"
#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace Kestra::FF {

namespace {

// Clocks of a millisecond round both a time and the one before.
constexpr std::int64_t ROUNDING = 5 * TIME_BASE / 2000;
// Of the packets; jumps both forth and back. Gaps only go forth.
constexpr std::int64_t SHARE_OF_JUMPS = 40;
constexpr std::int64_t LEAST_JUMPS = 2;
// A wrong timestamp counts no more than that.
constexpr std::int64_t WIDEST = TIME_BASE / 10;
// The beginning and the end: so much of the stretch, at least.
constexpr std::int64_t SPAN = 2 * TIME_BASE;
// The mean of the beginning and that of the end differ by less where nothing is between them but jitter.
constexpr std::int64_t LEVEL = TIME_BASE / 125;

} // namespace

void AudioLevels::Clear() {
    *this = AudioLevels();
}

void AudioLevels::Take(std::int64_t time, std::int64_t length) {
    if (time != TIME_UNKNOWN && length > 0) {
        const std::int64_t level = time - sum;
        if (levels.empty())
            firstLength = length;
        const std::int64_t step = levels.empty() ? 0 : level - levels.back();
        forth += step > ROUNDING;
        back += step < -ROUNDING;
        distance += std::min(std::abs(step), WIDEST);
        levels.push_back(level);
    }
    sum += length;
}

bool AudioLevels::AreJittery() const {
    const auto least = std::max<std::int64_t>(LEAST_JUMPS, static_cast<std::int64_t>(levels.size()) / SHARE_OF_JUMPS);
    return std::min(forth, back) >= least;
}

std::int64_t AudioLevels::GetJitter() const {
    return levels.size() > 1 ? distance / static_cast<std::int64_t>(levels.size() - 1) : 0;
}

// Packets of the beginning or the end.
std::size_t AudioLevels::Span() const {
    if (levels.empty() || sum <= SPAN)
        return levels.size();
    const std::int64_t mean = std::max<std::int64_t>(sum / static_cast<std::int64_t>(levels.size()), 1);
    return std::min(levels.size(), static_cast<std::size_t>(SPAN / mean) + 1);
}

// Without those far off the middle one.
std::int64_t AudioLevels::MeanOf(std::size_t begin, std::size_t end) const {
    std::vector<std::int64_t> values(levels.begin() + static_cast<std::ptrdiff_t>(begin),
                                     levels.begin() + static_cast<std::ptrdiff_t>(end));
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    const std::int64_t centre = *middle;
    std::int64_t count = 0;
    std::int64_t total = 0;
    for (const std::int64_t value : values) {
        if (std::abs(value - centre) > WIDEST)
            continue;
        ++count;
        total += value - centre;
    }
    return centre + total / count;
}

bool AudioLevels::IsOneLevel() const {
    return std::abs(MeanOf(0, Span()) - MeanOf(levels.size() - Span(), levels.size())) < LEVEL;
}

std::int64_t AudioLevels::GetStart() const {
    return levels.empty() ? TIME_UNKNOWN : MeanOf(0, IsOneLevel() ? levels.size() : Span());
}

std::int64_t AudioLevels::GetStartCorrection() const {
    return levels.empty() ? 0 : GetStart() - levels.front();
}

std::int64_t AudioLevels::GetEnd() const {
    if (levels.empty())
        return TIME_UNKNOWN;
    return sum + MeanOf(IsOneLevel() ? 0 : levels.size() - Span(), levels.size());
}

} // namespace Kestra::FF
