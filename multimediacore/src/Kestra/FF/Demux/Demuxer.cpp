// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/Demuxer.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Av/LogWatch.h"
#include "Kestra/FF/Demux/PngTexts.h"
#include "Kestra/FF/Demux/StreamClaims.h"
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

// Whether reading may begin at any packet: transport streams are made for it.
bool StartsAnywhere(const char* name) {
    return std::strcmp(name, "mpegts") == 0;
}

// Raw streams of pictures that are reordered: libav has no times for them, only how long each lasts. Of AAC in LOAS,
// none until it has decoded some, and none in a file that is opened again.
bool TellsNoTimes(const char* name) {
    return std::strcmp(name, "h264") == 0 || std::strcmp(name, "hevc") == 0 || std::strcmp(name, "loas") == 0;
}

std::int64_t LengthOf(const AVPacket& packet, const AVStream& stream) {
    const AVCodecParameters& parameters = *stream.codecpar;
    const bool known = parameters.codec_type == AVMEDIA_TYPE_AUDIO && parameters.frame_size > 0;
    return known && parameters.sample_rate > 0
               ? av_rescale_q(parameters.frame_size, {1, parameters.sample_rate}, stream.time_base)
               : packet.duration;
}

// For samples that are not all of one size, these readers reckon where they are from the header's rate of bytes, which
// is an average, or a guess of whoever wrote it.
bool CountsByRate(const char* name, const AVCodecParameters& audio) {
    constexpr int smallestPcm = 8;
    const bool simple = std::strcmp(name, "wav") == 0 || std::strcmp(name, "w64") == 0 ||
                        std::strcmp(name, "aiff") == 0 || std::strcmp(name, "au") == 0;
    return simple && av_get_exact_bits_per_sample(audio.codec_id) < smallestPcm;
}

// Transport and program streams whose audio begins late announce it without saying what it is like.
void Supply(AVCodecParameters& parameters, const AVCodecParameters& decoded) {
    if (parameters.codec_type != AVMEDIA_TYPE_AUDIO || parameters.sample_rate > 0)
        return;
    parameters.sample_rate = decoded.sample_rate;
    parameters.frame_size = decoded.frame_size;
    Check(av_channel_layout_copy(&parameters.ch_layout, &decoded.ch_layout), TranscodingError::OutOfMemory,
          "Copying the description of a stream failed");
}

// Matroska's reader only mentions that it met nonsense and searched for what it can read again.
bool TellsOfNonsense(const LogWatch& log) {
    return !log.Find({"Element at 0x", "Invalid length 0x", "Length ", "Invalid EBML", "0x"}).empty();
}

} // namespace

Demuxer::Demuxer(const ioPath& path, const std::atomic<bool>& interrupted, const Proc::MediaLimits& limits,
                 std::shared_ptr<const StreamInfoCache> known)
    : path(path)
    , interrupted(interrupted)
    , limits(limits)
    , file(path, interrupted, limits, [this] { PassNothingOver(); })
    , known(std::move(known)) {
    Open();
}

void Demuxer::Open() {
    context.reset();
    context = file.Open();
    FindStreams();
    streamsFound = context->nb_streams;
    for (const auto& [index, parameters] : described)
        Supply(*GetStream(index).codecpar, *parameters);
    untouched = true;
    trouble.clear();
    readFrom = 0;
    lastPosition.clear();
    countedTime = 0;
    chainedOgg = {};
    fieldPairs = {};
    fromStart = true;
    SetUpRepairs();
    ApplySelection();
}

// Decodes as much as it takes, some pictures of many codecs.
void Demuxer::FindStreams() {
    if (known && known->DescribeAgain(*context))
        return;
    RequireWithinLimits();
    for (unsigned index = 0; index < context->nb_streams; ++index)
        DropPngTexts(*context->streams[index]->codecpar);
    file.Allow(LongestSearch());
    const int found = AnalyseStreams(*context, limits);
    if (found == AVERROR(ENOMEM))
        FailForMemory();
    if (found < 0)
        ThrowError(found, TranscodingError::SourceUnreadable, "Cannot read \"" + path.ToUtf8() + "\"");
    RequireWithinLimits();
    known = StreamInfoCache::Of(*context);
}

// How far a packet may be away. Elementary streams have no sizes to go by: what stands between two starts is all one
// packet to them. Elsewhere one is no larger than a picture; among tracks of which all have sizes, than one of theirs.
std::int64_t Demuxer::LongestSearch() const {
    constexpr std::int64_t elementary = std::int64_t{64} << 20;
    const bool sized = (context->iformat->flags & AVFMT_GENERIC_INDEX) == 0 || IsImageFormat(GetFormatName()) ||
                       std::strcmp(GetFormatName(), "yuv4mpegpipe") == 0;
    if (!sized || (context->nb_streams == 1 && !SourceFile::IsSearchedByteByByte(GetFormatName())))
        return sized ? limits.pictureBytes : elementary;
    std::int64_t largest = elementary;
    for (unsigned index = 0; index < context->nb_streams; ++index)
        largest += LargestFrameOf(*context->streams[index]->codecpar);
    return std::min(largest, limits.pictureBytes);
}

void Demuxer::RequireWithinLimits() const {
    for (unsigned index = 0; index < context->nb_streams; ++index) {
        const std::string excess = ExcessOf(*context->streams[index], limits);
        if (!excess.empty())
            Fail(TranscodingError::SourceUnreadable, "Cannot read \"" + path.ToUtf8() + "\": " + excess);
    }
}

void Demuxer::SetEnd(std::int64_t byte) {
    if (byte == 0)
        return;
    context.reset();
    file.SetEnd(byte);
    Open();
}

void Demuxer::IgnoreEdits() {
    context.reset();
    file.IgnoreEdits();
    Open();
}

void Demuxer::Describe(int stream, const AVCodecContext& decoder) {
    CodecParametersHandle parameters = MakeCodecParameters();
    Check(avcodec_parameters_from_context(parameters.get(), &decoder), TranscodingError::OutOfMemory,
          "Copying the description of a stream failed");
    Supply(*GetStream(stream).codecpar, *parameters);
    RequireWithinLimits();
    described[stream] = std::move(parameters);
}

void Demuxer::Select(const std::vector<int>& streams) {
    selection = streams;
    selected = true;
    ApplySelection();
}

bool Demuxer::IsSelected(int stream) const {
    return !selected || std::find(selection.begin(), selection.end(), stream) != selection.end();
}

void Demuxer::ApplySelection() {
    for (unsigned index = 0; selected && index < context->nb_streams; ++index) {
        const bool wanted = IsSelected(static_cast<int>(index));
        context->streams[index]->discard = wanted ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    }
}

// Between the packets of some tracks of many, any number of the others' may stand: whether they do is only told where
// libav hands them out, which it can be made to from within its search.
void Demuxer::PassNothingOver() {
    for (unsigned index = 0; selected && index < context->nb_streams; ++index)
        context->streams[index]->discard = AVDISCARD_DEFAULT;
    passedOver = true;
}

// Behind a seek libav's own count of a program stream begins anew, from wherever it landed: there is nothing to go by.
void Demuxer::SetUpRepairs() {
    repairs.clear();
    const auto append = [this](PacketRepair& repair) {
        repair.Clear();
        repairs.push_back({&repair});
    };
    const auto anyStream = [this](const auto& isOne) {
        return std::any_of(context->streams, context->streams + context->nb_streams, isOne);
    };
    if (anyStream([this](const AVStream* stream) { return ChunkTimes::AreNeeded(GetFormatName(), *stream); }))
        append(chunkTimes);
    if (RepeatedTimes::AreNeeded(GetFormatName()))
        append(repeatedTimes);
    if (anyStream([](const AVStream* stream) { return stream->codecpar->codec_type == AVMEDIA_TYPE_AUDIO; }))
        append(stillTimes);
    if (anyStream([](const AVStream* stream) { return FieldPairs::AreNeeded(*stream); }))
        append(fieldPairs);
    if (fromStart && AnchorTimes::AreNeeded(GetFormatName())) {
        append(orderTimes);
        append(anchorTimes);
    }
}

bool Demuxer::IsFilm() const {
    return std::strncmp(GetFormatName(), "mov", 3) == 0;
}

bool Demuxer::Read(AVPacket& packet) {
    untouched = false;
    do
        if (!ReadBehind(repairs.size(), packet))
            return false;
    while (!IsSelected(packet.stream_index)); // since it was read
    return true;
}

bool Demuxer::ReadBehind(std::size_t count, AVPacket& packet) {
    if (count == 0)
        return ReadFile(packet);
    av_packet_unref(&packet);
    Repair& last = repairs[count - 1];
    while (!last.stage->Pop(packet)) {
        PacketHandle next = MakePacket();
        if (!last.ended && ReadBehind(count - 1, *next)) {
            const AVStream& stream = GetStream(next->stream_index);
            last.stage->Push(std::move(next), stream);
        } else if (interrupted || std::exchange(last.ended, true)) {
            return false;
        } else {
            last.stage->End();
        }
    }
    return true;
}

bool Demuxer::CountsFromStart(int stream) {
    const AVCodecID codec = GetStream(stream).codecpar->codec_id;
    return AnchorTimes::AreNeeded(GetFormatName()) && (codec == AV_CODEC_ID_H264 || codec == AV_CODEC_ID_HEVC);
}

void Demuxer::FailForMemory() const {
    Fail(TranscodingError::OutOfMemory, "Cannot read \"" + path.ToUtf8() + "\": it takes more memory than there is");
}

bool Demuxer::ReadFile(AVPacket& packet) {
    bool searching = false;
    while (!interrupted.load(std::memory_order_relaxed)) {
        av_packet_unref(&packet);
        if (!std::exchange(searching, true))
            file.AllowPassing(LongestSearch());
        const LogWatch log;
        const int result = av_read_frame(context.get(), &packet);
        afterNonsense = afterNonsense || TellsOfNonsense(log);
        // Of nonsense, a part of which has been looked through.
        if (result == AVERROR(EAGAIN) && !file.IsUsedUp())
            continue;
        if (std::exchange(passedOver, false))
            ApplySelection();
        if (result < 0 && file.IsUsedUp())
            trouble = "nothing that can be read stands in the next " + std::to_string(LongestSearch() >> 20) + " MiB";
        if (result == AVERROR_EXIT || !trouble.empty())
            return false;
        if (result < 0) {
            const int cause = context->pb ? context->pb->error : 0;
            if (cause < 0 && cause != AVERROR_EOF && cause != AVERROR_INVALIDDATA && cause != AVERROR_EXIT)
                ThrowError(cause, TranscodingError::SourceUnreadable, "Reading \"" + path.ToUtf8() + "\" failed");
            if (result == AVERROR(ENOMEM)) // or it tells the size of a packet, which is nonsense
                FailForMemory();
            if (result != AVERROR_EOF)
                trouble = ErrorText(result);
            return false;
        }
        // Streams that come up while reading are unknown to the selection.
        if (IsSelected(packet.stream_index)) {
            DropPngTexts(GetStream(packet.stream_index).codecpar->codec_id, packet);
            if (ChainedOgg::IsNeeded(GetFormatName()))
                chainedOgg.Mend(packet, GetStream(packet.stream_index));
            CountTime(packet);
            ShiftTimes(packet);
            packet.flags |= std::exchange(afterNonsense, false) ? AV_PKT_FLAG_CORRUPT : 0;
            return true;
        }
        searching = false;
    }
    return false;
}

// Program streams and FLV tell of a track by its packets alone. How many more there are does not matter: it is enough
// for whoever holds the file for silent.
std::string Demuxer::GetNewcomer() const {
    const auto typeOf = [this](unsigned index) { return context->streams[index]->codecpar->codec_type; };
    for (unsigned index = streamsFound; index < context->nb_streams; ++index) {
        const AVMediaType type = typeOf(index);
        bool isFirst = type == AVMEDIA_TYPE_AUDIO || type == AVMEDIA_TYPE_VIDEO;
        for (unsigned other = 0; other < streamsFound; ++other)
            isFirst = isFirst && typeOf(other) != type;
        if (isFirst)
            return std::string("The ") + (type == AVMEDIA_TYPE_AUDIO ? "sound" : "picture") +
                   " track begins so late that the beginning of the file does not tell of it, and is not read: it is "
                   "missing";
    }
    return {};
}

void Demuxer::CountTime(AVPacket& packet) {
    if (!TellsNoTimes(GetFormatName()))
        return;
    const AVStream& stream = GetStream(packet.stream_index);
    const bool isAudio = stream.codecpar->codec_type == AVMEDIA_TYPE_AUDIO;
    if (packet.dts != AV_NOPTS_VALUE && !isAudio)
        return;
    packet.dts = std::exchange(countedTime, countedTime + LengthOf(packet, stream));
    if (isAudio)
        packet.pts = packet.dts;
}

void Demuxer::ShiftTimes(AVPacket& packet) {
    if (!clock)
        return;
    std::int64_t& position = lastPosition.try_emplace(packet.stream_index, readFrom).first->second;
    if (packet.pos >= 0)
        position = packet.pos;
    const std::int64_t shift = clock->ShiftAt(packet.stream_index, position);
    for (std::int64_t* time : {&packet.pts, &packet.dts})
        if (*time != AV_NOPTS_VALUE)
            *time += shift;
}

bool Demuxer::Seek(int stream, std::int64_t timestamp) {
    untouched = false;
    trouble.clear();
    fromStart = false;
    SetUpRepairs();
    file.Allow(limits.pictureBytes);
    if (TellsNoTimes(GetFormatName()) || CountsByRate(GetFormatName(), *GetStream(stream).codecpar) ||
        ChunkTimes::AreNeeded(GetFormatName(), GetStream(stream)))
        return false;
    if (clock)
        return SeekToEntry(stream, timestamp);
    return av_seek_frame(context.get(), stream, timestamp, AVSEEK_FLAG_BACKWARD) >= 0;
}

// Searching by time leads nowhere where time restarts.
bool Demuxer::SeekToEntry(int stream, std::int64_t timestamp) {
    const auto position = clock->FindEntry(stream, timestamp);
    if (!position || !StartsAnywhere(GetFormatName()))
        return false;
    readFrom = *position;
    lastPosition.clear();
    return av_seek_frame(context.get(), -1, readFrom, AVSEEK_FLAG_BYTE) >= 0;
}

void Demuxer::Rewind() {
    if (!untouched)
        Open();
}

} // namespace Kestra::FF
