// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/PictureFile.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <utility>

extern "C" {
#include <libavutil/crc.h>
#include <libavutil/intreadwrite.h>
}

namespace Kestra::FF {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int SRGB_PRIMARIES = 1;
constexpr int SRGB_TRANSFER = 13;
constexpr int RGB_MATRIX = 0;
constexpr int FULL_RANGE = 2;

constexpr std::array<std::uint8_t, 8> PNG_SIGNATURE{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr std::size_t PNG_AROUND = 12; // length, name and checksum of a piece
constexpr std::size_t PNG_HEAD = 13;

struct PngFormat {
    int depth;
    int kind;
    const char* name;
};
constexpr PngFormat PNG_FORMATS[] = {{8, 2, "rgb24"}, {16, 2, "rgb48be"}, {8, 6, "rgba"}, {16, 6, "rgba64be"}};

/// One piece of a PNG file.
struct Piece {
    const std::uint8_t* bytes = nullptr; ///< from its name on
    std::size_t size = 0;                ///< of its content

    bool Is(const char* name) const { return std::memcmp(bytes, name, 4) == 0; }
    const std::uint8_t* Content() const { return bytes + 4; }
    bool HasItsChecksum() const {
        const AVCRC* const table = av_crc_get_table(AV_CRC_32_IEEE_LE);
        const std::uint32_t sum = av_crc(table, UINT32_MAX, bytes, size + 4) ^ UINT32_MAX;
        return sum == AV_RB32(bytes + 4 + size);
    }
};

void TakePngHead(const Piece& piece, PictureFile& file) {
    file.width = static_cast<int>(AV_RB32(piece.Content()));
    file.height = static_cast<int>(AV_RB32(piece.Content() + 4));
    for (const PngFormat& format : PNG_FORMATS)
        if (format.depth == piece.Content()[8] && format.kind == piece.Content()[9])
            file.pixelFormat = format.name;
}

/// What is wrong with the piece; empty where nothing is.
std::string TakePiece(const Piece& piece, bool isFirst, PictureFile& file) {
    if (!piece.HasItsChecksum())
        return "a part of it does not have its checksum";
    if (isFirst != piece.Is("IHDR") || (isFirst && piece.size != PNG_HEAD))
        return "its head is not in its place";
    if (isFirst)
        TakePngHead(piece, file);
    if (piece.Is("sRGB"))
        file.colour = {SRGB_PRIMARIES, SRGB_TRANSFER, RGB_MATRIX, FULL_RANGE};
    return {};
}

void ReadPng(const Bytes& bytes, PictureFile& file) {
    bool hasPicture = false;
    std::size_t at = PNG_SIGNATURE.size();
    while (at + PNG_AROUND <= bytes.size()) {
        const Piece piece{bytes.data() + at + 4, AV_RB32(bytes.data() + at)};
        if (piece.size > bytes.size() - at - PNG_AROUND)
            break;
        file.fault = TakePiece(piece, at == PNG_SIGNATURE.size(), file);
        if (!file.fault.empty())
            return;
        at += piece.size + PNG_AROUND;
        hasPicture = hasPicture || piece.Is("IDAT");
        if (!piece.Is("IEND"))
            continue;
        file.fault = !hasPicture ? "it holds no picture" : at < bytes.size() ? "something stands behind its end" : "";
        return;
    }
    file.fault = "it ends before its end";
}

constexpr std::uint8_t MARK = 0xFF;
constexpr std::uint8_t START = 0xD8;
constexpr std::uint8_t END = 0xD9;
constexpr std::uint8_t SCAN = 0xDA;

/// Those of frames whose samples are of 8 bits and coded by Huffman, but for hierarchical ones.
bool IsFrame(std::uint8_t mark) {
    return mark >= 0xC0 && mark <= 0xC2;
}

bool IsRestart(std::uint8_t mark) {
    return mark >= 0xD0 && mark <= 0xD7;
}

/// How often the first component has samples where the second has one, across and down.
std::string JpegFormat(const std::uint8_t* content, std::size_t size) {
    constexpr std::size_t HEAD = 6, COMPONENT = 3, COMPONENTS = 3;
    if (size != HEAD + COMPONENTS * COMPONENT || content[0] != 8 || content[5] != COMPONENTS)
        return {};
    const auto sampling = [content](std::size_t component) { return content[HEAD + component * COMPONENT + 1]; };
    if (sampling(1) != sampling(2) || (sampling(1) >> 4) == 0 || (sampling(1) & 15) == 0)
        return {};
    const std::pair<int, int> share((sampling(0) >> 4) * 10 / (sampling(1) >> 4),
                                    (sampling(0) & 15) * 10 / (sampling(1) & 15));
    return share == std::pair(20, 20)   ? "yuvj420p"
           : share == std::pair(20, 10) ? "yuvj422p"
           : share == std::pair(10, 10) ? "yuvj444p"
                                        : "";
}

void TakeJpegFrame(const std::uint8_t* content, std::size_t size, PictureFile& file) {
    if (size < 6)
        return;
    file.height = AV_RB16(content + 1);
    file.width = AV_RB16(content + 3);
    file.pixelFormat = JpegFormat(content, size);
}

/// Where the coded samples that begin there end: at the next mark that is none of theirs.
std::size_t EndOfScan(const Bytes& bytes, std::size_t at) {
    while (at + 1 < bytes.size()) {
        const auto* const found =
            static_cast<const std::uint8_t*>(std::memchr(bytes.data() + at, MARK, bytes.size() - at - 1));
        if (!found)
            return bytes.size();
        at = static_cast<std::size_t>(found - bytes.data());
        if (found[1] != 0 && !IsRestart(found[1]))
            return at;
        at += 2;
    }
    return bytes.size();
}

void ReadJpeg(const Bytes& bytes, PictureFile& file) {
    bool hasScan = false;
    std::size_t at = 2;
    while (at + 2 <= bytes.size()) {
        const std::uint8_t mark = bytes[at + 1];
        if (bytes[at] != MARK) {
            file.fault = "a part of it is longer or shorter than it says";
            return;
        }
        if (mark == END) {
            file.fault = !hasScan || file.width == 0 ? "it holds no picture"
                         : at + 2 < bytes.size()     ? "something stands behind its end"
                                                     : "";
            return;
        }
        if (at + 4 > bytes.size() || AV_RB16(bytes.data() + at + 2) < 2 ||
            at + 2 + AV_RB16(bytes.data() + at + 2) > bytes.size())
            break;
        const std::size_t size = AV_RB16(bytes.data() + at + 2);
        if (IsFrame(mark))
            TakeJpegFrame(bytes.data() + at + 4, size - 2, file);
        hasScan = hasScan || mark == SCAN;
        at += 2 + size;
        if (mark == SCAN)
            at = EndOfScan(bytes, at);
    }
    file.fault = "it ends before its end";
}

} // namespace

PictureFile ReadPictureFile(const Bytes& bytes) {
    PictureFile file;
    const bool isPng = bytes.size() >= PNG_SIGNATURE.size() &&
                       std::memcmp(bytes.data(), PNG_SIGNATURE.data(), PNG_SIGNATURE.size()) == 0;
    const bool isJpeg = bytes.size() >= 2 && bytes[0] == MARK && bytes[1] == START;
    if (isPng) {
        file.codec = "png";
        ReadPng(bytes, file);
    } else if (isJpeg) {
        file.codec = "mjpeg";
        ReadJpeg(bytes, file);
    } else {
        file.fault = "it is no picture of PNG or JPEG";
    }
    return file;
}

} // namespace Kestra::FF
