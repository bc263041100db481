// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/AllSounds.h"

#include "ExportCore/NameList.h"
#include "ExportCore/Refusal.h"
#include "Kestra/Base/SourcePlace.h"
#include "Kestra/ClientAPI/ContainerLimits.h"
#include "Kestra/Conf/Container.h"
#include "Render/SoundTracks.h"
#include <algorithm>

namespace ExportCore {
namespace {

using Kestra::ClientAPI::ContainerLimits;
using Kestra::ClientAPI::ProgrammeField;
using Source = Render::MediaPool::Source;

std::size_t countOf(const Source& source) {
    return Render::SoundTracks::of(source->GetInfo()).size();
}

std::string nameOf(const Source& source) {
    return '"' + source->GetPath().ToUtf8() + '"';
}

/// Those that hold several, for a way out.
std::string fitContainers() {
    std::vector<std::string> names;
    for (const Kestra::Conf::Container& container : Kestra::Conf::Container::All())
        if (ContainerLimits::Holds(container.id, ProgrammeField::FurtherSounds))
            names.emplace_back(container.id);
    return NameList::joined(names, " and ");
}

[[noreturn]] void refuse(const Source& source, const std::string& reason,
                         Kestra::SourcePlace place = Kestra::SourcePlace::Here()) {
    Kestra::ThrowFrom(Refusal("Cannot put all " + std::to_string(countOf(source)) + " sound tracks of " +
                              nameOf(source) + " into one file: " + reason),
                      place);
}

/// Those without any are silent in all tracks.
void requireAsMany(const std::vector<Source>& sources, const Source& most) {
    for (const Source& source : sources)
        if (const std::size_t count = countOf(source); count > 0 && count != countOf(most))
            refuse(most, nameOf(source) + " has " + std::to_string(count) +
                             "; --audio takes the number or the language of one that all have");
}

} // namespace

Render::Sequence AllSounds::of(const Render::Sequence& opened, const std::vector<Kestra::ioPath>& media,
                               const std::string& container, const std::atomic<bool>& interrupted,
                               const Kestra::Proc::MediaLimits& limits) {
    const std::vector<Source> sources = opened.media->sources();
    const auto fewer = [](const Source& a, const Source& b) { return countOf(a) < countOf(b); };
    const auto most = std::max_element(sources.begin(), sources.end(), fewer);
    if (most == sources.end() || countOf(*most) < 2)
        return opened;
    if (!ContainerLimits::Holds(container, ProgrammeField::FurtherSounds))
        refuse(*most, "the container " + container +
                          " holds one; --audio takes the number or the language of one, for an export each, and " +
                          fitContainers() + " hold all");
    requireAsMany(sources, *most);
    return Render::SoundTracks::all(opened, media, &interrupted, limits);
}

void AllSounds::requireOneEach(const Render::Sequence& timeline) {
    for (const Source& source : timeline.media->sources())
        if (countOf(source) > 1)
            refuse(source,
                   "a timeline mixes its sound of one track of each medium; without --audio that is the main one");
}

} // namespace ExportCore
