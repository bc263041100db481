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
    const char* name;
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

/// What is seen or heard where a part goes so far beyond one end of its medium.
std::string inPlaceOf(Ticks beyond, const Part& part, const PlacedClip& placed, const char* picture) {
    const auto& speed = placed.clip.excerpt.speed;
    const Ticks whole = part.end - part.start;
    const Ticks played =
        speed == 0 ? whole
                   : Ticks(Kestra::MulDivRound(beyond.Value(), speed.denominator(), std::abs(speed.numerator())));
    const Ticks lasting = std::min(played, whole);
    const bool always = lasting == placed.duration && part.start == Ticks(0);
    if (placed.kind == Track::Kind::Audio)
        return always ? "is silent throughout" : "is silent for " + inMilliseconds(lasting);
    return always ? std::string("shows nothing but the ") + picture
                  : std::string("holds the ") + picture + " for " + inMilliseconds(lasting);
}

std::string shortageOf(const Part& part, const PlacedClip& placed, const MediaLength& there) {
    const Lack lack = lackOf(part, placed.clip, there);
    std::string text;
    const auto add = [&](Ticks beyond, const char* end, const char* picture) {
        text += std::string("; the ") + part.name + " goes " + inMilliseconds(beyond) + end + " and " +
                inPlaceOf(beyond, part, placed, picture);
    };
    if (lack.before > there.atStart)
        add(lack.before, " before its beginning", "first picture");
    if (lack.behind > there.atEnd)
        add(lack.behind, " beyond it", "last picture");
    return text;
}

} // namespace

std::string shortageOf(const PlacedClip& placed, const MediaLength& there) {
    const auto& [clip, kind, duration, before, behind] = placed;
    std::string text = shortageOf({"clip", Ticks(0), duration}, placed, there);
    const bool moves = clip.excerpt.speed != 0; // a frozen frame is there as long as it is wanted
    if (moves && before > Ticks(0))
        text += shortageOf({"transition before the clip", Ticks(0) - before, Ticks(0)}, placed, there);
    if (moves && behind > Ticks(0))
        text += shortageOf({"transition behind the clip", duration, duration + behind}, placed, there);
    return text.empty() ? text : "lasts " + inMilliseconds(there.duration) + text;
}

} // namespace ExportCore
