// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::SubtitleWriter: one track of text in a file.
#pragma once

#include "Kestra/Conf/Container.h"
#include "Kestra/Conf/Subtitles.h"
#include "Kestra/FF/Av/Handles.h"
#include <cstddef>
#include <cstdint>
#include <functional>

namespace Kestra::FF {

/// Bound to the muxer's thread.
class SubtitleWriter {
public:
    /// Adds the track to a context whose header is not written, in the codec that the container, which has one, holds.
    /// The context outlives the writer. Throws ProcException.
    SubtitleWriter(AVFormatContext& context, Conf::Subtitles subtitles, const Conf::Container& container);

    /// Hands over, once the header is written, the packets that begin up to that time, engine time, and have not been
    /// handed over yet. Their own times are in milliseconds.
    void Write(std::int64_t until, const std::function<void(AVPacket&)>& take);

private:
    PacketHandle Encode(const Conf::Subtitles::Cue& cue, std::size_t number);

    const Conf::Subtitles subtitles;
    AVStream& stream;
    CodecContextHandle encoder;
    std::size_t next = 0;
};

} // namespace Kestra::FF
