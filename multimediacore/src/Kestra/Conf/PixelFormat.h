// Kestra::Conf::PixelFormat and the colour description of pictures.
#pragma once

#include "KestraExport.h"
#include <string>

namespace Kestra::Conf {

/// The engine's pixel formats. The numbers are stable; formats of sources that stand here under no name are Other and
/// travel through the engine as they are.
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

KESTRA_EXPORT bool HasAlpha(PixelFormat format) noexcept;
/// "yuv420p" and so on; "unknown" and "other" for those two.
KESTRA_EXPORT const char* PixelFormatToString(PixelFormat format) noexcept;
/// Unknown for a name that is none.
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
