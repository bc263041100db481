// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::MediaSpan: from where to where a media file is a clip.
#pragma once

#include <boost/rational.hpp>
#include <cstdint>
#include <optional>

namespace Kestra::FF {

/// Times are engine time on the container's own clock.
struct VideoSpan {
    std::int64_t start = 0;
    std::int64_t end = 0;
    boost::rational<long long> rate; ///< 0 when unknown
};
struct AudioSpan {
    std::int64_t start = 0;
    std::int64_t end = 0;
    std::int64_t priming = 0; ///< what an encoder may put in front, which containers do not always mark
    std::int64_t padding = 0; ///< the longest block that an encoder may fill up at the end
};

/// The instant that is time 0 of the media, for tracks of which one at least exists. It is the first picture's, or lies
/// whole frames before it: on a grid of frames from there every picture has a frame. Audio that begins before the
/// picture is cut there when it leads by less than a frame and its encoder's priming; a longer lead stays, and begins
/// with silence of less than a frame.
std::int64_t FindOrigin(const std::optional<VideoSpan>& frame, const std::optional<AudioSpan>& audio);

/// Where the audio ends: with the picture if it goes on for less than a filled-up block and one more frame, else where
/// it ends itself.
std::int64_t FindAudioEnd(const std::optional<VideoSpan>& frame, const AudioSpan& audio);

} // namespace Kestra::FF
