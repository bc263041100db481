// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/Container.h"

#include <algorithm>
#include <utility>

namespace Kestra::Conf {

namespace {

const std::vector<std::string> TAGS_OF_MP4{"album",    "album_artist", "artist",  "comment",    "composer", "copyright",
                                           "date",     "description",  "disc",    "episode_id", "genre",    "grouping",
                                           "keywords", "lyrics",       "network", "show",       "synopsis", "track"};
const std::vector<std::string> TAGS_OF_MOV{"album", "artist",   "comment", "copyright", "date",
                                           "genre", "location", "make",    "model"};
const std::vector<std::string> TAGS_OF_WAV{"album", "artist", "comment",  "copyright",
                                           "date",  "genre",  "language", "track"};

/// Some readers take the sizes within a chapter's frame for plain numbers, which they are below 128 only.
constexpr int ID3_CHAPTER_TITLE = 120;

using Family = Container::Family;
using Languages = Container::Languages;

std::vector<Container> OfPictures() {
    return {
        {"mp4",
         "mp4",
         Family::Mov,
         true,
         true,
         true,
         {CodecID::H264, CodecID::HEVC, CodecID::AV1, CodecID::VP9, CodecID::MPEG4, CodecID::MPEG2, CodecID::AAC,
          CodecID::MP3, CodecID::AC3, CodecID::ALAC, CodecID::Opus, CodecID::FLAC},
         {"mp4", "m4v"},
         {"m4a"},
         TAGS_OF_MP4,
         Languages::Terminological,
         true,
         "mov_text",
         nullptr,
         true,
         true},
        {"mov",
         "mov",
         Family::Mov,
         true,
         true,
         true,
         {CodecID::H264, CodecID::HEVC, CodecID::ProRes, CodecID::DNxHD, CodecID::MJPEG, CodecID::MPEG4, CodecID::AAC,
          CodecID::PCM_S16LE, CodecID::PCM_S24LE, CodecID::ALAC, CodecID::MP3, CodecID::AC3},
         {"mov", "qt"},
         {},
         TAGS_OF_MOV,
         Languages::QuickTime,
         false,
         "mov_text",
         nullptr,
         true,
         true},
        {"webm",
         "webm",
         Family::Matroska,
         true,
         true,
         true,
         {CodecID::VP9, CodecID::VP8, CodecID::AV1, CodecID::Opus, CodecID::Vorbis},
         {"webm"},
         {"weba"},
         {},
         Languages::Bibliographic,
         false,
         "webvtt"},
        {"mkv",
         "matroska",
         Family::Matroska,
         true,
         true,
         true,
         {CodecID::H264, CodecID::HEVC, CodecID::VP9, CodecID::AV1, CodecID::VP8, CodecID::MPEG4, CodecID::MPEG2,
          CodecID::FFV1, CodecID::MJPEG, CodecID::ProRes, CodecID::AAC, CodecID::Opus, CodecID::MP3, CodecID::FLAC,
          CodecID::PCM_S16LE, CodecID::PCM_S24LE, CodecID::Vorbis, CodecID::AC3, CodecID::ALAC},
         {"mkv"},
         {"mka"},
         {},
         Languages::Bibliographic,
         true,
         "subrip",
         "ass",
         false,
         true,
         true},
        {"gif",
         "gif",
         Family::Other,
         false,
         false,
         false,
         {CodecID::GIF},
         {"gif"},
         {},
         {},
         Languages::ByTag,
         false,
         nullptr,
         nullptr,
         false,
         false,
         false,
         0,
         false},
    };
}

/// Of one codec, whose packets are whole files.
Container Sequence(const char* id, CodecID codec, std::vector<std::string> extensions) {
    Container container{id, "image2", Family::Other, false, false, false, {codec}, std::move(extensions), {}, {}};
    container.tagged = false;
    container.sequence = true;
    return container;
}

std::vector<Container> OfSequences() {
    return {
        Sequence("png-sequence", CodecID::PNG, {"png"}),
        Sequence("jpeg-sequence", CodecID::MJPEG, {"jpg", "jpeg"}),
    };
}

std::vector<Container> OfSoundAlone() {
    return {
        {"m4a",
         "ipod",
         Family::Mov,
         true,
         false,
         true,
         {CodecID::AAC, CodecID::ALAC},
         {"m4a", "m4b"},
         {},
         TAGS_OF_MP4,
         Languages::Terminological,
         true},
        {"mp3",
         "mp3",
         Family::Other,
         false,
         false,
         true,
         {CodecID::MP3},
         {"mp3"},
         {},
         {},
         Languages::ByTag,
         true,
         nullptr,
         nullptr,
         false,
         false,
         false,
         ID3_CHAPTER_TITLE},
        {"flac", "flac", Family::Other, false, false, false, {CodecID::FLAC}, {"flac"}, {}, {}, Languages::ByTag, true},
        {"wav",
         "wav",
         Family::Other,
         false,
         false,
         false,
         {CodecID::PCM_S16LE, CodecID::PCM_S24LE, CodecID::PCM},
         {"wav", "wave"},
         {},
         TAGS_OF_WAV},
        {"opus", "opus", Family::Other, false, false, true, {CodecID::Opus}, {"opus"}, {}, {}},
        {"ogg",
         "ogg",
         Family::Other,
         false,
         false,
         false,
         {CodecID::Vorbis, CodecID::Opus, CodecID::FLAC},
         {"ogg", "oga"},
         {},
         {}},
        {"ac3",
         "ac3",
         Family::Other,
         false,
         false,
         false,
         {CodecID::AC3},
         {"ac3"},
         {},
         {},
         Languages::ByTag,
         false,
         nullptr,
         nullptr,
         false,
         false,
         false,
         0,
         false},
    };
}

} // namespace

const std::vector<Container>& Container::All() {
    static const std::vector<Container> table = [] {
        std::vector<Container> all = OfPictures();
        for (const std::vector<Container>& more : {OfSequences(), OfSoundAlone()})
            all.insert(all.end(), more.begin(), more.end());
        return all;
    }();
    return table;
}

const Container* Container::Find(const std::string& id) {
    const auto found =
        std::find_if(All().begin(), All().end(), [&id](const Container& container) { return id == container.id; });
    return found == All().end() ? nullptr : &*found;
}

} // namespace Kestra::Conf
