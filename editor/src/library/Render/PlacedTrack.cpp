// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/PlacedTrack.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace Render {

using Kestra::MulDivRound;
using Kestra::Ticks;
using Kestra::TimeMap;
using Timeline::Transition;

namespace {

constexpr Ticks NEVER{INT64_MAX};

using Speed = boost::rational<long long>;

/// Exact as long as its terms are far from the ends of their range, however deep stacks lie in each other.
Speed product(const Speed& a, const Speed& b) {
    constexpr long long LARGEST_TERM = 1LL << 30;
    const auto isSmall = [](const Speed& speed) {
        return std::abs(speed.numerator()) < LARGEST_TERM && speed.denominator() < LARGEST_TERM;
    };
    if (isSmall(a) && isSmall(b))
        return a * b;
    constexpr double FASTEST = 1e9, STEPS = 1e6;
    const double nearest = boost::rational_cast<double>(a) * boost::rational_cast<double>(b);
    return {std::llround(std::clamp(nearest, -FASTEST, FASTEST) * STEPS), std::llround(STEPS)};
}

} // namespace

PlacedTrack::PlacedTrack(const Timeline::Track& track, const TimeMap& map, Place place)
    : track(track)
    , map(map)
    , place(std::move(place)) {}

Ticks PlacedTrack::edge(std::size_t index) const {
    const Ticks time = track.startOf(index);
    const Ticks exact = map.FromSource(time);
    return isBackwards() ? exact : place(time, exact);
}

const Transition* PlacedTrack::transitionAt(std::size_t index) const {
    const auto& all = track.transitions();
    const auto found = std::lower_bound(all.begin(), all.end(), index,
                                        [](const Transition& one, std::size_t at) { return one.at < at; });
    return found != all.end() && found->at == index ? &*found : nullptr;
}

std::size_t PlacedTrack::itemAt(Ticks moment) const {
    const std::size_t none = track.items().size();
    // Edges are rounded, and not all alike: the estimate may be off by some items.
    std::size_t index = std::min(track.itemAt(map.ToSource(moment)), none - 1);
    const auto begin = [this](std::size_t item) { return edge(isBackwards() ? item + 1 : item); };
    const auto end = [this](std::size_t item) { return edge(isBackwards() ? item : item + 1); };
    const std::size_t later = isBackwards() ? std::size_t(-1) : 1; // unsigned numbers wrap
    while (index < none && end(index) <= moment)
        index += later;
    while (index < none && begin(index) > moment)
        index -= later;
    return std::min(index, none);
}

PlacedTrack::Standing PlacedTrack::at(Ticks moment) const {
    Standing standing;
    if (track.items().empty())
        return standing;
    if (map.speed == 0)
        return atStill();
    const std::size_t index = itemAt(moment);
    const auto change = [&](Ticks time) {
        if (time > moment)
            standing.end = std::min(standing.end, time);
    };
    if (index == track.items().size()) { // nothing there
        change(edge(isBackwards() ? index : 0));
        return standing;
    }
    standing.item = index;
    for (const std::size_t cut : {index, index + 1}) {
        change(edge(cut));
        const Transition* const transition = transitionAt(cut);
        if (!transition)
            continue;
        const Fade fade = fadeOf(*transition);
        change(fade.begin);
        change(fade.end);
        if (!standing.transition && fade.begin <= moment && moment < fade.end)
            standing.transition = transition;
    }
    return standing;
}

PlacedTrack::Standing PlacedTrack::atStill() const {
    Standing standing;
    const std::size_t index = track.itemAt(map.there);
    if (map.there < Ticks(0) || index == track.items().size())
        return standing;
    standing.item = index;
    for (const std::size_t cut : {index + 1, index}) {
        const Transition* const transition = transitionAt(cut);
        const Fade fade = transition ? fadeOf(*transition) : Fade();
        if (fade.begin <= map.there && map.there < fade.end)
            standing.transition = transition;
    }
    return standing;
}

Fade PlacedTrack::fadeOf(const Transition& transition) const {
    if (map.speed == 0) {
        const Ticks still = track.startOf(transition.at);
        return {still - transition.before, still + transition.behind, map.there};
    }
    const Ticks cut = edge(transition.at);
    const long long speed = map.speed.numerator();
    const auto lasting = [&](Ticks time) {
        return MulDivRound(time.Value(), map.speed.denominator(), std::abs(speed));
    };
    const Ticks first = isBackwards() ? transition.behind : transition.before;
    const Ticks second = isBackwards() ? transition.before : transition.behind;
    return {SaturatedSum(cut, Ticks(-lasting(first))), SaturatedSum(cut, Ticks(lasting(second)))};
}

Ticks PlacedTrack::endOf(std::size_t item) const {
    if (map.speed == 0)
        return NEVER;
    const std::size_t cut = isBackwards() ? item : item + 1;
    const Transition* const transition = transitionAt(cut);
    return transition ? fadeOf(*transition).end : edge(cut);
}

Ticks PlacedTrack::materialEndOf(std::size_t item) const {
    if (map.speed == 0)
        return NEVER;
    const std::size_t cut = isBackwards() ? item : item + 1;
    const Transition* const transition = transitionAt(cut);
    const Ticks more = !transition ? Ticks(0) : isBackwards() ? Ticks(0) - transition->before : transition->behind;
    return TimeMap{edge(item), track.startOf(item), map.speed}.FromSource(track.startOf(cut) + more);
}

TimeMap PlacedTrack::mapOf(std::size_t item, const Timeline::Excerpt& excerpt) const {
    const TimeMap own{track.startOf(item), excerpt.start, excerpt.speed};
    if (map.speed == 0)
        return {Ticks(0), own.ToSource(map.there), 0};
    return {edge(item), excerpt.start, product(map.speed, excerpt.speed)};
}

} // namespace Render
