// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Fakes::CountedEngine: the engine with every call into it counted, as long as it lives.
#pragma once

#include "fakes/chunks/ChunkCalls.h"
#include "fakes/chunks/SoundChunks.h"
#include "fakes/counting/CallCounter.h"
#include <memory>

namespace Kestra::Fakes {

/// Sets every factory of CoreManager to one that counts and whose products count, over the engine's own; destruction
/// puts the engine's own back. What has been made goes on counting. A frame that a thread of chunks encodes is a call,
/// "Chunk.Frame", until then.
class CountedEngine {
public:
    explicit CountedEngine(const std::shared_ptr<CallCounter>& counter, const SoundChunks& chunks = {});
    ~CountedEngine();
    CountedEngine(const CountedEngine&) = delete;
    CountedEngine& operator=(const CountedEngine&) = delete;

private:
    const ChunkCalls chunkCalls;
};

} // namespace Kestra::Fakes
