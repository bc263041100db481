// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Filters/SamplingRule.h"

#include "Kestra/Base/Exception.h"
#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace Kestra::Proc {

SamplingRule::SamplingRule(const FrameGrid& grid, Pace pace, const TimeMap& map, std::optional<Ticks> furthest)
    : grid(grid)
    , pace(pace)
    , map(map)
    , furthest(map.speed == 0 ? std::nullopt : furthest) {}

Ticks SamplingRule::Shown(FrameIndex index) const {
    const Ticks time = map.ToSource(grid.Middle(index));
    if (!furthest)
        return time;
    return RunsBackwards() ? std::max(time, *furthest) : std::min(time, *furthest);
}

FrameIndex SamplingRule::FirstShowing(Ticks time) const {
    if (RunsBackwards())
        KESTRA_THROW(std::logic_error("Backwards, what a frame shows first is what its source shows last"));
    if (map.speed == 0)
        return FrameIndex(time <= map.there ? INT64_MIN : INT64_MAX);
    if (furthest && time > *furthest)
        return FrameIndex(INT64_MAX);
    // The estimate may be one off either way; the middles decide.
    FrameIndex index = grid.Nearest(map.FromSource(time)) - FrameIndex(1);
    while (Shown(index) < time)
        ++index;
    return index;
}

bool SamplingRule::FollowsOn(FrameIndex following, Ticks time) const {
    const Ticks begin = map.ToSource(grid.Begin(following));
    const Ticks length = map.ToSource(grid.Begin(following + FrameIndex(1))) - begin;
    return 4 * std::abs((time - begin).Value()) < 3 * length.Value();
}

FrameIndex SamplingRule::FirstShowingAfter(FrameIndex last, Ticks time) const {
    if (furthest && !RunsBackwards() && time > *furthest)
        return FrameIndex(INT64_MAX);
    const FrameIndex following = last + FrameIndex(1);
    if (!RunsBackwards() && pace == Pace::Grid && FollowsOn(following, time))
        return following;
    return std::max(last, FirstShowing(time));
}

} // namespace Kestra::Proc
