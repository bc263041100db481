// Kestra::Conf::ProgrammeInfo: what a file says of its whole programme.
#pragma once

#include "Kestra/Conf/IFormatCodec.h"
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

    /// Of the part of the stream from `start` to `end`, whose time begins at 0. Chapters are in order then, none is
    /// left outside, and one without a length lasts until the next one begins.
    ProgrammeInfo Part(std::int64_t start, std::int64_t end) const;

    bool IsEmpty() const { return title.empty() && tags.empty() && !timecode && chapters.empty(); }

    /// Empty where the description tells nothing of it.
    static ProgrammeInfo Of(const IFormatCodec& format);
    /// Replaces what the description told; an empty one takes it away.
    void TellIn(IFormatCodec& format) const;

    friend bool operator==(const ProgrammeInfo& a, const ProgrammeInfo& b) {
        return a.title == b.title && a.tags == b.tags && a.timecode == b.timecode && a.dropFrame == b.dropFrame &&
               a.chapters == b.chapters;
    }
    friend bool operator!=(const ProgrammeInfo& a, const ProgrammeInfo& b) { return !(a == b); }
};

} // namespace Kestra::Conf
