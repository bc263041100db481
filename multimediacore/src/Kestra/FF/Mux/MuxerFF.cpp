// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Mux/MuxerFF.h"

#include "Kestra/ClientAPI/ContainerLimits.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Av/OptionList.h"
#include "Kestra/FF/Data/DataRawFF.h"
#include "Kestra/FF/Mux/CoverWriter.h"
#include "Kestra/FF/Mux/ProgrammeWriter.h"
#include <algorithm>
#include <climits>
#include <cstring>
#include <numeric>
#include <utility>

extern "C" {
#include <libavutil/intreadwrite.h>
}

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

constexpr const char* WRITER = "EditorExport";
constexpr int SKIP_SIDE_DATA_SIZE = 10;
constexpr int SKIP_END_OFFSET = 4;
constexpr std::int64_t USUAL_MOVIE_TIMESCALE = 90000;
constexpr std::int64_t LONGEST_HOLD = AV_TIME_BASE;
constexpr AVRational MILLISECONDS{1, 1000};

void SetOption(AVFormatContext& context, const char* name, const char* value) {
    Check(av_opt_set(&context, name, value, AV_OPT_SEARCH_CHILDREN), TranscodingError::MuxerRefused, name);
}

// The encoder's tag tells ProRes profiles apart; it stays where the container knows it. HEVC gets the one by which its
// parameter sets stand in the header alone, as the encoder makes it: some players take no other.
std::uint32_t ChooseTag(const AVCodecParameters& parameters, const AVOutputFormat& container, bool isMov) {
    if (isMov && parameters.codec_id == AV_CODEC_ID_HEVC)
        return MKTAG('h', 'v', 'c', '1');
    const bool known = container.codec_tag && parameters.codec_tag != 0 &&
                       av_codec_get_id(container.codec_tag, parameters.codec_tag) == parameters.codec_id;
    return known ? parameters.codec_tag : 0;
}

void CopyParameters(AVStream& stream, const CodecParametersFF& source, const AVOutputFormat& container, bool isMov) {
    Check(avcodec_parameters_copy(stream.codecpar, &source.GetParameters()), TranscodingError::MuxerRefused,
          "parameters of a track");
    stream.codecpar->codec_tag = ChooseTag(*stream.codecpar, container, isMov);
    stream.time_base = source.GetTimeBase();
    stream.sample_aspect_ratio = stream.codecpar->sample_aspect_ratio;
    if (stream.codecpar->codec_type == AVMEDIA_TYPE_VIDEO) {
        stream.avg_frame_rate = av_inv_q(source.GetTimeBase());
        stream.r_frame_rate = stream.avg_frame_rate;
        SetHdrMetadata(stream, source.GetHdrMetadata());
    }
}

// Players begin with such tracks. Matroska tells it of each, and what is not marked is not chosen by itself.
bool IsFirstOfItsKind(const AVFormatContext& context, const AVStream& stream) {
    const AVMediaType kind = stream.codecpar->codec_type;
    return std::none_of(context.streams, context.streams + stream.index,
                        [kind](const AVStream* before) { return before->codecpar->codec_type == kind; });
}

// What the encoder says of its padding is replaced by what the engine knows: it counts the cuts as well.
void SetSkip(AVPacket& packet, std::int64_t atStart, std::int64_t atEnd) {
    std::uint8_t* data = av_packet_get_side_data(&packet, AV_PKT_DATA_SKIP_SAMPLES, nullptr);
    if (!data && atStart == 0 && atEnd == 0)
        return;
    if (!data)
        data = Allocated(av_packet_new_side_data(&packet, AV_PKT_DATA_SKIP_SAMPLES, SKIP_SIDE_DATA_SIZE));
    std::memset(data, 0, SKIP_SIDE_DATA_SIZE);
    AV_WL32(data, static_cast<std::uint32_t>(atStart));
    AV_WL32(data + SKIP_END_OFFSET, static_cast<std::uint32_t>(atEnd));
}

} // namespace

MuxerFF::MuxerFF(const Conf::Container& container, const boost::intrusive_ptr<Conf::IFormatFile>& format,
                 const boost::intrusive_ptr<Core::IDataOutput>& output)
    : container(container)
    , format(format)
    , output(output)
    , io(std::make_unique<OutputIo>(output)) {
    AVFormatContext* made = nullptr;
    Check(avformat_alloc_output_context2(&made, nullptr, container.muxer, output->GetPath().ToUtf8().c_str()),
          TranscodingError::MuxerRefused, ("This installation cannot write the container " + Name()).c_str());
    context.reset(made);
}

std::string MuxerFF::Name() const {
    return std::string("\"") + container.id + "\"";
}

void MuxerFF::RequireState(State wanted, const char* operation, SourcePlace place) const {
    if (state != wanted)
        Fail(TranscodingError::InvalidArgument, std::string("A muxer was told to ") + operation + " out of order",
             place);
}

void MuxerFF::Demand(int result, const char* what, SourcePlace place) const {
    io->Rethrow();
    const int error = result < 0 ? result : io->Get()->error;
    if (error < 0)
        ThrowError(error, TranscodingError::OutputFailed, std::string(what) + " \"" + output->GetPath().ToUtf8() + "\"",
                   place);
}

int MuxerFF::AddStream(const boost::intrusive_ptr<Conf::IFormatCodec>& codec) {
    RequireState(State::Adding, "add a track");
    const CodecParametersFF* parameters = codec ? CodecParametersOf(*codec) : nullptr;
    if (!parameters)
        Fail(TranscodingError::MuxerRefused, "A track for " + Name() + " does not come from an encoder of this engine");
    const AVCodecID id = parameters->GetParameters().codec_id;
    if (avformat_query_codec(context->oformat, id, FF_COMPLIANCE_EXPERIMENTAL) == 0)
        Fail(TranscodingError::MuxerRefused, "The container " + Name() + " cannot hold " + avcodec_get_name(id));
    AVStream* stream = Allocated(avformat_new_stream(context.get(), nullptr));
    CopyParameters(*stream, *parameters, *context->oformat, container.family == Conf::Container::Family::Mov);
    if (IsFirstOfItsKind(*context, *stream))
        stream->disposition = AV_DISPOSITION_DEFAULT;
    packetTimeBases.push_back(parameters->GetTimeBase());
    if (programme.IsEmpty())
        programme = Conf::ProgrammeInfo::Of(*codec);
    return stream->index;
}

void MuxerFF::Open() {
    RequireState(State::Adding, "open");
    if (packetTimeBases.empty())
        Fail(TranscodingError::MuxerRefused, "There is nothing to be written into " + Name() + ": no track");
    output->Open();
    ApplyOptions();
    DescribeProgramme(*context, programme, container);
    AddExtras();
    context->pb = io->Get();
    context->flags |= AVFMT_FLAG_CUSTOM_IO;
    const auto refuse = [this](int result) {
        io->Rethrow();
        if (result < 0)
            ThrowError(result, TranscodingError::MuxerRefused,
                       "The container " + Name() + " refuses its tracks or settings");
    };
    refuse(avformat_init_output(context.get(), nullptr));
    // The library has put its own name there.
    for (const char* tag : {"encoder", "encoding_tool"})
        Check(av_dict_set(&context->metadata, tag, WRITER, 0), TranscodingError::OutOfMemory, "metadata");
    refuse(avformat_write_header(context.get(), nullptr));
    avio_flush(io->Get());
    Demand(0, "Writing the header of");
    state = State::Open;
    if (coverTrack >= 0)
        WriteExtra(*MakeCoverPacket(programme.cover, coverTrack));
}

/// Beside the tracks of the encoders, behind them.
void MuxerFF::AddExtras() {
    coverTrack = AddCover(*context, programme.cover, container);
    for (const Conf::Subtitles& told : programme.subtitles)
        if (Conf::Subtitles held = ClientAPI::ContainerLimits::SubtitlesIn(container.id, told); !held.cues.empty())
            subtitles.emplace_back(*context, std::move(held), container);
    // A track that has nothing to say for long holds the others back no longer than that.
    if (coverTrack >= 0 || !subtitles.empty())
        context->max_interleave_delta = LONGEST_HOLD;
}

void MuxerFF::WriteExtra(AVPacket& packet) {
    av_packet_rescale_ts(&packet, MILLISECONDS, context->streams[packet.stream_index]->time_base);
    Demand(av_interleaved_write_frame(context.get(), &packet), "Writing to");
}

void MuxerFF::WriteSubtitles(std::int64_t until) {
    for (SubtitleWriter& track : subtitles)
        track.Write(until, [this](AVPacket& packet) { WriteExtra(packet); });
}

void MuxerFF::ApplyOptions() {
    // Negative times are what a decoder has to discard; each container says that in its own way.
    context->avoid_negative_ts = 0;
    context->strict_std_compliance = FF_COMPLIANCE_EXPERIMENTAL;
    if (container.family == Conf::Container::Family::Mov)
        ApplyMovOptions();
    if (std::strcmp(container.muxer, "wav") == 0)
        SetOption(*context, "rf64", "auto");
    for (int setting = 0; setting < Conf::CountOf<Conf::ContainerSetting>(); ++setting)
        Obey(static_cast<Conf::ContainerSetting>(setting));
}

void MuxerFF::Obey(Conf::ContainerSetting setting) {
    const char* const tag = Conf::TagOf(setting);
    switch (setting) {
    case Conf::ContainerSetting::Id:
        return; // it chose the muxer
    case Conf::ContainerSetting::Options:
        if (format->GetProperty().ChildExists(tag))
            OptionList(format->GetProperty()[tag])
                .ApplyTo(context.get(), "The container " + Name(), TranscodingError::MuxerRefused);
        return;
    }
}

void MuxerFF::ApplyMovOptions() {
    if (io->CanBeReadBack()) {
        SetOption(*context, "movflags", "+faststart");
        io->AllowReadingBack(*context);
    }
    SetOption(*context, "movie_timescale", std::to_string(MovieTimescale()).c_str());
    SetOption(*context, "write_tmcd", programme.timecode && container.timecode ? "1" : "0");
}

// Lengths of tracks and edits are counted in this unit. The smallest common one of all tracks makes them exact.
std::int64_t MuxerFF::MovieTimescale() const {
    std::int64_t common = 1;
    for (const AVRational& base : packetTimeBases) {
        common = std::lcm(common, static_cast<std::int64_t>(base.den));
        if (common > INT_MAX)
            return USUAL_MOVIE_TIMESCALE;
    }
    while (common < 1000)
        common *= 10;
    return common;
}

// Matroska counts the time of a track with a codec delay from where its decoder begins, the others from time 0.
std::int64_t MuxerFF::TimeOffset(const AVStream& stream) const {
    const AVCodecParameters& parameters = *stream.codecpar;
    return container.family == Conf::Container::Family::Matroska && parameters.codec_id == AV_CODEC_ID_OPUS
               ? SamplesToTime(parameters.initial_padding, parameters.sample_rate)
               : 0;
}

PacketHandle MuxerFF::MakeOutgoing(const Proc::IDataRaw& packet, const AVStream& stream) const {
    PacketHandle outgoing = MakePacketReference(PacketOf(packet));
    const AVCodecParameters& parameters = *stream.codecpar;
    const std::int64_t offset = TimeOffset(stream);
    const std::int64_t end = packet.GetTime() + packet.GetDuration() - packet.GetTrimEnd();
    outgoing->stream_index = stream.index;
    outgoing->pts = FromEngineTime(packet.GetTime() + offset, stream.time_base);
    outgoing->dts = FromEngineTime(packet.GetDecodeTime() + offset, stream.time_base);
    // Without the offset: a file is as long as what is shown of it.
    outgoing->duration = std::max<std::int64_t>(FromEngineTime(end, stream.time_base) - outgoing->pts, 0);
    outgoing->pos = -1;
    if (parameters.codec_type == AVMEDIA_TYPE_AUDIO) {
        const bool first = stream.nb_frames == 0;
        SetSkip(*outgoing, first ? parameters.initial_padding : 0,
                TimeToSamples(packet.GetTrimEnd(), parameters.sample_rate));
    }
    return outgoing;
}

void MuxerFF::Write(int index, const boost::intrusive_ptr<Proc::IDataRaw>& packet) {
    RequireState(State::Open, "write a packet");
    if (!packet || index < 0 || index >= static_cast<int>(packetTimeBases.size()))
        Fail(TranscodingError::InvalidArgument, "A muxer was given no packet, or one of an unknown track");
    WriteSubtitles(packet->GetDecodeTime());
    const PacketHandle outgoing = MakeOutgoing(*packet, *context->streams[index]);
    Demand(av_interleaved_write_frame(context.get(), outgoing.get()), "Writing to");
}

void MuxerFF::Finish() {
    RequireState(State::Open, "finish");
    WriteSubtitles(INT64_MAX);
    Demand(av_write_trailer(context.get()), "Completing");
    avio_flush(io->Get());
    Demand(0, "Completing");
    state = State::Done;
    output->Close();
}

void MuxerFF::Abort() noexcept {
    state = State::Done;
    output->Abort();
}

} // namespace Kestra::FF
