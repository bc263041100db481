// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/TimelineMedia.h"

#include "Kestra/Base/FrameGrid.h"
#include "Kestra/Base/TimeMap.h"
#include "Render/MediaAhead.h"
#include "Render/MediaOrigin.h"
#include "Timeline/ClipVisit.h"
#include <algorithm>
#include <charconv>
#include <cstdlib>
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

std::string inMilliseconds(Ticks time) {
    return std::to_string(time.Value() / Kestra::TICKS_PER_MILLISECOND) + " ms";
}

/// What is seen or heard where a clip goes so far beyond one end of its medium.
std::string inPlaceOf(Ticks beyond, const boost::rational<long long>& speed, Track::Kind kind, const char* picture,
                      Ticks duration) {
    const Ticks lasting =
        speed == 0 ? duration
                   : Ticks(Kestra::MulDivRound(beyond.Value(), speed.denominator(), std::abs(speed.numerator())));
    const bool always = lasting >= duration;
    if (kind == Track::Kind::Audio)
        return always ? "is silent throughout" : "is silent for " + inMilliseconds(lasting);
    return always ? std::string("shows nothing but the ") + picture
                  : std::string("holds the ") + picture + " for " + inMilliseconds(lasting);
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

std::string troubleOf(const Timeline::ImageSequence& sequence, const Timeline::Clip& clip, Ticks duration) {
    const Shown shown = shownBy(clip, clip.origin.value_or(Ticks(0)), duration);
    const Kestra::FrameGrid grid(sequence.rate);
    // Beyond what there is said to be, which whoever read the timeline has told, the first or the last one is held.
    const auto& available = clip.media.available;
    const std::int64_t end =
        available ? std::max<std::int64_t>(1, grid.Nearest(available->duration).Value()) : INT64_MAX;
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

std::string labelled(const char* what, const std::string& name) {
    return name.empty() ? std::string(what) : std::string(what) + " \"" + name + '"';
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
        for (const Timeline::Item& item : track.items()) {
            if (!item.enabled)
                continue;
            if (const auto* nested = std::get_if<Timeline::Nested>(&item.content))
                check(*nested->stack, trackPlace + ", " + labelled("stack", item.name), findings);
            const auto* const clip = std::get_if<Timeline::Clip>(&item.content);
            if (!clip)
                continue;
            if (auto finding = findingOf(*clip, track.kind(), item.duration)) {
                finding->place = trackPlace + ", " + labelled("clip", item.name);
                finding->pointer = item.pointer;
                findings.push_back(std::move(*finding));
            }
        }
    }
}

std::optional<Finding> TimelineMedia::findingOf(const Timeline::Clip& clip, Track::Kind kind, Ticks duration) {
    if (const auto* file = std::get_if<Timeline::MediaFile>(&clip.media.target))
        return findingOf(*file, clip, kind, duration);
    if (const auto* made = std::get_if<Timeline::Generator>(&clip.media.target))
        return ExportCore::findingOf(*made, kind);
    const auto* const sequence = std::get_if<Timeline::ImageSequence>(&clip.media.target);
    if (!sequence)
        return std::nullopt;
    if (kind != Track::Kind::Video)
        return found(Finding::Kind::Error, "pictures stand among sound");
    const std::string trouble = troubleOf(*sequence, clip, duration);
    if (trouble.empty())
        return std::nullopt;
    const bool refused = sequence->missing == Timeline::ImageSequence::MissingFrames::Refused;
    return found(refused ? Finding::Kind::MissingMedia : Finding::Kind::Warning, trouble);
}

std::optional<Finding> TimelineMedia::findingOf(const Timeline::MediaFile& file, const Timeline::Clip& clip,
                                                Track::Kind kind, Ticks duration) {
    const std::string name = "its media \"" + file.path.ToUtf8() + "\" ";
    const Look& look = lookAt(clip.media);
    if (const auto* why = std::get_if<std::string>(&look))
        return found(Finding::Kind::MissingMedia, name + "cannot be opened: " + *why);
    const auto& info = std::get<MediaInfo>(look);
    if (!hasKind(info, kind))
        return found(Finding::Kind::Error, name + (kind == Track::Kind::Video ? "has no pictures" : "has no sound"));
    if (info.duration <= 0 || (info.video && info.video->stillPicture)) // lasts nobody knows how long, or for ever
        return std::nullopt;
    const Shown shown = shownBy(clip, Render::originOf(clip, info), duration);
    const Ticks before = Ticks(0) - shown.first;
    const Ticks behind = shown.last - Ticks(info.duration);
    const std::int64_t period =
        info.video && info.video->frameRate > 0 ? Kestra::FramesToTime(1, info.video->frameRate) : 0;
    const Ticks tolerance(std::max(period, Kestra::TICKS_PER_MILLISECOND));
    // Whoever read the timeline has told what goes beyond the range that is said to be there.
    const auto& available = clip.media.available;
    const bool isTold = available && available->duration <= Ticks(info.duration) + tolerance;
    if (isTold || std::max(before, behind) <= tolerance)
        return std::nullopt;
    std::string text = name + "lasts " + inMilliseconds(Ticks(info.duration));
    const auto add = [&](Ticks beyond, const char* end, const char* picture) {
        if (beyond > tolerance)
            text += "; the clip goes " + inMilliseconds(beyond) + end + " and " +
                    inPlaceOf(beyond, clip.excerpt.speed, kind, picture, duration);
    };
    add(before, " before its beginning", "first picture");
    add(behind, " beyond it", "last picture");
    return found(Finding::Kind::Warning, text);
}

} // namespace ExportCore
