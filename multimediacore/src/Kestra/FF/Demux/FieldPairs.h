// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::FieldPairs: one packet for each picture of tracks that code their fields one by one.
#pragma once

#include "Kestra/FF/Demux/PacketRepair.h"
#include <deque>
#include <map>
#include <memory>

namespace Kestra::FF {

/// H.264 may code each field of a picture by itself, and most containers hand the two out one after the other, the
/// second one often without a time. Decoders make one picture of both. Here the second field follows the first in its
/// packet, which has the first one's time and lasts as long as both; everything else comes out as it went in. Other
/// tracks' packets may come out ahead of a field that waits for its second.
class FieldPairs final : public PacketRepair {
public:
    void Push(PacketHandle packet, const AVStream& stream) override;
    void End() override;
    bool Pop(AVPacket& packet) override { return TakeFirst(ready, packet); }
    /// What is known of the streams stays.
    void Clear() override;
    /// Whether packets of the stream held fields.
    bool HasFields(int stream) const;
    /// Whether any two packets of the stream were put together.
    bool HasPaired(int stream) const;

    /// Whether the stream's pictures may be coded so.
    static bool AreNeeded(const AVStream& stream);

private:
    struct CloseParser {
        void operator()(AVCodecParserContext* parser) const noexcept { av_parser_close(parser); }
    };
    struct Track {
        std::unique_ptr<AVCodecParserContext, CloseParser> parser;
        CodecContextHandle context;
        PacketHandle first;                                          ///< a field that waits for its second
        AVPictureStructure structure = AV_PICTURE_STRUCTURE_UNKNOWN; ///< its parity
        bool fields = false;
        bool paired = false;
    };

    static Track MakeTrack(const AVStream& stream);
    static void Parse(Track& track, const AVPacket& packet);
    static bool IsSecond(const Track& track);

    std::deque<PacketHandle> ready;
    std::map<int, Track> tracks;
};

} // namespace Kestra::FF
