// SPDX-License-Identifier: GPL-3.0-or-later
// Where the tracks of a media file end.
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Decode/Decoder.h"
#include "Kestra/FF/Decode/SamplePlacement.h"
#include "Kestra/FF/Probe/MediaProbe.h"
#include "Kestra/FF/Probe/TrackRate.h"
#include "Kestra/FF/Probe/TrackShape.h"
#include <algorithm>

namespace Kestra::FF {

namespace {

constexpr std::int64_t NEAR_WINDOW = 3 * TIME_BASE;
constexpr std::int64_t FAR_WINDOW = 20 * TIME_BASE;
// Lengths in an edit list are rounded to the movie's clock; what is cut by less was not meant to be cut.
constexpr std::int64_t EDIT_ROUNDING = TIME_BASE / 500;
// Enough for every decoder to settle.
constexpr std::size_t TAIL_PACKETS = 8;
// How much longer than its period a last frame is believed to be.
constexpr std::int64_t LONGEST_GUESS = TIME_BASE;

} // namespace

std::int64_t MediaProbe::ClaimedEnd(const Track& track) {
    const AVStream& stream = demuxer.GetStream(track.index);
    if (stream.duration != AV_NOPTS_VALUE && stream.duration > 0) {
        const std::int64_t start = stream.start_time != AV_NOPTS_VALUE ? stream.start_time : 0;
        return ToEngineTime(start + stream.duration, stream.time_base);
    }
    const AVFormatContext& context = demuxer.GetContext();
    if (context.duration == AV_NOPTS_VALUE || context.duration <= 0)
        return TIME_UNKNOWN;
    return details.origin + ToEngineTime(context.duration, {1, AV_TIME_BASE});
}

// The length of a track that an edit list cuts out of the middle is counted in different ways by different files. The
// table of samples tells what there is.
std::int64_t MediaProbe::PromisedEnd(const Track& track) {
    AVStream& stream = demuxer.GetStream(track.index);
    const std::int64_t claim = ClaimedEnd(track);
    if (!demuxer.IsFilm() || stream.nb_frames <= 0)
        return claim;
    for (int index = avformat_index_get_entries_count(&stream) - 1; index >= 0; --index) {
        const AVIndexEntry& entry = *avformat_index_get_entry(&stream, index);
        const std::int64_t listed = ToEngineTime(entry.timestamp, stream.time_base);
        if (!(entry.flags & AVINDEX_DISCARD_FRAME))
            return listed + SHORTAGE < claim ? listed : claim;
    }
    return claim;
}

void MediaProbe::FindEnds() {
    std::vector<Track*> unknown;
    for (Track* track : Tracks())
        if (details.clock || demuxer.CountsFromStart(track->index) ||
            (!FindEndNear(*track, NEAR_WINDOW) && !FindEndNear(*track, FAR_WINDOW)))
            unknown.push_back(track);
    if (!unknown.empty())
        ScanToEnd(unknown);
    SteadyAudio();
}

void MediaProbe::SettleEnds() {
    if (video.index >= 0)
        FinishVideoEnd();
    if (audio.index < 0)
        return;
    if (details.audioJitter == 0)
        FinishEnd(audio);
    audioEnd = audio.end;
    audio.end = FindAudioEnd(VideoSpanOf(), *AudioSpanOf());
}

bool MediaProbe::FindEndNear(Track& track, std::int64_t window) {
    const std::int64_t claim = ClaimedEnd(track);
    // Short files are read through: that is as fast, and counts what there really is.
    if (claim == TIME_UNKNOWN || claim - window <= track.start)
        return false;
    demuxer.Select({track.index});
    track.times.BeginRun();
    const AVRational timeBase = demuxer.GetStream(track.index).time_base;
    if (!demuxer.Seek(track.index, FromEngineTime(claim - window, timeBase)))
        return false;
    if (&track == &audio)
        BeginLevels(false);
    ReadEnds();
    return track.packets > 0;
}

void MediaProbe::ScanToEnd(const std::vector<Track*>& tracks) {
    std::vector<int> indices;
    indices.reserve(tracks.size());
    for (const Track* track : tracks)
        indices.push_back(track->index);
    demuxer.Select(indices);
    demuxer.Rewind();
    const bool frames = std::find(tracks.begin(), tracks.end(), &video) != tracks.end();
    if (frames && !video.times.AreWhole())
        video.times = {};
    if (std::find(tracks.begin(), tracks.end(), &audio) != tracks.end())
        BeginLevels(true);
    ReadEnds();
    if (frames)
        video.times.SetWhole();
}

void MediaProbe::ReadEnds() {
    const PacketHandle packet = MakePacket();
    while (demuxer.Read(*packet))
        TakePacket(packet->stream_index == video.index ? video : audio, *packet);
}

std::int64_t MediaProbe::LengthOf(const Track& track, const AVPacket& packet) {
    const AVStream& stream = demuxer.GetStream(track.index);
    const std::int64_t length = packet.duration > 0 ? ToEngineTime(packet.duration, stream.time_base) : 0;
    const boost::rational<long long> rate = track.index == video.index ? NominalRate(stream) : 0;
    const std::int64_t exact = rate > 0 ? FramesToTime(1, rate) : 0;
    // Clocks of a millisecond round the length; the exact one is known. One that counts fields is off by a whole one.
    const std::int64_t tick = std::min(ToEngineTime(1, stream.time_base), exact / 2);
    const bool half = demuxer.HasFields(track.index) && std::abs(2 * length - exact) <= 2 * tick;
    return exact > 0 && (length == 0 || half || std::abs(length - exact) <= tick) ? exact : length;
}

// AVI and program streams leave presentation times out where reordering would make them differ. The picture that is
// shown last then is as late after the last decoding time as the first one after the first, which empty chunks may keep
// apart from the second.
std::int64_t MediaProbe::TimeOf(Track& track, const AVPacket& packet) {
    const AVRational timeBase = demuxer.GetStream(track.index).time_base;
    const std::int64_t shown = ToEngineTime(packet.pts, timeBase);
    track.untimed = track.untimed || shown == TIME_UNKNOWN;
    if (!track.untimed || packet.dts == AV_NOPTS_VALUE || track.firstDecodeTime == TIME_UNKNOWN)
        return shown;
    const std::int64_t begin = track.secondDecodeTime == TIME_UNKNOWN
                                   ? track.firstDecodeTime
                                   : std::max(track.firstDecodeTime, track.secondDecodeTime - LengthOf(track, packet));
    const std::int64_t delay = std::max<std::int64_t>(track.start - begin, 0);
    return std::max(shown, ToEngineTime(packet.dts, timeBase) + delay);
}

void MediaProbe::TakePacket(Track& track, const AVPacket& packet) {
    const std::int64_t time = TimeOf(track, packet);
    if (track.index == video.index)
        track.times.Take(packet, demuxer.GetStream(video.index));
    if (time == TIME_UNKNOWN && track.index == video.index && track.end != TIME_UNKNOWN)
        track.end += LengthOf(track, packet);
    if (track.index == audio.index && !(packet.flags & AV_PKT_FLAG_DISCARD))
        levels.Take(time, packetSamples->LengthOf(packet));
    if (time == TIME_UNKNOWN || (packet.flags & AV_PKT_FLAG_DISCARD))
        return;
    ++track.packets;
    if (track.index == audio.index)
        KeepTail(track, packet);
    const std::int64_t length = LengthOf(track, packet);
    if (track.end != TIME_UNKNOWN && time + length <= track.end)
        return;
    track.end = time + length;
    track.lastLength = length;
    track.guessed = packet.duration <= 0;
}

void MediaProbe::KeepTail(Track& track, const AVPacket& packet) {
    if (track.waiting.size() >= TAIL_PACKETS)
        track.waiting.pop_front();
    track.waiting.push_back(MakePacketReference(packet));
}

// Only the decoder knows how many samples the last blocks hold, after what is to be discarded.
void MediaProbe::DecodeTail(Track& track) {
    const AVStream& stream = demuxer.GetStream(track.index);
    const int rate = track.first->sample_rate;
    const std::int64_t begin = TimeToSamples(track.start - details.origin, rate);
    const std::int64_t tolerance = TimeToSamples(ToEngineTime(1, stream.time_base), rate) + 1;
    Decoder decoder(stream, 1, path.ToUtf8(), demuxer.GetLimits());
    decoder.SetPacketSupply([&track](AVPacket& packet) { return track.TakeWaiting(packet); });
    std::int64_t end = -1;
    while (const FrameHandle block = decoder.Next()) {
        const std::int64_t time = ToEngineTime(block->best_effort_timestamp, stream.time_base);
        // The second block of a packet, and what a decoder still gives at the end, have no times of their own.
        const bool follows = time == TIME_UNKNOWN && end >= 0;
        if ((time == TIME_UNKNOWN && !follows) || block->sample_rate != rate)
            continue;
        std::int64_t place = follows ? end : TimeToSamples(time - details.audioOrigin, rate);
        // The first block may be cut at its start, and so lie off the grid.
        if (!follows && place > begin)
            place = SnapToGrain(place, details.audioPhase, details.audioGrain, tolerance);
        end = std::max(end, place + block->nb_samples);
    }
    if (end > begin)
        track.end = details.origin + SamplesToTime(end, rate);
}

void MediaProbe::FinishEnd(Track& track) {
    const bool isAudio = track.index == audio.index;
    const std::int64_t shortest = isAudio ? SamplesToTime(track.first->nb_samples, track.first->sample_rate) : 1;
    if (track.end == TIME_UNKNOWN || track.end < track.start + shortest)
        track.end = track.start + std::max(shortest, track.lastLength);
    if (isAudio)
        DecodeTail(track);
    if (demuxer.IsFilm())
        FitToEditList(track, isAudio);
}

// A length of whole frames is one, whatever the clock has rounded: clips that are joined neither grow nor shrink.
void MediaProbe::FinishVideoEnd() {
    const std::int64_t period = rate.rate > 0 ? FramesToTime(1, rate.rate) : 0;
    if (period > 0 && rate.variable && IsGuessedLength(video.lastLength, demuxer.GetStream(video.index)))
        video.end += period - video.lastLength;
    FinishEnd(video);
    if (period == 0)
        return;
    const std::int64_t whole = FramesToTime(TimeToFrames(video.end - video.start, rate.rate), rate.rate);
    const std::int64_t tick = ToEngineTime(1, demuxer.GetStream(video.index).time_base);
    if (whole > 0 && std::abs(video.end - video.start - whole) <= std::min(tick + EDIT_ROUNDING / 2, period / 4))
        video.end = video.start + whole;
}

void MediaProbe::FitToEditList(Track& track, bool isAudio) {
    const std::int64_t claim = ClaimedEnd(track);
    if (claim == TIME_UNKNOWN || claim <= track.start)
        return;
    const std::int64_t over = track.end - claim;
    // What the last packet is said to last may be what the cut leaves of it.
    const std::int64_t longest =
        isAudio ? std::max(track.lastLength, SamplesToTime(track.frameSize, track.first->sample_rate))
                : track.lastLength;
    const bool cut = over > 0 && over < longest && (isAudio || over > EDIT_ROUNDING);
    // Where the last frame's own length is not stored, the track's is.
    const bool stretched = track.guessed && over < 0 && -over < LONGEST_GUESS;
    if (cut || stretched)
        track.end = claim;
}

} // namespace Kestra::FF
