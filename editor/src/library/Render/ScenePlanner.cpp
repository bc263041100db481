// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/ScenePlanner.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Render {

using Kestra::Ticks;
using Kestra::TimeMap;

namespace {

constexpr Ticks NEVER{INT64_MAX};

/// What lies under the others.
void putBelow(Parts& parts, Parts&& lower) {
    parts.insert(parts.begin(), std::make_move_iterator(lower.begin()), std::make_move_iterator(lower.end()));
}

/// Stops all of it at a moment, and shows it up to `end`.
void hold(Parts& parts, Ticks moment, Ticks end) {
    for (Part& part : parts) {
        if (part.fade && !part.fade->still)
            part.fade->still = moment;
        hold(part.from, moment, end);
        hold(part.to, moment, end);
        Material& material = part.material;
        const Ticks shown = std::min(moment, material.until - Ticks(Kestra::TICKS_PER_MILLISECOND));
        material.map = TimeMap{Ticks(0), material.map.ToSource(shown), 0};
        material.end = end;
        material.until = NEVER;
    }
}

} // namespace

ScenePlanner::ScenePlanner(std::shared_ptr<const Timeline::Document> document)
    : shown(std::move(document)) {}

Scene ScenePlanner::sceneAt(Ticks moment) const {
    return sceneOf(*shown->tracks, {}, moment, NEVER);
}

Scene ScenePlanner::sceneOf(const Timeline::Stack& stack, const TimeMap& map, Ticks moment, Ticks limit) const {
    Scene scene;
    const auto& tracks = stack.tracks();
    for (auto track = tracks.rbegin(); track != tracks.rend() && !scene.isFull; ++track) {
        if (!track->isEnabled() || !takes(*track))
            continue;
        Scene lower = sceneOf(stack, *track, map, moment, limit);
        putBelow(scene.parts, std::move(lower.parts));
        scene.end = std::min(scene.end, lower.end);
        scene.isFull = lower.isFull;
    }
    return scene;
}

std::pair<Ticks, Ticks> ScenePlanner::edgesOf(const Timeline::Stack& stack, const TimeMap& map) const {
    const auto edge = [&](Ticks time) {
        const Ticks exact = map.FromSource(time);
        return map.speed < 0 ? exact : placed(stack, time, exact);
    };
    return std::minmax({edge(Ticks(0)), edge(stack.duration())});
}

Scene ScenePlanner::sceneOfNested(const Timeline::Stack& stack, const TimeMap& map, Ticks moment, Ticks limit) const {
    const Kestra::FrameGrid* const grid = frames();
    if (!grid || stack.duration() == Ticks(0))
        return sceneOf(stack, map, moment, limit);
    if (map.speed == 0) {
        const Ticks still = std::clamp(map.there, Ticks(0), stack.duration() - Ticks(1));
        return sceneOf(stack, TimeMap{Ticks(0), still, 0}, moment, limit);
    }
    const auto [begin, end] = edgesOf(stack, map);
    if (begin <= moment && moment < end)
        return sceneOf(stack, map, moment, limit);
    const bool isBefore = moment < begin;
    const Ticks middle = grid->Middle(isBefore ? grid->Nearest(begin) : grid->Nearest(end) - Kestra::FrameIndex(1));
    Scene scene = sceneOf(stack, map, middle - Ticks(1), limit);
    hold(scene.parts, middle, limit);
    scene.end = isBefore ? begin : NEVER;
    return scene;
}

Scene ScenePlanner::sceneOf(const Timeline::Stack& stack, const Timeline::Track& track, const TimeMap& map,
                            Ticks moment, Ticks limit) const {
    const PlacedTrack onComposition(track, map,
                                    [this, &stack](Ticks time, Ticks exact) { return placed(stack, time, exact); });
    const PlacedTrack::Standing standing = onComposition.at(moment);
    const Place place{track, onComposition, moment, limit};
    Scene scene;
    if (standing.transition)
        scene = sceneOf(place, *standing.transition);
    else if (standing.item)
        scene = sceneOf(place, *standing.item);
    scene.end = std::min(scene.end, standing.end);
    return scene;
}

Scene ScenePlanner::sceneOf(const Place& place, const Timeline::Transition& transition) const {
    const std::size_t items = place.track.items().size();
    Scene before = transition.at > 0 ? sceneOf(place, transition.at - 1) : Scene();
    Scene behind = transition.at < items ? sceneOf(place, transition.at) : Scene();
    if (place.placed.isBackwards())
        std::swap(before, behind);
    Scene scene;
    scene.end = std::min(before.end, behind.end);
    if (before.parts.empty() && behind.parts.empty())
        return scene;
    scene.isFull = before.isFull && behind.isFull;
    Part part;
    part.fade = place.placed.fadeOf(transition);
    part.from = std::move(before.parts);
    part.to = std::move(behind.parts);
    scene.parts.push_back(std::move(part));
    return scene;
}

Scene ScenePlanner::sceneOf(const Place& place, std::size_t index) const {
    const Timeline::Item& item = place.track.items()[index];
    const Ticks end = std::min(place.limit, place.placed.endOf(index));
    if (!item.enabled)
        return {};
    if (const auto* nested = std::get_if<Timeline::Nested>(&item.content)) {
        if (!takesStack(place.track, *nested))
            return {};
        return sceneOfNested(*nested->stack, place.placed.mapOf(index, nested->excerpt), place.moment, end);
    }
    const auto* const clip = std::get_if<Timeline::Clip>(&item.content);
    if (!clip || !takesClips(place.track) || std::holds_alternative<Timeline::MissingMedia>(clip->media.target))
        return {};
    TimeMap map = place.placed.mapOf(index, clip->excerpt);
    map.there -= clip->origin.value_or(Ticks(0));
    Scene scene;
    scene.isFull = isFull(*clip);
    Part part;
    part.material = {clip, &item.name, map, end, place.placed.materialEndOf(index)};
    scene.parts.push_back(std::move(part));
    return scene;
}

} // namespace Render
