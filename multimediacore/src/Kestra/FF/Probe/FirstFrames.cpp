// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Probe/FirstFrames.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include <algorithm>
#include <boost/exception/get_error_info.hpp>
#include <utility>

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

// How much is read in search of the first frame of a track once its packets have begun, and how much of them waits.
constexpr std::size_t SEARCH_BYTES = std::size_t{64} << 20;
// How much is read in search of its first packet: a film may have its first audio after minutes of large pictures.
constexpr std::size_t LATE_SEARCH_BYTES = std::size_t{1} << 30;

// More pictures tell no more of a constant rate.
constexpr std::size_t ENOUGH_FRAMES = 300;

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
        if (track.first)
            demuxer.Describe(track.index, decoder.GetContext());
        else
            excess = decoder.GetExcess();
    } catch (const Proc::ProcException& error) {
        const int* const code = boost::get_error_info<TagErrorCode>(error);
        if (code && *code == static_cast<int>(TranscodingError::OutOfMemory)) // for which the track is not to blame
            throw;
        return error.what();
    }
    if (!excess.empty())
        Fail(TranscodingError::SourceUnreadable, "Cannot read \"" + demuxer.GetPath().ToUtf8() + "\": " + excess);
    if (!track.first)
        return WhyMissing(track);
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

std::size_t FirstFrames::BoundOf(const ProbedTrack& track) const {
    const auto found = foundAt.find(track.index);
    return found == foundAt.end() ? LATE_SEARCH_BYTES : found->second + SEARCH_BYTES;
}

// Until one more packet of the track waits.
bool FirstFrames::ReadOn(const ProbedTrack& track) {
    for (const std::size_t before = track.waiting.size(); track.waiting.size() == before;) {
        PacketHandle next = MakePacket();
        if (bytesRead >= BoundOf(track) || !demuxer.Read(*next))
            return false;
        const bool waits = bytesRead < SEARCH_BYTES || next->stream_index == track.index;
        bytesRead += static_cast<std::size_t>(next->size);
        Keep(std::move(next), waits);
    }
    return true;
}

bool FirstFrames::IsEmpty(const ProbedTrack& track) const {
    return foundAt.count(track.index) == 0 && bytesRead < LATE_SEARCH_BYTES && demuxer.GetTrouble().empty();
}

std::string FirstFrames::WhyMissing(const ProbedTrack& track) const {
    const std::string name = avcodec_get_name(demuxer.GetStream(track.index).codecpar->codec_id);
    if (foundAt.count(track.index) == 0 && !demuxer.GetTrouble().empty())
        return "nothing of the " + name + " track was found before reading ended early: " + demuxer.GetTrouble();
    if (foundAt.count(track.index) == 0 && bytesRead >= LATE_SEARCH_BYTES)
        return "nothing of the " + name + " track was found in the first " + std::to_string(LATE_SEARCH_BYTES >> 20) +
               " MiB; if it begins later, it is missing";
    return "no frame of the " + name + " track can be decoded";
}

void FirstFrames::TakeBufferedTimes() {
    const AVIOContext* file = demuxer.GetContext().pb;
    if (!file || video.index < 0)
        return;
    const auto place = [&] { return avio_tell(demuxer.GetContext().pb); };
    const std::int64_t before = place();
    std::size_t taken = 0;
    PacketHandle packet = MakePacket();
    while (taken < ENOUGH_FRAMES && place() == before && demuxer.Read(*packet)) {
        taken += packet->stream_index == video.index ? 1 : 0;
        Keep(std::exchange(packet, MakePacket()), false);
    }
    video.times.CutRun(lastDecodeTime);
}

void FirstFrames::Keep(PacketHandle packet, bool waits) {
    for (ProbedTrack* track : {&video, &audio}) {
        if (track->index != packet->stream_index)
            continue;
        if (foundAt.try_emplace(track->index, bytesRead).second)
            track->opening = MakePacketReference(*packet);
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
        if (waits)
            track->waiting.push_back(std::move(packet));
        return;
    }
}

} // namespace Kestra::FF
