// SPDX-License-Identifier: GPL-3.0-or-later
// How tracks belong together where the container does not store what codecs put in front of audio: in AVI, which counts
// chunks and stores no times, and in fragmented MP4.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <cstdint>

namespace Kestra::FF {

/// What the first chunks say. Engine time on the container's own clock.
struct ChunkStart {
    std::int64_t first = 0;  ///< of the first chunk that holds a picture
    std::int64_t second = 0; ///< of the next one
    std::int64_t shown = 0;  ///< when the first picture is shown
    std::int64_t period = 0; ///< of the pictures
    bool byLibav = false;    ///< written by libav
    int block = 0;           ///< samples in the first block of sound
};

/// What is to be added to times of the container; engine time.
struct ChunkShift {
    std::int64_t firstFrame = 0;
    std::int64_t audio = 0;
};

/// Pictures are shown later than they are decoded, and audio does not wait for that: its start belongs to the first
/// picture's. libav's writer moves pictures for what its encoders put before the audio, by whole chunks, but leaves
/// the first one where it is.
ChunkShift AlignChunks(const ChunkStart& start, const AVCodecParameters& audio);

/// Where fragments are described before they are known, libav's writer moves pictures by what its encoders put before
/// the audio, to the next `tick` of their clock, but leaves the first one where it is. What lies before it is cut.
ChunkShift AlignFragments(const ChunkStart& start, const AVCodecParameters& audio, std::int64_t tick);

/// What the first packets of audio say, likewise.
struct AudioStart {
    std::int64_t first = 0;
    std::int64_t gap = 0; ///< between the first and the second
};

/// Where frames are reordered, libav's writer moves such fragments by how much later than decoded they are shown, but
/// leaves the first packet of audio where it is. By how much that begins later than it says; engine time.
std::int64_t FirstBlockShift(const ChunkStart& start, const AudioStart& audioStart, const AVCodecParameters& audio,
                             std::int64_t tick);

/// Fragments whose pictures are shown from the start on say nothing of what encoders put before the audio, unless the
/// codec's own header does. libav's writer lets that, too, begin at the start; of others it is not known.
struct UntoldPriming {
    std::int64_t taken = 0;    ///< what is taken for it; engine time
    std::int64_t possible = 0; ///< what there may be instead, engine time; 0 where it is known
};
UntoldPriming FindUntoldPriming(const AVCodecParameters& audio, bool byLibav);

} // namespace Kestra::FF
