// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Probe/PacketSamples.h"

#include "Kestra/FF/Av/Convert.h"
#include <algorithm>
#include <array>
#include <utility>

extern "C" {
#include <libavutil/intreadwrite.h>
}

namespace Kestra::FF {

namespace {

// A packet of Opus begins with the length of its frames and, for more than two, goes on with their number; in samples
// at 48 kHz.
std::int64_t CountOpus(const AVPacket& packet) {
    constexpr std::array<int, 4> speech{480, 960, 1920, 2880};
    constexpr std::array<int, 4> music{120, 240, 480, 960};
    constexpr int firstHybrid = 12;
    constexpr int firstMusic = 16;
    if (packet.size < 1)
        return 0;
    const int configuration = packet.data[0] >> 3;
    const std::size_t length = configuration & 3;
    const int samples = configuration >= firstMusic    ? music[length]
                        : configuration >= firstHybrid ? speech[length & 1]
                                                       : speech[length];
    const int kind = packet.data[0] & 3;
    if (kind < 3)
        return std::int64_t{samples} * (kind == 0 ? 1 : 2);
    return packet.size > 1 ? std::int64_t{samples} * (packet.data[1] & 0x3F) : 0;
}

} // namespace

PacketSamples::PacketSamples(const AVStream& stream)
    : stream(stream) {
    const AVCodecParameters& parameters = *stream.codecpar;
    if (parameters.codec_id == AV_CODEC_ID_VORBIS)
        vorbis.reset(av_vorbis_parse_init(parameters.extradata, parameters.extradata_size));
}

std::int64_t PacketSamples::Count(const AVPacket& packet) {
    AVCodecParameters& parameters = *stream.codecpar;
    if (parameters.codec_id == AV_CODEC_ID_OPUS)
        return CountOpus(packet);
    if (vorbis) {
        const int count = av_vorbis_parse_frame(vorbis.get(), packet.data, packet.size);
        // The first one only makes the second one whole.
        return std::exchange(begun, true) ? std::max(count, 0) : 0;
    }
    return std::max(av_get_audio_frame_duration2(&parameters, packet.size), 0);
}

std::int64_t PacketSamples::LengthOf(const AVPacket& packet) {
    const int rate = stream.codecpar->sample_rate;
    lastLength = rate > 0 ? SamplesToTime(Count(packet), rate) : 0;
    return lastLength;
}

std::int64_t PacketSamples::PaddingOf(const AVPacket& packet) const {
    std::size_t size = 0;
    const std::uint8_t* data = av_packet_get_side_data(&packet, AV_PKT_DATA_SKIP_SAMPLES, &size);
    constexpr std::size_t enough = 8;
    if (data && size >= enough && stream.codecpar->sample_rate > 0)
        return SamplesToTime(AV_RL32(data + 4), stream.codecpar->sample_rate);
    // Some containers store that the last packet is shorter than its samples.
    const std::int64_t stored = ToEngineTime(packet.duration, stream.time_base);
    const std::int64_t tick = ToEngineTime(1, stream.time_base);
    return packet.duration > 0 && stored + tick < lastLength ? lastLength - stored : 0;
}

} // namespace Kestra::FF
