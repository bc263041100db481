// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Conf::PixelFormat and the colour description of pictures.
#pragma once

#include "KestraExport.h"
#include <string>
#include <vector>

namespace Kestra::Conf {

/// The engine's pixel formats: every one that PixelFormatRecord lists. The numbers are stable; those that code speaks
/// of have names here. Other is a format that the decoder library knows and this table does not yet.
enum class PixelFormat : int {
    Unknown = -1,
    Other = 0,
    YUV420P = 1,
    YUV422P = 2,
    YUV444P = 3,
    NV12 = 4,
    YUVJ420P = 5,
    YUV420P10 = 6,
    YUV422P10 = 7,
    YUV444P10 = 8,
    P010 = 9,
    YUV420P12 = 10,
    YUV422P12 = 11,
    YUV444P12 = 12,
    GRAY8 = 13,
    GRAY10 = 14,
    RGB24 = 15,
    BGR24 = 16,
    GBRP = 17,
    GBRP10 = 18,
    YUVA420P = 22,
    YUVA422P = 23,
    YUVA444P = 24,
    /// Packed 8-bit blue, green, red, alpha; alpha is straight (not premultiplied).
    BGRA = 25,
    RGBA = 26,
    YUVA444P10 = 27,
};

enum class PixelKind {
    Yuv,
    Rgb,
    Gray,
    Xyz,
    Palette,  ///< indices into 256 colours
    Bayer,    ///< one colour a pixel, as a sensor sees it
    Hardware, ///< pictures in the memory of a device
};

/// What is known of one pixel format; the table holds every format of the decoder library under its name.
struct KESTRA_EXPORT PixelFormatRecord {
    int number;       ///< of PixelFormat
    const char* name; ///< the decoder library's own: "yuv420p10le"
    PixelKind kind;
    int bits; ///< of the deepest component; 32 are floating point, 0 is not known
    int chromaShiftX;
    int chromaShiftY;
    bool alpha;
    bool fullRange; ///< the format itself says that its range is the full one (yuvj420p)

    PixelFormat Format() const noexcept { return static_cast<PixelFormat>(number); }
    /// Null for Unknown, Other and numbers that are none. Records live as long as the program.
    static const PixelFormatRecord* Find(PixelFormat format) noexcept;
    static const std::vector<PixelFormatRecord>& All();
};

KESTRA_EXPORT bool HasAlpha(PixelFormat format) noexcept;
/// The record's name; "unknown" and "other" for those two.
KESTRA_EXPORT const char* PixelFormatToString(PixelFormat format) noexcept;
/// Takes the names of records, those of 16-bit words without their order of bytes ("yuv420p10"), and "gray8" and
/// "gray8a". Unknown for a name that is none.
KESTRA_EXPORT PixelFormat PixelFormatFromString(const std::string& name) noexcept;

/// Colour as ITU-T H.273 numbers it; 2 is "unspecified" for the first three.
struct ColourInfo {
    int primaries = 2;
    int transfer = 2;
    int matrix = 2;
    /// 0 unspecified, 1 limited ("TV"), 2 full.
    int range = 0;

    friend bool operator==(const ColourInfo& a, const ColourInfo& b) {
        return a.primaries == b.primaries && a.transfer == b.transfer && a.matrix == b.matrix && a.range == b.range;
    }
    friend bool operator!=(const ColourInfo& a, const ColourInfo& b) { return !(a == b); }
};

} // namespace Kestra::Conf
