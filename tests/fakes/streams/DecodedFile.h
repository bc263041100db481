// SPDX-License-Identifier: GPL-3.0-or-later
// Fakes::DecodedFile: a media file as a player shows it.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <cstdint>
#include <string>
#include <vector>

namespace Fakes {

struct DecodedTrack {
    Kestra::FF::CodecParametersHandle parameters;
    AVRational timeBase = {0, 1};
    AVRational frameRate = {0, 1};
    std::int64_t duration = 0; ///< the container's claim, in the time base
    std::int64_t packets = 0;
    std::vector<Kestra::FF::FrameHandle> pictures; ///< with pts in the time base
    /// Sound, by channel; from time 0, at the place that the timestamps give it. What lies before 0 is not there.
    std::vector<std::vector<float>> samples;

    double Seconds() const { return static_cast<double>(duration) * av_q2d(timeBase); }
};

struct DecodedFile {
    std::vector<DecodedTrack> tracks;
    double seconds = 0;  ///< of the container
    std::string encoder; ///< the container's tag

    const DecodedTrack& Video() const;
    const DecodedTrack& Audio() const;
};

/// Throws std::runtime_error for what cannot be opened or decoded to the end without an error.
DecodedFile Decode(const std::string& path);

} // namespace Fakes
