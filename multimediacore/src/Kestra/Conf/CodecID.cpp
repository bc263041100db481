#include "Kestra/Conf/CodecID.h"
#include <algorithm>
#include <iterator>

namespace Kestra::Conf {

namespace {

struct Entry {
    CodecID id;
    const char* name;
};

constexpr Entry CODECS[] = {
    {CodecID::H264, "h264"},
    {CodecID::HEVC, "hevc"},
    {CodecID::VP9, "vp9"},
    {CodecID::ProRes, "prores"},
    {CodecID::MPEG4, "mpeg4"},
    {CodecID::AV1, "av1"},
    {CodecID::VP8, "vp8"},
    {CodecID::MPEG2, "mpeg2"},
    {CodecID::FFV1, "ffv1"},
    {CodecID::DNxHD, "dnxhd"},
    {CodecID::MJPEG, "mjpeg"},
    {CodecID::AAC, "aac"},
    {CodecID::Opus, "opus"},
    {CodecID::MP3, "mp3"},
    {CodecID::FLAC, "flac"},
    {CodecID::PCM_S16LE, "pcm_s16le"},
    {CodecID::PCM_S24LE, "pcm_s24le"},
    {CodecID::Vorbis, "vorbis"},
    {CodecID::AC3, "ac3"},
    {CodecID::ALAC, "alac"},
    {CodecID::PCM, "pcm"},
};

} // namespace

const char* CodecIDToString(CodecID id) noexcept {
    const auto* const found =
        std::find_if(std::begin(CODECS), std::end(CODECS), [id](const Entry& entry) { return entry.id == id; });
    return found == std::end(CODECS) ? "none" : found->name;
}

CodecID CodecIDFromString(const std::string& name) noexcept {
    const auto* const found =
        std::find_if(std::begin(CODECS), std::end(CODECS), [&name](const Entry& entry) { return name == entry.name; });
    return found == std::end(CODECS) ? CodecID::None : found->id;
}

bool IsVideoCodec(CodecID id) noexcept {
    return id >= CodecID::H264 && id <= CodecID::MJPEG;
}

} // namespace Kestra::Conf
