// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/SoundPlanner.h"

#include <algorithm>

namespace Render {

using Kestra::SampleIndex;
using Kestra::Ticks;
using Timeline::Track;

namespace {

/// The item of the track that begins at exactly that time; null where none does.
const Timeline::Item* itemFrom(const Track& track, Ticks time) {
    const std::size_t index = track.itemAt(time);
    const bool begins = track.isEnabled() && index < track.items().size() && track.startOf(index) == time;
    return begins && track.items()[index].enabled ? &track.items()[index] : nullptr;
}

bool isGap(const Timeline::Item& item) {
    return std::holds_alternative<Timeline::Gap>(item.content);
}

} // namespace

SoundPlanner::SoundPlanner(std::shared_ptr<const Timeline::Document> document, const Window& window,
                           const Kestra::SampleGrid& grid)
    : ScenePlanner(std::move(document))
    , window(window)
    , grid(grid)
    , linked(this->document()) {}

Scene SoundPlanner::sceneAt(SampleIndex sample) const {
    const Ticks begin = grid.Begin(sample);
    const Ticks middle = begin + Ticks((grid.Begin(sample + SampleIndex(1)) - begin).Value() / 2);
    return ScenePlanner::sceneAt(window.start() + middle - Ticks(1));
}

SampleIndex SoundPlanner::sampleAt(Ticks time) const {
    return time == Ticks(INT64_MAX) ? SampleIndex(INT64_MAX) : grid.Nearest(time - window.start());
}

bool SoundPlanner::takes(const Track&) const {
    return true;
}

bool SoundPlanner::takesClips(const Track& track) const {
    return track.kind() == Track::Kind::Audio;
}

bool SoundPlanner::takesStack(const Track& track, const Timeline::Nested& nested) const {
    return takesClips(track) || !linked.isHeardElsewhere(nested);
}

Ticks SoundPlanner::placed(const Timeline::Stack& stack, Ticks time, Ticks exact) const {
    if (!window.grid())
        return exact;
    const auto& tracks = stack.tracks();
    const bool withPicture = std::any_of(tracks.begin(), tracks.end(), [time](const Track& track) {
        const Timeline::Item* const picture = itemFrom(track, time);
        return track.kind() == Track::Kind::Video && picture && !isGap(*picture);
    });
    return withPicture ? window.grid()->Begin(window.grid()->Nearest(exact)) : exact;
}

} // namespace Render
