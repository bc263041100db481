// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Conf::ProgrammeInfo: what a file says of its whole programme.
#pragma once

#include "Kestra/Conf/IFormatCodec.h"
#include "Kestra/Conf/Subtitles.h"
#include <optional>
#include <utility>
#include <vector>

namespace Kestra::Conf {

/// A value; it travels in the description of a stream, from whoever makes the programme through filters and encoders to
/// the muxer. A consumer learns from ClientAPI::ContainerLimits what of it a container can hold; what it cannot, the
/// muxer leaves out.
struct KESTRA_EXPORT ProgrammeInfo {
    /// From `start` to `end` in engine time of the stream. What lies behind the end of what is written is cut off.
    struct Chapter {
        std::int64_t start = 0;
        std::int64_t end = 0;
        std::string title;

        friend bool operator==(const Chapter& a, const Chapter& b) {
            return a.start == b.start && a.end == b.end && a.title == b.title;
        }
    };

    /// What a track of pictures or sound is called.
    struct TrackName {
        std::string language; ///< as its file tells it; empty where it does not
        std::string title;
        /// Of several sound tracks, players are to begin with one of these; where none is, with the first.
        bool isDefault = false;

        friend bool operator==(const TrackName& a, const TrackName& b) {
            return a.language == b.language && a.title == b.title && a.isDefault == b.isDefault;
        }
    };

    /// A picture that stands for the programme, as the file that holds it has it.
    struct Cover {
        std::string mimeType; ///< "image/jpeg" or "image/png"
        std::string bytes;    ///< empty where there is none
        int width = 0;
        int height = 0;
        std::string pixelFormat; ///< as the decoder library names it

        friend bool operator==(const Cover& a, const Cover& b) {
            return a.mimeType == b.mimeType && a.bytes == b.bytes && a.width == b.width && a.height == b.height &&
                   a.pixelFormat == b.pixelFormat;
        }
    };

    /// Text is UTF-8 throughout; empty where there is none.
    std::string title;
    /// Beside the title: keys as FFmpeg's libraries name them ("comment", "artist", "date" ...) and their values. Of
    /// one key twice the last counts.
    std::vector<std::pair<std::string, std::string>> tags;
    /// Engine time of the first frame's time code, as in Proc::MediaInfo.
    std::optional<std::int64_t> timecode;
    /// The time code is to be written with dropped numbers, where the rate of the pictures has such: a multiple of
    /// 30000/1001.
    bool dropFrame = false;
    std::vector<Chapter> chapters;
    TrackName picture;
    TrackName sound;
    std::vector<TrackName> furtherSounds; ///< of the sound tracks behind that one, as far as there are some
    Cover cover;                          ///< written into files without pictures
    std::vector<Subtitles> subtitles;

    /// Of the part of the stream from `start` to `end`, whose time begins at 0. Chapters are in order then, none is
    /// left outside, and one without a length lasts until the next one begins. Subtitles that show nothing there are
    /// gone.
    ProgrammeInfo Part(std::int64_t start, std::int64_t end) const;

    bool IsEmpty() const;

    /// Empty where the description tells nothing of it.
    static ProgrammeInfo Of(const IFormatCodec& format);
    /// Replaces what the description told; an empty one takes it away.
    void TellIn(IFormatCodec& format) const;

    friend KESTRA_EXPORT bool operator==(const ProgrammeInfo& a, const ProgrammeInfo& b);
    friend bool operator!=(const ProgrammeInfo& a, const ProgrammeInfo& b) { return !(a == b); }
};

} // namespace Kestra::Conf
