#include "Kestra/FF/FirstFrames.h"

#include "Kestra/FF/Convert.h"
#include "Kestra/FF/Error.h"
#include <algorithm>
#include <utility>

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

// How much is read in search of the first frame of a track that starts late.
constexpr std::size_t SEARCH_BYTES = std::size_t{64} << 20;

// More pictures tell no more of a constant rate.
constexpr std::size_t ENOUGH_PICTURES = 300;

bool HasTimes(const AVPacket& packet) {
    return packet.pts != AV_NOPTS_VALUE && packet.dts != AV_NOPTS_VALUE;
}

} // namespace

FirstFrames::FirstFrames(Demuxer& demuxer, ProbedTrack& video, ProbedTrack& audio)
    : demuxer(demuxer)
    , video(video)
    , audio(audio) {}

std::string FirstFrames::Decode(ProbedTrack& track) {
    const AVStream& stream = demuxer.GetStream(track.index);
    std::string excess;
    try {
        Decoder decoder(stream, 1, demuxer.GetPath().ToUtf8(), demuxer.GetLimits());
        decoder.SkipPixels();
        track.first = DecodeWith(decoder, track);
        track.frameSize = decoder.GetContext().frame_size;
        if (!track.first)
            excess = decoder.GetExcess();
    } catch (const Proc::ProcException& error) {
        return error.what();
    }
    if (!excess.empty())
        Fail(TranscodingError::SourceUnreadable, "Cannot read \"" + demuxer.GetPath().ToUtf8() + "\": " + excess);
    if (!track.first)
        return std::string("no frame of the ") + avcodec_get_name(stream.codecpar->codec_id) + " track can be decoded";
    const std::int64_t timestamp = track.first->best_effort_timestamp;
    track.start = ToEngineTime(timestamp != AV_NOPTS_VALUE ? timestamp : stream.start_time, stream.time_base);
    if (track.start == TIME_UNKNOWN)
        track.start = 0;
    return {};
}

FrameHandle FirstFrames::DecodeWith(Decoder& decoder, ProbedTrack& track) {
    if (&track == &video && BeginsWithFirstShown(track))
        if (FrameHandle frame = DecodeAlone(decoder, *track.waiting.front()))
            return frame;
    decoder.SetPacketSupply([this, &track](AVPacket& packet) {
        return (!track.waiting.empty() || ReadOn(track)) && track.TakeWaiting(packet);
    });
    return decoder.Next();
}

// No packet is shown before it is decoded. From the one on that is decoded when the first is shown, all are shown
// later.
bool FirstFrames::BeginsWithFirstShown(ProbedTrack& track) {
    if (!ReadOn(track))
        return false;
    const AVPacket& first = *track.waiting.front();
    if (!(first.flags & AV_PKT_FLAG_KEY) || !HasTimes(first))
        return false;
    while (ReadOn(track)) {
        const AVPacket& packet = *track.waiting.back();
        if (!HasTimes(packet) || packet.pts <= first.pts)
            return false;
        if (packet.dts >= first.pts)
            return true;
    }
    return false;
}

// One picture instead of as many as the decoder holds back, which take long when they are large.
FrameHandle FirstFrames::DecodeAlone(Decoder& decoder, const AVPacket& packet) {
    bool given = false;
    decoder.SetPacketSupply([&](AVPacket& next) {
        if (std::exchange(given, true))
            return false;
        Check(av_packet_ref(&next, &packet), TranscodingError::OutOfMemory, "Reading a packet failed");
        return true;
    });
    FrameHandle frame = decoder.Next();
    decoder.Flush();
    return frame;
}

// Until one more packet of the track waits.
bool FirstFrames::ReadOn(const ProbedTrack& track) {
    for (const std::size_t before = track.waiting.size(); track.waiting.size() == before;) {
        PacketHandle next = MakePacket();
        if (bytesRead >= SEARCH_BYTES || !demuxer.Read(*next))
            return false;
        bytesRead += static_cast<std::size_t>(next->size);
        Keep(std::move(next));
    }
    return true;
}

void FirstFrames::TakeBufferedTimes() {
    const AVIOContext* file = demuxer.GetContext().pb;
    if (!file || video.index < 0)
        return;
    const auto place = [&] { return avio_tell(demuxer.GetContext().pb); };
    const std::int64_t before = place();
    std::size_t taken = 0;
    PacketHandle packet = MakePacket();
    while (taken < ENOUGH_PICTURES && place() == before && demuxer.Read(*packet)) {
        taken += packet->stream_index == video.index ? 1 : 0;
        Keep(std::exchange(packet, MakePacket()));
    }
    video.times.CutRun(lastDecodeTime);
}

void FirstFrames::Keep(PacketHandle packet) {
    for (ProbedTrack* track : {&video, &audio}) {
        if (track->index != packet->stream_index)
            continue;
        for (std::int64_t* time : {&track->firstDecodeTime, &track->secondDecodeTime})
            if (*time == TIME_UNKNOWN) {
                *time = ToEngineTime(packet->dts, demuxer.GetStream(track->index).time_base);
                break;
            }
        const std::int64_t shown = ToEngineTime(packet->pts, demuxer.GetStream(track->index).time_base);
        if (shown != TIME_UNKNOWN && !(packet->flags & AV_PKT_FLAG_DISCARD))
            track->firstShown = track->firstShown == TIME_UNKNOWN ? shown : std::min(track->firstShown, shown);
        if (track == &video) {
            video.times.Take(*packet, demuxer.GetStream(video.index));
            lastDecodeTime = ToEngineTime(packet->dts, demuxer.GetStream(video.index).time_base);
        }
        track->waiting.push_back(std::move(packet));
        return;
    }
}

} // namespace Kestra::FF
