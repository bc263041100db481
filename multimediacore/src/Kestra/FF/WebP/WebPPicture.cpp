// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/WebP/WebPPicture.h"

#include "Kestra/FF/WebP/WebPLayout.h"
#include <cstring>
#include <new>
#include <webp/decode.h>

extern "C" {
#include <libavutil/intreadwrite.h>
}

namespace Kestra::FF {

namespace {

bool IsCalled(const std::uint8_t* chunk, const char* name) {
    return std::memcmp(chunk, name, WebPLayout::NAME) == 0;
}

/// With head and padding; 0 for one that does not fit.
std::size_t SizeOfChunk(const std::uint8_t* bytes, std::size_t size) {
    if (size < WebPLayout::CHUNK_HEAD)
        return 0;
    const std::int64_t whole = WebPLayout::CHUNK_HEAD + WebPLayout::Even(AV_RL32(bytes + WebPLayout::NAME));
    return whole <= static_cast<std::int64_t>(size) ? static_cast<std::size_t>(whole) : 0;
}

WebPPicture Faulty(const std::string& fault) {
    WebPPicture picture;
    picture.fault = fault;
    return picture;
}

/// Whether the chunks are those of a picture and nothing else.
bool IsPicture(const std::uint8_t* bytes, std::size_t size) {
    std::size_t first = SizeOfChunk(bytes, size);
    if (first == 0)
        return false;
    if (IsCalled(bytes, "VP8L"))
        return first == size;
    if (IsCalled(bytes, "ALPH")) {
        bytes += first;
        size -= first;
        first = SizeOfChunk(bytes, size);
    }
    return first != 0 && first == size && IsCalled(bytes, "VP8 ");
}

const char* Words(VP8StatusCode status) {
    switch (status) {
    case VP8_STATUS_NOT_ENOUGH_DATA:
        return "it ends early";
    case VP8_STATUS_BITSTREAM_ERROR:
        return "it is damaged";
    default:
        return "it is of a kind that is not decoded";
    }
}

} // namespace

WebPPicture WebPPicture::InChunks(const std::uint8_t* bytes, std::size_t size) {
    WebPBitstreamFeatures features;
    if (!IsPicture(bytes, size))
        return Faulty("its parts are not those of a picture");
    if (const VP8StatusCode status = WebPGetFeatures(bytes, size, &features); status != VP8_STATUS_OK)
        return Faulty(Words(status));
    WebPPicture picture;
    picture.bytes = bytes;
    picture.size = size;
    picture.width = features.width;
    picture.height = features.height;
    picture.transparent = features.has_alpha != 0;
    return picture;
}

WebPPicture WebPPicture::InFile(const std::uint8_t* bytes, std::size_t size) {
    constexpr std::size_t HEAD = WebPLayout::RIFF_HEAD;
    if (size < HEAD || !IsCalled(bytes, "RIFF") || !IsCalled(bytes + WebPLayout::CHUNK_HEAD, "WEBP"))
        return Faulty("it does not begin as a WebP file");
    bytes += HEAD;
    size -= HEAD;
    const std::size_t first = SizeOfChunk(bytes, size);
    const std::size_t skipped = first > 0 && IsCalled(bytes, "VP8X") ? first : 0;
    return InChunks(bytes + skipped, size - skipped);
}

std::string WebPPicture::FaultOfPixels() const {
    WebPDecoderConfig config;
    if (!WebPInitDecoderConfig(&config))
        return "libwebp is of another version than the one that this was built with";
    config.output.colorspace = MODE_YUVA; // nothing looks at it, and it takes the least room
    const VP8StatusCode status = WebPDecode(bytes, size, &config);
    WebPFreeDecBuffer(&config.output);
    if (status == VP8_STATUS_OUT_OF_MEMORY)
        throw std::bad_alloc();
    return status == VP8_STATUS_OK ? std::string() : Words(status);
}

} // namespace Kestra::FF
