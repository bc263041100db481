// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Track.h"

#include <algorithm>

namespace Timeline {

Track::Track(Kind kind, std::string name, bool enabled, std::vector<Item> items, std::vector<Transition> transitions,
             std::vector<Marker> markers)
    : trackKind(kind)
    , trackName(std::move(name))
    , enabled(enabled)
    , allItems(std::move(items))
    , allTransitions(std::move(transitions))
    , allMarkers(std::move(markers)) {
    starts.reserve(allItems.size() + 1);
    Kestra::Ticks end;
    starts.push_back(end);
    for (const Item& item : allItems)
        starts.push_back(end += item.duration);
}

std::size_t Track::itemAt(Kestra::Ticks time) const {
    const auto after = std::upper_bound(starts.begin(), starts.end(), time);
    return after == starts.begin() ? 0 : static_cast<std::size_t>(after - starts.begin()) - 1;
}

} // namespace Timeline
