// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::ChunkTimes: audio of AVI whose times count what they do not mean.
#pragma once

#include "Kestra/FF/Demux/PacketRepair.h"
#include <cstdint>
#include <deque>
#include <map>

namespace Kestra::FF {

/// Where the header gives samples no size of their own, a tick of an AVI file's audio is a chunk. libav's reader counts
/// bytes all the same as soon as the description of the sound tells a size of blocks, as libav's writer does with
/// E-AC-3 and DTS: 4 s become minutes. Here chunks are counted, from the start of the file on.
class ChunkTimes final : public PacketRepair {
public:
    void Push(PacketHandle packet, const AVStream& stream) override;
    void End() override {}
    bool Pop(AVPacket& packet) override { return TakeFirst(ready, packet); }
    void Clear() override;

    /// Whether a tick of the stream is so long that its blocks could not hold sound of its bitrate.
    static bool AreNeeded(const char* container, const AVStream& stream);

private:
    std::deque<PacketHandle> ready;
    std::map<int, std::int64_t> next; ///< by stream; unset before the first chunk
};

} // namespace Kestra::FF
