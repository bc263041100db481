// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorProject/TimelineTracks.h"

#include "Types/Time.h"
#include <algorithm>
#include <iterator>

namespace Project {

using Composition::Clip;
using Composition::Track;
using Kestra::Ticks;

namespace {

QString mediumOf(const Timeline::Clip& clip) {
    if (const auto* file = std::get_if<Timeline::MediaFile>(&clip.media.target))
        return QString::fromStdString(file->path.ToUtf8());
    const auto* const pictures = std::get_if<Timeline::ImageSequence>(&clip.media.target);
    return pictures ? QString::fromStdString(pictures->folder.ToUtf8() + '/' + pictures->nameOf(0)) : QString();
}

Clip valueOf(const Timeline::Item& item, Ticks begin) {
    Clip value;
    value.name = QString::fromStdString(item.name);
    value.enabled = item.enabled;
    value.range = {Types::fromAvTime(begin.Value()), Types::fromAvTime((begin + item.duration).Value())};
    if (const auto* clip = std::get_if<Timeline::Clip>(&item.content)) {
        value.medium = mediumOf(*clip);
        value.start = Types::fromAvTime((clip->excerpt.start - clip->origin.value_or(Ticks(0))).Value());
    } else if (const auto* nested = std::get_if<Timeline::Nested>(&item.content)) {
        value.start = Types::fromAvTime(nested->excerpt.start.Value());
    }
    return value;
}

std::vector<Clip> valuesOf(const Timeline::Track& track) {
    std::vector<Clip> values;
    for (std::size_t index = 0; index < track.items().size(); ++index)
        if (!std::holds_alternative<Timeline::Gap>(track.items()[index].content))
            values.push_back(valueOf(track.items()[index], track.startOf(index)));
    return values;
}

/// Wherever they stand; lengths are rounded there.
bool isSameClip(const Clip& a, const Clip& b) {
    const KTime difference = (a.range.end - a.range.start) - (b.range.end - b.range.start);
    return a.name == b.name && a.medium == b.medium && a.enabled == b.enabled && a.start == b.start &&
           difference <= KTime(1) && difference >= KTime(-1);
}

bool isEqual(const Clip& a, const Clip& b) {
    return a.track == b.track && a.range == b.range && a.name == b.name && a.medium == b.medium &&
           a.enabled == b.enabled && a.start == b.start;
}

bool isEqual(const Track& a, const Track& b) {
    return a.composition == b.composition && a.kind == b.kind && a.name == b.name && a.enabled == b.enabled &&
           a.place == b.place;
}

} // namespace

TimelineTracks::~TimelineTracks() {
    removeFrom(0);
}

void TimelineTracks::show(const Timeline::Document& document) {
    const auto& wanted = document.tracks->tracks();
    removeFrom(wanted.size());
    for (std::size_t place = 0; place < wanted.size(); ++place) {
        const bool isNew = place == tracks.size();
        if (isNew)
            tracks.push_back(std::make_unique<Own>());
        Own& own = *tracks[place];
        Track value;
        value.composition = composition;
        value.kind = wanted[place].kind() == Timeline::Track::Kind::Video ? Track::Kind::Pictures : Track::Kind::Sound;
        value.name = QString::fromStdString(wanted[place].name());
        value.enabled = wanted[place].isEnabled();
        value.place = static_cast<int>(place);
        if (!isNew && !isEqual(own.track, value))
            *TrackView::change(&own.track) = value;
        if (isNew) {
            own.track = value;
            TrackView::own(&own.track);
        }
        show(own, wanted[place]);
    }
}

void TimelineTracks::show(Own& own, const Timeline::Track& track) {
    std::vector<Clip> wanted = valuesOf(track);
    for (Clip& value : wanted)
        value.track = &own.track;
    changeBetween(own.clips, wanted);
    for (std::size_t index = 0; index < wanted.size(); ++index) // what stayed may have moved
        change(own.clips[index].get(), wanted[index]);
}

void TimelineTracks::changeBetween(Clips& clips, const std::vector<Clip>& wanted) {
    const auto isSame = [](const auto& own, const Clip& value) { return isSameClip(*own, value); };
    const auto first = std::mismatch(clips.begin(), clips.end(), wanted.begin(), wanted.end(), isSame);
    const auto last = std::mismatch(clips.rbegin(), std::make_reverse_iterator(first.first), wanted.rbegin(),
                                    std::make_reverse_iterator(first.second), isSame);
    const auto begin = first.first - clips.begin();
    const auto before = last.first.base() - first.first, after = last.second.base() - first.second;
    Clips gone;
    for (auto index = after; index < before; ++index)
        gone.push_back(std::move(clips[static_cast<std::size_t>(begin + index)]));
    clips.erase(clips.begin() + begin + std::min(before, after), clips.begin() + begin + before);
    remove(gone);
    for (auto index = before; index < after; ++index) {
        const Clip& value = wanted[static_cast<std::size_t>(begin + index)];
        const auto own = clips.insert(clips.begin() + begin + index, std::make_unique<Clip>(value));
        ClipView::own(own->get());
    }
}

void TimelineTracks::change(Clip* clip, const Clip& wanted) {
    if (!isEqual(*clip, wanted))
        *ClipView::change(clip) = wanted;
}

void TimelineTracks::remove(Clips& clips) {
    for (const auto& clip : clips)
        ClipView::remove(clip.get());
    clips.clear();
}

void TimelineTracks::removeFrom(std::size_t track) {
    while (tracks.size() > track) {
        remove(tracks.back()->clips);
        TrackView::remove(&tracks.back()->track);
        tracks.pop_back();
    }
}

} // namespace Project
