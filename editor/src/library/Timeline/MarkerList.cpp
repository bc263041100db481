// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/MarkerList.h"

#include "Kestra/Base/TimeMap.h"
#include <algorithm>
#include <optional>
#include <set>
#include <utility>

namespace Timeline {
namespace {

using Kestra::Ticks;
using Kestra::TimeMap;

/// Stacks whose markers are known, and where they stand: pictures and sound may share one.
using Known = std::set<std::pair<const Stack*, Ticks>>;

void append(std::vector<Marker>& all, const std::vector<Marker>& more) {
    all.insert(all.end(), more.begin(), more.end());
}

bool isShown(const TimeRange& part, const TimeRange& window) {
    return part.start < window.end() &&
           (part.end() > window.start || (part.start == window.start && part.duration == Ticks(0)));
}

/// What `window` shows of that range.
std::optional<TimeRange> withinOf(const TimeRange& range, const TimeRange& window) {
    if (!isShown(range, window))
        return std::nullopt;
    const Ticks first = std::max(range.start, window.start);
    return TimeRange{first, std::min(range.end(), window.end()) - first};
}

/// Where `window`, which shows the excerpt, has that range of the source.
std::optional<TimeRange> shownOf(const TimeRange& range, const Excerpt& excerpt, const TimeRange& window) {
    if (excerpt.speed == 0) {
        if (!isShown({excerpt.start, Ticks(1)}, {range.start, std::max(range.duration, Ticks(1))}))
            return std::nullopt;
        return TimeRange{window.start, range.duration > Ticks(0) ? window.duration : Ticks(0)};
    }
    const TimeMap map{window.start, excerpt.start, excerpt.speed};
    const auto [start, end] = std::minmax({map.FromSource(range.start), map.FromSource(range.end())});
    return withinOf({start, end - start}, window);
}

/// Of the stack's tracks; its own are already among those of the item that it is.
std::vector<Marker> markersWithin(const Stack& stack);

void appendShown(std::vector<Marker>& all, const Nested& nested, const TimeRange& window) {
    for (Marker& marker : markersWithin(*nested.stack)) {
        const auto shown = shownOf(marker.range, nested.excerpt, window);
        if (!shown)
            continue;
        marker.range = *shown;
        all.push_back(std::move(marker));
    }
}

void appendOwn(std::vector<Marker>& all, const Item& item, const TimeRange& window) {
    for (Marker marker : item.markers)
        if (const auto shown = withinOf({window.start + marker.range.start, marker.range.duration}, window)) {
            marker.range = *shown;
            all.push_back(std::move(marker));
        }
}

void append(std::vector<Marker>& all, const Track& track, Known& known) {
    append(all, track.markers());
    for (std::size_t index = 0; index < track.items().size(); ++index) {
        const Item& item = track.items()[index];
        const auto* const nested = std::get_if<Nested>(&item.content);
        const TimeRange window{track.startOf(index), item.duration};
        if (!item.enabled || (nested && !known.emplace(nested->stack.get(), window.start).second))
            continue;
        appendOwn(all, item, window);
        if (nested)
            appendShown(all, *nested, window);
    }
}

std::vector<Marker> markersWithin(const Stack& stack) {
    std::vector<Marker> all;
    Known known;
    for (const Track& track : stack.tracks())
        if (track.isEnabled())
            append(all, track, known);
    return all;
}

} // namespace

std::vector<Marker> markersOf(const Stack& stack) {
    std::vector<Marker> all = stack.markers();
    append(all, markersWithin(stack));
    return all;
}

} // namespace Timeline
