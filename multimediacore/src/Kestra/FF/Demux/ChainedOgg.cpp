// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/ChainedOgg.h"

#include <algorithm>
#include <cstring>
#include <string_view>

extern "C" {
#include <libavutil/intreadwrite.h>
#include <libavutil/mathematics.h>
}

namespace Kestra::FF {
namespace {

using namespace std::string_view_literals;

// Vorbis I, 4.2: three headers, of odd kinds; the first of 30 bytes, with the rate behind magic, version and channels.
constexpr auto VORBIS_MAGIC = "\x01vorbis"sv;
constexpr std::size_t VORBIS_HEADER = 30;
constexpr std::size_t VORBIS_RATE = 12;
// RFC 9639, 8.2 and 10.1: STREAMINFO stands behind 17 bytes, and has 20 bits of rate behind ten of its own.
constexpr auto FLAC_MAGIC = "\x7f"
                            "FLAC"sv;
constexpr std::size_t FLAC_HEADER = 51;
constexpr std::size_t FLAC_RATE = 27;

std::string_view BytesOf(const AVPacket& packet) {
    return {reinterpret_cast<const char*>(packet.data), static_cast<std::size_t>(packet.size)};
}

bool IsFirstHeader(std::string_view bytes, std::string_view magic, std::size_t size) {
    return bytes.size() >= size && bytes.substr(0, magic.size()) == magic;
}

/// As the parser takes headers: their count less one, the sizes of all but the last in runs of 255, and then they.
std::string Laced(const std::array<std::string, 3>& headers) {
    std::string laced(1, static_cast<char>(headers.size() - 1));
    for (std::size_t index = 0; index + 1 < headers.size(); ++index) {
        laced.append(headers[index].size() / 255, '\xff');
        laced += static_cast<char>(headers[index].size() % 255);
    }
    for (const std::string& header : headers)
        laced += header;
    return laced;
}

} // namespace

bool ChainedOgg::IsNeeded(const char* container) {
    return std::strcmp(container, "ogg") == 0;
}

void ChainedOgg::Mend(AVPacket& packet, const AVStream& stream) {
    const AVCodecID codec = stream.codecpar->codec_id;
    if ((codec != AV_CODEC_ID_VORBIS && codec != AV_CODEC_ID_FLAC) || stream.time_base.num != 1)
        return;
    Link& link = links[packet.stream_index];
    if (codec == AV_CODEC_ID_VORBIS)
        MendVorbis(link, packet, stream);
    else
        MendFlac(link, packet, stream);
    if (link.rate == 0)
        return;
    for (std::int64_t* time : {&packet.pts, &packet.dts, &packet.duration})
        if (*time != AV_NOPTS_VALUE)
            *time = av_rescale_q(*time, {1, link.rate}, stream.time_base);
}

// The first block of a link is not heard: it is what the second one overlaps.
void ChainedOgg::MendVorbis(Link& link, AVPacket& packet, const AVStream& stream) {
    const std::string_view bytes = BytesOf(packet);
    if (IsFirstHeader(bytes, VORBIS_MAGIC, VORBIS_HEADER)) {
        link = {};
        const std::string_view ofFile(reinterpret_cast<const char*>(stream.codecpar->extradata),
                                      static_cast<std::size_t>(stream.codecpar->extradata_size));
        if (ofFile.find(bytes.substr(0, VORBIS_HEADER)) == std::string_view::npos)
            link.rate = static_cast<int>(AV_RL32(packet.data + VORBIS_RATE));
    }
    if (link.rate == 0)
        return;
    if (bytes.empty() || (bytes.front() & 1) != 0) {
        if (link.headerCount < link.headers.size())
            link.headers[link.headerCount++] = bytes;
        return;
    }
    if (!link.blocks) {
        const std::string headers = Laced(link.headers);
        link.blocks.reset(av_vorbis_parse_init(reinterpret_cast<const std::uint8_t*>(headers.data()),
                                               static_cast<int>(headers.size())));
        if (!link.blocks) // nonsense, of which a decoder makes nothing either
            return;
    }
    const int length = std::max(av_vorbis_parse_frame(link.blocks.get(), packet.data, packet.size), 0);
    packet.duration = link.samples < 0 ? 0 : length;
    link.samples = std::max<std::int64_t>(link.samples, 0);
    packet.pts = link.samples;
    packet.dts = link.samples;
    link.samples += packet.duration;
    if (av_packet_get_side_data(&packet, AV_PKT_DATA_SKIP_SAMPLES, nullptr)) // by the wrong lengths
        av_packet_free_side_data(&packet);
}

void ChainedOgg::MendFlac(Link& link, const AVPacket& packet, const AVStream& stream) {
    if (!IsFirstHeader(BytesOf(packet), FLAC_MAGIC, FLAC_HEADER))
        return;
    const int rate = static_cast<int>(AV_RB24(packet.data + FLAC_RATE) >> 4);
    link.rate = rate == stream.time_base.den ? 0 : rate;
}

} // namespace Kestra::FF
