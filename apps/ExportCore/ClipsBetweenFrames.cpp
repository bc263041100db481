// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/ClipsBetweenFrames.h"

#include "Kestra/Base/TimeMap.h"
#include "Timeline/Stack.h"
#include <algorithm>
#include <string>

namespace ExportCore {
namespace {

using Kestra::Ticks;
using Kestra::TimeMap;
using Timeline::Finding;
using Timeline::Track;

std::string labelled(const char* what, const std::string& name) {
    return name.empty() ? std::string(what) : std::string(what) + " \"" + name + '"';
}

bool isCrossed(const Track& track, std::size_t index) {
    const auto& all = track.transitions();
    return std::any_of(all.begin(), all.end(),
                       [index](const auto& one) { return one.at == index || one.at == index + 1; });
}

class Search {
public:
    Search(const Kestra::FrameGrid& grid, const Stretch& wanted, std::vector<Finding>& findings)
        : grid(grid)
        , wanted(wanted)
        , findings(findings) {}

    /// `map` takes the composition's time to the stack's; of what is seen of it `limit` is left.
    void look(const Timeline::Stack& stack, const TimeMap& map, const Stretch& limit, const std::string& place) {
        for (const Track& track : stack.tracks()) {
            if (!track.isEnabled() || track.kind() != Track::Kind::Video)
                continue;
            const std::string name = (place.empty() ? "" : place + ", ") + labelled("track", track.name());
            for (std::size_t index = 0; index < track.items().size(); ++index)
                look(track, index, map, limit, name);
        }
    }

private:
    void look(const Track& track, std::size_t index, const TimeMap& map, const Stretch& limit,
              const std::string& place) {
        const Timeline::Item& item = track.items()[index];
        const Ticks start = track.startOf(index);
        const auto [first, last] = std::minmax({map.FromSource(start), map.FromSource(start + item.duration)});
        const Stretch seen{std::max(first, limit.start), std::min(last, limit.end)};
        if (!item.enabled || seen.start >= seen.end || seen.start >= wanted.end || seen.end <= wanted.start)
            return;
        if (const auto* const nested = std::get_if<Timeline::Nested>(&item.content)) {
            const auto& [stack, excerpt] = *nested;
            if (excerpt.speed != 0)
                look(*stack, {placed(map, map.FromSource(start)), excerpt.start, map.speed * excerpt.speed},
                     {placed(map, seen.start), placed(map, seen.end)}, place + ", " + labelled("stack", item.name));
        } else if (std::holds_alternative<Timeline::Clip>(item.content) && !isCrossed(track, index) &&
                   grid.Nearest(seen.start) == grid.Nearest(seen.end)) {
            findings.push_back({Finding::Kind::Warning, place + ", " + labelled("clip", item.name), item.pointer,
                                "it lies between two frames and is not seen"});
        }
    }

    /// Where a stack begins or ends, and with it what is within: on a frame, unless it runs backwards.
    Ticks placed(const TimeMap& map, Ticks time) const { return map.speed < 0 ? time : grid.Begin(grid.Nearest(time)); }

    const Kestra::FrameGrid& grid;
    const Stretch& wanted;
    std::vector<Finding>& findings;
};

} // namespace

std::vector<Finding> clipsBetweenFrames(const Timeline::Document& document, const Kestra::FrameGrid& grid,
                                        const Stretch& stretch) {
    constexpr std::size_t MOST = 100;
    std::vector<Finding> findings;
    Search(grid, stretch, findings).look(*document.tracks, TimeMap(), {Ticks(0), document.duration()}, {});
    if (findings.size() <= MOST)
        return findings;
    const std::string more = std::to_string(findings.size() - MOST);
    findings.resize(MOST);
    findings.push_back({Finding::Kind::Warning, {}, {}, more + " more clips lie between two frames and are not seen"});
    return findings;
}

} // namespace ExportCore
