// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Source/SubtitleReader.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Data/SubtitleText.h"
#include "Kestra/FF/Demux/FileTags.h"
#include "Kestra/FF/Demux/Utf8Text.h"
#include "Kestra/Proc/Interrupted.h"
#include <algorithm>
#include <cstring>

extern "C" {
#include <libavutil/intreadwrite.h>
}

namespace Kestra::FF {

using Conf::Subtitles;
using Proc::TranscodingError;

namespace {

/// A text of which its file does not say how long it is shown, and none follows.
constexpr std::int64_t USUAL_LENGTH = 5 * TIME_BASE;
/// A whole page; containers have no place for more.
constexpr std::size_t LONGEST_TEXT = 16384;
/// Of one track: many times what a long film with every sign of it translated has.
constexpr std::size_t MOST_TEXTS = 100'000;

struct SubtitleHandle {
    AVSubtitle subtitle = {};
    SubtitleHandle() = default;
    SubtitleHandle(const SubtitleHandle&) = delete;
    SubtitleHandle& operator=(const SubtitleHandle&) = delete;
    ~SubtitleHandle() { avsubtitle_free(&subtitle); }
};

bool IsStyled(AVCodecID codec) {
    return codec == AV_CODEC_ID_ASS || codec == AV_CODEC_ID_SSA;
}

bool IsBlank(const std::string& text) {
    return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

std::string ContentOf(const AVPacket& packet) {
    return {reinterpret_cast<const char*>(packet.data), static_cast<std::size_t>(packet.size)};
}

void Replace(AVPacket& packet, const std::string& content) {
    Check(av_packet_make_writable(&packet), TranscodingError::OutOfMemory, "subtitles");
    const int change = static_cast<int>(content.size()) - packet.size;
    if (change > 0)
        Check(av_grow_packet(&packet, change), TranscodingError::OutOfMemory, "subtitles");
    else
        av_shrink_packet(&packet, packet.size + change);
    std::memcpy(packet.data, content.data(), content.size());
}

/// Among the boxes behind a text of QuickTime's, each of which begins with its length and its name.
bool HasBox(const std::string& packet, const char* name) {
    constexpr std::size_t lengthOfText = 2, head = 8;
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(packet.data());
    std::size_t at = packet.size() < lengthOfText ? packet.size() : lengthOfText + AV_RB16(bytes);
    while (at + head <= packet.size()) {
        if (packet.compare(at + 4, 4, name) == 0)
            return true;
        at += std::max<std::size_t>(AV_RB32(bytes + at), head);
    }
    return false;
}

/// In others such a mark only says that the track is not switched off, and the first one has it always.
bool IsShownByDefault(const AVStream& stream, const Demuxer& demuxer) {
    return std::strcmp(demuxer.GetFormatName(), "matroska,webm") == 0 &&
           (stream.disposition & AV_DISPOSITION_DEFAULT) != 0;
}

} // namespace

SubtitleReader::SubtitleReader(const ioPath& path, const TrackDetails& details, const std::vector<int>& wanted,
                               const std::atomic<bool>& interrupted)
    : interrupted(interrupted)
    , details(details)
    , demuxer(path, interrupted, details.limits) {
    demuxer.SetEnd(details.end);
    demuxer.SetClock(details.clock);
    for (const int index : wanted)
        OpenTrack(index);
    demuxer.Select(wanted);
}

void SubtitleReader::OpenTrack(int index) {
    const bool isThere = index >= 0 && index < static_cast<int>(demuxer.GetContext().nb_streams);
    AVStream* const stream = isThere ? &demuxer.GetStream(index) : nullptr;
    const AVCodec* const codec = stream ? avcodec_find_decoder(stream->codecpar->codec_id) : nullptr;
    if (!codec || codec->type != AVMEDIA_TYPE_SUBTITLE)
        Fail(TranscodingError::SourceUnreadable, "Track " + std::to_string(index) + " of \"" +
                                                     demuxer.GetPath().ToUtf8() + "\" holds no text that can be read");
    Track track;
    track.stream = stream;
    track.decoder = MakeCodecContext(codec);
    Check(avcodec_parameters_to_context(track.decoder.get(), stream->codecpar), TranscodingError::SourceUnreadable,
          "subtitles");
    track.decoder->pkt_timebase = stream->time_base;
    Check(avcodec_open2(track.decoder.get(), codec, nullptr), TranscodingError::SourceUnreadable, "subtitles");
    track.read.language = LanguageOf(*stream);
    track.read.title = TagOf(stream->metadata, "title");
    track.read.isDefault = IsShownByDefault(*stream, demuxer);
    track.read.forced = IsForced(*stream);
    track.read.styled = IsStyled(stream->codecpar->codec_id);
    if (track.decoder->subtitle_header && track.decoder->subtitle_header_size > 0)
        track.read.header = Utf8Of(std::string(reinterpret_cast<const char*>(track.decoder->subtitle_header),
                                               static_cast<std::size_t>(track.decoder->subtitle_header_size)));
    tracks.push_back(std::move(track));
}

SubtitleReader::Track* SubtitleReader::Find(int index) {
    const auto found = std::find_if(tracks.begin(), tracks.end(),
                                    [index](const Track& track) { return track.stream->index == index; });
    return found == tracks.end() ? nullptr : &*found;
}

void SubtitleReader::Run() {
    const PacketHandle packet = MakePacket();
    while (demuxer.Read(*packet)) {
        if (Track* const track = Find(packet->stream_index))
            Decode(*track, *packet);
        av_packet_unref(packet.get());
    }
    if (interrupted)
        KESTRA_THROW(Proc::Interrupted());
    for (Track& track : tracks)
        Finish(track);
}

void SubtitleReader::Decode(Track& track, AVPacket& packet) {
    if (packet.size <= 0 || packet.pts == AV_NOPTS_VALUE)
        return;
    CountUndecoded(track, packet);
    const char standIn = Prepare(track, packet);
    SubtitleHandle decoded;
    int got = 0;
    if (avcodec_decode_subtitle2(track.decoder.get(), &decoded.subtitle, &got, &packet) < 0)
        ++track.unread;
    else if (got)
        Add(track, packet, decoded.subtitle, standIn);
}

/// Text that is no UTF-8 would not be decoded, and not all that is text would be taken for it. QuickTime's has bytes of
/// other meaning around it.
char SubtitleReader::Prepare(Track& track, AVPacket& packet) {
    if (track.decoder->codec_id == AV_CODEC_ID_MOV_TEXT)
        return 0;
    const std::string text = ContentOf(packet);
    std::string prepared = Utf8Of(text);
    track.repaired += prepared != text ? 1 : 0;
    if (track.decoder->codec_id == AV_CODEC_ID_WEBVTT)
        prepared = WithCharacters(prepared);
    const char standIn = track.decoder->codec_id == AV_CODEC_ID_SUBRIP ? ShieldSubRip(prepared) : '\0';
    if (prepared != text)
        Replace(packet, prepared);
    return standIn;
}

void SubtitleReader::CountUndecoded(Track& track, const AVPacket& packet) {
    const std::string content = ContentOf(packet);
    if (track.decoder->codec_id == AV_CODEC_ID_MOV_TEXT)
        track.placed += HasBox(content, "tbox") ? 1 : 0;
    if (track.decoder->codec_id != AV_CODEC_ID_WEBVTT)
        return;
    std::size_t settings = 0;
    track.placed += av_packet_get_side_data(&packet, AV_PKT_DATA_WEBVTT_SETTINGS, &settings) && settings > 0 ? 1 : 0;
    track.spoken += content.find("<v") != std::string::npos || content.find("<c") != std::string::npos ? 1 : 0;
    track.foreign += HasForeignWebVttTags(content) ? 1 : 0;
}

void SubtitleReader::Add(Track& track, const AVPacket& packet, const AVSubtitle& subtitle, char standIn) {
    const std::int64_t time = ToEngineTime(packet.pts, track.stream->time_base) - details.origin;
    CloseOpen(track, time);
    const std::int64_t start = time + std::int64_t{subtitle.start_display_time} * TICKS_PER_MILLISECOND;
    const bool isToldByText = subtitle.end_display_time > 0 && subtitle.end_display_time != UINT32_MAX;
    const std::int64_t end = packet.duration > 0 ? time + ToEngineTime(packet.duration, track.stream->time_base)
                             : isToldByText ? time + std::int64_t{subtitle.end_display_time} * TICKS_PER_MILLISECOND
                                            : start;
    for (unsigned index = 0; index < subtitle.num_rects; ++index) {
        const AVSubtitleRect& rect = *subtitle.rects[index];
        if (rect.type != SUBTITLE_ASS || !rect.ass)
            continue;
        Subtitles::Cue cue{start, end, rect.ass};
        while (!cue.event.empty() && (cue.event.back() == '\n' || cue.event.back() == '\r'))
            cue.event.pop_back();
        UnshieldSubRip(cue.event, standIn);
        if (IsBlank(cue.Text()))
            continue;
        if (cue.event.size() > LONGEST_TEXT) {
            ++track.tooLong;
            continue;
        }
        if (track.read.cues.size() >= MOST_TEXTS) {
            ++track.tooMany;
            continue;
        }
        if (end <= start)
            track.open.push_back(track.read.cues.size());
        track.read.cues.push_back(std::move(cue));
    }
}

void SubtitleReader::CloseOpen(Track& track, std::int64_t time) {
    for (const std::size_t index : track.open) {
        Subtitles::Cue& cue = track.read.cues[index];
        cue.end = std::min(cue.start + USUAL_LENGTH, std::max(time, cue.start));
    }
    track.open.clear();
}

void SubtitleReader::Finish(Track& track) {
    CloseOpen(track, INT64_MAX);
    std::stable_sort(track.read.cues.begin(), track.read.cues.end(),
                     [](const Subtitles::Cue& a, const Subtitles::Cue& b) { return a.start < b.start; });
    Tell(track, track.unread, "cannot be read and are left out");
    Tell(track, track.tooLong, "are longer than a subtitle can be and are left out");
    Tell(track, track.tooMany, "are more than can be kept and are left out");
    Tell(track, track.placed, "have a place of their own on the picture, which is left out");
    Tell(track, track.spoken, "name speakers or classes, which are left out");
    Tell(track, track.foreign, "have tags that WebVTT does not know, which are left out");
    Tell(track, track.repaired, "are no UTF-8 and were read as Windows-1252");
}

void SubtitleReader::Tell(const Track& track, int count, const char* what) {
    if (count > 0)
        troubles.push_back(std::to_string(count) + " of the subtitles of track " + std::to_string(track.stream->index) +
                           ' ' + what);
}

std::vector<Subtitles> SubtitleReader::Take() {
    std::vector<Subtitles> taken;
    for (Track& track : tracks)
        taken.push_back(std::move(track.read));
    return taken;
}

} // namespace Kestra::FF
