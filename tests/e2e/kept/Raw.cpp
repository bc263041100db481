// SPDX-License-Identifier: GPL-3.0-or-later
#include "Raw.h"

#include "support/Starter.h"
#include <QCryptographicHash>
#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <vector>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavfilter/avfilter.h>
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
#include <libavformat/avformat.h>
#include <libavutil/imgutils.h>
#include <libavutil/pixdesc.h>
}

namespace TestKept {

namespace {

struct Free {
    void operator()(AVFormatContext* input) const { avformat_close_input(&input); }
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
    void operator()(AVFilterGraph* graph) const { avfilter_graph_free(&graph); }
};
template <class Object>
using Owned = std::unique_ptr<Object, Free>;

int must(int status, const std::string& what) {
    if (status < 0)
        throw std::runtime_error(what + ": error " + std::to_string(status));
    return status;
}

using TakeFrame = std::function<void(const AVFrame&)>;

void decode(AVCodecContext& decoder, const AVPacket* packet, const std::string& path, const TakeFrame& take) {
    must(avcodec_send_packet(&decoder, packet), path);
    const Owned<AVFrame> frame(av_frame_alloc());
    for (;;) {
        const int status = avcodec_receive_frame(&decoder, frame.get());
        if (status == AVERROR(EAGAIN) || status == AVERROR_EOF)
            return;
        must(status, path);
        if (frame->decode_error_flags)
            throw std::runtime_error(path + " is damaged");
        take(*frame);
    }
}

/// All frames of the first stream of that kind.
void decode(const std::string& path, AVMediaType kind, const TakeFrame& take) {
    AVFormatContext* opened = nullptr;
    must(avformat_open_input(&opened, path.c_str(), nullptr, nullptr), path);
    const Owned<AVFormatContext> input(opened);
    must(avformat_find_stream_info(opened, nullptr), path);
    const AVCodec* codec = nullptr;
    const int stream = must(av_find_best_stream(opened, kind, -1, -1, &codec, 0), path);
    const Owned<AVCodecContext> decoder(avcodec_alloc_context3(codec));
    must(avcodec_parameters_to_context(decoder.get(), opened->streams[stream]->codecpar), path);
    decoder->pkt_timebase = opened->streams[stream]->time_base;
    must(avcodec_open2(decoder.get(), codec, nullptr), path);
    const Owned<AVPacket> packet(av_packet_alloc());
    int status = 0;
    while ((status = av_read_frame(opened, packet.get())) >= 0) {
        if (packet->stream_index == stream)
            decode(*decoder, packet.get(), path, take);
        av_packet_unref(packet.get());
    }
    if (status != AVERROR_EOF)
        must(status, path);
    decode(*decoder, nullptr, path, take);
}

/// Pictures in a format, by the scaler's most careful way where they have another one.
class Converter {
public:
    Converter(const AVFrame& first, const std::string& pixelFormat)
        : graph(avfilter_graph_alloc()) {
        const std::string shape = "video_size=" + std::to_string(first.width) + "x" + std::to_string(first.height) +
                                  ":pix_fmt=" + std::to_string(first.format) + ":time_base=1/25";
        source = added("buffer", shape);
        AVFilterContext* const scale = added("scale", "flags=accurate_rnd+full_chroma_int+full_chroma_inp+bitexact");
        AVFilterContext* const format = added("format", pixelFormat);
        sink = added("buffersink", "");
        must(avfilter_link(source, 0, scale, 0), "link");
        must(avfilter_link(scale, 0, format, 0), "link");
        must(avfilter_link(format, 0, sink, 0), "link");
        must(avfilter_graph_config(graph.get(), nullptr), "conversion to " + pixelFormat);
    }

    QByteArray convert(const AVFrame& frame) {
        const Owned<AVFrame> given(av_frame_clone(&frame)), converted(av_frame_alloc());
        must(av_buffersrc_add_frame(source, given.get()), "conversion");
        must(av_buffersink_get_frame(sink, converted.get()), "conversion");
        const auto format = static_cast<AVPixelFormat>(converted->format);
        QByteArray bytes(must(av_image_get_buffer_size(format, converted->width, converted->height, 1), "size"), '\0');
        must(av_image_copy_to_buffer(reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size(), converted->data,
                                     converted->linesize, format, converted->width, converted->height, 1),
             "copy");
        return bytes;
    }

private:
    AVFilterContext* added(const char* filter, const std::string& arguments) {
        AVFilterContext* made = nullptr;
        must(avfilter_graph_create_filter(&made, avfilter_get_by_name(filter), nullptr, arguments.c_str(), nullptr,
                                          graph.get()),
             filter);
        return made;
    }

    const Owned<AVFilterGraph> graph;
    AVFilterContext* source = nullptr;
    AVFilterContext* sink = nullptr;
};

std::vector<QByteArray> picturesOf(const std::string& path, const std::string& pixelFormat) {
    std::vector<QByteArray> all;
    std::unique_ptr<Converter> converter;
    decode(path, AVMEDIA_TYPE_VIDEO, [&](const AVFrame& frame) {
        if (!converter)
            converter = std::make_unique<Converter>(frame, pixelFormat);
        all.push_back(converter->convert(frame));
    });
    return all;
}

/// A number that no two samples of one format share; full scale is 1 in all of them.
double sampleOf(const AVFrame& frame, int channel, int index) {
    const auto format = static_cast<AVSampleFormat>(frame.format);
    const bool planar = av_sample_fmt_is_planar(format) != 0;
    const int at = planar ? index : index * frame.ch_layout.nb_channels + channel;
    const std::uint8_t* data = frame.extended_data[planar ? channel : 0];
    switch (av_get_packed_sample_fmt(format)) {
    case AV_SAMPLE_FMT_U8:
        return (data[at] - 128) / 128.0;
    case AV_SAMPLE_FMT_S16:
        return reinterpret_cast<const std::int16_t*>(data)[at] / 32768.0;
    case AV_SAMPLE_FMT_S32:
        return reinterpret_cast<const std::int32_t*>(data)[at] / 2147483648.0;
    case AV_SAMPLE_FMT_FLT:
        return reinterpret_cast<const float*>(data)[at];
    case AV_SAMPLE_FMT_DBL:
        return reinterpret_cast<const double*>(data)[at];
    default:
        throw std::runtime_error("a sample format that this test does not read");
    }
}

} // namespace

QStringList pictures(const std::string& path, const std::string& pixelFormat) {
    QStringList sums;
    for (const QByteArray& picture : picturesOf(path, pixelFormat))
        sums += QString::fromLatin1(QCryptographicHash::hash(picture, QCryptographicHash::Md5).toHex());
    return sums;
}

QByteArray bytes(const std::string& path, const std::string& pixelFormat) {
    QByteArray all;
    for (const QByteArray& picture : picturesOf(path, pixelFormat))
        all += picture;
    return all;
}

QString sound(const std::string& path) {
    QCryptographicHash sum(QCryptographicHash::Md5);
    int channels = 0;
    int rate = 0;
    decode(path, AVMEDIA_TYPE_AUDIO, [&](const AVFrame& frame) {
        channels = frame.ch_layout.nb_channels;
        rate = frame.sample_rate;
        for (int index = 0; index < frame.nb_samples; ++index)
            for (int channel = 0; channel < channels; ++channel) {
                const double sample = sampleOf(frame, channel, index);
                sum.addData(reinterpret_cast<const char*>(&sample), sizeof sample);
            }
    });
    if (channels == 0)
        throw std::runtime_error(path + " has no sound");
    return QStringLiteral("%1 Hz, %2 channels, ").arg(rate).arg(channels) + QString::fromLatin1(sum.result().toHex());
}

QString told(const std::string& path, const std::string& kind, const std::string& entries) {
    static TestSupport::Starter ffprobe("ffprobe");
    const auto ended = ffprobe.run(
        {"-v", "error", "-select_streams", kind + ":0", "-show_entries", "stream=" + entries, "-of", "csv=p=0", path});
    if (ended->status != 0 || !ended->errors.empty())
        throw std::runtime_error(path + ": " + ended->errors);
    return QString::fromStdString(ended->output).trimmed();
}

} // namespace TestKept
