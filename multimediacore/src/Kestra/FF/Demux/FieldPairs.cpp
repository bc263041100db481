// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/FieldPairs.h"

#include "Kestra/FF/Av/Error.h"
#include <cstring>
#include <utility>

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

bool IsField(AVPictureStructure structure) {
    return structure == AV_PICTURE_STRUCTURE_TOP_FIELD || structure == AV_PICTURE_STRUCTURE_BOTTOM_FIELD;
}

void Append(AVPacket& first, const AVPacket& second) {
    const int size = first.size;
    Check(av_grow_packet(&first, second.size), TranscodingError::OutOfMemory, "Reading a packet failed");
    std::memcpy(first.data + size, second.data, static_cast<std::size_t>(second.size));
    // Where a pack has one time for all that begins in it, it may be the second field's.
    if (first.pts == AV_NOPTS_VALUE && second.pts != AV_NOPTS_VALUE)
        first.pts = second.pts - second.duration;
    if (first.dts == AV_NOPTS_VALUE && second.dts != AV_NOPTS_VALUE)
        first.dts = second.dts - second.duration;
    first.duration = first.duration > 0 && second.duration > 0 ? first.duration + second.duration : 0;
    first.flags |= second.flags & AV_PKT_FLAG_CORRUPT;
}

} // namespace

bool FieldPairs::AreNeeded(const AVStream& stream) {
    return stream.codecpar->codec_id == AV_CODEC_ID_H264;
}

FieldPairs::Track FieldPairs::MakeTrack(const AVStream& stream) {
    Track track;
    track.parser.reset(av_parser_init(stream.codecpar->codec_id));
    if (!track.parser)
        return track;
    track.parser->flags |= PARSER_FLAG_COMPLETE_FRAMES;
    track.context = MakeCodecContext(avcodec_find_decoder(stream.codecpar->codec_id));
    Check(avcodec_parameters_to_context(track.context.get(), stream.codecpar), TranscodingError::SourceUnreadable,
          "The description of a stream was refused");
    return track;
}

void FieldPairs::Parse(Track& track, const AVPacket& packet) {
    std::uint8_t* data = nullptr;
    int size = 0;
    av_parser_parse2(track.parser.get(), track.context.get(), &data, &size, packet.data, packet.size, packet.pts,
                     packet.dts, packet.pos);
}

// The parser knows of an order where a field is of the same frame as the other one before.
bool FieldPairs::IsSecond(const Track& track) {
    const AVPictureStructure structure = track.parser->picture_structure;
    return track.first && IsField(structure) && structure != track.structure &&
           track.parser->field_order != AV_FIELD_UNKNOWN;
}

void FieldPairs::Push(PacketHandle packet, const AVStream& stream) {
    auto place = tracks.find(stream.index);
    if (place == tracks.end() && AreNeeded(stream))
        place = tracks.emplace(stream.index, MakeTrack(stream)).first;
    if (place == tracks.end() || !place->second.parser) {
        ready.push_back(std::move(packet));
        return;
    }
    Track& track = place->second;
    Parse(track, *packet);
    if (IsSecond(track)) {
        Append(*track.first, *packet);
        track.paired = true;
        ready.push_back(std::move(track.first));
        return;
    }
    if (track.first)
        ready.push_back(std::move(track.first));
    track.structure = track.parser->picture_structure;
    track.fields = track.fields || IsField(track.structure);
    (IsField(track.structure) ? track.first : ready.emplace_back()) = std::move(packet);
}

void FieldPairs::End() {
    for (auto& [index, track] : tracks)
        if (track.first)
            ready.push_back(std::move(track.first));
}

void FieldPairs::Clear() {
    ready.clear();
    for (auto& [index, track] : tracks)
        track.first.reset();
}

bool FieldPairs::HasFields(int stream) const {
    const auto place = tracks.find(stream);
    return place != tracks.end() && place->second.fields;
}

bool FieldPairs::HasPaired(int stream) const {
    const auto place = tracks.find(stream);
    return place != tracks.end() && place->second.paired;
}

} // namespace Kestra::FF
