// Kestra::FF::ChunkRule: how sound may be encoded in parts that are joined.
#pragma once

namespace Kestra::FF {

/// In frames of the codec. What an encoder makes of a chunk depends on its place in the sound alone.
struct ChunkRule {
    int leadIn = 0; ///< that an encoder hears before its first packet counts
    int behind = 0; ///< that have to follow before its last packet comes out
    /// Packets depend on their own frame alone, so that an encoder may go on with any other chunk.
    bool reusable = false;
};

} // namespace Kestra::FF
