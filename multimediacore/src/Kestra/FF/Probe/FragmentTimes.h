// Kestra::FF::FragmentTimes: what fragments of MP4 say of their pictures' times that libavformat does not pass on.
// Source: ISO/IEC 14496-12 (ISO base media file format), 8.8.8 (track fragment run).
#pragma once

#include "Kestra/Base/ioPath.h"
#include <atomic>
#include <cstdint>

namespace Kestra::FF {

struct FragmentTimes {
    /// Offsets from decoding to showing may be negative, and no edit list says where the track begins. Then pictures
    /// are shown from the track's start on, and nothing tells what codecs put in front of audio.
    bool fromStart = false;
    /// By how much libavformat shows the pictures later than the file says, which it does to make no offset negative;
    /// ticks of the track.
    std::int64_t late = 0;
};

/// Of files of the MOV family; `track` is the number by which the file itself knows the track of pictures.
FragmentTimes FindFragmentTimes(const ioPath& path, int track, const std::atomic<bool>& interrupted);

} // namespace Kestra::FF
