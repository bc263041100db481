// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/SequenceMedia.h"

#include "Render/MediaPlace.h"
#include "Render/PlacedTrack.h"
#include "Render/Survey.h"
#include <algorithm>

namespace Render {

using Kestra::Ticks;
using Kestra::TimeMap;

namespace {

/// A search for the first place.
struct Search {
    MediaPool& media;
    const Kestra::ioPath& file;
    Ticks time;
    Ticks from;
    Ticks to;
    std::optional<Ticks> found{};

    void look(const Timeline::Stack& stack, const TimeMap& map) {
        for (const Timeline::Track& track : stack.tracks()) {
            const PlacedTrack placed(track, map, [](Ticks, Ticks exact) { return exact; });
            for (std::size_t item = 0; item < track.items().size(); ++item)
                look(placed, item, track.items()[item]);
        }
    }

private:
    void look(const PlacedTrack& placed, std::size_t index, const Timeline::Item& item) {
        if (const auto* nested = std::get_if<Timeline::Nested>(&item.content))
            return look(*nested->stack, placed.mapOf(index, nested->excerpt));
        const auto* const clip = std::get_if<Timeline::Clip>(&item.content);
        const auto source = clip ? media.open(clip->media) : nullptr;
        if (!source || source->GetPath() != file)
            return;
        Material material{clip, &item.name, placed.mapOf(index, clip->excerpt), placed.endOf(index)};
        material.map.there -= clip->origin.value_or(Ticks(0));
        const TimeMap map = mediaMapOf(material, source->GetInfo());
        const Ticks reached = map.speed > 0 ? std::max(map.here, map.FromSource(time)) : map.here;
        const Ticks place = std::min(material.end, reached);
        if (from < material.end && place < to)
            found = std::min(found.value_or(place), place);
    }
};

using Kind = Timeline::Track::Kind;

bool has(const Timeline::MediaReference& reference, Kind kind, MediaPool& media) {
    using Made = Timeline::Generator::Kind;
    if (const auto* made = std::get_if<Timeline::Generator>(&reference.target))
        return (made->kind == Made::Bars || made->kind == Made::Colour) == (kind == Kind::Video);
    const MediaPool::Source source = media.open(reference);
    return source && (kind == Kind::Video ? source->GetInfo().video.has_value() : source->GetInfo().audio.has_value());
}

bool has(const Timeline::Stack& stack, Kind kind, MediaPool& media) {
    const auto isIn = [&](const Timeline::Track& track, const Timeline::Item& item) {
        if (!item.enabled)
            return false;
        // Stacks among pictures are heard, too.
        const auto* const nested = std::get_if<Timeline::Nested>(&item.content);
        if (nested)
            return (track.kind() == kind || kind == Kind::Audio) && has(*nested->stack, kind, media);
        const auto* const clip = std::get_if<Timeline::Clip>(&item.content);
        return clip && track.kind() == kind && has(clip->media, kind, media);
    };
    const auto& tracks = stack.tracks();
    return std::any_of(tracks.begin(), tracks.end(), [&isIn](const Timeline::Track& track) {
        const auto& items = track.items();
        return track.isEnabled() &&
               std::any_of(items.begin(), items.end(), [&](const Timeline::Item& item) { return isIn(track, item); });
    });
}

} // namespace

bool hasAny(const Sequence& sequence, Kind kind) {
    return has(*sequence.document->tracks, kind, *sequence.media);
}

std::vector<MediaPool::Source> mediaSeen(const Sequence& sequence, const Window& window) {
    if (!window.grid())
        return {};
    const PicturePlanner planner(sequence.document, *window.grid(), [](const Timeline::Clip&) { return false; });
    return Survey::ofPictures(planner, window, *sequence.media).media;
}

std::vector<MediaPool::Source> mediaHeard(const Sequence& sequence, const Window& window,
                                          const Kestra::SampleGrid& grid) {
    const SoundPlanner planner(sequence.document, window, grid);
    return Survey::ofSound(planner, window.samples(grid), *sequence.media).media;
}

bool mixesSound(const Sequence& sequence, const Window& window, const Kestra::SampleGrid& grid) {
    const SoundPlanner planner(sequence.document, window, grid);
    return Survey::ofSound(planner, window.samples(grid), *sequence.media).blends;
}

std::optional<Ticks> placeOf(const Sequence& sequence, const Kestra::ioPath& file, Ticks time, Ticks from, Ticks to) {
    Search search{*sequence.media, file, time, from, to};
    search.look(*sequence.document->tracks, {});
    return search.found;
}

} // namespace Render
