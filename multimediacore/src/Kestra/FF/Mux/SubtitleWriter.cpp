// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Mux/SubtitleWriter.h"

#include "Kestra/ClientAPI/ContainerLimits.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Data/SubtitleText.h"
#include "Kestra/FF/Mux/ProgrammeWriter.h"
#include <algorithm>
#include <cstring>
#include <vector>

extern "C" {
#include <libavutil/intreadwrite.h>
#include <libavutil/mem.h>
}

namespace Kestra::FF {

using Conf::Container;
using Conf::Subtitles;
using Proc::TranscodingError;

namespace {

constexpr AVRational MILLISECONDS{1, 1000};
/// What markup an encoder may add to a text, at most so many times its bytes, and what it adds in any case.
constexpr std::size_t MARKUP = 8;
constexpr std::size_t FRAME = 4096;

const AVCodec& CodecFor(const Subtitles& subtitles, const Container& container) {
    const bool styled = subtitles.styled && container.styledSubtitles;
    const AVCodec* const codec = avcodec_find_encoder_by_name(styled ? container.styledSubtitles : container.subtitles);
    if (!codec)
        Fail(TranscodingError::CodecNotFound,
             std::string("This installation has no encoder of subtitles for the container \"") + container.id + '"');
    return *codec;
}

void SetTag(AVStream& stream, const char* key, const std::string& value) {
    if (!value.empty())
        Check(av_dict_set(&stream.metadata, key, value.c_str(), 0), TranscodingError::OutOfMemory, "metadata");
}

/// In QuickTime the muxer has no place for it, but the description of such a track has, by flags in front of it: some,
/// and all of the texts are forced. A track of text that is not called subtitles has no such flags.
void MarkForced(AVStream& stream, const Container& container) {
    constexpr std::uint32_t FLAGS = 0xC0000000;
    AVCodecParameters& parameters = *stream.codecpar;
    stream.disposition |= AV_DISPOSITION_FORCED;
    if (std::strcmp(container.muxer, "mov") != 0 || parameters.extradata_size < 4)
        return;
    parameters.codec_tag = MKTAG('t', 'x', '3', 'g');
    AV_WB32(parameters.extradata, AV_RB32(parameters.extradata) | FLAGS);
}

/// Plain text knows no style to go back to but that without any. Not every encoder takes the one for the other.
std::string WithoutResets(std::string event) {
    const std::string reset = "{\\r}";
    for (std::size_t at = event.find(reset); at != std::string::npos; at = event.find(reset, at))
        event.replace(at, reset.size(), "{\\b0\\i0\\u0\\1c}");
    return event;
}

/// That of QuickTime's text takes the first colour by its number alone.
std::string WithNumberedColours(std::string event) {
    bool isOverride = false;
    for (std::size_t at = 0; at + 2 < event.size(); ++at) {
        isOverride = event[at] == '{' || (isOverride && event[at] != '}');
        if (isOverride && event.compare(at, 2, "\\c") == 0 && std::strchr("&}\\", event[at + 2]))
            event.insert(at + 1, 1, '1');
    }
    return event;
}

/// That of QuickTime's text takes the end of a size for the size 0, in which nobody sees what follows. It goes back to
/// that of the track, which stands in the description that the encoder has made.
std::string WithSizes(std::string text, const AVCodecContext& encoder) {
    constexpr int PLACE_OF_SIZE = 25;
    if (encoder.codec_id != AV_CODEC_ID_MOV_TEXT || encoder.extradata_size <= PLACE_OF_SIZE)
        return text;
    const std::string end = "\\fs", size = std::to_string(encoder.extradata[PLACE_OF_SIZE]);
    for (std::size_t at = text.find(end); at != std::string::npos; at = text.find(end, at + end.size()))
        if (const std::size_t behind = at + end.size(); text[behind] == '}' || text[behind] == '\\')
            text.insert(behind, size);
    return text;
}

/// With its text as the encoder takes it. What stands before the text are names, also of styles.
std::string EventFor(const AVCodecContext& encoder, const Subtitles::Cue& cue) {
    if (encoder.codec_id == AV_CODEC_ID_ASS)
        return cue.event;
    const std::string text = cue.Text();
    return cue.event.substr(0, cue.event.size() - text.size()) + WithSizes(TextFor(encoder.codec_id, text), encoder);
}

/// The event under its number in this file.
std::string Numbered(const std::string& event, std::size_t number) {
    const std::size_t comma = event.find(',');
    return std::to_string(number) + (comma == std::string::npos ? "," : event.substr(comma));
}

} // namespace

SubtitleWriter::SubtitleWriter(AVFormatContext& context, Subtitles told, const Container& container)
    : subtitles(std::move(told))
    , stream(*Allocated(avformat_new_stream(&context, nullptr))) {
    const AVCodec& codec = CodecFor(subtitles, container);
    encoder = MakeCodecContext(&codec);
    encoder->time_base = MILLISECONDS;
    const std::size_t size = subtitles.header.size();
    encoder->subtitle_header = static_cast<std::uint8_t*>(Allocated(av_mallocz(size + 1)));
    encoder->subtitle_header_size = static_cast<int>(size);
    std::memcpy(encoder->subtitle_header, subtitles.header.data(), size);
    Check(avcodec_open2(encoder.get(), &codec, nullptr), TranscodingError::CodecRefused, "subtitles");
    Check(avcodec_parameters_from_context(stream.codecpar, encoder.get()), TranscodingError::MuxerRefused, "subtitles");
    stream.codecpar->codec_tag = 0;
    stream.time_base = MILLISECONDS;
    stream.disposition = subtitles.isDefault ? AV_DISPOSITION_DEFAULT : 0;
    if (subtitles.forced)
        MarkForced(stream, container);
    SetTag(stream, "language", ClientAPI::ContainerLimits::LanguageIn(container.id, subtitles.language));
    SetTrackTitle(stream, subtitles.title, container);
}

void SubtitleWriter::Write(std::int64_t until, const std::function<void(AVPacket&)>& take) {
    for (; next < subtitles.cues.size() && subtitles.cues[next].start <= until; ++next)
        take(*Encode(subtitles.cues[next], next));
}

PacketHandle SubtitleWriter::Encode(const Subtitles::Cue& cue, std::size_t number) {
    const std::string told = EventFor(*encoder, cue);
    std::string event = Numbered(subtitles.styled ? told : WithNumberedColours(WithoutResets(told)), number);
    AVSubtitleRect rect = {};
    rect.type = SUBTITLE_ASS;
    rect.ass = event.data();
    AVSubtitleRect* rects[] = {&rect};
    AVSubtitle subtitle = {};
    subtitle.num_rects = 1;
    subtitle.rects = rects;
    subtitle.end_display_time = static_cast<std::uint32_t>(FromEngineTime(cue.end - cue.start, MILLISECONDS));
    std::vector<std::uint8_t> bytes(event.size() * MARKUP + FRAME);
    const int size =
        Check(avcodec_encode_subtitle(encoder.get(), bytes.data(), static_cast<int>(bytes.size()), &subtitle),
              TranscodingError::CodecRefused, "A subtitle");
    PacketHandle packet = MakePacket();
    Check(av_new_packet(packet.get(), size), TranscodingError::OutOfMemory, "a subtitle");
    std::copy_n(bytes.begin(), size, packet->data);
    packet->stream_index = stream.index;
    const std::int64_t start = FromEngineTime(cue.start, MILLISECONDS);
    packet->pts = packet->dts = start;
    packet->duration = std::max<std::int64_t>(FromEngineTime(cue.end, MILLISECONDS) - start, 1);
    packet->flags |= AV_PKT_FLAG_KEY;
    return packet;
}

} // namespace Kestra::FF
