// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Mux/CoverWriter.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Mux/ProgrammeWriter.h"
#include <cstring>
#include <new>
#include <vector>

extern "C" {
#include <libavutil/base64.h>
#include <libavutil/mem.h>
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

using Conf::Container;
using Conf::ProgrammeInfo;
using Proc::TranscodingError;

namespace {

constexpr const char* PNG = "image/png";

bool HasPictures(const AVFormatContext& context) {
    for (unsigned index = 0; index < context.nb_streams; ++index)
        if (context.streams[index]->codecpar->codec_type == AVMEDIA_TYPE_VIDEO)
            return true;
    return false;
}

void Set(AVStream& stream, const char* key, const char* value) {
    Check(av_dict_set(&stream.metadata, key, value, 0), TranscodingError::OutOfMemory, "metadata");
}

/// Matroska has it as a file of its own within the file.
void Attach(AVStream& stream, const ProgrammeInfo::Cover& cover) {
    AVCodecParameters& parameters = *stream.codecpar;
    parameters.codec_type = AVMEDIA_TYPE_ATTACHMENT;
    const std::size_t size = cover.bytes.size();
    parameters.extradata = static_cast<std::uint8_t*>(Allocated(av_mallocz(size + AV_INPUT_BUFFER_PADDING_SIZE)));
    parameters.extradata_size = static_cast<int>(size);
    std::memcpy(parameters.extradata, cover.bytes.data(), size);
    Set(stream, "mimetype", cover.mimeType.c_str());
    Set(stream, "filename", cover.mimeType == PNG ? "cover.png" : "cover.jpg");
}

/// A number of 32 bits, the highest first.
void Append(std::string& block, std::size_t number) {
    for (int shift = 24; shift >= 0; shift -= 8)
        block += static_cast<char>(number >> shift & 0xFF);
}

/// Ogg has it as a tag: what FLAC has as a block of its header (RFC 9639, 8.8), in base 64.
void Tag(AVFormatContext& context, const ProgrammeInfo::Cover& cover) {
    constexpr std::size_t FRONT = 3, UNKNOWN = 0;
    const AVPixFmtDescriptor* const pixels = av_pix_fmt_desc_get(av_get_pix_fmt(cover.pixelFormat.c_str()));
    std::string block;
    Append(block, FRONT);
    Append(block, cover.mimeType.size());
    block += cover.mimeType;
    Append(block, 0); // without a description
    Append(block, static_cast<std::size_t>(cover.width));
    Append(block, static_cast<std::size_t>(cover.height));
    Append(block, pixels ? static_cast<std::size_t>(av_get_bits_per_pixel(pixels)) : UNKNOWN);
    Append(block, 0); // no palette
    Append(block, cover.bytes.size());
    block += cover.bytes;
    std::vector<char> text(AV_BASE64_SIZE(block.size()));
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(block.data());
    if (!av_base64_encode(text.data(), static_cast<int>(text.size()), bytes, static_cast<int>(block.size())))
        throw std::bad_alloc();
    Check(av_dict_set(&context.metadata, "METADATA_BLOCK_PICTURE", text.data(), 0), TranscodingError::OutOfMemory,
          "metadata");
}

} // namespace

int AddCover(AVFormatContext& context, const ProgrammeInfo::Cover& cover, const Container& container) {
    if (cover.bytes.empty() || !container.cover || HasPictures(context))
        return -1;
    if (IsOgg(container)) {
        Tag(context, cover);
        return -1;
    }
    AVStream* const stream = Allocated(avformat_new_stream(&context, nullptr));
    AVCodecParameters& parameters = *stream->codecpar;
    const bool isPng = cover.mimeType == PNG;
    parameters.codec_id = isPng ? AV_CODEC_ID_PNG : AV_CODEC_ID_MJPEG;
    if (container.family == Container::Family::Matroska) {
        Attach(*stream, cover);
        return -1;
    }
    const AVPixelFormat told = av_get_pix_fmt(cover.pixelFormat.c_str());
    parameters.codec_type = AVMEDIA_TYPE_VIDEO;
    parameters.width = cover.width;
    parameters.height = cover.height;
    parameters.format = told != AV_PIX_FMT_NONE ? told : isPng ? AV_PIX_FMT_RGB24 : AV_PIX_FMT_YUVJ420P;
    stream->disposition = AV_DISPOSITION_ATTACHED_PIC;
    return stream->index;
}

PacketHandle MakeCoverPacket(const ProgrammeInfo::Cover& cover, int track) {
    PacketHandle packet = MakePacket();
    Check(av_new_packet(packet.get(), static_cast<int>(cover.bytes.size())), TranscodingError::OutOfMemory, "a cover");
    std::memcpy(packet->data, cover.bytes.data(), cover.bytes.size());
    packet->stream_index = track;
    packet->pts = packet->dts = 0;
    packet->flags |= AV_PKT_FLAG_KEY;
    return packet;
}

} // namespace Kestra::FF
