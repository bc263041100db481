// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Described.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

namespace TestMedia {
namespace {

struct CloseInput {
    void operator()(AVFormatContext* context) const { avformat_close_input(&context); }
};
struct FreeContext {
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
};
using Decoder = std::unique_ptr<AVCodecContext, FreeContext>;

std::map<std::string, std::string> tagsOf(const AVDictionary* dictionary) {
    std::map<std::string, std::string> tags;
    const AVDictionaryEntry* entry = nullptr;
    while ((entry = av_dict_get(dictionary, "", entry, AV_DICT_IGNORE_SUFFIX)) != nullptr) {
        std::string key = entry->key;
        std::transform(key.begin(), key.end(), key.begin(), [](unsigned char letter) { return std::tolower(letter); });
        tags[key] = entry->value;
    }
    return tags;
}

std::string kindOf(const AVStream& stream) {
    if (stream.disposition & AV_DISPOSITION_ATTACHED_PIC)
        return "cover";
    const char* const name = av_get_media_type_string(stream.codecpar->codec_type);
    return name ? name : "";
}

Decoder decoderOf(const AVStream& stream) {
    const AVCodec* const codec = avcodec_find_decoder(stream.codecpar->codec_id);
    Decoder decoder(codec ? avcodec_alloc_context3(codec) : nullptr);
    if (!decoder || avcodec_parameters_to_context(decoder.get(), stream.codecpar) < 0)
        throw std::runtime_error("no decoder of subtitles");
    decoder->pkt_timebase = stream.time_base;
    if (avcodec_open2(decoder.get(), codec, nullptr) < 0)
        throw std::runtime_error("the decoder of subtitles does not open");
    return decoder;
}

/// Behind the eighth comma, without what stands in braces.
std::string textOf(const char* event) {
    for (int field = 0; field < 8 && event; ++field)
        event = std::strchr(event, ',') ? std::strchr(event, ',') + 1 : nullptr;
    std::string text;
    bool inside = false;
    for (const char* letter = event ? event : ""; *letter; ++letter) {
        inside = inside || *letter == '{';
        if (!inside && *letter != '\r' && *letter != '\n')
            text += *letter;
        inside = inside && *letter != '}';
    }
    return text;
}

void readText(AVCodecContext& decoder, AVPacket& packet, AVRational base, DescribedStream& stream) {
    AVSubtitle subtitle = {};
    int got = 0;
    if (avcodec_decode_subtitle2(&decoder, &subtitle, &got, &packet) < 0)
        throw std::runtime_error("subtitles cannot be decoded");
    for (unsigned index = 0; got && index < subtitle.num_rects; ++index) {
        const double start = static_cast<double>(packet.pts) * av_q2d(base);
        const std::string text = textOf(subtitle.rects[index]->ass);
        if (!text.empty())
            stream.texts.push_back({start, start + static_cast<double>(packet.duration) * av_q2d(base), text});
    }
    if (got)
        avsubtitle_free(&subtitle);
}

/// How far it stands behind the latest of those before it, which it may be.
double lateness(const AVPacket& packet, AVRational base, double& latest) {
    if (packet.dts == AV_NOPTS_VALUE)
        return 0;
    const double time = static_cast<double>(packet.dts) * av_q2d(base);
    latest = std::max(latest, time);
    return latest - time;
}

/// Returns the disorder of the packets.
double readTexts(AVFormatContext& context, std::vector<DescribedStream>& streams) {
    double disorder = 0, latest = 0;
    std::map<int, Decoder> decoders;
    for (unsigned index = 0; index < context.nb_streams; ++index)
        if (streams[index].kind == "subtitle")
            decoders.emplace(static_cast<int>(index), decoderOf(*context.streams[index]));
    AVPacket* packet = av_packet_alloc();
    while (av_read_frame(&context, packet) >= 0) {
        const int index = packet->stream_index;
        disorder = std::max(disorder, lateness(*packet, context.streams[index]->time_base, latest));
        if (decoders.count(index) > 0)
            readText(*decoders.at(index), *packet, context.streams[index]->time_base,
                     streams[static_cast<std::size_t>(index)]);
        av_packet_unref(packet);
    }
    av_packet_free(&packet);
    return disorder;
}

std::string spanText(const std::string& name, double start, double end) {
    char times[64];
    std::snprintf(times, sizeof times, " %.2f-%.2f", start, end);
    return name + times;
}

} // namespace

std::vector<DescribedStream> DescribedFile::all(const std::string& kind) const {
    std::vector<DescribedStream> found;
    for (const DescribedStream& stream : streams)
        if (stream.kind == kind)
            found.push_back(stream);
    return found;
}

std::string DescribedFile::chapterText() const {
    std::string text;
    for (const DescribedChapter& chapter : chapters)
        text += (text.empty() ? "" : ", ") + spanText(chapter.title, chapter.start, chapter.end);
    return text;
}

std::string DescribedFile::subtitleText(std::size_t number) const {
    const std::vector<DescribedStream> found = all("subtitle");
    std::string text;
    if (number < found.size())
        for (const DescribedText& shown : found[number].texts)
            text += (text.empty() ? "" : ", ") + spanText(shown.text, shown.start, shown.end);
    return text;
}

DescribedFile describe(const std::string& path) {
    AVFormatContext* opened = nullptr;
    if (avformat_open_input(&opened, path.c_str(), nullptr, nullptr) < 0)
        throw std::runtime_error("cannot open " + path);
    const std::unique_ptr<AVFormatContext, CloseInput> context(opened);
    if (avformat_find_stream_info(opened, nullptr) < 0)
        throw std::runtime_error("cannot read " + path);
    DescribedFile file;
    file.tags = tagsOf(context->metadata);
    for (unsigned index = 0; index < context->nb_chapters; ++index) {
        const AVChapter& chapter = *context->chapters[index];
        const auto tags = tagsOf(chapter.metadata);
        file.chapters.push_back({static_cast<double>(chapter.start) * av_q2d(chapter.time_base),
                                 static_cast<double>(chapter.end) * av_q2d(chapter.time_base),
                                 tags.count("title") > 0 ? tags.at("title") : std::string()});
    }
    for (unsigned index = 0; index < context->nb_streams; ++index) {
        const AVStream& stream = *context->streams[index];
        file.streams.push_back({kindOf(stream),
                                avcodec_get_name(stream.codecpar->codec_id),
                                tagsOf(stream.metadata),
                                stream.disposition,
                                {},
                                stream.attached_pic.size});
    }
    file.disorder = readTexts(*context, file.streams);
    return file;
}

} // namespace TestMedia
