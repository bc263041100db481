// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/AnimatedWebP.h"

#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <webp/decode.h>
#include <webp/demux.h>

namespace TestMedia {
namespace {

using Decoder = std::unique_ptr<WebPAnimDecoder, decltype(&WebPAnimDecoderDelete)>;

std::vector<char> bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

WebPData dataOf(const std::vector<char>& bytes) {
    return {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()};
}

/// How the first picture was encoded, by its own words.
std::string formatOf(const WebPDemuxer& demuxer) {
    WebPIterator frame;
    WebPBitstreamFeatures features;
    if (!WebPDemuxGetFrame(&demuxer, 1, &frame))
        throw std::runtime_error("it has no picture");
    const bool readable =
        WebPGetFeatures(frame.fragment.bytes, frame.fragment.size, &features) == VP8_STATUS_OK && frame.complete;
    WebPDemuxReleaseIterator(&frame);
    if (!readable)
        throw std::runtime_error("its first picture is not whole");
    return features.format == 2 ? "bgra" : features.has_alpha ? "yuva420p" : "yuv420p";
}

} // namespace

bool AnimatedWebP::is(const std::string& path) {
    constexpr std::size_t HEAD = 64;
    std::vector<char> bytes(HEAD);
    std::ifstream file(path, std::ios::binary);
    file.read(bytes.data(), HEAD);
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    WebPBitstreamFeatures features;
    const WebPData data = dataOf(bytes);
    return WebPGetFeatures(data.bytes, data.size, &features) == VP8_STATUS_OK && features.has_animation;
}

AnimatedWebP AnimatedWebP::read(const std::string& path) {
    const std::vector<char> bytes = bytesOf(path);
    const WebPData data = dataOf(bytes);
    const Decoder decoder(WebPAnimDecoderNew(&data, nullptr), &WebPAnimDecoderDelete);
    WebPAnimInfo info;
    if (!decoder || !WebPAnimDecoderGetInfo(decoder.get(), &info))
        throw std::runtime_error(path + " is no animated WebP file that is whole");
    const WebPDemuxer& demuxer = *WebPAnimDecoderGetDemuxer(decoder.get());
    AnimatedWebP animation;
    animation.width = static_cast<int>(info.canvas_width);
    animation.height = static_cast<int>(info.canvas_height);
    animation.plays = static_cast<int>(info.loop_count);
    animation.transparent = (WebPDemuxGetI(&demuxer, WEBP_FF_FORMAT_FLAGS) & ALPHA_FLAG) != 0;
    animation.pixelFormat = formatOf(demuxer);
    const std::size_t size = std::size_t{4} * info.canvas_width * info.canvas_height;
    int start = 0;
    while (WebPAnimDecoderHasMoreFrames(decoder.get())) {
        std::uint8_t* pixels = nullptr;
        int end = 0;
        if (!WebPAnimDecoderGetNext(decoder.get(), &pixels, &end))
            throw std::runtime_error(path + " cannot be decoded to its end");
        animation.pictures.push_back({start, end, animation.width, {pixels, pixels + size}});
        start = end;
    }
    if (animation.pictures.size() != info.frame_count)
        throw std::runtime_error(path + " shows another number of pictures than it has");
    return animation;
}

} // namespace TestMedia
