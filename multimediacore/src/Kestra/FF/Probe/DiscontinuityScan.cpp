// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Probe/DiscontinuityScan.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Probe/TrackShape.h"
#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace Kestra::FF {

namespace {

// Timestamps that run back by less are jitter: blocks of audio and pictures keep their order through it.
constexpr std::int64_t BACKWARD_JUMP = TIME_BASE / 2;
// A shorter gap is one in the recording: time went on while nothing was stored.
constexpr std::int64_t FORWARD_JUMP = 10 * TIME_BASE;
// By how much the jumps of two streams at one place may differ: they seldom begin and end together.
constexpr std::int64_t SAME_JUMP = 3 * TIME_BASE;
// Audio that is off by less than a short block follows on, so that no sample is lost or made up at a joint.
constexpr std::int64_t FOLLOWS_ON = TIME_BASE / 80;
constexpr std::int64_t ENTRY_DISTANCE = TIME_BASE / 5;

std::int64_t TimeOf(const AVPacket& packet) {
    return packet.dts != AV_NOPTS_VALUE ? packet.dts : packet.pts;
}

// The parts of an Ogg file begin with headers, which come like packets but last no time.
bool IsHeader(AVCodecID codec, const AVPacket& packet) {
    const auto beginsWith = [&packet](const char* text) {
        const std::size_t length = std::strlen(text);
        return static_cast<std::size_t>(packet.size) >= length && std::memcmp(packet.data, text, length) == 0;
    };
    switch (codec) {
    case AV_CODEC_ID_VORBIS:
        return packet.size > 0 && (packet.data[0] & 1) != 0;
    case AV_CODEC_ID_THEORA:
        return packet.size > 0 && (packet.data[0] & 0x80) != 0;
    case AV_CODEC_ID_OPUS:
        return beginsWith("Opus");
    case AV_CODEC_ID_FLAC:
        return !beginsWith("\xff");
    default:
        return false;
    }
}

} // namespace

DiscontinuityScan::DiscontinuityScan(Demuxer& demuxer, const std::vector<int>& indices)
    : demuxer(demuxer) {
    for (const int index : indices) {
        const AVStream& source = demuxer.GetStream(index);
        Stream stream;
        stream.index = index;
        stream.codec = source.codecpar->codec_id;
        stream.timeBase = source.time_base;
        stream.video = source.codecpar->codec_type == AVMEDIA_TYPE_VIDEO;
        const auto rate = stream.video ? NominalRate(source) : boost::rational<long long>(0);
        stream.frameLength = rate > 0 ? FromEngineTime(FramesToTime(1, rate), stream.timeBase) : 0;
        streams.push_back(stream);
    }
}

bool DiscontinuityScan::IsNeeded(Demuxer& demuxer) {
    return (demuxer.GetContext().iformat->flags & AVFMT_TS_DISCONT) != 0;
}

void DiscontinuityScan::Run(const std::function<void(const AVPacket&)>& look) {
    const PacketHandle packet = MakePacket();
    demuxer.Rewind();
    while (demuxer.Read(*packet)) {
        look(*packet);
        for (Stream& stream : streams)
            if (stream.index == packet->stream_index)
                Take(stream, *packet);
    }
    JoinParts();
    if (!joints.empty())
        FillMap();
}

bool DiscontinuityScan::IsJump(const Stream& stream, std::int64_t time) {
    const std::int64_t distance = ToEngineTime(time - stream.parts.back().last, stream.timeBase);
    return distance < -BACKWARD_JUMP || distance > FORWARD_JUMP;
}

void DiscontinuityScan::Take(Stream& stream, const AVPacket& packet) {
    const std::int64_t time = TimeOf(packet);
    if (packet.pos >= 0)
        stream.position = packet.pos;
    if (time == AV_NOPTS_VALUE || IsHeader(stream.codec, packet))
        return;
    if (stream.parts.empty() || IsJump(stream, time)) {
        Part part;
        part.position = stream.position;
        part.first = time;
        part.delay = packet.pts != AV_NOPTS_VALUE ? std::max<std::int64_t>(packet.pts - time, 0) : 0;
        stream.parts.push_back(part);
    }
    Part& part = stream.parts.back();
    const std::int64_t stored = packet.duration > 0 ? packet.duration : stream.frameLength;
    const std::int64_t length = std::abs(stored - stream.frameLength) <= 1 ? stream.frameLength : stored;
    part.last = time + length;
    // Program streams leave presentation times out. Whatever is decoded last is shown no earlier than this.
    const std::int64_t shown = packet.pts != AV_NOPTS_VALUE ? packet.pts : time + part.delay;
    part.begin = std::min(part.begin, shown);
    stream.untimed = stream.untimed || packet.pts == AV_NOPTS_VALUE;
    part.end = std::max(part.end, (stream.untimed ? std::max(shown, time + part.delay) : shown) + length);
    if (packet.pts != AV_NOPTS_VALUE)
        AddEntry(stream, packet);
}

void DiscontinuityScan::AddEntry(Stream& stream, const AVPacket& packet) {
    if (packet.pos < 0 || (stream.video && (packet.flags & AV_PKT_FLAG_KEY) == 0))
        return;
    const std::size_t part = stream.parts.size() - 1;
    const Entry* last = stream.entries.empty() ? nullptr : &stream.entries.back();
    const bool near =
        last && last->part == part && ToEngineTime(packet.pts - last->time, stream.timeBase) < ENTRY_DISTANCE;
    if (stream.video || !near)
        stream.entries.push_back({packet.pos, packet.pts, part});
}

bool DiscontinuityScan::AreTheSame(const Stream& leader, const Stream& follower) {
    return std::abs(leader.NextJump() - follower.NextJump()) < SAME_JUMP;
}

std::int64_t DiscontinuityScan::Stream::NextJump() const {
    return ToEngineTime(Next().first - parts[shifts.size() - 1].last, timeBase);
}

// Parts get their shifts in the order of the file.
void DiscontinuityScan::JoinParts() {
    Stream none;
    Stream& leader = streams.front();
    Stream& follower = streams.size() > 1 ? streams[1] : none;
    for (Stream* stream : {&leader, &follower})
        stream->shifts.assign(1, 0);
    while (leader.IsOpen() || follower.IsOpen()) {
        if (leader.IsOpen() && follower.IsOpen() && AreTheSame(leader, follower))
            JoinBoth(leader, follower);
        else if (leader.IsOpen() && (!follower.IsOpen() || leader.Next().position < follower.Next().position))
            JoinOne(leader, follower);
        else
            JoinOne(follower, leader);
    }
}

void DiscontinuityScan::JoinBoth(Stream& leader, Stream& follower) {
    const std::int64_t shift = ToEngineTime(JoinNext(leader), leader.timeBase);
    const std::int64_t own = FromEngineTime(shift, follower.timeBase);
    const std::int64_t off = follower.Next().begin + own - follower.JoinedEnd();
    const bool followsOn = std::abs(ToEngineTime(off, follower.timeBase)) <= FOLLOWS_ON;
    follower.shifts.push_back(followsOn ? own - off : own);
}

void DiscontinuityScan::JoinOne(Stream& stream, const Stream& other) {
    // Where the other stream has ended, or not begun, it has no say.
    if (other.parts.empty() || other.position < stream.Next().position ||
        stream.Next().position < other.parts.front().position)
        JoinNext(stream);
    else
        stream.shifts.push_back(stream.shifts.back());
}

std::int64_t DiscontinuityScan::JoinNext(Stream& stream) {
    const std::int64_t end = stream.JoinedEnd();
    joints.push_back({ToEngineTime(end, stream.timeBase), stream.NextJump()});
    stream.shifts.push_back(end - stream.Next().begin);
    return stream.shifts.back();
}

void DiscontinuityScan::FillMap() {
    for (const Stream& stream : streams) {
        for (std::size_t part = 1; part < stream.parts.size(); ++part)
            map.Join(stream.index, stream.parts[part].position, stream.shifts[part]);
        for (const Entry& entry : stream.entries)
            map.AddEntry(stream.index, entry.position, entry.time + stream.shifts[entry.part]);
    }
}

} // namespace Kestra::FF
