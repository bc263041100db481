// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/AnchorTimes.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace Kestra::FF {

namespace {

// More than lie between two packs in any real file, also of many tracks.
constexpr std::size_t LONGEST_QUEUE = 256;
// What is decoded again as expected after no more pictures was wrong between; what is not, has a gap.
constexpr int LONGEST_ERROR = 64;
// Wrong times run back by no more periods. Those that run back further are of another clock.
constexpr std::int64_t LARGEST_ERROR = 4;

constexpr unsigned INTRA = 1;
constexpr unsigned PREDICTED = 2;

// Of pictures of MPEG-1 and MPEG-2: behind the start code, ten bits of order, then three of kind. Those of MPEG-4 begin
// with two bits of kind, which count from 0.
unsigned CodingOf(const AVPacket& packet, AVCodecID codec) {
    constexpr std::uint8_t partTwo = 0xB6;
    const bool isPartTwo = codec == AV_CODEC_ID_MPEG4;
    for (int place = 0; place + 6 <= packet.size; ++place) {
        const std::uint8_t* bytes = packet.data + place;
        if (bytes[0] == 0 && bytes[1] == 0 && bytes[2] == 1 && bytes[3] == (isPartTwo ? partTwo : 0))
            return isPartTwo ? (bytes[4] >> 6) + 1U : bytes[5] >> 3 & 7U;
    }
    return 0;
}

bool HasAnchors(AVCodecID codec) {
    return codec == AV_CODEC_ID_MPEG1VIDEO || codec == AV_CODEC_ID_MPEG2VIDEO || codec == AV_CODEC_ID_MPEG4;
}

bool IsNear(std::int64_t time, std::int64_t expected, std::int64_t period) {
    return time != AV_NOPTS_VALUE && std::abs(time - expected) <= period / 2;
}

std::int64_t BehindOf(const AVPacket& packet) {
    return packet.dts + packet.duration;
}

} // namespace

bool AnchorTimes::AreNeeded(const char* container) {
    return std::strcmp(container, "mpeg") == 0;
}

void AnchorTimes::Push(PacketHandle packet, const AVStream& stream) {
    const AVCodecID codec = stream.codecpar->codec_id;
    // It does not always tell its rate in a way that libav goes by.
    if (codec == AV_CODEC_ID_MPEG4 && packet->duration <= 0 && stream.r_frame_rate.num > 0)
        packet->duration = av_rescale_q(1, av_inv_q(stream.r_frame_rate), stream.time_base);
    Push(std::move(packet), codec);
}

void AnchorTimes::Push(PacketHandle packet, AVCodecID codec) {
    Kind kind = Kind::Other;
    if (HasAnchors(codec)) {
        const unsigned coding = CodingOf(*packet, codec);
        kind = coding == INTRA || coding == PREDICTED ? Kind::Anchor : Kind::Between;
    }
    queue.push_back({std::move(packet), kind});
}

bool AnchorTimes::Pop(AVPacket& packet) {
    SettleAll();
    if (queue.empty() || !Complete())
        return false;
    av_packet_move_ref(&packet, queue.front().packet.get());
    queue.pop_front();
    return true;
}

void AnchorTimes::Clear() {
    queue.clear();
    expected.clear();
    delayed.clear();
    ended = false;
}

bool AnchorTimes::IsFull() const {
    return ended || queue.size() >= LONGEST_QUEUE;
}

bool AnchorTimes::IsDelayed(int stream) const {
    const auto found = delayed.find(stream);
    return found == delayed.end() || found->second;
}

// Up to the first that takes more packets.
void AnchorTimes::SettleAll() {
    for (auto place = queue.begin(); place != queue.end(); ++place)
        if (!place->settled && place->kind != Kind::Other && !Settle(place))
            return;
}

bool AnchorTimes::Settle(const Place& place) {
    AVPacket& packet = *place->packet;
    const auto due = expected.find(packet.stream_index);
    if (due != expected.end() && packet.dts == AV_NOPTS_VALUE) {
        place->counted = true;
        packet.dts = due->second;
    } else if (due != expected.end() && !IsNear(packet.dts, due->second, packet.duration)) {
        int looked = 0;
        place->counted = MeetsAgain(place, due->second, looked);
        if (!place->counted && looked < LONGEST_ERROR && !IsFull())
            return false;
        const std::int64_t back = due->second - packet.dts;
        place->counted = place->counted || (back > 0 && back <= LARGEST_ERROR * packet.duration);
        if (place->counted)
            packet.dts = due->second;
    }
    place->settled = true;
    if (packet.dts == AV_NOPTS_VALUE || packet.duration <= 0)
        expected.erase(packet.stream_index);
    else
        expected[packet.stream_index] = BehindOf(packet);
    return true;
}

// Whether a later picture is decoded when it should be, if this one is decoded then.
bool AnchorTimes::MeetsAgain(Place place, std::int64_t expected, int& looked) const {
    const int stream = place->packet->stream_index;
    for (std::int64_t time = expected; place != queue.end() && looked < LONGEST_ERROR; ++place) {
        const AVPacket& packet = *place->packet;
        if (packet.stream_index != stream)
            continue;
        if (IsNear(packet.dts, time, packet.duration))
            return true;
        time += packet.duration;
        ++looked;
    }
    return false;
}

// Finds when the first one is shown; false where that takes another packet.
bool AnchorTimes::Complete() {
    Waiting& first = queue.front();
    if (first.kind == Kind::Other)
        return true;
    if (!first.settled)
        return false;
    if (first.packet->dts == AV_NOPTS_VALUE)
        return true;
    if (first.kind == Kind::Between) {
        if (first.counted)
            first.packet->pts = first.packet->dts;
        return true;
    }
    const AVPacket* last = first.packet.get();
    for (auto next = queue.begin() + 1; next != queue.end(); ++next) {
        if (next->packet->stream_index != last->stream_index)
            continue;
        if (!next->settled)
            return false;
        const bool follows = IsNear(next->packet->dts, BehindOf(*last), last->duration);
        if (next->kind == Kind::Anchor || !follows) {
            Show(first, follows ? next->packet->dts : BehindOf(*last), next->counted);
            return true;
        }
        last = next->packet.get();
    }
    if (!IsFull())
        return false;
    Show(first, BehindOf(*last), false);
    return true;
}

void AnchorTimes::Show(Waiting& anchor, std::int64_t time, bool corrected) {
    AVPacket& packet = *anchor.packet;
    if (packet.pts != AV_NOPTS_VALUE && !anchor.counted && !corrected)
        delayed[packet.stream_index] = packet.pts > packet.dts;
    else
        packet.pts = IsDelayed(packet.stream_index) ? time : packet.dts;
}

} // namespace Kestra::FF
