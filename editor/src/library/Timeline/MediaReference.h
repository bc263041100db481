// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::MediaReference: where the picture or the sound of a clip comes from.
#pragma once

#include "EditorTimelineExport.h"
#include "Kestra/Base/ioPath.h"
#include "Timeline/TimeRange.h"
#include <boost/rational.hpp>
#include <map>
#include <optional>
#include <string>
#include <variant>

namespace Timeline {

/// Nothing that can be opened, and why.
struct MissingMedia {
    std::string url; ///< as the timeline has it; empty where it names none
    std::string why; ///< a clause: "is not there"
};

/// A plain file that was there when the timeline was read.
struct MediaFile {
    Kestra::ioPath path; ///< absolute
};

/// Pictures that are files of their own, numbered.
struct EDITORTIMELINE_EXPORT ImageSequence {
    enum class MissingFrames { Refused, Held, Black };

    Kestra::ioPath folder; ///< absolute; was there when the timeline was read
    std::string prefix;    ///< of each file's name, before the number
    std::string suffix;    ///< and behind it
    std::int64_t firstNumber = 0;
    std::int64_t step = 1;               ///< from one number to the next; at least 1
    int digits = 0;                      ///< numbers are filled up with noughts to so many
    boost::rational<long long> rate = 1; ///< pictures a second, of those that there are
    MissingFrames missing = MissingFrames::Refused;

    /// The name of the file with picture `index`, counted from 0.
    std::string nameOf(std::int64_t index) const;
    /// Whether a file of that name would be one of such pictures, whatever its number.
    bool isName(const std::string& file) const;
};

/// Picture or sound that is made, not read.
struct Generator {
    enum class Kind { Bars, Colour, Tone, Silence };

    Kind kind = Kind::Colour;
    /// Red, green, blue of a colour, from 0 to 1; black as it is made.
    double red = 0;
    double green = 0;
    double blue = 0;
    double frequency = 1000; ///< of a tone, in Hz
};

using MediaTarget = std::variant<MissingMedia, MediaFile, ImageSequence, Generator>;

/// A value.
struct MediaReference {
    std::string name;
    MediaTarget target;
    /// What there is of it, in the media's own time: its start is the time code of the first frame. Unset: the media
    /// tells.
    std::optional<TimeRange> available{};
};

} // namespace Timeline
