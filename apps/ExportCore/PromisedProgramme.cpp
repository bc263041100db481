// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/PromisedProgramme.h"

#include "ExportCore/TimeText.h"
#include "Kestra/ClientAPI/ContainerLimits.h"
#include "Kestra/Conf/Container.h"
#include "Kestra/Conf/Language.h"
#include "Types/Time.h"
#include <algorithm>
#include <cstdlib>
#include <vector>

namespace ExportCore {
namespace {

using Kestra::ClientAPI::ContainerLimits;
using Kestra::ClientAPI::ProgrammeField;
using Kestra::Conf::Container;
using Kestra::Conf::Language;
using Kestra::Conf::ProgrammeInfo;
using Kestra::Conf::Subtitles;
using Kestra::Proc::CheckedFile;
using Kestra::Proc::CheckedStream;
using Chapter = ProgrammeInfo::Chapter;

bool isNear(const Chapter& a, const Chapter& b, std::int64_t tolerance) {
    return std::abs(a.start - b.start) <= tolerance;
}

/// What every container keeps of a text: no blanks around it, no control characters, not all of a long one.
std::string essenceOf(const std::string& text) {
    constexpr std::size_t KEPT = 200;
    std::string essence;
    for (const char letter : text.substr(0, text.find('\0')))
        if (static_cast<unsigned char>(letter) > ' ' && essence.size() < KEPT)
            essence.push_back(letter);
    return essence;
}

/// One may be cut off, but not at its very beginning.
bool isSame(const std::string& a, const std::string& b) {
    constexpr std::size_t SURE = 50;
    const std::size_t common = std::min(a.size(), b.size());
    return a == b || (common >= SURE && a.compare(0, common, b, 0, common) == 0);
}

std::string chapterFault(const PromisedProgramme& promise, const std::vector<Chapter>& found) {
    const std::vector<Chapter>& chapters = promise.programme.chapters;
    for (const Chapter& chapter : chapters) {
        if (chapter.start + promise.tolerance >= promise.length)
            continue;
        const auto isIts = [&](const Chapter& other) { return isNear(chapter, other, promise.tolerance); };
        const std::string title = essenceOf(chapter.title);
        // Where there is none, some readers make one up.
        const auto isNamed = [&](const Chapter& other) {
            return isIts(other) && (title.empty() || isSame(essenceOf(other.title), title));
        };
        // Of those that stand so close together that their times are the same there, one may be another.
        const bool isAlone = std::count_if(chapters.begin(), chapters.end(), isIts) == 1;
        const bool isThere =
            isAlone ? std::any_of(found.begin(), found.end(), isNamed) : std::any_of(found.begin(), found.end(), isIts);
        if (!isThere)
            return "it has no chapter \"" + chapter.title + "\" at " +
                   TimeText::format(Types::fromAvTime(chapter.start));
    }
    return {};
}

std::vector<const CheckedStream*> streamsOf(const CheckedFile& file, CheckedStream::Kind kind) {
    std::vector<const CheckedStream*> streams;
    for (const CheckedStream& stream : file.streams)
        if (stream.kind == kind)
            streams.push_back(&stream);
    return streams;
}

std::string subtitleFault(const PromisedProgramme& promise, const CheckedFile& file) {
    const auto found = streamsOf(file, CheckedStream::Kind::Subtitles);
    // In others the first ones are marked where none are.
    const Container* const container = Container::Find(promise.container);
    const bool tellsDefaults = container && container->family == Container::Family::Matroska;
    std::size_t next = 0;
    for (const Subtitles& told : promise.programme.subtitles) {
        const Subtitles held = ContainerLimits::SubtitlesIn(promise.container, told);
        const auto isSure = [&promise](const Subtitles::Cue& cue) {
            return cue.start + promise.tolerance < promise.length;
        };
        const auto least = std::count_if(held.cues.begin(), held.cues.end(), isSure);
        if (least == 0) // the track need not be there
            continue;
        if (next >= found.size())
            return "it lacks a track of subtitles";
        const CheckedStream& track = *found[next++];
        if (track.packets < least || track.packets > static_cast<std::int64_t>(held.cues.size()))
            return "it holds " + std::to_string(track.packets) + " subtitles instead of " +
                   std::to_string(held.cues.size());
        if (!held.language.empty() && !Language::AreSame(track.language, held.language))
            return "its subtitles are not told to be in the language " + held.language;
        if (track.forced != held.forced)
            return std::string("its subtitles are ") + (held.forced ? "not " : "") + "told to be forced";
        if (tellsDefaults && track.isDefault != held.isDefault)
            return std::string("its subtitles are ") + (held.isDefault ? "not " : "") + "marked as shown by default";
    }
    return {};
}

/// `names` are those of the streams, in their order.
std::string languageFault(const CheckedFile& file, CheckedStream::Kind kind,
                          const std::vector<ProgrammeInfo::TrackName>& names) {
    const auto streams = streamsOf(file, kind);
    for (std::size_t track = 0; track < std::min(streams.size(), names.size()); ++track)
        if (const std::string& language = names[track].language;
            !language.empty() && !Language::AreSame(streams[track]->language, language))
            return "a track is not told to be in the language " + language;
    return {};
}

/// Players begin with those that are marked: the picture, and of the sounds those that are to be, or the first.
std::string defaultFault(const CheckedFile& file, std::vector<ProgrammeInfo::TrackName> sounds) {
    const auto pictures = streamsOf(file, CheckedStream::Kind::Video);
    if (!pictures.empty() && !pictures.front()->isDefault)
        return "its pictures are not marked as what players begin with";
    const auto isDefault = [](const ProgrammeInfo::TrackName& name) { return name.isDefault; };
    sounds.front().isDefault = sounds.front().isDefault || std::none_of(sounds.begin(), sounds.end(), isDefault);
    const auto streams = streamsOf(file, CheckedStream::Kind::Audio);
    for (std::size_t track = 0; track < std::min(streams.size(), sounds.size()); ++track)
        if (streams[track]->isDefault != sounds[track].isDefault)
            return "sound track " + std::to_string(track + 1) + " is " + (sounds[track].isDefault ? "not " : "") +
                   "marked as what players begin with";
    return {};
}

std::vector<ProgrammeInfo::TrackName> soundsOf(const ProgrammeInfo& programme) {
    std::vector<ProgrammeInfo::TrackName> names{programme.sound};
    names.insert(names.end(), programme.furtherSounds.begin(), programme.furtherSounds.end());
    return names;
}

} // namespace

void PromisedProgramme::addLeadingChapter() {
    using Kestra::Conf::Container;
    std::vector<Chapter>& chapters = programme.chapters;
    const Container* const found = Container::Find(container);
    if (found && found->family == Container::Family::Mov && !chapters.empty() && chapters.front().start > 0)
        chapters.insert(chapters.begin(), {0, chapters.front().start, {}});
}

std::string PromisedProgramme::faultOf(const CheckedFile& file) const {
    std::string fault;
    const auto look = [&fault](const auto& find) {
        if (fault.empty())
            fault = find();
    };
    const auto holds = [this](ProgrammeField field) { return ContainerLimits::Holds(container, field); };
    const std::string title = essenceOf(programme.title);
    if (holds(ProgrammeField::Title) && !title.empty() && !isSame(title, essenceOf(file.programme.title)))
        fault = "it does not have its title";
    if (holds(ProgrammeField::Chapters))
        look([&] { return chapterFault(*this, file.programme.chapters); });
    look([&] { return languageFault(file, CheckedStream::Kind::Video, {programme.picture}); });
    look([&] { return languageFault(file, CheckedStream::Kind::Audio, soundsOf(programme)); });
    if (holds(ProgrammeField::FurtherSounds))
        look([&] { return defaultFault(file, soundsOf(programme)); });
    const bool hasPictures = !streamsOf(file, CheckedStream::Kind::Video).empty();
    if (!programme.cover.bytes.empty() && !hasPictures && holds(ProgrammeField::Cover) &&
        streamsOf(file, CheckedStream::Kind::Cover).empty())
        look([] { return std::string("it lacks its cover"); });
    if (holds(ProgrammeField::Subtitles))
        look([&] { return subtitleFault(*this, file); });
    return fault;
}

} // namespace ExportCore
