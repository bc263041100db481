// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::ChunkRule: how sound may be encoded in parts that are joined.
#pragma once

#include <algorithm>
#include <cstdint>

namespace Kestra::FF {

/// In frames of the codec. What an encoder makes of a chunk depends on its place in the sound alone.
struct ChunkRule {
    int leadIn = 0; ///< that an encoder hears before its first packet counts
    int behind = 0; ///< that have to follow before its last packet comes out
    /// Packets depend on their own frame alone, so that an encoder may go on with any other chunk.
    bool reusable = false;
    /// Eight seconds, at the usual rates: the lead-in is a small part of it, and so is what an end without others to
    /// encode beside takes.
    int samples = 384 * 1024;

    /// How many a chunk has; all but the last one.
    std::int64_t FramesInChunk(int frameSize) const { return std::max(samples / frameSize, leadIn + behind + 1); }
};

} // namespace Kestra::FF
