// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Conf::Container: all that is known of a container without asking its muxer.
#pragma once

#include "Kestra/Conf/CodecID.h"
#include "KestraExport.h"
#include <string>
#include <vector>

namespace Kestra::Conf {

/// One row of the table, which Container.cpp holds: a new container is one more.
struct KESTRA_EXPORT Container {
    /// Of what is neither, a file holds one track of pictures or of sound, which has no title of its own.
    enum class Family { Other, Mov, Matroska };
    /// How the language of a track is told: not at all but by a tag of the whole, by its number in QuickTime, or by one
    /// of the two codes of ISO 639-2.
    enum class Languages { ByTag, QuickTime, Terminological, Bibliographic };

    const char* id;    ///< in descriptions and catalogues
    const char* muxer; ///< as FFmpeg's libraries call it
    Family family;
    bool globalHeaders; ///< the encoders' headers are kept apart from the packets
    bool timecode;      ///< it has a place for the first picture's time code
    bool chapters;      ///< and one for chapters
    /// What players and editors really read, not all that a muxer would write.
    std::vector<CodecID> codecs;
    std::vector<std::string> extensions;        ///< the usual one first; in lower case, without the dot
    std::vector<std::string> extensionsOfSound; ///< beside those, for files without pictures

    /// The keys of tags that its files keep, beside the title; empty: any.
    std::vector<std::string> tags;
    Languages languages = Languages::ByTag;
    bool cover = false; ///< files without pictures hold one that stands for the whole
    /// The codecs of text that is shown, as FFmpeg's libraries call them: of plain text and of such with styles of its
    /// own. Null where there is none.
    const char* subtitles = nullptr;
    const char* styledSubtitles = nullptr;
    bool subtitlesOneAtATime = false; ///< one text follows the other, none stands beside another
    bool subtitleColours = false;     ///< the codec of plain text keeps what of it has another colour
    bool subtitlePlaces = false;      ///< and what stands at another place on the picture
    int chapterTitle = 0;             ///< bytes of a chapter's title that all readers take; 0: any number
    bool tagged = true;               ///< it has a place for title and tags
    /// Each picture is a file of its own, in a folder: nothing holds them together but their numbered names.
    bool sequence = false;
    bool squarePixels = false; ///< viewers take its pixels for square, whatever its files tell

    static const std::vector<Container>& All();
    /// Null for an id that is none.
    static const Container* Find(const std::string& id);
};

} // namespace Kestra::Conf
