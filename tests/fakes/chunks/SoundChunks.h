// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Fakes::SoundChunks: how sound that is alone is encoded, and an engine that does so.
#pragma once

#include "Kestra/Core/Property.h"

namespace Kestra::Fakes {

/// As the engine does it, but for what is set.
struct SoundChunks {
    int samples = 0; ///< in a chunk, about
    int workers = 0; ///< threads for them

    /// An encoder's description with that.
    Core::Property In(const Core::Property& description) const;
};

/// As long as it lives, CoreManager's encoders are the engine's, with such chunks.
class ChunkedSound {
public:
    explicit ChunkedSound(const SoundChunks& chunks);
    ~ChunkedSound();
    ChunkedSound(const ChunkedSound&) = delete;
    ChunkedSound& operator=(const ChunkedSound&) = delete;
};

} // namespace Kestra::Fakes
