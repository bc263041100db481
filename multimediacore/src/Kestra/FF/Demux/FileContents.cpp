// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/FileContents.h"

#include "Kestra/Conf/Language.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Demux/FileTags.h"
#include <algorithm>
#include <array>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

using Conf::ProgrammeInfo;
using Proc::ListedTrack;
using Kind = Proc::ListedTrack::Kind;

namespace {

constexpr AVCodecID TEXTS[] = {AV_CODEC_ID_SUBRIP, AV_CODEC_ID_ASS,      AV_CODEC_ID_SSA,
                               AV_CODEC_ID_WEBVTT, AV_CODEC_ID_MOV_TEXT, AV_CODEC_ID_TEXT};

Kind KindOf(const AVStream& stream, bool hasChapters) {
    switch (stream.codecpar->codec_type) {
    case AVMEDIA_TYPE_VIDEO:
        return stream.disposition & (AV_DISPOSITION_ATTACHED_PIC | AV_DISPOSITION_TIMED_THUMBNAILS) ? Kind::Cover
                                                                                                    : Kind::Picture;
    case AVMEDIA_TYPE_AUDIO:
        return Kind::Sound;
    case AVMEDIA_TYPE_SUBTITLE:
        return Kind::Subtitles;
    case AVMEDIA_TYPE_ATTACHMENT:
        return Kind::Attachment;
    default: // the names of chapters are a track of QuickTime's, and so is a time code
        if (stream.codecpar->codec_tag == MKTAG('t', 'm', 'c', 'd') && !TagOf(stream.metadata, "timecode").empty())
            return Kind::TimeCode;
        return hasChapters && stream.codecpar->codec_tag == MKTAG('t', 'e', 'x', 't') ? Kind::Chapters : Kind::Data;
    }
}

void DescribeSound(const AVCodecParameters& parameters, ListedTrack& track) {
    track.sampleRate = parameters.sample_rate;
    track.channels = parameters.ch_layout.nb_channels;
    // Files that tell no speakers of one or two channels mean the usual ones.
    AVChannelLayout usual = parameters.ch_layout;
    if (usual.order == AV_CHANNEL_ORDER_UNSPEC && (track.channels == 1 || track.channels == 2))
        av_channel_layout_default(&usual, track.channels);
    std::array<char, 128> name{};
    if (av_channel_layout_describe(&usual, name.data(), name.size()) > 0)
        track.channelLayout = name.data();
}

ListedTrack ListedOf(const AVStream& stream, bool hasChapters) {
    const AVCodecParameters& parameters = *stream.codecpar;
    ListedTrack track;
    track.index = stream.index;
    track.kind = KindOf(stream, hasChapters);
    track.codec = track.kind == Kind::TimeCode ? "tmcd" : avcodec_get_name(parameters.codec_id);
    track.language = LanguageOf(stream);
    track.title = TagOf(stream.metadata, "title");
    track.isDefault = (stream.disposition & AV_DISPOSITION_DEFAULT) != 0;
    track.forced = IsForced(stream);
    if (track.kind == Kind::Picture || track.kind == Kind::Cover)
        track.frame = MakeFrameInfo(parameters.width, parameters.height, parameters.sample_aspect_ratio);
    if (track.kind == Kind::Picture)
        track.frameRate = FromAv(stream.avg_frame_rate.num > 0 ? stream.avg_frame_rate : stream.r_frame_rate);
    if (track.kind == Kind::Sound)
        DescribeSound(parameters, track);
    track.isText = track.kind == Kind::Subtitles &&
                   std::find(std::begin(TEXTS), std::end(TEXTS), parameters.codec_id) != std::end(TEXTS);
    return track;
}

/// More than that nobody chooses from, and files claim as many as they like.
constexpr std::size_t MOST_CHAPTERS = 2000;
constexpr int LARGEST_COVER = 32 << 20;

std::vector<ProgrammeInfo::Chapter> ChaptersOf(const AVFormatContext& context, std::int64_t origin,
                                               std::vector<std::string>& notes) {
    std::vector<ProgrammeInfo::Chapter> chapters;
    for (unsigned index = 0; index < context.nb_chapters; ++index) {
        const AVChapter& chapter = *context.chapters[index];
        if (chapter.start == AV_NOPTS_VALUE)
            continue;
        const std::int64_t start = ToEngineTime(chapter.start, chapter.time_base) - origin;
        const std::int64_t end =
            chapter.end == AV_NOPTS_VALUE ? start : ToEngineTime(chapter.end, chapter.time_base) - origin;
        chapters.push_back({start, std::max(start, end), TagOf(chapter.metadata, "title")});
    }
    const auto earlier = [](const auto& a, const auto& b) { return a.start < b.start; };
    const auto together = [](const auto& a, const auto& b) { return a.start == b.start; };
    std::stable_sort(chapters.begin(), chapters.end(), earlier);
    chapters.erase(std::unique(chapters.begin(), chapters.end(), together), chapters.end());
    if (chapters.size() > MOST_CHAPTERS) {
        notes.push_back("of its " + std::to_string(chapters.size()) + " chapters the first " +
                        std::to_string(MOST_CHAPTERS) + " are read");
        chapters.resize(MOST_CHAPTERS);
    }
    return chapters;
}

const char* MimeTypeOf(AVCodecID codec) {
    return codec == AV_CODEC_ID_MJPEG ? "image/jpeg" : codec == AV_CODEC_ID_PNG ? "image/png" : nullptr;
}

/// The first of a kind that others hold as well.
ProgrammeInfo::Cover CoverOf(const AVFormatContext& context) {
    for (unsigned index = 0; index < context.nb_streams; ++index) {
        const AVStream& stream = *context.streams[index];
        const AVPacket& picture = stream.attached_pic;
        const char* const type = MimeTypeOf(stream.codecpar->codec_id);
        if (!(stream.disposition & AV_DISPOSITION_ATTACHED_PIC) || !type || picture.size <= 0 ||
            picture.size > LARGEST_COVER)
            continue;
        const char* const format = av_get_pix_fmt_name(static_cast<AVPixelFormat>(stream.codecpar->format));
        return {type, std::string(reinterpret_cast<const char*>(picture.data), static_cast<std::size_t>(picture.size)),
                stream.codecpar->width, stream.codecpar->height, format ? format : ""};
    }
    return {};
}

/// Files of sound alone tell the language of the whole.
void TakeLanguage(const AVFormatContext& context, std::vector<ListedTrack>& tracks) {
    const auto isSound = [](const ListedTrack& track) { return track.kind == Kind::Sound; };
    const auto sound = std::find_if(tracks.begin(), tracks.end(), isSound);
    const std::string language = TagOf(context.metadata, "language");
    if (!Conf::Language::CodeOf(language).empty() && std::count_if(tracks.begin(), tracks.end(), isSound) == 1 &&
        sound->language.empty())
        sound->language = language;
}

} // namespace

Proc::MediaContents ContentsOf(const AVFormatContext& context, std::int64_t origin, std::vector<std::string>& notes) {
    Proc::MediaContents contents;
    for (unsigned index = 0; index < context.nb_streams; ++index)
        contents.tracks.push_back(ListedOf(*context.streams[index], context.nb_chapters > 0));
    if (TagsItsTracks(context))
        for (ListedTrack& track : contents.tracks)
            track.title.clear();
    TakeLanguage(context, contents.tracks);
    ReadTags(context, contents.programme, notes);
    contents.programme.chapters = ChaptersOf(context, origin, notes);
    contents.programme.cover = CoverOf(context);
    return contents;
}

} // namespace Kestra::FF
