// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::RateText, RateNote: what a user is told of frame rates.
#pragma once

#include "Kestra/Proc/IMediaSource.h"
#include <cmath>
#include <string>

namespace Kestra::Proc {

/// "25", "29.97": to the thousandth.
inline std::string RateText(const boost::rational<long long>& rate) {
    constexpr long long THOUSANDTHS = 1000;
    const long long told = std::llround(boost::rational_cast<double>(rate) * THOUSANDTHS);
    std::string rest = std::to_string(THOUSANDTHS + told % THOUSANDTHS).substr(1);
    rest.erase(rest.find_last_not_of('0') + 1);
    return std::to_string(told / THOUSANDTHS) + (rest.empty() ? "" : "." + rest);
}

/// "variable frame rate, shown at 29.97 frames a second, which leaves out 2 of its 63 pictures": of a track that is
/// shown at `rate`; empty where its pictures come evenly. How many are left out is known at the track's own rate alone.
inline std::string RateNote(const VideoTrackInfo& track, const boost::rational<long long>& rate) {
    if (!track.variableFrameRate)
        return {};
    const std::string lower = rate < track.frameRate ? ", which leaves out pictures" : "";
    return "variable frame rate, shown at " + RateText(rate) + " frames a second" +
           (rate == track.frameRate ? track.leftOut : lower);
}

} // namespace Kestra::Proc
