// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/StreamClaims.h"

#include "Kestra/FF/Av/Error.h"
#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

extern "C" {
#include <libavutil/imgutils.h>
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

namespace {

// Resampling takes memory by the ratio of the rates. The slowest recorders take 4000 samples a second, the fastest
// 22.6 million bits, which are read as 2.8 million bytes.
constexpr int LOWEST_SAMPLE_RATE = 1000;
constexpr int HIGHEST_SAMPLE_RATE = 4'000'000;
// Twice what the audio library can mix, and more than any recorder writes.
constexpr int MOST_CHANNELS = 128;

// The most spacious formats that video comes in: four samples of 16 bits.
constexpr std::int64_t BYTES_OF_A_PIXEL = 8;

std::int64_t PictureBytes(AVPixelFormat format, std::int64_t width, std::int64_t height) noexcept {
    const AVPixFmtDescriptor* description = av_pix_fmt_desc_get(format);
    const std::int64_t bits = description ? av_get_padded_bits_per_pixel(description) : 8;
    return width * height * (bits > 0 ? bits : 8) / 8;
}

std::string VideoExcess(AVPixelFormat format, int width, int height, const Proc::MediaLimits& limits) {
    const std::int64_t bytes = PictureBytes(format, width, height);
    if (width <= 0 || height <= 0 || bytes <= limits.pictureBytes)
        return {};
    const char* name = av_get_pix_fmt_name(format);
    return "its picture of " + std::to_string(width) + 'x' + std::to_string(height) +
           (name ? std::string(" in ") + name : std::string()) + " takes " + std::to_string(bytes >> 20) +
           " MiB of memory, and the limit is " + std::to_string(limits.pictureBytes >> 20);
}

std::string AudioExcess(const AVCodecParameters& audio) {
    if (audio.sample_rate > 0 && (audio.sample_rate < LOWEST_SAMPLE_RATE || audio.sample_rate > HIGHEST_SAMPLE_RATE))
        return "it claims " + std::to_string(audio.sample_rate) + " samples of sound a second";
    if (audio.ch_layout.nb_channels > MOST_CHANNELS)
        return "it claims " + std::to_string(audio.ch_layout.nb_channels) + " channels of sound";
    return {};
}

} // namespace

std::string ExcessOf(const AVStream& stream, const Proc::MediaLimits& limits) {
    const AVCodecParameters& parameters = *stream.codecpar;
    // How long it takes to draw is for whoever wrote the drawing to say.
    if (parameters.codec_id == AV_CODEC_ID_SVG)
        return "it is a drawing (SVG), not a picture; it has to be made one first";
    if (parameters.codec_type == AVMEDIA_TYPE_AUDIO)
        return AudioExcess(parameters);
    const bool decoded =
        parameters.codec_type == AVMEDIA_TYPE_VIDEO && !(stream.disposition & AV_DISPOSITION_ATTACHED_PIC);
    return decoded
               ? VideoExcess(static_cast<AVPixelFormat>(parameters.format), parameters.width, parameters.height, limits)
               : std::string();
}

std::string ExcessOf(const AVFrame& frame, const Proc::MediaLimits& limits) {
    if (frame.width > 0)
        return VideoExcess(static_cast<AVPixelFormat>(frame.format), frame.width, frame.height, limits);
    return FrameBytes(frame) > limits.pictureBytes ? "a block of its sound takes more memory than the limit" : "";
}

namespace {

// Whether the picture could be too large in the most spacious of formats.
bool MayExceed(const AVCodecParameters& parameters, const Proc::MediaLimits& limits) {
    return std::int64_t{parameters.width} * parameters.height > limits.pictureBytes / BYTES_OF_A_PIXEL;
}

// What headers say of such pictures: the search for streams drops what it cannot confirm by decoding.
std::vector<CodecParametersHandle> KeepLarge(const AVFormatContext& context, const Proc::MediaLimits& limits) {
    std::vector<CodecParametersHandle> kept(context.nb_streams);
    for (unsigned index = 0; index < context.nb_streams; ++index) {
        const AVCodecParameters& parameters = *context.streams[index]->codecpar;
        if (!MayExceed(parameters, limits))
            continue;
        kept[index] = MakeCodecParameters();
        Check(avcodec_parameters_copy(kept[index].get(), &parameters), Proc::TranscodingError::OutOfMemory,
              "Copying the description of a stream failed");
    }
    return kept;
}

} // namespace

int AnalyseStreams(AVFormatContext& context, const Proc::MediaLimits& limits) {
    // A higher one is no value to libav, which then opens no decoder at all and knows of no packet how long it lasts.
    constexpr std::int64_t mostPixels = std::numeric_limits<int>::max();
    const std::string pixels =
        std::to_string(std::clamp<std::int64_t>(limits.pictureBytes / BYTES_OF_A_PIXEL, 1, mostPixels));
    const std::vector<CodecParametersHandle> large = KeepLarge(context, limits);
    std::vector<Dictionary> options(context.nb_streams);
    // libav takes an array of its own pointers, and leaves in each what it did not use.
    std::vector<AVDictionary*> given;
    given.reserve(options.size());
    for (Dictionary& option : options) {
        option.Set("max_pixels", pixels.c_str());
        // No decoder is of that name, so none is opened.
        if (IsImageFormat(context.iformat->name))
            option.Set("codec_whitelist", "none");
        given.push_back(std::exchange(*option.Address(), nullptr));
    }
    int found = avformat_find_stream_info(&context, given.data());
    for (std::size_t index = 0; index < given.size(); ++index) {
        *options[index].Address() = given[index];
        if (large[index] && context.streams[index]->codecpar->width == 0)
            found = std::min(found, avcodec_parameters_copy(context.streams[index]->codecpar, large[index].get()));
    }
    return found;
}

std::int64_t LargestFrameOf(const AVCodecParameters& parameters) noexcept {
    return std::max<std::int64_t>(std::int64_t{parameters.width} * parameters.height, 0) * BYTES_OF_A_PIXEL;
}

std::int64_t FrameBytes(const AVFrame& frame) noexcept {
    if (frame.width > 0 && frame.height > 0)
        return PictureBytes(static_cast<AVPixelFormat>(frame.format), frame.width, frame.height);
    return std::int64_t{frame.nb_samples} * frame.ch_layout.nb_channels *
           av_get_bytes_per_sample(static_cast<AVSampleFormat>(frame.format));
}

bool IsImageFormat(const char* name) {
    const std::string format(name);
    return format == "image2" || (format.size() > 5 && format.compare(format.size() - 5, 5, "_pipe") == 0);
}

} // namespace Kestra::FF
