#include "Kestra/Conf/PixelFormat.h"
#include <algorithm>
#include <iterator>

namespace Kestra::Conf {

namespace {

struct Entry {
    PixelFormat format;
    const char* name;
    bool alpha;
};

constexpr Entry FORMATS[] = {
    {PixelFormat::Other, "other", false},
    {PixelFormat::YUV420P, "yuv420p", false},
    {PixelFormat::YUV422P, "yuv422p", false},
    {PixelFormat::YUV444P, "yuv444p", false},
    {PixelFormat::NV12, "nv12", false},
    {PixelFormat::YUVJ420P, "yuvj420p", false},
    {PixelFormat::YUV420P10, "yuv420p10", false},
    {PixelFormat::YUV422P10, "yuv422p10", false},
    {PixelFormat::YUV444P10, "yuv444p10", false},
    {PixelFormat::P010, "p010", false},
    {PixelFormat::YUV420P12, "yuv420p12", false},
    {PixelFormat::YUV422P12, "yuv422p12", false},
    {PixelFormat::YUV444P12, "yuv444p12", false},
    {PixelFormat::GRAY8, "gray8", false},
    {PixelFormat::GRAY10, "gray10", false},
    {PixelFormat::RGB24, "rgb24", false},
    {PixelFormat::BGR24, "bgr24", false},
    {PixelFormat::GBRP, "gbrp", false},
    {PixelFormat::GBRP10, "gbrp10", false},
    {PixelFormat::YUVA420P, "yuva420p", true},
    {PixelFormat::YUVA422P, "yuva422p", true},
    {PixelFormat::YUVA444P, "yuva444p", true},
    {PixelFormat::BGRA, "bgra", true},
    {PixelFormat::RGBA, "rgba", true},
    {PixelFormat::YUVA444P10, "yuva444p10", true},
};

const Entry* Find(PixelFormat format) noexcept {
    const auto* const found = std::find_if(std::begin(FORMATS), std::end(FORMATS),
                                           [format](const Entry& entry) { return entry.format == format; });
    return found == std::end(FORMATS) ? nullptr : found;
}

} // namespace

bool HasAlpha(PixelFormat format) noexcept {
    const Entry* const entry = Find(format);
    return entry != nullptr && entry->alpha;
}

const char* PixelFormatToString(PixelFormat format) noexcept {
    const Entry* const entry = Find(format);
    return entry == nullptr ? "unknown" : entry->name;
}

PixelFormat PixelFormatFromString(const std::string& name) noexcept {
    const auto* const found = std::find_if(std::begin(FORMATS), std::end(FORMATS),
                                           [&name](const Entry& entry) { return name == entry.name; });
    return found == std::end(FORMATS) ? PixelFormat::Unknown : found->format;
}

} // namespace Kestra::Conf
