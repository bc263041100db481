// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::PacketSamples: how many samples the packets of an audio track hold, told without decoding them.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <cstdint>
#include <memory>

extern "C" {
#include <libavcodec/vorbis_parser.h>
}

namespace Kestra::FF {

/// Asked of each packet in order.
class PacketSamples {
public:
    explicit PacketSamples(const AVStream& stream);

    /// Engine time; 0 when a decoder gives nothing for it, or when nobody can tell.
    std::int64_t LengthOf(const AVPacket& packet);
    /// What of the last packet, after whose LengthOf this is called, is to be cut at its end; engine time.
    std::int64_t PaddingOf(const AVPacket& packet) const;

private:
    struct VorbisParserDeleter {
        void operator()(AVVorbisParseContext* parser) const noexcept { av_vorbis_parse_free(&parser); }
    };

    std::int64_t Count(const AVPacket& packet);

    const AVStream& stream;
    std::unique_ptr<AVVorbisParseContext, VorbisParserDeleter> vorbis;
    bool begun = false;
    std::int64_t lastLength = 0;
};

} // namespace Kestra::FF
