// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/PngTexts.h"

#include "Kestra/FF/Av/Error.h"
#include <algorithm>
#include <array>
#include <cstring>

namespace Kestra::FF {

namespace {

constexpr std::size_t SIGNATURE = 8;
constexpr std::size_t AROUND = 12; // length, name and checksum of a piece

std::size_t LengthAt(const std::uint8_t* data) {
    return std::size_t{data[0]} << 24 | std::size_t{data[1]} << 16 | std::size_t{data[2]} << 8 | data[3];
}

bool IsText(const std::uint8_t* piece) {
    constexpr std::array<const char*, 4> names{"tEXt", "zTXt", "iTXt", "iCCP"};
    return std::any_of(names.begin(), names.end(),
                       [piece](const char* name) { return !std::memcmp(piece + 4, name, 4); });
}

// Where the piece behind this one begins.
std::size_t EndOf(const std::uint8_t* data, std::size_t size, std::size_t piece) {
    return std::min(size, piece + LengthAt(data + piece) + AROUND);
}

bool HoldsTexts(const std::uint8_t* data, std::size_t size, std::size_t begin) {
    for (std::size_t piece = begin; piece + AROUND <= size; piece = EndOf(data, size, piece))
        if (IsText(data + piece))
            return true;
    return false;
}

// Moves what stays together; its new size.
std::size_t Compact(std::uint8_t* data, std::size_t size, std::size_t begin) {
    std::size_t kept = begin, piece = begin;
    while (piece + AROUND <= size) {
        const std::size_t end = EndOf(data, size, piece);
        if (!IsText(data + piece)) {
            std::memmove(data + kept, data + piece, end - piece);
            kept += end - piece;
        }
        piece = end;
    }
    std::memmove(data + kept, data + piece, size - piece);
    return kept + size - piece;
}

// Animations come without the signature but in their first picture.
std::size_t BeginOf(const std::uint8_t* data, std::size_t size) {
    return size >= SIGNATURE && !std::memcmp(data, "\x89PNG", 4) ? SIGNATURE : 0;
}

bool IsPng(AVCodecID codec) {
    return codec == AV_CODEC_ID_PNG || codec == AV_CODEC_ID_APNG;
}

} // namespace

void DropPngTexts(AVCodecID codec, AVPacket& packet) {
    if (!IsPng(codec) || packet.size <= 0)
        return;
    const auto size = static_cast<std::size_t>(packet.size);
    const std::size_t begin = BeginOf(packet.data, size);
    if (!HoldsTexts(packet.data, size, begin))
        return;
    Check(av_packet_make_writable(&packet), Proc::TranscodingError::OutOfMemory, "Copying a packet failed");
    av_shrink_packet(&packet, static_cast<int>(Compact(packet.data, size, begin)));
}

void DropPngTexts(AVCodecParameters& parameters) {
    if (!IsPng(parameters.codec_id) || parameters.extradata_size <= 0)
        return;
    const auto size = static_cast<std::size_t>(parameters.extradata_size);
    const std::size_t kept = Compact(parameters.extradata, size, BeginOf(parameters.extradata, size));
    std::memset(parameters.extradata + kept, 0, size - kept);
    parameters.extradata_size = static_cast<int>(kept);
}

} // namespace Kestra::FF
