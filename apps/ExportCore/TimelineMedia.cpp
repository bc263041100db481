// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/TimelineMedia.h"

#include "ExportCore/MediaShortage.h"
#include "Kestra/Base/FrameGrid.h"
#include "Kestra/Base/TimeMap.h"
#include "Render/MediaAhead.h"
#include "Render/MediaOrigin.h"
#include "Timeline/ClipVisit.h"
#include <algorithm>
#include <charconv>
#include <exception>
#include <filesystem>
#include <new>
#include <set>
#include <system_error>

namespace ExportCore {

namespace {

using Kestra::Ticks;
using Kestra::Proc::MediaInfo;
using Timeline::Finding;
using Timeline::Track;

constexpr Ticks A_MOMENT(Kestra::TICKS_PER_MILLISECOND); ///< nobody sees or hears less

/// The media's times that a clip shows; `last` is behind the last one.
struct Shown {
    Ticks first;
    Ticks last;
};

Shown shownBy(const Timeline::Clip& clip, Ticks origin, Ticks duration) {
    const Ticks start = clip.excerpt.start - origin;
    const Kestra::TimeMap map{Ticks(0), start, clip.excerpt.speed};
    const Ticks end = map.ToSource(duration);
    return {std::min(start, end), std::max(start, end)};
}

bool hasKind(const MediaInfo& info, Track::Kind kind) {
    return kind == Track::Kind::Video ? info.video.has_value() : info.audio.has_value();
}

/// Which pictures of a stretch are files. The folder is listed once, however long the stretch is said to be.
std::set<std::int64_t> picturesThere(const Timeline::ImageSequence& sequence, std::int64_t first, std::int64_t last) {
    std::set<std::int64_t> there;
    std::error_code error, unseen;
    for (std::filesystem::directory_iterator entry(sequence.folder.ToUtf8(), error), none; !error && entry != none;
         entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        const std::size_t ends = sequence.prefix.size() + sequence.suffix.size();
        if (name.size() <= ends || name.compare(0, sequence.prefix.size(), sequence.prefix) != 0)
            continue;
        const std::string digits = name.substr(sequence.prefix.size(), name.size() - ends);
        std::int64_t number = 0;
        const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
        const std::int64_t index = (number - sequence.firstNumber) / sequence.step;
        if (failure == std::errc() && end == digits.data() + digits.size() && index >= first && index <= last &&
            sequence.nameOf(index) == name && std::filesystem::is_regular_file(entry->path(), unseen))
            there.insert(index);
    }
    return there;
}

/// Up to the last picture that is there.
std::optional<Ticks> lengthOf(const Timeline::ImageSequence& sequence) {
    const std::set<std::int64_t> there = picturesThere(sequence, 0, INT64_MAX);
    if (there.empty())
        return std::nullopt;
    return Kestra::FrameGrid(sequence.rate).Begin(Kestra::FrameIndex(*there.rbegin() + 1));
}

/// How many pictures there are said to be.
std::optional<std::int64_t> countOf(const Timeline::ImageSequence& sequence, const Timeline::MediaReference& media) {
    if (!media.available)
        return std::nullopt;
    const Kestra::FrameGrid grid(sequence.rate);
    return std::max<std::int64_t>(1, grid.Nearest(media.available->duration).Value());
}

std::string troubleOf(const Timeline::ImageSequence& sequence, const Timeline::Clip& clip, Ticks duration) {
    const Shown shown = shownBy(clip, clip.origin.value_or(Ticks(0)), duration);
    const Kestra::FrameGrid grid(sequence.rate);
    // Beyond what there is said to be the first or the last one is held, which is a shortage of its own.
    const std::int64_t end = countOf(sequence, clip.media).value_or(INT64_MAX);
    const auto within = [end](Kestra::FrameIndex index) { return std::clamp<std::int64_t>(index.Value(), 0, end - 1); };
    const std::int64_t first = within(grid.Covering(shown.first));
    const std::int64_t last = within(grid.Covering(std::max(shown.first, shown.last - Ticks(1))));
    const std::set<std::int64_t> there = picturesThere(sequence, first, last);
    const std::int64_t missing = last - first + 1 - static_cast<std::int64_t>(there.size());
    if (missing <= 0) // or what is shown ends before the first one
        return {};
    std::int64_t index = first;
    for (const std::int64_t one : there)
        index += one == index ? 1 : 0;
    return std::to_string(missing) + " of the " + std::to_string(last - first + 1) +
           " pictures that it shows are not there, the first one is \"" + sequence.nameOf(index) + '"';
}

/// Of a sequence whose pictures are all there that the clip itself shows.
std::string shortageOfPictures(const Timeline::ImageSequence& sequence, const PlacedClip& placed) {
    const auto count = countOf(sequence, placed.clip.media);
    const bool isCrossed = placed.before + placed.behind > Ticks(0);
    const auto length = count       ? Kestra::FrameGrid(sequence.rate).Begin(Kestra::FrameIndex(*count))
                        : isCrossed ? lengthOf(sequence)
                                    : std::nullopt;
    return length ? shortageOf(placed, {placed.clip.origin.value_or(Ticks(0)), *length, A_MOMENT, A_MOMENT})
                  : std::string();
}

MediaLength mediaLengthOf(const MediaInfo& info, const Timeline::Clip& clip) {
    const Ticks length(info.duration);
    const bool hasRate = info.video && info.video->frameRate > 0;
    const Ticks period(hasRate ? Kestra::FramesToTime(1, info.video->frameRate) : 0);
    const auto& available = clip.media.available;
    const bool isAgreed =
        available && std::max(available->duration, length) - std::min(available->duration, length) <= A_MOMENT;
    return {Render::originOf(clip, info), length, available ? A_MOMENT : std::max(period, A_MOMENT),
            isAgreed ? A_MOMENT : std::max(period, A_MOMENT)};
}

Finding found(Finding::Kind kind, const std::string& text) {
    return {kind, {}, {}, text};
}

std::optional<Finding> findingOf(const Timeline::Generator& made, Track::Kind kind) {
    using Made = Timeline::Generator::Kind;
    if (made.kind == Made::Tone && kind == Track::Kind::Video)
        return found(Finding::Kind::Warning, "a tone stands among pictures, where it is not heard");
    if (made.kind == Made::Bars && kind == Track::Kind::Audio)
        return found(Finding::Kind::Warning, "bars stand among sound, where they are not seen");
    return std::nullopt;
}

std::optional<Finding> findingOf(const Timeline::ImageSequence& sequence, const PlacedClip& placed) {
    if (placed.kind != Track::Kind::Video)
        return found(Finding::Kind::Error, "pictures stand among sound");
    const std::string trouble = troubleOf(sequence, placed.clip, placed.duration);
    const std::string shortage = shortageOfPictures(sequence, placed);
    const bool refused = sequence.missing == Timeline::ImageSequence::MissingFrames::Refused;
    if (!trouble.empty())
        return found(refused ? Finding::Kind::MissingMedia : Finding::Kind::Warning,
                     shortage.empty() ? trouble : trouble + "; its media " + shortage);
    return shortage.empty() ? std::nullopt : std::optional(found(Finding::Kind::Warning, "its media " + shortage));
}

std::string labelled(const char* what, const std::string& name) {
    return name.empty() ? std::string(what) : std::string(what) + " \"" + name + '"';
}

/// For each item, how much of what lies before its start and behind its end transitions show.
std::vector<std::pair<Ticks, Ticks>> crossingsOf(const Track& track) {
    std::vector<std::pair<Ticks, Ticks>> crossings(track.items().size());
    for (const Timeline::Transition& transition : track.transitions()) {
        if (transition.at < crossings.size())
            crossings[transition.at].first = transition.before;
        if (transition.at > 0)
            crossings[transition.at - 1].second = transition.behind;
    }
    return crossings;
}

} // namespace

TimelineMedia::TimelineMedia(std::shared_ptr<Render::MediaPool> pool, const std::atomic<bool>* interrupted)
    : pool(std::move(pool))
    , interrupted(interrupted) {}

TimelineMedia::Look TimelineMedia::open(const Timeline::MediaReference& media) {
    try {
        const auto source = pool->open(media, interrupted);
        return source ? source->GetInfo() : MediaInfo();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        if (interrupted && *interrupted)
            throw;
        return std::string(error.what());
    }
}

const TimelineMedia::Look& TimelineMedia::lookAt(const Timeline::MediaReference& media) {
    const std::string path = std::get<Timeline::MediaFile>(media.target).path.ToUtf8();
    const auto known = looks.find(path);
    return known != looks.end() ? known->second : looks.emplace(path, open(media)).first->second;
}

std::string TimelineMedia::whyMissing(const Timeline::MediaReference& media) {
    const bool isFile = std::holds_alternative<Timeline::MediaFile>(media.target);
    const Look look = isFile ? lookAt(media) : open(media);
    const auto* const why = std::get_if<std::string>(&look);
    return why ? *why : std::string();
}

std::optional<Ticks> TimelineMedia::lengthOf(const Timeline::MediaReference& media, Track::Kind kind) {
    if (const auto* const sequence = std::get_if<Timeline::ImageSequence>(&media.target))
        return ExportCore::lengthOf(*sequence);
    if (!std::holds_alternative<Timeline::MediaFile>(media.target))
        return std::nullopt;
    const auto* const info = std::get_if<MediaInfo>(&lookAt(media));
    if (!info || !hasKind(*info, kind) || (info->video && info->video->stillPicture))
        return std::nullopt;
    return info->duration > 0 ? std::optional(Ticks(info->duration)) : std::nullopt;
}

std::vector<Finding> TimelineMedia::check(const Timeline::Document& document) {
    std::vector<const Timeline::MediaReference*> media;
    Timeline::visitClips(*document.tracks, [&media](const auto&, const auto&, const Timeline::Clip& clip) {
        media.push_back(&clip.media);
    });
    const Render::MediaAhead ahead(*pool, std::move(media), interrupted);
    std::vector<Finding> findings;
    check(*document.tracks, {}, findings);
    return findings;
}

void TimelineMedia::check(const Timeline::Stack& stack, const std::string& place, std::vector<Finding>& findings) {
    const std::string inside = place.empty() ? std::string() : place + ", ";
    for (const Track& track : stack.tracks()) {
        if (!track.isEnabled())
            continue;
        const std::string trackPlace = inside + labelled("track", track.name());
        const auto crossings = crossingsOf(track);
        for (std::size_t index = 0; index < track.items().size(); ++index) {
            const Timeline::Item& item = track.items()[index];
            if (!item.enabled)
                continue;
            if (const auto* nested = std::get_if<Timeline::Nested>(&item.content))
                check(*nested->stack, trackPlace + ", " + labelled("stack", item.name), findings);
            const auto* const clip = std::get_if<Timeline::Clip>(&item.content);
            if (!clip)
                continue;
            const auto& [before, behind] = crossings[index];
            if (auto finding = findingOf({*clip, track.kind(), item.duration, before, behind})) {
                finding->place = trackPlace + ", " + labelled("clip", item.name);
                finding->pointer = item.pointer;
                findings.push_back(std::move(*finding));
            }
        }
    }
}

std::optional<Finding> TimelineMedia::findingOf(const PlacedClip& placed) {
    const Timeline::MediaTarget& target = placed.clip.media.target;
    if (const auto* file = std::get_if<Timeline::MediaFile>(&target))
        return findingOf(*file, placed);
    if (const auto* made = std::get_if<Timeline::Generator>(&target))
        return ExportCore::findingOf(*made, placed.kind);
    const auto* const sequence = std::get_if<Timeline::ImageSequence>(&target);
    return sequence ? ExportCore::findingOf(*sequence, placed) : std::nullopt;
}

std::optional<Finding> TimelineMedia::findingOf(const Timeline::MediaFile& file, const PlacedClip& placed) {
    const std::string name = "its media \"" + file.path.ToUtf8() + "\" ";
    const Look& look = lookAt(placed.clip.media);
    if (const auto* why = std::get_if<std::string>(&look))
        return found(Finding::Kind::MissingMedia, name + "cannot be opened: " + *why);
    const auto& info = std::get<MediaInfo>(look);
    if (!hasKind(info, placed.kind))
        return found(Finding::Kind::Error,
                     name + (placed.kind == Track::Kind::Video ? "has no pictures" : "has no sound"));
    if (info.duration <= 0 || (info.video && info.video->stillPicture)) // lasts nobody knows how long, or for ever
        return std::nullopt;
    const std::string shortage = shortageOf(placed, mediaLengthOf(info, placed.clip));
    return shortage.empty() ? std::nullopt : std::optional(found(Finding::Kind::Warning, name + shortage));
}

} // namespace ExportCore
