// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/Shortage.h"

#include "Kestra/Base/Time.h"
#include "Kestra/Base/TimeMap.h"
#include <algorithm>

namespace Timeline {
namespace {

using Kestra::Ticks;

/// How much of the stretch lies before and behind what there is of its source, in its own time.
struct Lack {
    Ticks atStart;
    Ticks atEnd;
};

Lack lackOf(const Stretch& stretch, const TimeRange& there) {
    const Excerpt& excerpt = stretch.excerpt;
    if (excerpt.speed == 0)
        return {excerpt.start < there.start ? stretch.duration : Ticks(0),
                excerpt.start >= there.end() ? stretch.duration : Ticks(0)};
    const Kestra::TimeMap map{Ticks(0), excerpt.start, excerpt.speed};
    const auto [first, last] = std::minmax({map.FromSource(there.start), map.FromSource(there.end())});
    return {std::clamp(first, Ticks(0), stretch.duration),
            stretch.duration - std::clamp(last, Ticks(0), stretch.duration)};
}

std::string lasting(Ticks time, Ticks duration, const char* end) {
    return time >= duration
               ? " throughout"
               : " for " + std::to_string(time.Value() / Kestra::TICKS_PER_MILLISECOND) + " ms at its " + end;
}

} // namespace

void tellWhatIsBeyond(OtioContext& context, const OtioNode& node, const Stretch& stretch, const TimeRange& contents,
                      Track::Kind kind) {
    const Lack lack = lackOf(stretch, contents);
    const bool isBackwards = stretch.excerpt.speed < 0;
    std::string held;
    const auto add = [&](Ticks time, const char* end, const char* picture) {
        if (time <= Ticks(Kestra::TICKS_PER_MILLISECOND))
            return;
        const std::string what =
            kind == Track::Kind::Video ? std::string("holds the ") + picture + " picture" : "is silent";
        held += (held.empty() ? "" : " and ") + what + lasting(time, stretch.duration, end);
    };
    add(lack.atStart, "start", isBackwards ? "last" : "first");
    add(lack.atEnd, "end", isBackwards ? "first" : "last");
    if (!held.empty())
        context.warn(node, "it goes beyond what there is of its contents and " + held);
}

} // namespace Timeline
