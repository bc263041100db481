// SPDX-License-Identifier: GPL-3.0-or-later
// The time code of a file's first picture.
#pragma once

#include "Kestra/FF/Probe/ProbedTrack.h"
#include <boost/rational.hpp>
#include <cstdint>
#include <optional>
#include <string>

namespace Kestra::FF {

/// The engine time that a time code names: the number of its frame, dropped numbers not counted, times the frame's
/// period. It has two digits each for hours, minutes, seconds and frames, the last behind a colon, or behind ";" or "."
/// where numbers are dropped: at multiples of 30000/1001. Unset for a text or a number that is none at that rate.
std::optional<std::int64_t> TimeOfTimecode(const std::string& text, const boost::rational<long long>& rate);

/// As MediaInfo has it.
struct StartTimecode {
    std::int64_t time = 0;
    bool dropsNumbers = false;
};

/// What the picture track, the container, a track of time codes or MPEG's first group of pictures tells, in that order.
/// `rate` is the pictures'; a track of time codes may have another one, which then counts. Unset where nothing does.
std::optional<StartTimecode> FindStartTimecode(const AVFormatContext& context, const ProbedTrack& video,
                                               const boost::rational<long long>& rate);

} // namespace Kestra::FF
