// SPDX-License-Identifier: GPL-3.0-or-later
// Project::StreamLengths: what the streams of one export hold, to the frame and to the sample.
#pragma once

#include <cstdint>

namespace Project {

/// A value. Times are engine time. A medium that is not exported counts nothing.
struct StreamLengths {
    /// The part of the composition that is exported. With pictures the start lies on one of their frames.
    std::int64_t start = 0;
    std::int64_t end = 0;
    std::int64_t videoFrames = 0;
    std::int64_t videoDuration = 0; ///< as the video stream's GetDuration answers
    std::int64_t audioSamples = 0;  ///< a channel
    std::int64_t audioDuration = 0; ///< as the audio stream's GetDuration answers
};

} // namespace Project
