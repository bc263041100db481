// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorProject/TimelineMarks.h"

#include "Timeline/MarkerList.h"
#include "Types/Time.h"

namespace Project {

using Kestra::Ticks;

TimelineMarks::~TimelineMarks() {
    removeAll();
}

void TimelineMarks::show(const Timeline::Document& document) {
    removeAll();
    for (const Timeline::Marker& mark : Timeline::markersOf(*document.tracks))
        own(mark);
}

void TimelineMarks::own(const Timeline::Marker& mark) {
    Composition::Marker& marker = ownMarkers.emplace_back();
    marker.time = Types::fromAvTime(mark.range.start.Value());
    marker.name = QString::fromStdString(mark.name);
    markerOwn(&marker);
    if (mark.range.duration == Ticks(0))
        return;
    Composition::Range& range = ownRanges.emplace_back();
    range.range = {marker.time, Types::fromAvTime(mark.range.end().Value())};
    range.name = marker.name;
    rangeOwn(&range);
}

void TimelineMarks::removeAll() {
    for (const Composition::Marker& marker : ownMarkers)
        markerRemove(&marker);
    for (const Composition::Range& range : ownRanges)
        rangeRemove(&range);
    ownMarkers.clear();
    ownRanges.clear();
}

} // namespace Project
