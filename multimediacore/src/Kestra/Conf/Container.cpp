// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/Container.h"

#include <algorithm>
#include <utility>

namespace Kestra::Conf {

namespace {

std::vector<std::string> TagsOfMp4() {
    return {"album",    "album_artist", "artist",  "comment",    "composer", "copyright",
            "date",     "description",  "disc",    "episode_id", "genre",    "grouping",
            "keywords", "lyrics",       "network", "show",       "synopsis", "track"};
}

std::vector<std::string> TagsOfMov() {
    return {"album", "artist", "comment", "copyright", "date", "genre", "location", "make", "model"};
}

std::vector<std::string> TagsOfWav() {
    return {"album", "artist", "comment", "copyright", "date", "genre", "language", "track"};
}

/// Some readers take the sizes within a chapter's frame for plain numbers, which they are below 128 only.
constexpr int ID3_CHAPTER_TITLE = 120;

using Family = Container::Family;
using Languages = Container::Languages;

Container Of(const char* id, const char* muxer, std::vector<CodecID> codecs, std::vector<std::string> extensions) {
    Container container{};
    container.id = id;
    container.muxer = muxer;
    container.codecs = std::move(codecs);
    container.extensions = std::move(extensions);
    return container;
}

Container OfMov(const char* id, const char* muxer, std::vector<CodecID> codecs, std::vector<std::string> extensions) {
    Container container = Of(id, muxer, std::move(codecs), std::move(extensions));
    container.family = Family::Mov;
    container.globalHeaders = true;
    container.chapters = true;
    return container;
}

Container OfMatroska(const char* id, const char* muxer, std::vector<CodecID> codecs,
                     std::vector<std::string> extensions) {
    Container container = Of(id, muxer, std::move(codecs), std::move(extensions));
    container.family = Family::Matroska;
    container.globalHeaders = true;
    container.timecode = true;
    container.chapters = true;
    container.languages = Languages::Bibliographic;
    return container;
}

Container Mp4() {
    Container container =
        OfMov("mp4", "mp4",
              {CodecID::H264, CodecID::HEVC, CodecID::AV1, CodecID::VP9, CodecID::MPEG4, CodecID::MPEG2, CodecID::AAC,
               CodecID::MP3, CodecID::AC3, CodecID::ALAC, CodecID::Opus, CodecID::FLAC},
              {"mp4", "m4v"});
    container.timecode = true;
    container.extensionsOfSound = {"m4a"};
    container.tags = TagsOfMp4();
    container.languages = Languages::Terminological;
    container.cover = true;
    container.subtitles = "mov_text";
    container.subtitlesOneAtATime = true;
    container.subtitleColours = true;
    return container;
}

Container Mov() {
    Container container =
        OfMov("mov", "mov",
              {CodecID::H264, CodecID::HEVC, CodecID::ProRes, CodecID::DNxHD, CodecID::MJPEG, CodecID::MPEG4,
               CodecID::AAC, CodecID::PCM_S16LE, CodecID::PCM_S24LE, CodecID::ALAC, CodecID::MP3, CodecID::AC3},
              {"mov", "qt"});
    container.timecode = true;
    container.tags = TagsOfMov();
    container.languages = Languages::QuickTime;
    container.subtitles = "mov_text";
    container.subtitlesOneAtATime = true;
    container.subtitleColours = true;
    return container;
}

Container WebM() {
    Container container = OfMatroska(
        "webm", "webm", {CodecID::VP9, CodecID::VP8, CodecID::AV1, CodecID::Opus, CodecID::Vorbis}, {"webm"});
    container.extensionsOfSound = {"weba"};
    container.subtitles = "webvtt";
    return container;
}

Container Mkv() {
    Container container = OfMatroska("mkv", "matroska",
                                     {CodecID::H264, CodecID::HEVC, CodecID::VP9, CodecID::AV1, CodecID::VP8,
                                      CodecID::MPEG4, CodecID::MPEG2, CodecID::FFV1, CodecID::MJPEG, CodecID::ProRes,
                                      CodecID::AAC, CodecID::Opus, CodecID::MP3, CodecID::FLAC, CodecID::PCM_S16LE,
                                      CodecID::PCM_S24LE, CodecID::Vorbis, CodecID::AC3, CodecID::ALAC},
                                     {"mkv"});
    container.extensionsOfSound = {"mka"};
    container.cover = true;
    container.subtitles = "subrip";
    container.styledSubtitles = "ass";
    container.subtitleColours = true;
    container.subtitlePlaces = true;
    return container;
}

Container Gif() {
    Container container = Of("gif", "gif", {CodecID::GIF}, {"gif"});
    container.tagged = false;
    container.squarePixels = true;
    return container;
}

/// Animated.
Container Webp() {
    Container container = Of("webp", "webp", {CodecID::WebP}, {"webp"});
    container.tagged = false;
    container.squarePixels = true;
    return container;
}

/// Of one codec, whose packets are whole files.
Container Sequence(const char* id, CodecID codec, std::vector<std::string> extensions) {
    Container container = Of(id, "image2", {codec}, std::move(extensions));
    container.tagged = false;
    container.sequence = true;
    container.squarePixels = true;
    return container;
}

Container M4a() {
    Container container = OfMov("m4a", "ipod", {CodecID::AAC, CodecID::ALAC}, {"m4a", "m4b"});
    container.tags = TagsOfMp4();
    container.languages = Languages::Terminological;
    container.cover = true;
    return container;
}

Container Mp3() {
    Container container = Of("mp3", "mp3", {CodecID::MP3}, {"mp3"});
    container.chapters = true;
    container.cover = true;
    container.chapterTitle = ID3_CHAPTER_TITLE;
    return container;
}

Container Flac() {
    Container container = Of("flac", "flac", {CodecID::FLAC}, {"flac"});
    container.cover = true;
    return container;
}

Container Wav() {
    Container container = Of("wav", "wav", {CodecID::PCM_S16LE, CodecID::PCM_S24LE, CodecID::PCM}, {"wav", "wave"});
    container.tags = TagsOfWav();
    return container;
}

Container Opus() {
    Container container = Of("opus", "opus", {CodecID::Opus}, {"opus"});
    container.chapters = true;
    container.cover = true;
    return container;
}

Container Ogg() {
    Container container = Of("ogg", "ogg", {CodecID::Vorbis, CodecID::Opus, CodecID::FLAC}, {"ogg", "oga"});
    container.chapters = true;
    container.cover = true;
    return container;
}

Container Ac3() {
    Container container = Of("ac3", "ac3", {CodecID::AC3}, {"ac3"});
    container.tagged = false;
    return container;
}

} // namespace

const std::vector<Container>& Container::All() {
    static const auto& table = *new std::vector<Container>{
        Mp4(),
        Mov(),
        WebM(),
        Mkv(),
        Gif(),
        Webp(),
        Sequence("png-sequence", CodecID::PNG, {"png"}),
        Sequence("jpeg-sequence", CodecID::MJPEG, {"jpg", "jpeg"}),
        M4a(),
        Mp3(),
        Flac(),
        Wav(),
        Opus(),
        Ogg(),
        Ac3(),
    };
    return table;
}

const Container* Container::Find(const std::string& id) {
    const auto found =
        std::find_if(All().begin(), All().end(), [&id](const Container& container) { return id == container.id; });
    return found == All().end() ? nullptr : &*found;
}

} // namespace Kestra::Conf
