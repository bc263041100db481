// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Av/LibraryVersions.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavfilter/avfilter.h>
#include <libavformat/avformat.h>
#include <libavutil/avutil.h>
#include <libswresample/swresample.h>
#include <libswscale/swscale.h>
}
#include <algorithm>
#include <array>
#include <dlfcn.h>
#include <link.h>

namespace Kestra::FF {
namespace {

std::string Numbers(unsigned version) {
    return std::to_string(AV_VERSION_MAJOR(version)) + '.' + std::to_string(AV_VERSION_MINOR(version)) + '.' +
           std::to_string(AV_VERSION_MICRO(version));
}

/// An encoder's library, and what of it tells its version.
struct Encoder {
    const char* file; ///< the start of its name
    const char* symbol;
    bool isFunction;
};

constexpr std::array<Encoder, 9> ENCODERS{{{"libx264.so", nullptr, false},
                                           {"libx265.so", "x265_version_str", false},
                                           {"libvpx.so", "vpx_codec_version_str", true},
                                           {"libSvtAv1Enc.so", "svt_av1_get_version", true},
                                           {"libaom.so", "aom_codec_version_str", true},
                                           {"libopus.so", "opus_get_version_string", true},
                                           {"libmp3lame.so", "get_lame_version", true},
                                           {"libvorbis.so", "vorbis_version_string", true},
                                           {"libwebp.so", nullptr, false}}};

/// Of a library that is loaded; empty where it does not tell.
std::string Told(const std::string& path, const Encoder& encoder) {
    void* const library = encoder.symbol ? dlopen(path.c_str(), RTLD_LAZY | RTLD_NOLOAD) : nullptr;
    if (!library)
        return {};
    void* const symbol = dlsym(library, encoder.symbol);
    const char* text = nullptr;
    if (symbol && encoder.isFunction)
        text = reinterpret_cast<const char* (*)()>(symbol)();
    else if (symbol)
        text = *static_cast<const char* const*>(symbol);
    std::string told = text ? text : "";
    dlclose(library);
    return told;
}

int Note(dl_phdr_info* info, std::size_t, void* versions) {
    const std::string path = info->dlpi_name ? info->dlpi_name : "";
    const std::string name = path.substr(path.find_last_of('/') + 1); // npos + 1 is 0
    for (const Encoder& encoder : ENCODERS) {
        const std::string start = encoder.file;
        if (name.compare(0, start.size(), start) != 0)
            continue;
        const std::string told = Told(path, encoder);
        const std::string ofFile = name.substr(std::min(name.size(), start.size() + 1));
        static_cast<std::vector<Proc::LibraryVersion>*>(versions)->push_back(
            {start.substr(0, start.size() - 3), told.empty() ? ofFile : told});
    }
    return 0;
}

} // namespace

std::vector<Proc::LibraryVersion> GetLibraryVersions() {
    std::vector<Proc::LibraryVersion> versions{{"FFmpeg", av_version_info()},
                                               {"libavformat", Numbers(avformat_version())},
                                               {"libavcodec", Numbers(avcodec_version())},
                                               {"libavfilter", Numbers(avfilter_version())},
                                               {"libavutil", Numbers(avutil_version())},
                                               {"libswscale", Numbers(swscale_version())},
                                               {"libswresample", Numbers(swresample_version())}};
    dl_iterate_phdr(&Note, &versions);
    return versions;
}

} // namespace Kestra::FF
