// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/MediaProbe.h"

#include "support/AnimatedWebP.h"
#include "support/FlashBeep.h"
#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <stdexcept>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/pixdesc.h>
}

namespace TestMedia {
namespace {

struct CloseInput {
    void operator()(AVFormatContext* context) const { avformat_close_input(&context); }
};
struct FreeContext {
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
};
struct FreeFrame {
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
};
struct FreePacket {
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};
using Input = std::unique_ptr<AVFormatContext, CloseInput>;
using Context = std::unique_ptr<AVCodecContext, FreeContext>;
using Frame = std::unique_ptr<AVFrame, FreeFrame>;
using Packet = std::unique_ptr<AVPacket, FreePacket>;

Input openInput(const std::string& path) {
    AVFormatContext* context = nullptr;
    if (avformat_open_input(&context, path.c_str(), nullptr, nullptr) < 0)
        throw std::runtime_error("cannot open " + path);
    Input input(context);
    if (avformat_find_stream_info(context, nullptr) < 0)
        throw std::runtime_error("cannot read " + path);
    return input;
}

Context openDecoder(const AVStream& stream) {
    const AVCodec* codec = avcodec_find_decoder(stream.codecpar->codec_id);
    Context context(codec ? avcodec_alloc_context3(codec) : nullptr);
    if (!context || avcodec_parameters_to_context(context.get(), stream.codecpar) < 0)
        throw std::runtime_error("no decoder");
    context->pkt_timebase = stream.time_base;
    if (avcodec_open2(context.get(), codec, nullptr) < 0)
        throw std::runtime_error("the decoder does not open");
    return context;
}

boost::rational<long long> rational(AVRational value) {
    return value.den ? boost::rational<long long>(value.num, value.den) : boost::rational<long long>(0);
}

double seconds(std::int64_t time, AVRational base) {
    return time == AV_NOPTS_VALUE ? 0 : static_cast<double>(time) * av_q2d(base);
}

double bitsAbove8(const AVPixFmtDescriptor& descriptor) {
    return std::pow(2.0, descriptor.comp[0].depth - 8);
}

/// Calls `use` with every value of the first plane.
template <class Use>
void forLuma(const AVFrame& frame, Use use) {
    const bool wide = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format))->comp[0].depth > 8;
    for (int y = 0; y < frame.height; ++y) {
        const std::uint8_t* row = frame.data[0] + static_cast<std::ptrdiff_t>(y) * frame.linesize[0];
        for (int x = 0; x < frame.width; ++x)
            use(x, y, wide ? reinterpret_cast<const std::uint16_t*>(row)[x] : row[x]);
    }
}

/// The quarter of a side that lies around its middle.
struct Middle {
    explicit Middle(int side)
        : first((side - side / 4) / 2)
        , end((side + side / 4 + 1) / 2) {}

    int first, end;
};

double middleLuma(const AVFrame& frame) {
    const Middle across(frame.width), down(frame.height);
    double sum = 0;
    const auto add = [&](auto* values) {
        long long row = 0;
        for (int x = across.first; x < across.end; ++x)
            row += values[x];
        sum += static_cast<double>(row);
    };
    const AVPixFmtDescriptor* descriptor = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    for (int y = down.first; y < down.end; ++y) {
        const std::uint8_t* row = frame.data[0] + static_cast<std::ptrdiff_t>(y) * frame.linesize[0];
        if (descriptor->comp[0].depth > 8)
            add(reinterpret_cast<const std::uint16_t*>(row));
        else
            add(row);
    }
    const long long count = static_cast<long long>(across.end - across.first) * (down.end - down.first);
    return sum / bitsAbove8(*descriptor) / static_cast<double>(std::max(1LL, count));
}

/// Raises each level to that of the loudest channel; `value` makes a number of a sample, of which 1 is full scale.
template <class Sample, class Value>
void raise(std::vector<double>& levels, const AVFrame& frame, Value value) {
    const int channels = frame.ch_layout.nb_channels;
    const bool planar = av_sample_fmt_is_planar(static_cast<AVSampleFormat>(frame.format)) != 0;
    const std::ptrdiff_t step = planar ? 1 : channels;
    for (int channel = 0; channel < channels; ++channel) {
        const auto* samples = reinterpret_cast<const Sample*>(frame.extended_data[planar ? channel : 0]);
        samples += planar ? 0 : channel;
        for (double& level : levels) {
            level = std::max(level, std::abs(value(*samples)));
            samples += step;
        }
    }
}

/// Of every sample, in its loudest channel.
std::vector<double> levelsOf(const AVFrame& frame) {
    std::vector<double> levels(static_cast<std::size_t>(frame.nb_samples));
    const auto plain = [](double sample) { return sample; };
    switch (av_get_packed_sample_fmt(static_cast<AVSampleFormat>(frame.format))) {
    case AV_SAMPLE_FMT_U8:
        raise<std::uint8_t>(levels, frame, [](std::uint8_t sample) { return (sample - 128) / 128.0; });
        break;
    case AV_SAMPLE_FMT_S16:
        raise<std::int16_t>(levels, frame, [](std::int16_t sample) { return sample / 32768.0; });
        break;
    case AV_SAMPLE_FMT_S32:
        raise<std::int32_t>(levels, frame, [](std::int32_t sample) { return sample / 2147483648.0; });
        break;
    case AV_SAMPLE_FMT_FLT:
        raise<float>(levels, frame, plain);
        break;
    case AV_SAMPLE_FMT_DBL:
        raise<double>(levels, frame, plain);
        break;
    default:
        throw std::runtime_error("unknown sample format");
    }
    return levels;
}

/// Finds where sound begins.
class OnsetFinder {
public:
    explicit OnsetFinder(ProbedAudio& result)
        : audio(result) {}

    void take(const AVFrame& frame, double time) {
        if (audio.samples == 0)
            audio.start = time;
        const double expected = audio.start + static_cast<double>(audio.samples) / audio.sampleRate;
        audio.gaps += std::abs(time - expected) > 0.0005 ? 1 : 0;
        for (const double level : levelsOf(frame))
            take(level);
    }

private:
    void take(double level) {
        audio.peak = std::max(audio.peak, level);
        if (level > 0.05) {
            // Resamplers and lossy codecs ring before they rise.
            armed = armed || audio.samples - lastLoud > audio.sampleRate / 50;
            lastLoud = audio.samples;
        }
        if (level > 0.3 && armed) {
            audio.onsets.push_back(audio.samples);
            armed = false;
        }
        ++audio.samples;
    }

    ProbedAudio& audio;
    long long lastLoud = std::numeric_limits<int>::min();
    bool armed = false; ///< after silence, before the next onset
};

using TakeFrame = std::function<void(const AVFrame&)>;

/// Decodes one packet (null: the end) into frames; returns how many errors there were.
int decode(AVCodecContext& context, const AVPacket* packet, AVFrame& frame, const TakeFrame& take) {
    int errors = avcodec_send_packet(&context, packet) < 0 ? 1 : 0;
    for (;;) {
        const int status = avcodec_receive_frame(&context, &frame);
        if (status == AVERROR(EAGAIN) || status == AVERROR_EOF)
            return errors;
        if (status < 0)
            return errors + 1;
        errors += frame.decode_error_flags ? 1 : 0;
        take(frame);
        av_frame_unref(&frame);
    }
}

/// The main tracks of a file with their decoders.
class Reader {
public:
    explicit Reader(const std::string& path)
        : input(openInput(path))
        , video(av_find_best_stream(input.get(), AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0))
        , audio(av_find_best_stream(input.get(), AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0)) {
        if (video >= 0)
            videoDecoder = openDecoder(videoStream());
        if (audio >= 0)
            audioDecoder = openDecoder(audioStream());
    }

    bool hasVideo() const { return video >= 0; }
    bool hasAudio() const { return audio >= 0; }
    const AVStream& videoStream() const { return *input->streams[video]; }
    const AVStream& audioStream() const { return *input->streams[audio]; }
    const AVFormatContext& container() const { return *input; }

    /// To the end; returns how many errors there were.
    int read(const TakeFrame& takeVideo, const TakeFrame& takeAudio) {
        const Packet packet(av_packet_alloc());
        const Frame frame(av_frame_alloc());
        int errors = 0;
        int status = 0;
        while ((status = av_read_frame(input.get(), packet.get())) >= 0) {
            if (packet->stream_index == video)
                errors += decode(*videoDecoder, packet.get(), *frame, takeVideo);
            else if (packet->stream_index == audio)
                errors += decode(*audioDecoder, packet.get(), *frame, takeAudio);
            av_packet_unref(packet.get());
        }
        if (videoDecoder)
            errors += decode(*videoDecoder, nullptr, *frame, takeVideo);
        if (audioDecoder)
            errors += decode(*audioDecoder, nullptr, *frame, takeAudio);
        return errors + (status == AVERROR_EOF ? 0 : 1);
    }

private:
    Input input;
    int video;
    int audio;
    Context videoDecoder;
    Context audioDecoder;
};

ProbedVideo describeVideo(const AVStream& stream) {
    const AVCodecParameters& parameters = *stream.codecpar;
    const char* format = av_get_pix_fmt_name(static_cast<AVPixelFormat>(parameters.format));
    ProbedVideo video;
    video.codec = avcodec_get_name(parameters.codec_id);
    video.pixelFormat = format ? format : "";
    video.width = parameters.width;
    video.height = parameters.height;
    video.sampleAspect = rational(parameters.sample_aspect_ratio);
    video.rate = rational(stream.avg_frame_rate);
    video.primaries = parameters.color_primaries;
    video.transfer = parameters.color_trc;
    video.matrix = parameters.color_space;
    video.range = parameters.color_range;
    video.duration = seconds(stream.duration, stream.time_base);
    return video;
}

ProbedAudio describeAudio(const AVStream& stream) {
    const AVCodecParameters& parameters = *stream.codecpar;
    const char* format = av_get_sample_fmt_name(static_cast<AVSampleFormat>(parameters.format));
    ProbedAudio audio;
    audio.codec = avcodec_get_name(parameters.codec_id);
    audio.sampleFormat = format ? format : "";
    audio.sampleRate = parameters.sample_rate;
    audio.channels = parameters.ch_layout.nb_channels;
    audio.duration = seconds(stream.duration, stream.time_base);
    return audio;
}

std::vector<Frame> allPictures(const std::string& path) {
    Reader reader(path);
    std::vector<Frame> frames;
    reader.read([&frames](const AVFrame& frame) { frames.emplace_back(av_frame_clone(&frame)); },
                [](const AVFrame&) {});
    return frames;
}

double psnrOfPictures(const AVFrame& picture, const AVFrame& other) {
    if (picture.width != other.width || picture.height != other.height || picture.format != other.format)
        throw std::runtime_error("pictures of different sizes or formats");
    std::vector<int> values;
    values.reserve(static_cast<std::size_t>(picture.width) * picture.height);
    forLuma(picture, [&values](int, int, int value) { values.push_back(value); });
    double squares = 0;
    std::size_t place = 0;
    forLuma(other, [&](int, int, int value) {
        const double difference = values[place++] - value;
        squares += difference * difference;
    });
    const AVPixFmtDescriptor* descriptor = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(picture.format));
    const double peak = 255 * bitsAbove8(*descriptor);
    const double mean = squares / static_cast<double>(values.size());
    return mean == 0 ? 99 : std::min(99.0, 10 * std::log10(peak * peak / mean));
}

/// Of the middle, as limited range counts it.
double middleLuma(const ShownPicture& picture, int height) {
    const Middle across(picture.width), down(height);
    double sum = 0;
    for (int y = down.first; y < down.end; ++y)
        for (int x = across.first; x < across.end; ++x)
            sum += 0.299 * picture.at(x, y, 0) + 0.587 * picture.at(x, y, 1) + 0.114 * picture.at(x, y, 2);
    const double count = static_cast<double>(across.end - across.first) * (down.end - down.first);
    return 16 + 219 * sum / 255 / std::max(1.0, count);
}

ProbedMedia probeAnimation(const std::string& path) {
    const AnimatedWebP animation = AnimatedWebP::read(path);
    const int milliseconds = animation.pictures.empty() ? 0 : animation.pictures.back().end;
    ProbedMedia media;
    media.container = "webp";
    media.streams = 1;
    media.duration = milliseconds / 1000.0;
    ProbedVideo& video = media.video.emplace();
    video.codec = "webp";
    video.pixelFormat = animation.pixelFormat;
    video.width = animation.width;
    video.height = animation.height;
    video.rate = {static_cast<long long>(1000 * animation.pictures.size()), std::max(milliseconds, 1)};
    video.duration = media.duration;
    for (const ShownPicture& picture : animation.pictures)
        video.frames.push_back({picture.start / 1000.0, middleLuma(picture, animation.height), true});
    return media;
}

} // namespace

ProbedMedia probe(const std::string& path) {
    if (AnimatedWebP::is(path))
        return probeAnimation(path);
    Reader reader(path);
    ProbedMedia media;
    media.container = reader.container().iformat->name;
    media.duration = seconds(reader.container().duration, AVRational{1, AV_TIME_BASE});
    media.streams = static_cast<int>(reader.container().nb_streams);
    if (reader.hasVideo())
        media.video = describeVideo(reader.videoStream());
    if (reader.hasAudio())
        media.audio = describeAudio(reader.audioStream());
    ProbedAudio unused;
    OnsetFinder onsets(media.audio ? *media.audio : unused);
    media.decodeErrors = reader.read(
        [&](const AVFrame& frame) {
            const double time = seconds(frame.best_effort_timestamp, reader.videoStream().time_base);
            media.video->frames.push_back({time, middleLuma(frame), frame.key_frame != 0});
        },
        [&](const AVFrame& frame) {
            onsets.take(frame, seconds(frame.best_effort_timestamp, reader.audioStream().time_base));
        });
    return media;
}

std::vector<double> ProbedMedia::flashes() const {
    constexpr double LIT = (FLASH_LUMA + lumaOfFrame(15)) / 2.0;
    std::vector<double> found;
    bool lit = false;
    if (!video)
        return found;
    for (const ProbedFrame& frame : video->frames) {
        if (frame.luma > LIT && !lit)
            found.push_back(frame.time);
        lit = frame.luma > LIT;
    }
    return found;
}

std::vector<double> ProbedMedia::offsets() const {
    const std::vector<double> lights = flashes();
    std::vector<double> found;
    if (!audio || audio->onsets.size() != lights.size())
        return found;
    for (std::size_t i = 0; i < lights.size(); ++i)
        found.push_back(audio->onsetTime(i) - lights[i]);
    return found;
}

std::vector<int> ProbedMedia::numbers() const {
    std::vector<int> found;
    if (video)
        for (const ProbedFrame& frame : video->frames)
            found.push_back(numberOfLuma(frame.luma));
    return found;
}

double psnr(const std::string& path, const std::string& other) {
    const std::vector<Frame> pictures = allPictures(path);
    const std::vector<Frame> others = allPictures(other);
    if (pictures.empty() || pictures.size() != others.size())
        throw std::runtime_error(path + " and " + other + " have not the same number of pictures");
    double sum = 0;
    for (std::size_t i = 0; i < pictures.size(); ++i)
        sum += psnrOfPictures(*pictures[i], *others[i]);
    return sum / static_cast<double>(pictures.size());
}

} // namespace TestMedia
