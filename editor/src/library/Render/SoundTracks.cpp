// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/SoundTracks.h"

#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/ISourceFactory.h"
#include "Kestra/Proc/ProcException.h"
#include "Render/ListedFile.h"
#include <algorithm>
#include <map>
#include <string>

namespace Render {

using Kestra::Proc::ListedTrack;
using Kestra::Proc::MediaInfo;
using Source = MediaPool::Source;

namespace {

/// Opens files for one of their sound tracks each time.
class Opening {
public:
    Opening(const std::atomic<bool>* interrupted, const Kestra::Proc::MediaLimits& limits)
        : interrupted(interrupted)
        , limits(limits) {}

    /// In the order of the tracks; `known` is opened already, for whichever track.
    std::vector<Source> allOf(const Source& known) const {
        std::vector<Source> tracks;
        for (const int index : SoundTracks::of(known->GetInfo()))
            tracks.push_back(isOf(known, index) ? known : open(known->GetPath(), {index, {}}));
        bringTogether(tracks);
        return tracks;
    }

private:
    static bool isOf(const Source& source, int index) {
        const auto& audio = source->GetInfo().audio;
        return audio && audio->index == index;
    }

    Source open(const Kestra::ioPath& path, const Kestra::Proc::TrackChoice& choice) const {
        return Kestra::Core::CoreManager::Instance().GetSourceFactory().OpenMedia(path, interrupted, limits, choice);
    }

    /// Where a track begins before the pictures, or nothing else is there, its medium's time 0 is its own.
    void bringTogether(std::vector<Source>& tracks) const {
        const auto earlier = [](const Source& a, const Source& b) { return a->GetInfo().origin < b->GetInfo().origin; };
        const auto first = std::min_element(tracks.begin(), tracks.end(), earlier);
        if (first == tracks.end())
            return;
        const std::int64_t origin = (*first)->GetInfo().origin;
        for (Source& track : tracks)
            if (track->GetInfo().origin != origin)
                track = open(track->GetPath(), {track->GetInfo().audio->index, {}, origin});
    }

    const std::atomic<bool>* const interrupted;
    const Kestra::Proc::MediaLimits& limits;
};

using Opened = std::map<std::string, std::vector<Source>>; ///< each file's tracks

Timeline::MediaReference referenceTo(const Kestra::ioPath& file) {
    return {{}, Timeline::MediaFile{file}};
}

Timeline::ListedMedia listedFor(const Source& medium, const std::vector<Source>& tracks) {
    Timeline::ListedMedia entry = listed(tracks.empty() ? *medium : *tracks.front());
    for (const Source& track : tracks)
        entry.duration = std::max(entry.duration, Kestra::Ticks(track->GetInfo().duration));
    return entry;
}

/// How many tracks each has that has any.
std::size_t countOf(const Opened& opened) {
    std::size_t count = 0;
    for (const auto& [file, tracks] : opened) {
        if (count > 0 && !tracks.empty() && tracks.size() != count)
            KESTRA_THROW(Kestra::Proc::ProcException(Kestra::Proc::TranscodingError::InvalidArgument,
                                                     '"' + file + "\" has " + std::to_string(tracks.size()) +
                                                         " sound tracks, and another file " + std::to_string(count)));
        count = std::max(count, tracks.size());
    }
    return count;
}

} // namespace

std::vector<int> SoundTracks::of(const MediaInfo& info) {
    std::vector<int> indices;
    for (const ListedTrack& track : info.contents.tracks)
        if (track.kind == ListedTrack::Kind::Sound)
            indices.push_back(track.index);
    return indices;
}

Sequence SoundTracks::all(const Sequence& sequence, const std::vector<Kestra::ioPath>& files,
                          const std::atomic<bool>* interrupted, const Kestra::Proc::MediaLimits& limits) {
    const Opening opening(interrupted, limits);
    Opened opened;
    std::vector<Timeline::ListedMedia> list;
    for (const Kestra::ioPath& file : files) {
        const Source medium = sequence.media->open(referenceTo(file), interrupted);
        const auto [place, isNew] = opened.try_emplace(file.ToUtf8());
        if (isNew)
            place->second = opening.allOf(medium);
        list.push_back(listedFor(medium, place->second));
    }
    Sequence whole{Timeline::documentOf(list), std::make_shared<MediaPool>(limits), sequence.sound};
    const std::size_t count = countOf(opened);
    for (std::size_t track = 1; track < count; ++track)
        whole.furtherSounds.push_back({whole.document, std::make_shared<MediaPool>(limits), sequence.sound});
    const auto pools = whole.pools();
    for (const Kestra::ioPath& file : files) {
        const std::vector<Source>& tracks = opened.at(file.ToUtf8());
        for (std::size_t track = 0; track < pools.size(); ++track)
            pools[track]->put(referenceTo(file),
                              tracks.empty() ? sequence.media->open(referenceTo(file), interrupted) : tracks[track]);
    }
    return whole;
}

} // namespace Render
