// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/ClientAPI/ContainerLimits.h"

#include "Kestra/Conf/Container.h"
#include "Kestra/Conf/Language.h"
#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

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

/// Whether the overrides, each behind its backslash, leave a drawing begun, where one was or not.
bool Draws(const std::string& overrides, bool before) {
    for (std::size_t at = overrides.find("\\p"); at != std::string::npos; at = overrides.find("\\p", at + 1))
        if (const char size = overrides[at + 2]; size >= '0' && size <= '9')
            before = size != '0';
    return before;
}

/// A text of styles for those without: what of it is a drawing, or a word to other authors, is no text there.
std::string WithoutDrawings(const std::string& text) {
    std::string words;
    bool drawing = false;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t close = text[at] == '{' ? text.find('}', at) : std::string::npos;
        if (close == std::string::npos) {
            words += drawing ? "" : text.substr(at, 1);
            ++at;
            continue;
        }
        if (const std::size_t first = text.find('\\', at); first < close) {
            const std::string overrides = text.substr(first, close - first);
            drawing = Draws(overrides, drawing);
            words += '{' + overrides + '}';
        }
        at = close + 1;
    }
    return words;
}

/// Whether something of it is seen: neither an override nor blank.
bool IsSeen(const std::string& text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (const std::size_t close = text.find('}', at); text.compare(at, 2, "{\\") == 0 && close != std::string::npos)
            at = close;
        else if (text[at] == '\\' && at + 1 < text.size() && std::strchr("Nnh", text[at + 1]))
            ++at;
        else if (!std::strchr(" \t\r\n", text[at]))
            return true;
    }
    return false;
}

/// In files of plain text a text in which nothing is seen is none.
Conf::Subtitles AsPlain(const Conf::Subtitles& subtitles) {
    Conf::Subtitles plain = subtitles;
    plain.cues.clear();
    for (Conf::Subtitles::Cue cue : subtitles.cues) {
        const std::string text = cue.Text();
        const std::string words = subtitles.styled ? WithoutDrawings(text) : text;
        cue.event.replace(cue.event.size() - text.size(), text.size(), words);
        if (IsSeen(words))
            plain.cues.push_back(std::move(cue));
    }
    return plain;
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
    std::string code = Conf::Language::CodeOf(language);
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
    if (found != nullptr && found->subtitles != nullptr) {
        const bool isPlain = !subtitles.styled || found->styledSubtitles == nullptr;
        const Conf::Subtitles held = isPlain ? AsPlain(subtitles) : subtitles;
        return found->subtitlesOneAtATime ? held.OneAtATime() : held;
    }
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
