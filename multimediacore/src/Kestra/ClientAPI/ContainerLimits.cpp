#include "Kestra/ClientAPI/ContainerLimits.h"
#include <algorithm>
#include <iterator>

namespace Kestra::ClientAPI {

namespace {

using Conf::CodecID;

struct Container {
    const char* id;
    std::vector<CodecID> codecs;
    std::vector<std::string> extensions;
    std::vector<std::string> extensionsOfSound; ///< beside those
};

const std::vector<Container>& Containers() {
    static const std::vector<Container> table = {
        {"mp4",
         {CodecID::H264, CodecID::HEVC, CodecID::AV1, CodecID::VP9, CodecID::MPEG4, CodecID::MPEG2, CodecID::AAC,
          CodecID::MP3, CodecID::AC3, CodecID::ALAC, CodecID::Opus, CodecID::FLAC},
         {"mp4", "m4v"},
         {"m4a"}},
        {"mov",
         {CodecID::H264, CodecID::HEVC, CodecID::ProRes, CodecID::DNxHD, CodecID::MJPEG, CodecID::MPEG4, CodecID::AAC,
          CodecID::PCM_S16LE, CodecID::PCM_S24LE, CodecID::ALAC, CodecID::MP3, CodecID::AC3},
         {"mov", "qt"},
         {}},
        {"webm", {CodecID::VP9, CodecID::VP8, CodecID::AV1, CodecID::Opus, CodecID::Vorbis}, {"webm"}, {"weba"}},
        {"mkv",
         {CodecID::H264, CodecID::HEVC, CodecID::VP9, CodecID::AV1, CodecID::VP8, CodecID::MPEG4, CodecID::MPEG2,
          CodecID::FFV1, CodecID::MJPEG, CodecID::ProRes, CodecID::AAC, CodecID::Opus, CodecID::MP3, CodecID::FLAC,
          CodecID::PCM_S16LE, CodecID::PCM_S24LE, CodecID::Vorbis, CodecID::AC3, CodecID::ALAC},
         {"mkv"},
         {"mka"}},
        {"m4a", {CodecID::AAC, CodecID::ALAC}, {"m4a", "m4b"}, {}},
        {"mp3", {CodecID::MP3}, {"mp3"}, {}},
        {"flac", {CodecID::FLAC}, {"flac"}, {}},
        {"wav", {CodecID::PCM_S16LE, CodecID::PCM_S24LE, CodecID::PCM}, {"wav", "wave"}, {}},
    };
    return table;
}

/// Of files that are none of the containers above.
constexpr const char* FOREIGN_EXTENSIONS[] = {
    "264",  "265",  "3g2",  "3gp", "aac",  "ac3",  "aif", "aiff", "amr",  "ape",  "asf",  "au",   "avi",
    "avif", "bmp",  "caf",  "dv",  "dts",  "eac3", "f4v", "flv",  "gif",  "h264", "h265", "hevc", "heic",
    "ivf",  "jpeg", "jpg",  "m1v", "m2ts", "m2v",  "m3u", "m3u8", "mk3d", "mp1",  "mp2",  "mpa",  "mpe",
    "mpeg", "mpg",  "mpd",  "mts", "mxf",  "nut",  "oga", "ogg",  "ogv",  "opus", "png",  "rm",   "rmvb",
    "svg",  "tif",  "tiff", "ts",  "tta",  "vob",  "w64", "wma",  "wmv",  "webp", "wv",   "y4m",
};

const Container* Find(const std::string& id) {
    const auto found = std::find_if(Containers().begin(), Containers().end(),
                                    [&id](const Container& container) { return id == container.id; });
    return found == Containers().end() ? nullptr : &*found;
}

bool Has(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

} // namespace

bool ContainerLimits::IsContainer(const std::string& container) {
    return Find(container) != nullptr;
}

bool ContainerLimits::Holds(const std::string& container, CodecID codec) {
    const Container* const found = Find(container);
    return found != nullptr && std::find(found->codecs.begin(), found->codecs.end(), codec) != found->codecs.end();
}

std::vector<std::string> ContainerLimits::Extensions(const std::string& container, bool withPictures) {
    const Container* const found = Find(container);
    if (found == nullptr)
        return {};
    std::vector<std::string> names = found->extensions;
    if (!withPictures)
        names.insert(names.end(), found->extensionsOfSound.begin(), found->extensionsOfSound.end());
    return names;
}

bool ContainerLimits::IsKnownExtension(const std::string& extension) {
    const bool own = std::any_of(Containers().begin(), Containers().end(), [&extension](const Container& container) {
        return Has(container.extensions, extension) || Has(container.extensionsOfSound, extension);
    });
    return own || std::any_of(std::begin(FOREIGN_EXTENSIONS), std::end(FOREIGN_EXTENSIONS),
                              [&extension](const char* foreign) { return extension == foreign; });
}

} // namespace Kestra::ClientAPI
