// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/ClientAPI/ContainerLimits.h"

#include "Kestra/Conf/Container.h"
#include "Kestra/Conf/Language.h"
#include <algorithm>
#include <iterator>

namespace Kestra::ClientAPI {

namespace {

using Conf::CodecID;
using Conf::Container;

/// Of files that are none of the containers above.
constexpr const char* FOREIGN_EXTENSIONS[] = {
    "264", "265",  "3g2",  "3gp", "aac",  "aif",  "aiff", "amr",  "ape",  "asf", "au",   "avi",  "avif", "bmp",  "caf",
    "dv",  "dts",  "eac3", "f4v", "flv",  "h264", "h265", "hevc", "heic", "ivf", "jpeg", "jpg",  "m1v",  "m2ts", "m2v",
    "m3u", "m3u8", "mk3d", "mp1", "mp2",  "mpa",  "mpe",  "mpeg", "mpg",  "mpd", "mts",  "mxf",  "nut",  "ogv",  "png",
    "rm",  "rmvb", "svg",  "tif", "tiff", "ts",   "tta",  "vob",  "w64",  "wma", "wmv",  "webp", "wv",   "y4m",
};

bool Has(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

} // namespace

bool ContainerLimits::IsContainer(const std::string& container) {
    return Container::Find(container) != nullptr;
}

bool ContainerLimits::Holds(const std::string& container, CodecID codec) {
    const Container* const found = Container::Find(container);
    return found != nullptr && std::find(found->codecs.begin(), found->codecs.end(), codec) != found->codecs.end();
}

bool ContainerLimits::Holds(const std::string& container, ProgrammeField field) {
    const Container* const found = Container::Find(container);
    if (found == nullptr)
        return false;
    switch (field) {
    case ProgrammeField::Title:
    case ProgrammeField::Tags:
        return found->tagged;
    case ProgrammeField::TimeCode:
        return found->timecode;
    case ProgrammeField::Chapters:
        return found->chapters;
    case ProgrammeField::Cover:
        return found->cover;
    case ProgrammeField::Subtitles:
        return found->subtitles != nullptr;
    case ProgrammeField::SubtitlesTogether:
        return found->subtitles != nullptr && !found->subtitlesOneAtATime;
    case ProgrammeField::SubtitleStyles:
        return found->styledSubtitles != nullptr;
    case ProgrammeField::SubtitleColours:
        return found->subtitleColours;
    case ProgrammeField::SubtitlePlaces:
        return found->subtitlePlaces;
    case ProgrammeField::FurtherSounds:
    case ProgrammeField::TrackTitles:
        return found->family != Container::Family::Other;
    }
    return false;
}

bool ContainerLimits::HoldsTag(const std::string& container, const std::string& key) {
    const Container* const found = Container::Find(container);
    return found != nullptr && found->tagged && !key.empty() && (found->tags.empty() || Has(found->tags, key));
}

std::string ContainerLimits::LanguageIn(const std::string& container, const std::string& language) {
    const Container* const found = Container::Find(container);
    const std::string code = Conf::Language::CodeOf(language);
    if (found == nullptr || code.empty())
        return {};
    switch (found->languages) {
    case Container::Languages::ByTag:
        return HoldsTag(container, "language") ? code : std::string();
    case Container::Languages::QuickTime:
        return Conf::Language::QuickTimeName(code);
    case Container::Languages::Terminological:
        return code;
    case Container::Languages::Bibliographic:
        return Conf::Language::BibliographicCode(code);
    }
    return {};
}

std::string ContainerLimits::ChapterTitleIn(const std::string& container, const std::string& title) {
    const Container* const found = Container::Find(container);
    const auto most = static_cast<std::size_t>(found != nullptr ? found->chapterTitle : 0);
    if (most == 0 || title.size() <= most)
        return title;
    std::size_t end = most;
    while (end > 0 && (static_cast<unsigned char>(title[end]) & 0xC0) == 0x80)
        --end;
    return title.substr(0, end);
}

Conf::Subtitles ContainerLimits::SubtitlesIn(const std::string& container, const Conf::Subtitles& subtitles) {
    const Container* const found = Container::Find(container);
    if (found != nullptr && found->subtitles != nullptr)
        return found->subtitlesOneAtATime ? subtitles.OneAtATime() : subtitles;
    Conf::Subtitles none = subtitles;
    none.cues.clear();
    return none;
}

bool ContainerLimits::HoldsAlphaBeside(const std::string& container) {
    const Container* const found = Container::Find(container);
    return found != nullptr && found->family == Container::Family::Matroska;
}

bool ContainerLimits::IsSequence(const std::string& container) {
    const Container* const found = Container::Find(container);
    return found != nullptr && found->sequence;
}

std::vector<std::string> ContainerLimits::Extensions(const std::string& container, bool withPictures) {
    const Container* const found = Container::Find(container);
    if (found == nullptr)
        return {};
    std::vector<std::string> names = found->extensions;
    if (!withPictures)
        names.insert(names.end(), found->extensionsOfSound.begin(), found->extensionsOfSound.end());
    return names;
}

bool ContainerLimits::IsKnownExtension(const std::string& extension) {
    const bool own =
        std::any_of(Container::All().begin(), Container::All().end(), [&extension](const Container& container) {
            return Has(container.extensions, extension) || Has(container.extensionsOfSound, extension);
        });
    return own || std::any_of(std::begin(FOREIGN_EXTENSIONS), std::end(FOREIGN_EXTENSIONS),
                              [&extension](const char* foreign) { return extension == foreign; });
}

} // namespace Kestra::ClientAPI
