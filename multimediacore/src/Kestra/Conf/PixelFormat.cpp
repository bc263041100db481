// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/PixelFormat.h"
#include <algorithm>

namespace Kestra::Conf {

namespace {

/// Number, name, kind, bits, how often width and height of chroma are halved, alpha, full range by name.
constexpr PixelFormatRecord FORMATS[] = {
    {1, "yuv420p", PixelKind::Yuv, 8, 1, 1, false, false},
    {2, "yuv422p", PixelKind::Yuv, 8, 1, 0, false, false},
    {3, "yuv444p", PixelKind::Yuv, 8, 0, 0, false, false},
    {4, "nv12", PixelKind::Yuv, 8, 1, 1, false, false},
    {5, "yuvj420p", PixelKind::Yuv, 8, 1, 1, false, true},
    {6, "yuv420p10le", PixelKind::Yuv, 10, 1, 1, false, false},
    {7, "yuv422p10le", PixelKind::Yuv, 10, 1, 0, false, false},
    {8, "yuv444p10le", PixelKind::Yuv, 10, 0, 0, false, false},
    {9, "p010le", PixelKind::Yuv, 10, 1, 1, false, false},
    {10, "yuv420p12le", PixelKind::Yuv, 12, 1, 1, false, false},
    {11, "yuv422p12le", PixelKind::Yuv, 12, 1, 0, false, false},
    {12, "yuv444p12le", PixelKind::Yuv, 12, 0, 0, false, false},
    {13, "gray", PixelKind::Gray, 8, 0, 0, false, false},
    {14, "gray10le", PixelKind::Gray, 10, 0, 0, false, false},
    {15, "rgb24", PixelKind::Rgb, 8, 0, 0, false, false},
    {16, "bgr24", PixelKind::Rgb, 8, 0, 0, false, false},
    {17, "gbrp", PixelKind::Rgb, 8, 0, 0, false, false},
    {18, "gbrp10le", PixelKind::Rgb, 10, 0, 0, false, false},
    {22, "yuva420p", PixelKind::Yuv, 8, 1, 1, true, false},
    {23, "yuva422p", PixelKind::Yuv, 8, 1, 0, true, false},
    {24, "yuva444p", PixelKind::Yuv, 8, 0, 0, true, false},
    {25, "bgra", PixelKind::Rgb, 8, 0, 0, true, false},
    {26, "rgba", PixelKind::Rgb, 8, 0, 0, true, false},
    {27, "yuva444p10le", PixelKind::Yuv, 10, 0, 0, true, false},
    {100, "yuyv422", PixelKind::Yuv, 8, 1, 0, false, false},
    {101, "yuv410p", PixelKind::Yuv, 8, 2, 2, false, false},
    {102, "yuv411p", PixelKind::Yuv, 8, 2, 0, false, false},
    {103, "monow", PixelKind::Gray, 1, 0, 0, false, false},
    {104, "monob", PixelKind::Gray, 1, 0, 0, false, false},
    {105, "pal8", PixelKind::Palette, 8, 0, 0, true, false},
    {106, "yuvj422p", PixelKind::Yuv, 8, 1, 0, false, true},
    {107, "yuvj444p", PixelKind::Yuv, 8, 0, 0, false, true},
    {108, "uyvy422", PixelKind::Yuv, 8, 1, 0, false, false},
    {109, "uyyvyy411", PixelKind::Yuv, 8, 2, 0, false, false},
    {110, "bgr8", PixelKind::Rgb, 3, 0, 0, false, false},
    {111, "bgr4", PixelKind::Rgb, 2, 0, 0, false, false},
    {112, "bgr4_byte", PixelKind::Rgb, 2, 0, 0, false, false},
    {113, "rgb8", PixelKind::Rgb, 3, 0, 0, false, false},
    {114, "rgb4", PixelKind::Rgb, 2, 0, 0, false, false},
    {115, "rgb4_byte", PixelKind::Rgb, 2, 0, 0, false, false},
    {116, "nv21", PixelKind::Yuv, 8, 1, 1, false, false},
    {117, "argb", PixelKind::Rgb, 8, 0, 0, true, false},
    {118, "abgr", PixelKind::Rgb, 8, 0, 0, true, false},
    {119, "gray16be", PixelKind::Gray, 16, 0, 0, false, false},
    {120, "gray16le", PixelKind::Gray, 16, 0, 0, false, false},
    {121, "yuv440p", PixelKind::Yuv, 8, 0, 1, false, false},
    {122, "yuvj440p", PixelKind::Yuv, 8, 0, 1, false, true},
    {123, "rgb48be", PixelKind::Rgb, 16, 0, 0, false, false},
    {124, "rgb48le", PixelKind::Rgb, 16, 0, 0, false, false},
    {125, "rgb565be", PixelKind::Rgb, 6, 0, 0, false, false},
    {126, "rgb565le", PixelKind::Rgb, 6, 0, 0, false, false},
    {127, "rgb555be", PixelKind::Rgb, 5, 0, 0, false, false},
    {128, "rgb555le", PixelKind::Rgb, 5, 0, 0, false, false},
    {129, "bgr565be", PixelKind::Rgb, 6, 0, 0, false, false},
    {130, "bgr565le", PixelKind::Rgb, 6, 0, 0, false, false},
    {131, "bgr555be", PixelKind::Rgb, 5, 0, 0, false, false},
    {132, "bgr555le", PixelKind::Rgb, 5, 0, 0, false, false},
    {133, "vaapi", PixelKind::Hardware, 0, 1, 1, false, false},
    {134, "yuv420p16le", PixelKind::Yuv, 16, 1, 1, false, false},
    {135, "yuv420p16be", PixelKind::Yuv, 16, 1, 1, false, false},
    {136, "yuv422p16le", PixelKind::Yuv, 16, 1, 0, false, false},
    {137, "yuv422p16be", PixelKind::Yuv, 16, 1, 0, false, false},
    {138, "yuv444p16le", PixelKind::Yuv, 16, 0, 0, false, false},
    {139, "yuv444p16be", PixelKind::Yuv, 16, 0, 0, false, false},
    {140, "dxva2_vld", PixelKind::Hardware, 0, 1, 1, false, false},
    {141, "rgb444le", PixelKind::Rgb, 4, 0, 0, false, false},
    {142, "rgb444be", PixelKind::Rgb, 4, 0, 0, false, false},
    {143, "bgr444le", PixelKind::Rgb, 4, 0, 0, false, false},
    {144, "bgr444be", PixelKind::Rgb, 4, 0, 0, false, false},
    {145, "ya8", PixelKind::Gray, 8, 0, 0, true, false},
    {146, "bgr48be", PixelKind::Rgb, 16, 0, 0, false, false},
    {147, "bgr48le", PixelKind::Rgb, 16, 0, 0, false, false},
    {148, "yuv420p9be", PixelKind::Yuv, 9, 1, 1, false, false},
    {149, "yuv420p9le", PixelKind::Yuv, 9, 1, 1, false, false},
    {150, "yuv420p10be", PixelKind::Yuv, 10, 1, 1, false, false},
    {151, "yuv422p10be", PixelKind::Yuv, 10, 1, 0, false, false},
    {152, "yuv444p9be", PixelKind::Yuv, 9, 0, 0, false, false},
    {153, "yuv444p9le", PixelKind::Yuv, 9, 0, 0, false, false},
    {154, "yuv444p10be", PixelKind::Yuv, 10, 0, 0, false, false},
    {155, "yuv422p9be", PixelKind::Yuv, 9, 1, 0, false, false},
    {156, "yuv422p9le", PixelKind::Yuv, 9, 1, 0, false, false},
    {157, "gbrp9be", PixelKind::Rgb, 9, 0, 0, false, false},
    {158, "gbrp9le", PixelKind::Rgb, 9, 0, 0, false, false},
    {159, "gbrp10be", PixelKind::Rgb, 10, 0, 0, false, false},
    {160, "gbrp16be", PixelKind::Rgb, 16, 0, 0, false, false},
    {161, "gbrp16le", PixelKind::Rgb, 16, 0, 0, false, false},
    {162, "yuva420p9be", PixelKind::Yuv, 9, 1, 1, true, false},
    {163, "yuva420p9le", PixelKind::Yuv, 9, 1, 1, true, false},
    {164, "yuva422p9be", PixelKind::Yuv, 9, 1, 0, true, false},
    {165, "yuva422p9le", PixelKind::Yuv, 9, 1, 0, true, false},
    {166, "yuva444p9be", PixelKind::Yuv, 9, 0, 0, true, false},
    {167, "yuva444p9le", PixelKind::Yuv, 9, 0, 0, true, false},
    {168, "yuva420p10be", PixelKind::Yuv, 10, 1, 1, true, false},
    {169, "yuva420p10le", PixelKind::Yuv, 10, 1, 1, true, false},
    {170, "yuva422p10be", PixelKind::Yuv, 10, 1, 0, true, false},
    {171, "yuva422p10le", PixelKind::Yuv, 10, 1, 0, true, false},
    {172, "yuva444p10be", PixelKind::Yuv, 10, 0, 0, true, false},
    {173, "yuva420p16be", PixelKind::Yuv, 16, 1, 1, true, false},
    {174, "yuva420p16le", PixelKind::Yuv, 16, 1, 1, true, false},
    {175, "yuva422p16be", PixelKind::Yuv, 16, 1, 0, true, false},
    {176, "yuva422p16le", PixelKind::Yuv, 16, 1, 0, true, false},
    {177, "yuva444p16be", PixelKind::Yuv, 16, 0, 0, true, false},
    {178, "yuva444p16le", PixelKind::Yuv, 16, 0, 0, true, false},
    {179, "vdpau", PixelKind::Hardware, 0, 1, 1, false, false},
    {180, "xyz12le", PixelKind::Xyz, 12, 0, 0, false, false},
    {181, "xyz12be", PixelKind::Xyz, 12, 0, 0, false, false},
    {182, "nv16", PixelKind::Yuv, 8, 1, 0, false, false},
    {183, "nv20le", PixelKind::Yuv, 10, 1, 0, false, false},
    {184, "nv20be", PixelKind::Yuv, 10, 1, 0, false, false},
    {185, "rgba64be", PixelKind::Rgb, 16, 0, 0, true, false},
    {186, "rgba64le", PixelKind::Rgb, 16, 0, 0, true, false},
    {187, "bgra64be", PixelKind::Rgb, 16, 0, 0, true, false},
    {188, "bgra64le", PixelKind::Rgb, 16, 0, 0, true, false},
    {189, "yvyu422", PixelKind::Yuv, 8, 1, 0, false, false},
    {190, "ya16be", PixelKind::Gray, 16, 0, 0, true, false},
    {191, "ya16le", PixelKind::Gray, 16, 0, 0, true, false},
    {192, "gbrap", PixelKind::Rgb, 8, 0, 0, true, false},
    {193, "gbrap16be", PixelKind::Rgb, 16, 0, 0, true, false},
    {194, "gbrap16le", PixelKind::Rgb, 16, 0, 0, true, false},
    {195, "qsv", PixelKind::Hardware, 0, 0, 0, false, false},
    {196, "mmal", PixelKind::Hardware, 0, 0, 0, false, false},
    {197, "d3d11va_vld", PixelKind::Hardware, 0, 1, 1, false, false},
    {198, "cuda", PixelKind::Hardware, 0, 0, 0, false, false},
    {199, "0rgb", PixelKind::Rgb, 8, 0, 0, false, false},
    {200, "rgb0", PixelKind::Rgb, 8, 0, 0, false, false},
    {201, "0bgr", PixelKind::Rgb, 8, 0, 0, false, false},
    {202, "bgr0", PixelKind::Rgb, 8, 0, 0, false, false},
    {203, "yuv420p12be", PixelKind::Yuv, 12, 1, 1, false, false},
    {204, "yuv420p14be", PixelKind::Yuv, 14, 1, 1, false, false},
    {205, "yuv420p14le", PixelKind::Yuv, 14, 1, 1, false, false},
    {206, "yuv422p12be", PixelKind::Yuv, 12, 1, 0, false, false},
    {207, "yuv422p14be", PixelKind::Yuv, 14, 1, 0, false, false},
    {208, "yuv422p14le", PixelKind::Yuv, 14, 1, 0, false, false},
    {209, "yuv444p12be", PixelKind::Yuv, 12, 0, 0, false, false},
    {210, "yuv444p14be", PixelKind::Yuv, 14, 0, 0, false, false},
    {211, "yuv444p14le", PixelKind::Yuv, 14, 0, 0, false, false},
    {212, "gbrp12be", PixelKind::Rgb, 12, 0, 0, false, false},
    {213, "gbrp12le", PixelKind::Rgb, 12, 0, 0, false, false},
    {214, "gbrp14be", PixelKind::Rgb, 14, 0, 0, false, false},
    {215, "gbrp14le", PixelKind::Rgb, 14, 0, 0, false, false},
    {216, "yuvj411p", PixelKind::Yuv, 8, 2, 0, false, true},
    {217, "bayer_bggr8", PixelKind::Bayer, 8, 0, 0, false, false},
    {218, "bayer_rggb8", PixelKind::Bayer, 8, 0, 0, false, false},
    {219, "bayer_gbrg8", PixelKind::Bayer, 8, 0, 0, false, false},
    {220, "bayer_grbg8", PixelKind::Bayer, 8, 0, 0, false, false},
    {221, "bayer_bggr16le", PixelKind::Bayer, 16, 0, 0, false, false},
    {222, "bayer_bggr16be", PixelKind::Bayer, 16, 0, 0, false, false},
    {223, "bayer_rggb16le", PixelKind::Bayer, 16, 0, 0, false, false},
    {224, "bayer_rggb16be", PixelKind::Bayer, 16, 0, 0, false, false},
    {225, "bayer_gbrg16le", PixelKind::Bayer, 16, 0, 0, false, false},
    {226, "bayer_gbrg16be", PixelKind::Bayer, 16, 0, 0, false, false},
    {227, "bayer_grbg16le", PixelKind::Bayer, 16, 0, 0, false, false},
    {228, "bayer_grbg16be", PixelKind::Bayer, 16, 0, 0, false, false},
    {229, "xvmc", PixelKind::Hardware, 0, 0, 0, false, false},
    {230, "yuv440p10le", PixelKind::Yuv, 10, 0, 1, false, false},
    {231, "yuv440p10be", PixelKind::Yuv, 10, 0, 1, false, false},
    {232, "yuv440p12le", PixelKind::Yuv, 12, 0, 1, false, false},
    {233, "yuv440p12be", PixelKind::Yuv, 12, 0, 1, false, false},
    {234, "ayuv64le", PixelKind::Yuv, 16, 0, 0, true, false},
    {235, "ayuv64be", PixelKind::Yuv, 16, 0, 0, true, false},
    {236, "videotoolbox_vld", PixelKind::Hardware, 0, 0, 0, false, false},
    {237, "p010be", PixelKind::Yuv, 10, 1, 1, false, false},
    {238, "gbrap12be", PixelKind::Rgb, 12, 0, 0, true, false},
    {239, "gbrap12le", PixelKind::Rgb, 12, 0, 0, true, false},
    {240, "gbrap10be", PixelKind::Rgb, 10, 0, 0, true, false},
    {241, "gbrap10le", PixelKind::Rgb, 10, 0, 0, true, false},
    {242, "mediacodec", PixelKind::Hardware, 0, 0, 0, false, false},
    {243, "gray12be", PixelKind::Gray, 12, 0, 0, false, false},
    {244, "gray12le", PixelKind::Gray, 12, 0, 0, false, false},
    {245, "gray10be", PixelKind::Gray, 10, 0, 0, false, false},
    {246, "p016le", PixelKind::Yuv, 16, 1, 1, false, false},
    {247, "p016be", PixelKind::Yuv, 16, 1, 1, false, false},
    {248, "d3d11", PixelKind::Hardware, 0, 0, 0, false, false},
    {249, "gray9be", PixelKind::Gray, 9, 0, 0, false, false},
    {250, "gray9le", PixelKind::Gray, 9, 0, 0, false, false},
    {251, "gbrpf32be", PixelKind::Rgb, 32, 0, 0, false, false},
    {252, "gbrpf32le", PixelKind::Rgb, 32, 0, 0, false, false},
    {253, "gbrapf32be", PixelKind::Rgb, 32, 0, 0, true, false},
    {254, "gbrapf32le", PixelKind::Rgb, 32, 0, 0, true, false},
    {255, "drm_prime", PixelKind::Hardware, 0, 0, 0, false, false},
    {256, "opencl", PixelKind::Hardware, 0, 0, 0, false, false},
    {257, "gray14be", PixelKind::Gray, 14, 0, 0, false, false},
    {258, "gray14le", PixelKind::Gray, 14, 0, 0, false, false},
    {259, "grayf32be", PixelKind::Gray, 32, 0, 0, false, false},
    {260, "grayf32le", PixelKind::Gray, 32, 0, 0, false, false},
    {261, "yuva422p12be", PixelKind::Yuv, 12, 1, 0, true, false},
    {262, "yuva422p12le", PixelKind::Yuv, 12, 1, 0, true, false},
    {263, "yuva444p12be", PixelKind::Yuv, 12, 0, 0, true, false},
    {264, "yuva444p12le", PixelKind::Yuv, 12, 0, 0, true, false},
    {265, "nv24", PixelKind::Yuv, 8, 0, 0, false, false},
    {266, "nv42", PixelKind::Yuv, 8, 0, 0, false, false},
    {267, "vulkan", PixelKind::Hardware, 0, 0, 0, false, false},
    {268, "y210be", PixelKind::Yuv, 10, 1, 0, false, false},
    {269, "y210le", PixelKind::Yuv, 10, 1, 0, false, false},
    {270, "x2rgb10le", PixelKind::Rgb, 10, 0, 0, false, false},
    {271, "x2rgb10be", PixelKind::Rgb, 10, 0, 0, false, false},
    {272, "x2bgr10le", PixelKind::Rgb, 10, 0, 0, false, false},
    {273, "x2bgr10be", PixelKind::Rgb, 10, 0, 0, false, false},
    {274, "p210be", PixelKind::Yuv, 10, 1, 0, false, false},
    {275, "p210le", PixelKind::Yuv, 10, 1, 0, false, false},
    {276, "p410be", PixelKind::Yuv, 10, 0, 0, false, false},
    {277, "p410le", PixelKind::Yuv, 10, 0, 0, false, false},
    {278, "p216be", PixelKind::Yuv, 16, 1, 0, false, false},
    {279, "p216le", PixelKind::Yuv, 16, 1, 0, false, false},
    {280, "p416be", PixelKind::Yuv, 16, 0, 0, false, false},
    {281, "p416le", PixelKind::Yuv, 16, 0, 0, false, false},
};

/// Other names that people write.
constexpr struct {
    const char* alias;
    const char* name;
} ALIASES[] = {{"gray8", "gray"}, {"gray8a", "ya8"}};

const PixelFormatRecord* FindByName(const std::string& name) noexcept {
    const auto* const found = std::find_if(std::begin(FORMATS), std::end(FORMATS),
                                           [&name](const PixelFormatRecord& record) { return name == record.name; });
    return found == std::end(FORMATS) ? nullptr : found;
}

} // namespace

const PixelFormatRecord* PixelFormatRecord::Find(PixelFormat format) noexcept {
    const int number = static_cast<int>(format);
    const auto* const found = std::lower_bound(std::begin(FORMATS), std::end(FORMATS), number,
                                               [](const PixelFormatRecord& a, int b) { return a.number < b; });
    return found == std::end(FORMATS) || found->number != number ? nullptr : found;
}

const std::vector<PixelFormatRecord>& PixelFormatRecord::All() {
    static const auto& all = *new std::vector<PixelFormatRecord>(std::begin(FORMATS), std::end(FORMATS));
    return all;
}

bool HasAlpha(PixelFormat format) noexcept {
    const PixelFormatRecord* const record = PixelFormatRecord::Find(format);
    return record != nullptr && record->alpha;
}

const char* PixelFormatToString(PixelFormat format) noexcept {
    const PixelFormatRecord* const record = PixelFormatRecord::Find(format);
    if (record != nullptr)
        return record->name;
    return format == PixelFormat::Other ? "other" : "unknown";
}

PixelFormat PixelFormatFromString(const std::string& name) noexcept {
    if (name == "other")
        return PixelFormat::Other;
    for (const auto& entry : ALIASES)
        if (name == entry.alias)
            return FindByName(entry.name)->Format();
    const PixelFormatRecord* record = FindByName(name);
    if (record == nullptr)
        record = FindByName(name + "le");
    return record == nullptr ? PixelFormat::Unknown : record->Format();
}

} // namespace Kestra::Conf
