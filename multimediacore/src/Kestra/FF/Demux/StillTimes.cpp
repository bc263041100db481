// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/StillTimes.h"

#include "Kestra/FF/Av/Convert.h"
#include <utility>

namespace Kestra::FF {

namespace {

// Fewer packets, or shorter ones, have one time by chance.
constexpr std::size_t MANY = 8;
constexpr std::int64_t LONG = TIME_BASE / 10;
// A clock that is coarser than the packets gives all within a tick one time.
constexpr std::int64_t TICKS = 2;

} // namespace

// Of the samples, which a duration in ticks of the clock has rounded.
std::int64_t StillTimes::LengthOf(const AVPacket& packet, const AVStream& stream) {
    AVCodecParameters& parameters = *stream.codecpar;
    const int samples = parameters.sample_rate > 0 ? av_get_audio_frame_duration2(&parameters, packet.size) : 0;
    return samples > 0 ? SamplesToTime(samples, parameters.sample_rate)
                       : ToEngineTime(packet.duration, stream.time_base);
}

bool StillTimes::AreMany(const Track& track, AVRational timeBase) {
    return track.waiting.size() >= MANY && track.length >= LONG && FromEngineTime(track.length, timeBase) > TICKS;
}

void StillTimes::Push(PacketHandle packet, const AVStream& stream) {
    if (stream.codecpar->codec_type != AVMEDIA_TYPE_AUDIO) {
        ready.push_back(std::move(packet));
        return;
    }
    Track& track = tracks[stream.index];
    const bool timed = packet->pts != AV_NOPTS_VALUE && !(packet->flags & AV_PKT_FLAG_DISCARD);
    if (!timed) { // behind what waits
        Release(track, stream.time_base, false);
        ready.push_back(std::move(packet));
        return;
    }
    if (track.told != packet->pts) {
        Release(track, stream.time_base, false);
        track.told = packet->pts;
        track.length = 0;
        track.stands = false;
    }
    const std::int64_t length = LengthOf(*packet, stream);
    track.waiting.push_back({std::move(packet), track.length});
    track.length += length;
    const bool first = track.length == length;
    if (!track.stands && AreMany(track, stream.time_base)) {
        track.stands = true;
        found.insert(stream.index);
    }
    if (first || track.stands)
        Release(track, stream.time_base, true);
}

void StillTimes::Release(Track& track, AVRational timeBase, bool late) {
    for (Waiting& next : track.waiting) {
        const std::int64_t ticks = late ? FromEngineTime(next.late, timeBase) : 0;
        next.packet->pts += ticks;
        next.packet->dts += next.packet->dts == AV_NOPTS_VALUE ? 0 : ticks;
        ready.push_back(std::move(next.packet));
    }
    track.waiting.clear();
}

void StillTimes::End() {
    for (auto& [index, track] : tracks)
        Release(track, {}, false);
}

void StillTimes::Clear() {
    ready.clear();
    tracks.clear();
}

} // namespace Kestra::FF
