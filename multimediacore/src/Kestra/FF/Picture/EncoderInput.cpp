// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/EncoderInput.h"

#include "Kestra/FF/Picture/HdrMetadata.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

namespace {

constexpr int UNSPECIFIED_OR_RESERVED[] = {AVCOL_PRI_UNSPECIFIED, AVCOL_PRI_RESERVED0};

bool IsOpen(int code) {
    return code == UNSPECIFIED_OR_RESERVED[0] || code == UNSPECIFIED_OR_RESERVED[1];
}

bool IsStandardDefinition(int width, int height) {
    return width <= 1024 && height <= 576;
}

/// Lines of 50 Hz television: 576, and 288 for half of them.
bool Is625Lines(int height) {
    return height > 486 || height == 288;
}

int DefaultMatrix(const Conf::ColourInfo& colour, int width, int height) {
    if (colour.primaries == AVCOL_PRI_BT2020 || IsHighRange(colour.transfer))
        return AVCOL_SPC_BT2020_NCL;
    if (!IsStandardDefinition(width, height))
        return AVCOL_SPC_BT709;
    return Is625Lines(height) ? AVCOL_SPC_BT470BG : AVCOL_SPC_SMPTE170M;
}

int DefaultPrimaries(int matrix, bool rgb) {
    // Pictures of computers and cameras for stills are made for sRGB, whose primaries these are, in any size.
    if (rgb && matrix != AVCOL_SPC_BT2020_NCL)
        return AVCOL_PRI_BT709;
    switch (matrix) {
    case AVCOL_SPC_BT2020_NCL:
    case AVCOL_SPC_BT2020_CL:
    case AVCOL_SPC_ICTCP:
        return AVCOL_PRI_BT2020;
    case AVCOL_SPC_BT470BG:
        return AVCOL_PRI_BT470BG;
    case AVCOL_SPC_SMPTE170M:
        return AVCOL_PRI_SMPTE170M;
    case AVCOL_SPC_SMPTE240M:
        return AVCOL_PRI_SMPTE240M;
    default:
        return AVCOL_PRI_BT709;
    }
}

int DefaultTransfer(int matrix) {
    switch (matrix) {
    case AVCOL_SPC_SMPTE240M:
        return AVCOL_TRC_SMPTE240M;
    case AVCOL_SPC_BT470BG:
    case AVCOL_SPC_SMPTE170M:
        return AVCOL_TRC_SMPTE170M;
    case AVCOL_SPC_BT2020_NCL:
    case AVCOL_SPC_BT2020_CL:
        return AVCOL_TRC_BT2020_10;
    default:
        return AVCOL_TRC_BT709;
    }
}

} // namespace

bool IsRgb(AVPixelFormat format) noexcept {
    const AVPixFmtDescriptor* descriptor = av_pix_fmt_desc_get(format);
    return descriptor && (descriptor->flags & (AV_PIX_FMT_FLAG_RGB | AV_PIX_FMT_FLAG_PAL)) != 0;
}

Conf::ColourInfo CompleteColour(const Conf::ColourInfo& colour, int width, int height, AVPixelFormat format,
                                bool fullRange) {
    Conf::ColourInfo result = colour;
    const bool rgb = IsRgb(format);
    // 0 is a real code here, not a reserved one: it says that the components are red, green and blue.
    const bool openMatrix =
        colour.matrix == AVCOL_SPC_UNSPECIFIED || colour.matrix == AVCOL_SPC_RGB || colour.matrix == AVCOL_SPC_RESERVED;
    const int yuvMatrix = openMatrix ? DefaultMatrix(colour, width, height) : colour.matrix;
    result.matrix = rgb ? static_cast<int>(AVCOL_SPC_RGB) : yuvMatrix;
    if (IsOpen(colour.primaries))
        result.primaries = DefaultPrimaries(yuvMatrix, rgb);
    // Stills come tagged sRGB. Editors and players show video of the BT.709 curve and stills alike, so a still between
    // clips must not give the whole file another curve.
    if (IsOpen(colour.transfer) || (colour.transfer == AVCOL_TRC_IEC61966_2_1 && !rgb))
        result.transfer = DefaultTransfer(yuvMatrix);
    result.range = rgb || fullRange ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
    return result;
}

Conf::ColourInfo Completed(const Conf::ColourInfo& tags, const Conf::ColourInfo& otherwise) {
    Conf::ColourInfo colour = tags;
    if (colour.primaries == AVCOL_PRI_UNSPECIFIED)
        colour.primaries = otherwise.primaries;
    if (colour.transfer == AVCOL_TRC_UNSPECIFIED)
        colour.transfer = otherwise.transfer;
    if (colour.matrix == AVCOL_SPC_UNSPECIFIED)
        colour.matrix = otherwise.matrix;
    if (colour.range == AVCOL_RANGE_UNSPECIFIED)
        colour.range = otherwise.range;
    return colour;
}

AVPixelFormat PlainFormat(AVPixelFormat format) noexcept {
    switch (format) {
    case AV_PIX_FMT_YUVJ411P:
        return AV_PIX_FMT_YUV411P;
    case AV_PIX_FMT_YUVJ420P:
        return AV_PIX_FMT_YUV420P;
    case AV_PIX_FMT_YUVJ422P:
        return AV_PIX_FMT_YUV422P;
    case AV_PIX_FMT_YUVJ440P:
        return AV_PIX_FMT_YUV440P;
    case AV_PIX_FMT_YUVJ444P:
        return AV_PIX_FMT_YUV444P;
    default:
        return format;
    }
}

bool IsFullRangeFormat(AVPixelFormat format) noexcept {
    return PlainFormat(format) != format;
}

} // namespace Kestra::FF
