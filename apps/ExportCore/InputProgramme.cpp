// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/InputProgramme.h"

#include "ExportCore/LeftOut.h"
#include "ExportCore/Refusal.h"
#include "ExportCore/SubtitleJoin.h"
#include "Kestra/Base/Time.h"
#include "Kestra/ClientAPI/ContainerLimits.h"
#include "Kestra/Conf/Language.h"
#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>
#include <utility>

namespace ExportCore {
namespace {

using Kestra::ClientAPI::ContainerLimits;
using Kestra::ClientAPI::ProgrammeField;
using Kestra::Conf::Language;
using Kestra::Conf::ProgrammeInfo;
using Kestra::Proc::ListedTrack;
using Kestra::Proc::MediaContents;
using Kestra::Proc::MediaInfo;
using Source = Render::MediaPool::Source;

const ListedTrack* trackOf(const MediaContents& contents, int index) {
    for (const ListedTrack& track : contents.tracks)
        if (track.index == index)
            return &track;
    return nullptr;
}

/// The one that MediaContents has the bytes of.
const ListedTrack* coverOf(const MediaContents& contents) {
    if (contents.programme.cover.bytes.empty())
        return nullptr;
    const bool isPng = contents.programme.cover.mimeType == "image/png";
    for (const ListedTrack& track : contents.tracks)
        if (track.kind == ListedTrack::Kind::Cover && track.codec == (isPng ? "png" : "mjpeg"))
            return &track;
    return nullptr;
}

/// What a track of the file is called after those that it is made of.
class CommonName {
public:
    void add(const MediaContents& contents, int index) {
        const ListedTrack* const track = trackOf(contents, index);
        if (!track)
            return;
        if (!track->language.empty()) {
            differ = differ || (!name.language.empty() && !Language::AreSame(name.language, track->language));
            name.language = name.language.empty() ? track->language : name.language;
        }
        if (!title)
            name.isDefault = track->isDefault;
        if (title && *title != track->title) {
            titlesDiffer = true;
            title = std::string();
        }
        title = title.value_or(track->title);
    }

    /// `what` is a subject, as in "The sound's".
    ProgrammeInfo::TrackName in(const std::string& container, const std::string& what,
                                std::vector<std::string>& notes) const {
        const std::string held = ContainerLimits::LanguageIn(container, name.language);
        if (differ)
            notes.push_back(what + " language is left out: the inputs' differ");
        else if (!name.language.empty() && held.empty())
            notes.push_back(what + " language, " + name.language + ", is left out: the file has no place for it");
        else if (name.language.find_first_of("-_") != std::string::npos)
            notes.push_back(what + " language, " + name.language + ", is told as " + held);
        return {differ ? std::string() : held, titleIn(container, what, notes)};
    }
    /// As the first medium has it.
    bool isDefault() const { return name.isDefault; }

private:
    std::string titleIn(const std::string& container, const std::string& what, std::vector<std::string>& notes) const {
        const std::string told = title.value_or(std::string());
        const bool held = ContainerLimits::Holds(container, ProgrammeField::TrackTitles);
        if (titlesDiffer)
            notes.push_back(what + " title is left out: the inputs' differ");
        else if (!told.empty() && !held)
            notes.push_back(what + " title, \"" + told + "\", is left out: the file has no place for it");
        return held && !titlesDiffer ? told : std::string();
    }

    ProgrammeInfo::TrackName name;
    std::optional<std::string> title;
    bool differ = false; ///< the languages
    bool titlesDiffer = false;
};

void keepMain(const MediaInfo& info, const InputProgramme::File& file, LeftOut& left) {
    if (info.video && file.picture)
        left.keptTracks.insert(info.video->index);
    if (info.audio && file.sound)
        left.keptTracks.insert(info.audio->index);
}

class Builder {
public:
    Builder(const TrackOptions& options, const InputProgramme::File& file, const std::atomic<bool>& interrupted)
        : options(options)
        , file(file)
        , interrupted(interrupted) {}

    void add(const Source& source, Kestra::Ticks at, Kestra::Ticks lasting) {
        const MediaInfo& info = source->GetInfo();
        LeftOut& left = lefts[source.get()];
        keepMain(info, file, left);
        // A medium may stand at several places: what came from one of them is not lost at another.
        if (options.metadata)
            addMetadata(info, left, at.Value(), lasting.Value());
        else
            left.chapters = left.tags = left.title = true;
        if (options.subtitles && holds(ProgrammeField::Subtitles))
            addSubtitles(*source, left, at.Value(), lasting.Value());
        if (std::find(sources.begin(), sources.end(), source) == sources.end())
            sources.push_back(source);
        isFirst = false;
    }

    /// `opened` is the medium, opened for that track of it.
    void addFurtherSound(std::size_t track, const Source& medium, const Kestra::Proc::IMediaSource& opened) {
        furtherSounds.resize(std::max(furtherSounds.size(), track + 1));
        const auto& audio = opened.GetInfo().audio;
        if (!audio)
            return;
        lefts[medium.get()].keptTracks.insert(audio->index);
        furtherSounds[track].add(opened.GetInfo().contents, audio->index);
    }

    InputProgramme finish() {
        InputProgramme result;
        result.programme = std::move(programme);
        if (options.metadata && file.picture)
            result.programme.picture = picture.in(file.container, "The picture's", result.notes);
        if (options.metadata && file.sound)
            nameSounds(result);
        if (shortened)
            result.notes.emplace_back("Titles of chapters are cut off: the file has no place for such long ones");
        result.programme.subtitles = subtitles.take(file.container, options.metadata, result.notes);
        if (restarts)
            sources.front()->Note("its time code is the file's, which runs on where this medium comes again");
        for (const Source& source : sources) {
            noteWhatIsMade(*source);
            if (const std::string left = lefts[source.get()].of(source->GetInfo().contents); !left.empty())
                source->Note(left);
        }
        return result;
    }

private:
    /// Where others have it: that none has is said of the whole. Of a still everybody knows that it has no sound.
    void noteWhatIsMade(Kestra::Proc::IMediaSource& source) const {
        const auto anyHas = [this](auto MediaInfo::*track) {
            return std::any_of(sources.begin(), sources.end(),
                               [track](const Source& one) { return (one->GetInfo().*track).has_value(); });
        };
        const MediaInfo& info = source.GetInfo();
        if (file.picture && !info.video && anyHas(&MediaInfo::video))
            source.Note("has no picture: what is shown there is black");
        if (file.sound && !info.audio && !(info.video && info.video->stillPicture) && anyHas(&MediaInfo::audio))
            source.Note("has no sound: what is heard there is silence");
    }

    void nameSounds(InputProgramme& result) const {
        ProgrammeInfo::TrackName& first = result.programme.sound;
        first = sound.in(file.container, "The sound's", result.notes);
        first.isDefault = !furtherSounds.empty() && sound.isDefault(); // of one alone nobody asks
        int number = 1;
        for (const CommonName& track : furtherSounds) {
            const std::string what = "Sound track " + std::to_string(++number) + "'s";
            result.programme.furtherSounds.push_back(track.in(file.container, what, result.notes));
            result.programme.furtherSounds.back().isDefault = track.isDefault();
        }
    }

    bool holds(ProgrammeField field) const { return ContainerLimits::Holds(file.container, field); }

    void addMetadata(const MediaInfo& info, LeftOut& left, std::int64_t at, std::int64_t lasting) {
        const MediaContents& contents = info.contents;
        left.chapters = holds(ProgrammeField::Chapters);
        if (left.chapters)
            addChapters(contents, at, lasting);
        if (isFirst)
            addTags(contents, left);
        addTimecode(info, left, at);
        if (info.video)
            picture.add(contents, info.video->index);
        if (info.audio)
            sound.add(contents, info.audio->index);
        const ListedTrack* const cover = coverOf(contents);
        if (!cover || file.picture || !holds(ProgrammeField::Cover) || !programme.cover.bytes.empty())
            return;
        programme.cover = contents.programme.cover;
        left.keptTracks.insert(cover->index);
    }

    void addChapters(const MediaContents& contents, std::int64_t at, std::int64_t lasting) {
        for (ProgrammeInfo::Chapter chapter : contents.programme.Part(0, lasting).chapters) {
            chapter.start += at;
            chapter.end += at;
            const std::string whole =
                std::exchange(chapter.title, ContainerLimits::ChapterTitleIn(file.container, chapter.title));
            shortened = shortened || whole != chapter.title;
            programme.chapters.push_back(chapter);
        }
    }

    /// The first medium's are those of the whole.
    void addTags(const MediaContents& contents, LeftOut& left) {
        left.title = left.tags = true;
        programme.title = contents.programme.title;
        for (const auto& tag : contents.programme.tags)
            if (ContainerLimits::HoldsTag(file.container, tag.first))
                programme.tags.push_back(tag);
            else
                left.lostTags.insert(tag.first);
    }

    /// The first medium's is that of the whole; those of others are nothing new where they go on with it. Its own,
    /// where it comes again, never goes on with itself.
    void addTimecode(const MediaInfo& info, LeftOut& left, std::int64_t at) {
        restarts = restarts || (info.timecode && &info == timed);
        if (!info.timecode || &info == timed)
            return;
        const std::int64_t start = *info.timecode - (info.video ? info.video->start : 0);
        if (isFirst && file.picture && holds(ProgrammeField::TimeCode)) {
            programme.timecode = start;
            programme.dropFrame = info.timecodeDropsNumbers;
            timed = &info;
        }
        constexpr std::int64_t rounding = Kestra::TIME_BASE / 100;
        left.lostTimecode = !programme.timecode || std::abs(*programme.timecode + at - start) > rounding;
    }

    void addSubtitles(Kestra::Proc::IMediaSource& source, LeftOut& left, std::int64_t at, std::int64_t lasting) {
        std::vector<int> tracks;
        for (const ListedTrack& track : source.GetInfo().contents.tracks)
            if (track.isText)
                tracks.push_back(track.index);
        if (tracks.empty())
            return;
        auto read = source.ReadSubtitles(tracks, interrupted);
        subtitles.beginMedium();
        for (std::size_t i = 0; i < read.size(); ++i)
            if (subtitles.add(read[i].Part(0, lasting), at))
                left.keptTracks.insert(tracks[i]);
    }

    const TrackOptions& options;
    const InputProgramme::File& file;
    const std::atomic<bool>& interrupted;
    ProgrammeInfo programme;
    CommonName picture;
    CommonName sound;
    std::vector<CommonName> furtherSounds;
    SubtitleJoin subtitles;
    std::vector<Source> sources; ///< each once
    std::map<const Kestra::Proc::IMediaSource*, LeftOut> lefts;
    const MediaInfo* timed = nullptr; ///< whose time code is the file's
    bool isFirst = true;
    bool shortened = false; ///< the title of a chapter
    bool restarts = false;  ///< the time code that is the file's, where its medium comes again
};

} // namespace

InputProgramme InputProgramme::of(const Render::Sequence& sequence, const std::vector<Kestra::ioPath>& media,
                                  const TrackOptions& options, const File& file, const std::atomic<bool>& interrupted) {
    const std::vector<Timeline::Item>& items = sequence.document->tracks->tracks().front().items();
    Builder builder(options, file, interrupted);
    bool hasSound = false;
    Kestra::Ticks at;
    for (std::size_t i = 0; i < media.size(); ++i) {
        const Timeline::MediaReference reference{{}, Timeline::MediaFile{media[i]}};
        const Source source = sequence.media->open(reference, &interrupted);
        hasSound = hasSound || source->GetInfo().audio.has_value();
        builder.add(source, at, items[i].duration);
        for (std::size_t track = 0; track < sequence.furtherSounds.size(); ++track)
            builder.addFurtherSound(track, source, *sequence.furtherSounds[track].media->open(reference, &interrupted));
        at += items[i].duration;
    }
    if (options.sound == TrackOptions::Sound::Chosen && !hasSound)
        KESTRA_THROW(Refusal("Cannot take the sound track that --audio names: none of the inputs has sound"));
    return builder.finish();
}

void InputProgramme::noteLeftOut(const Render::Sequence& timeline, const TrackOptions& options, const File& file) {
    for (const Source& source : timeline.media->sources()) {
        LeftOut left;
        const MediaInfo& info = source->GetInfo();
        keepMain(info, file, left);
        left.chapters = left.tags = left.title = !options.metadata;
        if (const std::string text = left.of(info.contents); !text.empty())
            source->Note(text);
    }
}

} // namespace ExportCore
