// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/MediaShortage.h"

#include "Kestra/Base/TimeMap.h"
#include <algorithm>
#include <cstdlib>

namespace ExportCore {
namespace {

using Kestra::Ticks;
using Timeline::Track;

/// A part of a clip's place, counted from the clip's start.
struct Part {
    const char* goes; ///< which it is: how a sentence begins
    Ticks start;
    Ticks end;
};

/// How far a part goes beyond the medium's ends.
struct Lack {
    Ticks before;
    Ticks behind;
};

Lack lackOf(const Part& part, const Timeline::Clip& clip, const MediaLength& there) {
    const Kestra::TimeMap map{Ticks(0), clip.excerpt.start - there.origin, clip.excerpt.speed};
    const auto [first, last] = std::minmax({map.ToSource(part.start), map.ToSource(part.end)});
    return {Ticks(0) - first, last - there.duration};
}

std::string inMilliseconds(Ticks time) {
    return std::to_string(time.Value() / Kestra::TICKS_PER_MILLISECOND) + " ms";
}

/// What is seen or heard where there is nothing: throughout, or for so long.
struct Held {
    const char* always;
    const char* lasting;
};

constexpr Held FIRST{"shows nothing but the first picture", "holds the first picture for "};
constexpr Held LAST{"shows nothing but the last picture", "holds the last picture for "};
constexpr Held SILENCE{"is silent throughout", "is silent for "};

/// Where a part goes so far beyond an end of its medium.
std::string inWords(Ticks beyond, const Part& part, const PlacedClip& placed, const Held& picture) {
    const auto& speed = placed.clip.excerpt.speed;
    const Ticks whole = part.end - part.start;
    const Ticks played =
        speed == 0 ? whole
                   : Ticks(Kestra::MulDivRound(beyond.Value(), speed.denominator(), std::abs(speed.numerator())));
    const Ticks lasting = std::min(played, whole);
    const Held& held = placed.kind == Track::Kind::Audio ? SILENCE : picture;
    const bool isAlways = lasting == placed.duration && part.start == Ticks(0);
    return isAlways ? std::string(held.always) : held.lasting + inMilliseconds(lasting);
}

std::string shortageOf(const Part& part, const PlacedClip& placed, const MediaLength& there) {
    const Lack lack = lackOf(part, placed.clip, there);
    std::string text;
    if (lack.before > there.atStart)
        text += part.goes + inMilliseconds(lack.before) + " before its beginning and " +
                inWords(lack.before, part, placed, FIRST);
    if (lack.behind > there.atEnd)
        text += part.goes + inMilliseconds(lack.behind) + " beyond it and " + inWords(lack.behind, part, placed, LAST);
    return text;
}

} // namespace

std::string shortageOf(const PlacedClip& placed, const MediaLength& there) {
    const auto& [clip, kind, duration, before, behind] = placed;
    std::string text = shortageOf({"; the clip goes ", Ticks(0), duration}, placed, there);
    const bool moves = clip.excerpt.speed != 0; // a frozen frame is there as long as it is wanted
    if (moves && before > Ticks(0))
        text += shortageOf({"; the transition before the clip goes ", Ticks(0) - before, Ticks(0)}, placed, there);
    if (moves && behind > Ticks(0))
        text += shortageOf({"; the transition behind the clip goes ", duration, duration + behind}, placed, there);
    return text.empty() ? text : "lasts " + inMilliseconds(there.duration) + text;
}

} // namespace ExportCore
