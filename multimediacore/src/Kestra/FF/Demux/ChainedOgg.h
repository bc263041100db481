// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::ChainedOgg: the times of sound that was put behind other sound in one Ogg file.
#pragma once

extern "C" {
#include <libavcodec/vorbis_parser.h>
#include <libavformat/avformat.h>
}
#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

namespace Kestra::FF {

/// Each link of a chain begins with headers of its own (RFC 3533, section 4), and its times count samples of its own
/// rate. libav keeps the ticks of the first link, which are samples of that one's rate, and reckons the blocks of
/// Vorbis by the first one's headers. Takes packets in the order of the file, from its start. Links of Vorbis whose
/// first header is that of the file, and Opus, which has one rate for all, are right as they are.
class ChainedOgg {
public:
    /// Whether files of the container may be chains.
    static bool IsNeeded(const char* container);

    /// The packet's times and duration become ticks of its stream.
    void Mend(AVPacket& packet, const AVStream& stream);

private:
    struct ParserDeleter {
        void operator()(AVVorbisParseContext* parser) const noexcept { av_vorbis_parse_free(&parser); }
    };
    struct Link {
        int rate = 0;                       ///< 0: the stream's ticks are its samples
        std::array<std::string, 3> headers; ///< of Vorbis
        std::size_t headerCount = 0;
        std::unique_ptr<AVVorbisParseContext, ParserDeleter> blocks; ///< null: its times are right but for their unit
        std::int64_t samples = -1;                                   ///< of the link that have been read; -1: no packet
    };

    static void MendVorbis(Link& link, AVPacket& packet, const AVStream& stream);
    static void MendFlac(Link& link, const AVPacket& packet, const AVStream& stream);

    std::map<int, Link> links; ///< the one that is being read, by the stream
};

} // namespace Kestra::FF
