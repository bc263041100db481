// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/streams/DecodedFile.h"

#include <cmath>
#include <stdexcept>
#include <utility>

namespace Fakes {

using namespace Kestra::FF;

namespace {

void Require(int result, const std::string& what) {
    if (result < 0) {
        char text[AV_ERROR_MAX_STRING_SIZE] = {};
        av_strerror(result, text, sizeof text);
        throw std::runtime_error(what + ": " + text);
    }
}

float SampleAt(const AVFrame& frame, int channel, int index) {
    const auto format = static_cast<AVSampleFormat>(frame.format);
    const bool planar = av_sample_fmt_is_planar(format) != 0;
    const int at = planar ? index : index * frame.ch_layout.nb_channels + channel;
    const std::uint8_t* plane = frame.extended_data[planar ? channel : 0];
    switch (av_get_packed_sample_fmt(format)) {
    case AV_SAMPLE_FMT_S16:
        return static_cast<float>(reinterpret_cast<const std::int16_t*>(plane)[at]) / 32768.0F;
    case AV_SAMPLE_FMT_S32:
        return static_cast<float>(reinterpret_cast<const std::int32_t*>(plane)[at]) / 2147483648.0F;
    case AV_SAMPLE_FMT_FLT:
        return reinterpret_cast<const float*>(plane)[at];
    default:
        throw std::runtime_error("a sample format that this test does not read");
    }
}

class TrackDecoder {
public:
    TrackDecoder(const AVStream& stream, DecodedTrack& track)
        : track(track) {
        const AVCodec* codec = avcodec_find_decoder(stream.codecpar->codec_id);
        if (!codec)
            throw std::runtime_error("no decoder");
        context = MakeCodecContext(codec);
        Require(avcodec_parameters_to_context(context.get(), stream.codecpar), "parameters");
        context->pkt_timebase = stream.time_base;
        Require(avcodec_open2(context.get(), codec, nullptr), "decoder");
        if (stream.start_time != AV_NOPTS_VALUE && stream.start_time > 0 && stream.codecpar->sample_rate > 0)
            offset = static_cast<double>(stream.start_time) * av_q2d(stream.time_base) * stream.codecpar->sample_rate;
    }

    void Decode(const AVPacket* packet) {
        Require(avcodec_send_packet(context.get(), packet), "decoding");
        for (;;) {
            FrameHandle frame = MakeFrame();
            const int result = avcodec_receive_frame(context.get(), frame.get());
            if (result == AVERROR(EAGAIN) || result == AVERROR_EOF)
                return;
            Require(result, "decoding");
            Take(std::move(frame));
        }
    }

private:
    void Take(FrameHandle frame) {
        if (track.parameters->codec_type == AVMEDIA_TYPE_VIDEO)
            track.pictures.push_back(std::move(frame));
        else
            Append(*frame);
    }

    void Append(const AVFrame& frame) {
        const auto channels = static_cast<std::size_t>(frame.ch_layout.nb_channels);
        track.samples.resize(channels);
        std::int64_t place = static_cast<std::int64_t>(track.samples[0].size());
        if (frame.pts != AV_NOPTS_VALUE) {
            const double exact = static_cast<double>(frame.pts) * av_q2d(track.timeBase) * frame.sample_rate - offset;
            // Times of a coarse time base only tell where sound begins; from there on it runs on.
            const double tolerance = std::max(2.0, av_q2d(track.timeBase) * frame.sample_rate);
            // What ends before time 0 only settles the decoder.
            if (exact + frame.nb_samples <= tolerance)
                return;
            if (std::abs(exact - static_cast<double>(next)) > tolerance)
                next = std::llround(exact);
            place = next;
        }
        for (std::size_t channel = 0; channel < channels; ++channel) {
            auto& samples = track.samples[channel];
            for (int index = 0; index < frame.nb_samples; ++index) {
                if (place + index < 0)
                    continue;
                const auto at = static_cast<std::size_t>(place + index);
                if (samples.size() <= at)
                    samples.resize(at + 1, 0.0F);
                samples[at] = SampleAt(frame, static_cast<int>(channel), index);
            }
        }
        next = place + frame.nb_samples;
    }

    DecodedTrack& track;
    CodecContextHandle context;
    std::int64_t next = 0;
    double offset = 0; ///< samples before which the file has nothing to be heard
};

InputContextHandle Open(const std::string& path) {
    AVFormatContext* opened = nullptr;
    Require(avformat_open_input(&opened, path.c_str(), nullptr, nullptr), path);
    InputContextHandle input(opened);
    Require(avformat_find_stream_info(opened, nullptr), path);
    return input;
}

const DecodedTrack& Find(const std::vector<DecodedTrack>& tracks, AVMediaType type) {
    for (const DecodedTrack& track : tracks)
        if (track.parameters->codec_type == type)
            return track;
    throw std::runtime_error("no such track");
}

} // namespace

const DecodedTrack& DecodedFile::Video() const {
    return Find(tracks, AVMEDIA_TYPE_VIDEO);
}
const DecodedTrack& DecodedFile::Audio() const {
    return Find(tracks, AVMEDIA_TYPE_AUDIO);
}

DecodedFile Decode(const std::string& path) {
    const InputContextHandle input = Open(path);
    DecodedFile file;
    file.seconds = static_cast<double>(input->duration) / AV_TIME_BASE;
    if (const AVDictionaryEntry* tag = av_dict_get(input->metadata, "encoder", nullptr, 0))
        file.encoder = tag->value;
    for (unsigned index = 0; index < input->nb_streams; ++index) {
        const AVStream& stream = *input->streams[index];
        DecodedTrack track;
        track.parameters = MakeCodecParameters();
        Require(avcodec_parameters_copy(track.parameters.get(), stream.codecpar), "parameters");
        track.timeBase = stream.time_base;
        track.frameRate = stream.r_frame_rate;
        track.duration = stream.duration;
        file.tracks.push_back(std::move(track));
    }
    std::vector<TrackDecoder> decoders;
    for (unsigned index = 0; index < input->nb_streams; ++index)
        decoders.emplace_back(*input->streams[index], file.tracks[index]);
    const PacketHandle packet = MakePacket();
    int result = 0;
    while ((result = av_read_frame(input.get(), packet.get())) >= 0) {
        const auto index = static_cast<std::size_t>(packet->stream_index);
        ++file.tracks[index].packets;
        decoders[index].Decode(packet.get());
        av_packet_unref(packet.get());
    }
    if (result != AVERROR_EOF)
        Require(result, "reading");
    for (TrackDecoder& decoder : decoders)
        decoder.Decode(nullptr);
    return file;
}

} // namespace Fakes
