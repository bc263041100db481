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
// By how much the jumps of two streams may differ, wherever they are, and how far they may be apart, however much they
// differ: streams seldom begin and end together.
constexpr std::int64_t SAME_JUMP = 3 * TIME_BASE;
// So much of a stream may be lost under the next part of it before the leading one waits: what is held for longer looks
// frozen.
constexpr std::int64_t MOST_OVERLAP = TIME_BASE / 5;
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
        stream.clockBits = source.pts_wrap_bits;
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
    part.lastPosition = stream.position;
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

// A clock that was set back looks like one that ran on until it began anew.
std::int64_t DiscontinuityScan::Stream::NextJump() const {
    std::int64_t jump = Next().first - Current().last;
    constexpr int longestClock = 62;
    if (clockBits > 0 && clockBits <= longestClock && jump > (std::int64_t{1} << (clockBits - 1)))
        jump -= std::int64_t{1} << clockBits;
    return ToEngineTime(jump, timeBase);
}

// The whole next part of the one stream lies where nothing of the other is, which goes on with the part behind that.
bool DiscontinuityScan::JumpsAgainMeanwhile(const Stream& first, const Stream& second) {
    const std::size_t again = first.shifts.size() + 1;
    return again < first.parts.size() && second.Current().lastPosition < first.Next().position &&
           first.Next().lastPosition < second.Next().position &&
           first.parts[again].position < second.Next().lastPosition;
}

// What is heard with a picture may stand behind it in the file. A part that ends before the other stream jumps is a
// wrong timestamp or two.
bool DiscontinuityScan::AreNear(const Stream& first, const Stream& second) {
    const bool last = first.shifts.size() + 1 == first.parts.size();
    if (!last && first.Next().lastPosition < second.Next().position)
        return false;
    const auto isBefore = [&](const Entry& entry) {
        return entry.part + 1 == second.shifts.size() && entry.position < first.Next().position;
    };
    const auto entry = std::find_if(second.entries.rbegin(), second.entries.rend(), isBefore);
    return entry != second.entries.rend() &&
           ToEngineTime(second.Current().last - entry->time, second.timeBase) < SAME_JUMP;
}

// Where none of their packets lies between two jumps they are one, whatever they differ by: a track may begin long
// after the other one, or have ended before it.
bool DiscontinuityScan::IsJumpOfBoth(const Stream& first, const Stream& second) {
    if (!second.IsOpen() || JumpsAgainMeanwhile(first, second))
        return false;
    return std::abs(first.NextJump() - second.NextJump()) < SAME_JUMP ||
           second.Current().lastPosition < first.Next().position || AreNear(first, second);
}

// Parts get their shifts in the order of the file.
void DiscontinuityScan::JoinParts() {
    Stream none;
    Stream& leader = streams.front();
    Stream& follower = streams.size() > 1 ? streams[1] : none;
    for (Stream* stream : {&leader, &follower})
        stream->shifts.assign(1, 0);
    while (leader.IsOpen() || follower.IsOpen()) {
        const bool leads = leader.IsOpen() && (!follower.IsOpen() || leader.Next().position < follower.Next().position);
        Stream& first = leads ? leader : follower;
        Stream& second = leads ? follower : leader;
        if (IsJumpOfBoth(first, second))
            JoinBoth(leader, follower);
        else
            JoinOne(first, second);
    }
}

void DiscontinuityScan::JoinBoth(Stream& leader, Stream& follower) {
    JoinNext(leader);
    MakeRoom(leader, follower);
    const std::int64_t own = FromEngineTime(ToEngineTime(leader.shifts.back(), leader.timeBase), follower.timeBase);
    const std::int64_t off = follower.Next().begin + own - follower.JoinedEnd();
    const bool followsOn = std::abs(ToEngineTime(off, follower.timeBase)) <= FOLLOWS_ON;
    follower.shifts.push_back(followsOn ? own - off : own);
}

void DiscontinuityScan::MakeRoom(Stream& leader, const Stream& follower) {
    const std::int64_t own = FromEngineTime(ToEngineTime(leader.shifts.back(), leader.timeBase), follower.timeBase);
    const std::int64_t overlap = ToEngineTime(follower.JoinedEnd() - follower.Next().begin - own, follower.timeBase);
    if (overlap <= MOST_OVERLAP)
        return;
    std::int64_t room = FromEngineTime(overlap, leader.timeBase);
    // Pictures stay on the grid of frames.
    if (leader.frameLength > 0)
        room = (room + leader.frameLength - 1) / leader.frameLength * leader.frameLength;
    leader.shifts.back() += room;
    joints.back().gap = ToEngineTime(room, leader.timeBase);
}

void DiscontinuityScan::JoinOne(Stream& stream, const Stream& other) {
    // Where the other stream has ended, is silent for a part or has not begun, it has no say.
    if (other.parts.empty() || other.Current().lastPosition < stream.Next().position ||
        stream.Next().position < other.parts.front().position)
        JoinNext(stream);
    else
        stream.shifts.push_back(stream.shifts.back());
}

void DiscontinuityScan::JoinNext(Stream& stream) {
    const std::int64_t end = stream.JoinedEnd();
    joints.push_back({ToEngineTime(end, stream.timeBase), stream.NextJump(), 0});
    stream.shifts.push_back(end - stream.Next().begin);
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
