// SPDX-License-Identifier: GPL-3.0-or-later
// What a container holds, and how its files are called.
#pragma once

#include "Kestra/Conf/CodecID.h"
#include "Kestra/Conf/ProgrammeInfo.h"
#include "KestraExport.h"
#include <string>
#include <vector>

namespace Kestra::ClientAPI {

/// What Conf::ProgrammeInfo has of a programme.
enum class ProgrammeField {
    Title,
    Tags,
    TimeCode,
    Chapters,
    Cover,
    Subtitles,
    SubtitleStyles,
    SubtitlesTogether,
    SubtitleColours, ///< of text without styles of its own; as what follows
    SubtitlePlaces,
    FurtherSounds, ///< tracks of sound beside the first one
    TrackTitles,
};

/// Containers by their ids, as a format's description names them ("mp4", "mkv" ...). Of an id that is none everything
/// is empty or false. Extensions are in lower case, without the dot.
struct KESTRA_EXPORT ContainerLimits {
    static bool IsContainer(const std::string& container);
    /// The pairs that players and editors really read, not all that a muxer would write.
    static bool Holds(const std::string& container, Conf::CodecID codec);
    /// Whether files of the container have a place for it; for time codes beside pictures only. Chapters of MP4 and MOV
    /// follow each other without gaps: each lasts until the next one begins. A cover has its place in files without
    /// pictures, subtitles theirs beside pictures or sound.
    static bool Holds(const std::string& container, ProgrammeField field);
    /// Whether one of the tags of Conf::ProgrammeInfo is kept. Some containers know a few keys only.
    static bool HoldsTag(const std::string& container, const std::string& key);
    /// How a track's language is told there, be it in a tag of the whole; empty where it cannot be.
    static std::string LanguageIn(const std::string& container, const std::string& language);
    /// A chapter's title as far as every reader of such files takes it; cut off between two characters.
    static std::string ChapterTitleIn(const std::string& container, const std::string& title);
    /// Subtitles as files of the container hold them: where one text follows the other, those that share time are one.
    /// Without cues where there is no place for them.
    static Conf::Subtitles SubtitlesIn(const std::string& container, const Conf::Subtitles& subtitles);
    /// Whether a codec's transparency is kept that is a second picture beside each packet.
    static bool HoldsAlphaBeside(const std::string& container);
    /// Whether each picture is a file of its own, in a folder.
    static bool IsSequence(const std::string& container);
    /// What files of the container are called, the usual one first; some belong to sound without pictures only.
    static std::vector<std::string> Extensions(const std::string& container, bool withPictures);
    /// Whether files so called are media or pictures of one certain kind, be it one that no container here is.
    static bool IsKnownExtension(const std::string& extension);

    ContainerLimits() = delete;
};

} // namespace Kestra::ClientAPI
