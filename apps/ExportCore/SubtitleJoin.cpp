// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/SubtitleJoin.h"

#include "Kestra/ClientAPI/ContainerLimits.h"
#include "Kestra/Conf/Container.h"
#include "Kestra/Conf/Language.h"
#include <algorithm>

namespace ExportCore {

using Kestra::ClientAPI::ContainerLimits;
using Kestra::ClientAPI::ProgrammeField;
using Kestra::Conf::Container;
using Kestra::Conf::Language;
using Kestra::Conf::Subtitles;

namespace {

/// Whether the text has overrides that begin so.
bool hasOverrides(const Subtitles& track, const std::vector<std::string>& beginnings) {
    return std::any_of(track.cues.begin(), track.cues.end(), [&beginnings](const Subtitles::Cue& cue) {
        const std::string text = cue.Text();
        return std::any_of(beginnings.begin(), beginnings.end(), [&text](const std::string& beginning) {
            return text.find("{\\" + beginning) != std::string::npos;
        });
    });
}

/// Of text that is plain, or becomes it.
void noteLostMarkup(const Subtitles& track, const std::string& container, std::vector<std::string>& notes) {
    const auto holds = [&container](ProgrammeField field) { return ContainerLimits::Holds(container, field); };
    if (track.styled) // what it has of its own goes with its styles, or stays with them
        return;
    if (track.HasColours() && !holds(ProgrammeField::SubtitleColours))
        notes.emplace_back("Colours of subtitles are left out: the file has no place for them");
    const Container* const found = Container::Find(container);
    const std::string codec = found && found->subtitles ? found->subtitles : "";
    if (hasOverrides(track, {"fs", "fn"}) && codec == "webvtt")
        notes.emplace_back("Fonts of subtitles and their sizes are left out: the file has no place for them");
    if (hasOverrides(track, {"s1"}) && codec != "subrip")
        notes.emplace_back("Lines through the text of subtitles are left out: the file has no place for them");
    if (track.HasPlaces() && !holds(ProgrammeField::SubtitlePlaces))
        notes.emplace_back("Places of subtitles on the picture are left out: the file has none for them");
}

} // namespace

SubtitleJoin::Joined& SubtitleJoin::joinedFor(const Key& key, const Subtitles& track) {
    const auto [place, isNew] = places.emplace(key, tracks.size());
    if (!isNew)
        return tracks[place->second];
    Joined begun{track};
    begun.track.cues.clear();
    tracks.push_back(std::move(begun));
    return tracks.back();
}

bool SubtitleJoin::add(const Subtitles& track, std::int64_t at) {
    const std::pair<std::string, bool> kind(Language::CodeOf(track.language), track.forced);
    const int number = counts[kind]++;
    if (track.cues.empty())
        return false;
    Joined& joined = joinedFor({kind.first, kind.second, number}, track);
    const bool isStyled = joined.track.styled || track.styled;
    joined.stylesDiffer = joined.stylesDiffer || (isStyled && joined.track.header != track.header);
    joined.track.styled = isStyled;
    joined.track.isDefault = joined.track.isDefault || track.isDefault;
    joined.titlesDiffer = joined.titlesDiffer || joined.track.title != track.title;
    for (const Subtitles::Cue& cue : track.cues)
        joined.track.cues.push_back({cue.start + at, cue.end + at, cue.event});
    return true;
}

std::vector<Subtitles> SubtitleJoin::take(const std::string& container, bool named, std::vector<std::string>& notes) {
    std::vector<Subtitles> taken;
    for (Joined& joined : tracks) {
        Subtitles& track = joined.track;
        const std::string held = ContainerLimits::LanguageIn(container, track.language);
        if (joined.stylesDiffer) {
            notes.emplace_back("Styles of subtitles are left out: the inputs' differ");
            track.styled = false;
        }
        if (track.styled && !ContainerLimits::Holds(container, ProgrammeField::SubtitleStyles))
            notes.emplace_back("Styles of subtitles are left out: the file has no place for them");
        if (track.MostAtATime() > Subtitles::MOST_TOGETHER &&
            !ContainerLimits::Holds(container, ProgrammeField::SubtitlesTogether))
            notes.push_back("Of more than " + std::to_string(Subtitles::MOST_TOGETHER) +
                            " subtitles at one time the first ones are kept: the file shows one at a time");
        noteLostMarkup(track, container, notes);
        if (named && joined.titlesDiffer)
            notes.push_back("The subtitles' titles are left out: the inputs' differ");
        if (named && !track.language.empty() && held.empty())
            notes.push_back("The subtitles' language, " + track.language +
                            ", is left out: the file has no place for it");
        track.language = named ? held : std::string();
        if (!named || joined.titlesDiffer)
            track.title.clear();
        taken.push_back(std::move(track));
    }
    return taken;
}

} // namespace ExportCore
