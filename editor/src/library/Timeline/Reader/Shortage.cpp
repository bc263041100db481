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

/// What is seen or heard where there is nothing: throughout, or for so long.
struct Held {
    const char* always;
    const char* lasting;
};

constexpr Held FIRST{"holds the first picture throughout", "holds the first picture for "};
constexpr Held LAST{"holds the last picture throughout", "holds the last picture for "};
constexpr Held SILENCE{"is silent throughout", "is silent for "};

std::string inWords(Ticks time, const Stretch& stretch, const Held& held, const char* place) {
    return time >= stretch.duration
               ? held.always
               : held.lasting + std::to_string(time.Value() / Kestra::TICKS_PER_MILLISECOND) + " ms" + place;
}

} // namespace

void tellWhatIsBeyond(OtioContext& context, const OtioNode& node, const Stretch& stretch, const TimeRange& contents,
                      Track::Kind kind) {
    const Lack lack = lackOf(stretch, contents);
    const bool isBackwards = stretch.excerpt.speed < 0;
    const bool isSeen = kind == Track::Kind::Video;
    const bool atStart = lack.atStart > Ticks(Kestra::TICKS_PER_MILLISECOND);
    const bool atEnd = lack.atEnd > Ticks(Kestra::TICKS_PER_MILLISECOND);
    std::string held;
    if (atStart)
        held = inWords(lack.atStart, stretch,
                       !isSeen       ? SILENCE
                       : isBackwards ? LAST
                                     : FIRST,
                       atEnd ? " at its start and " : " at its start");
    if (atEnd)
        held += inWords(lack.atEnd, stretch, !isSeen ? SILENCE : isBackwards ? FIRST : LAST, " at its end");
    if (atStart || atEnd)
        context.warn(node, "it goes beyond what there is of its contents and " + held);
}

} // namespace Timeline
