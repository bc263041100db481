// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::FragmentTimes: what fragments of MP4 say of their tracks' times that libavformat does not pass on.
// Source: ISO/IEC 14496-12 (ISO base media file format), 8.6.6 (edit list) and 8.8.8 (track fragment run).
#pragma once

#include "Kestra/Base/ioPath.h"
#include <atomic>
#include <cstdint>

namespace Kestra::FF {

struct FragmentTimes {
    /// Offsets from decoding to showing may be negative: pictures are shown from the track's start on.
    bool fromStart = false;
    /// An edit list says where the audio begins, and so what its codec put in front.
    bool tellsPriming = false;
    /// By how much libavformat shows the pictures later than the file says, which it does to make no offset negative;
    /// ticks of the track.
    std::int64_t late = 0;
};

/// Of files of the MOV family; `video` and `audio` are the numbers by which the file itself knows the tracks.
FragmentTimes FindFragmentTimes(const ioPath& path, int video, int audio, const std::atomic<bool>& interrupted);

} // namespace Kestra::FF
