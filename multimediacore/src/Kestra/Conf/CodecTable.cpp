// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of the table of codecs. What encoders take was measured with those of Debian's FFmpeg; docs/bitrates.md says
// where the bitrates come from.
#include "Kestra/Conf/Codec.h"
#include "Kestra/Conf/SampleInfo.h"
#include <algorithm>
#include <initializer_list>
#include <limits>

namespace Kestra::Conf {

namespace {

using OddSides = VideoCodec::OddSides;
using Rate = VideoCodec::Rate;

// Keyframes lie close enough for seeking in a player, not so close that they cost visible quality; the old codecs drift
// more and get the half second that discs and broadcast use.
constexpr double USUAL_GOP = 5.0;
constexpr double SHORT_GOP = 0.5;
/// libvpx and AV1 count a frame's period in a unit of at most a billionth of a second.
constexpr long long FINEST_VPX_TIME_BASE = 1'000'000'000;

Codec Video(CodecID id, const char* name, const char* avName, const VideoBitrates& bitrates) {
    Codec codec;
    codec.id = id;
    codec.name = name;
    codec.avName = avName;
    codec.video.emplace().bitrates = bitrates;
    return codec;
}

Codec H264() {
    Codec codec = Video(CodecID::H264, "h264", "h264", {8.0e6, 0.1, 6.0});
    VideoCodec& video = *codec.video;
    video.playable = PixelFormat::YUV420P;
    video.gopSeconds = USUAL_GOP;
    video.quality = {1, 51, true};
    video.oddSides = OddSides::WithFullChroma;
    video.codesFields = true;
    video.profiles = {{"baseline", "yuv420p nv12 yuvj420p"}, {"main", "yuv420p nv12 yuvj420p"},
                      {"high", "yuv420p nv12 yuvj420p"},     {"high10", "yuv420p10le"},
                      {"high422", "yuv422p yuv422p10le"},    {"high444", "yuv444p yuv444p10le"}};
    return codec;
}

Codec Hevc() {
    Codec codec = Video(CodecID::HEVC, "hevc", "hevc", {5.0e6, 0.1, 6.0});
    VideoCodec& video = *codec.video;
    video.playable = PixelFormat::YUV420P;
    video.gopSeconds = USUAL_GOP;
    video.quality = {1, 51, true};
    video.smallestWidth = video.smallestHeight = 16;
    // The levels for longer sides have no blocks of less than 32 pixels, which no smaller picture can be made of.
    video.takesSize = [](int width, int height) {
        return std::min(width, height) >= 32 || std::max(width, height) <= 4216;
    };
    video.oddSides = OddSides::WithFullChroma;
    video.profiles = {
        {"main", "yuv420p yuvj420p"},           {"main10", "yuv420p10le"},     {"main12", "yuv420p12le"},
        {"main422-10", "yuv422p10le"},          {"main422-12", "yuv422p12le"}, {"main444-8", "yuv444p gbrp"},
        {"main444-10", "yuv444p10le gbrp10le"}, {"main444-12", "yuv444p12le"}};
    return codec;
}

Codec Vp9() {
    Codec codec = Video(CodecID::VP9, "vp9", "vp9", {5.2e6, 0.1, 6.0});
    VideoCodec& video = *codec.video;
    video.playable = PixelFormat::YUV420P;
    video.gopSeconds = USUAL_GOP;
    video.quality = {1, 63, false};
    video.takesFrameRate = [](const Rate& rate) { return rate.numerator() <= FINEST_VPX_TIME_BASE; };
    video.alphaBeside = true;
    video.profiles = {{"0", "yuv420p yuva420p"},
                      {"1", "yuv422p yuv444p gbrp"},
                      {"2", "yuv420p10le yuv420p12le"},
                      {"3", "yuv422p10le yuv444p10le yuv422p12le yuv444p12le gbrp10le"}};
    return codec;
}

Codec Vp8() {
    Codec codec = Video(CodecID::VP8, "vp8", "vp8", {9.0e6, 0.1, 6.0});
    VideoCodec& video = *codec.video;
    video.playable = PixelFormat::YUV420P;
    video.gopSeconds = USUAL_GOP;
    video.quality = {4, 63, false}; // from its encoder's lowest quantiser
    video.largestWidth = video.largestHeight = 16382;
    video.takesFrameRate = [](const Rate& rate) { return rate.numerator() <= FINEST_VPX_TIME_BASE; };
    return codec;
}

Codec Av1() {
    Codec codec = Video(CodecID::AV1, "av1", "av1", {4.2e6, 0.1, 6.0});
    VideoCodec& video = *codec.video;
    video.playable = PixelFormat::YUV420P;
    video.gopSeconds = USUAL_GOP;
    video.quality = {1, 63, false};
    video.largestHeight = 8704;
    video.takesFrameRate = [](const Rate& rate) {
        return rate >= 1 && rate <= 240 && rate.numerator() <= FINEST_VPX_TIME_BASE;
    };
    return codec;
}

Codec ProRes() {
    Codec codec = Video(CodecID::ProRes, "prores", "prores", {147.0e6, 0.3, 2.3});
    codec.hasBitrate = false;
    VideoCodec& video = *codec.video;
    video.intraOnly = true;
    video.playable = PixelFormat::YUV422P10;
    video.codesFields = true;
    video.profiles = {{"proxy", "yuv422p10le"},
                      {"lt", "yuv422p10le"},
                      {"standard", "yuv422p10le"},
                      {"hq", "yuv422p10le"},
                      {"4444", "yuv444p10le yuva444p10le"},
                      {"4444xq", "yuv444p10le yuva444p10le"}};
    return codec;
}

Codec Dnxhd() {
    Codec codec = Video(CodecID::DNxHD, "dnxhd", "dnxhd", {145.0e6, 0.25, 3.0});
    codec.hasBitrate = false;
    VideoCodec& video = *codec.video;
    video.intraOnly = true;
    video.playable = PixelFormat::YUV422P;
    video.smallestWidth = 256;
    video.smallestHeight = 120;
    // Those that take any size, which are progressive.
    video.profiles = {{"dnxhr_lb", "yuv422p"},
                      {"dnxhr_sq", "yuv422p"},
                      {"dnxhr_hq", "yuv422p"},
                      {"dnxhr_hqx", "yuv422p10le"},
                      {"dnxhr_444", "yuv444p10le gbrp10le"}};
    video.needsProfile = true;
    return codec;
}

Codec Mpeg4() {
    Codec codec = Video(CodecID::MPEG4, "mpeg4", "mpeg4", {12.0e6, 0.1, 4.0});
    VideoCodec& video = *codec.video;
    video.playable = PixelFormat::YUV420P;
    video.gopSeconds = SHORT_GOP;
    video.quality = {1, 31, true};
    video.largestWidth = video.largestHeight = 8190;
    // The time base is a 16-bit number.
    video.takesFrameRate = [](const Rate& rate) { return rate.numerator() <= 65535 && rate.denominator() <= 65535; };
    video.codesFields = true;
    return codec;
}

Codec Mpeg2() {
    Codec codec = Video(CodecID::MPEG2, "mpeg2", "mpeg2video", {16.0e6, 0.15, 4.0});
    VideoCodec& video = *codec.video;
    video.playable = PixelFormat::YUV420P;
    video.gopSeconds = SHORT_GOP;
    video.quality = {1, 31, true};
    video.largestWidth = video.largestHeight = 16382;
    // 12 bits of a side stand in a sequence's header, and may not be all zero.
    video.takesSide = [](int pixels) { return pixels % 4096 != 0; };
    // Those that it has a code for.
    video.takesFrameRate = [](const Rate& rate) {
        const std::initializer_list<Rate> coded{{24000, 1001}, 24, 25, {30000, 1001}, 30, 50, {60000, 1001}, 60};
        return std::find(coded.begin(), coded.end(), rate) != coded.end();
    };
    video.codesFields = true;
    video.profiles = {{"main", "yuv420p"}, {"422", "yuv422p"}};
    return codec;
}

Codec Mjpeg() {
    Codec codec = Video(CodecID::MJPEG, "mjpeg", "mjpeg", {75.0e6, 0.2, 3.0});
    VideoCodec& video = *codec.video;
    video.intraOnly = true;
    video.playable = PixelFormat::YUVJ420P;
    video.quality = {1, 31, true};
    return codec;
}

Codec Ffv1() {
    Codec codec = Video(CodecID::FFV1, "ffv1", "ffv1", {450.0e6, 0.2, 2.0});
    codec.hasBitrate = false;
    VideoCodec& video = *codec.video;
    video.intraOnly = true;
    video.lossless = true;
    video.oddSides = OddSides::Taken; // it has no grid of blocks or chroma that sides must fit
    video.codesFields = true;
    return codec;
}

Codec Gif() {
    Codec codec = Video(CodecID::GIF, "gif", "gif", {60.0e6, 0.05, 4.0});
    codec.hasBitrate = false;
    VideoCodec& video = *codec.video;
    video.playable = PixelFormat::BGRA; // palettes are made of it
    video.oddSides = OddSides::Taken;
    // A picture lasts whole hundredths of a second, and players take a single one for a mistake.
    video.takesFrameRate = [](const Rate& rate) {
        return rate >= 1 && rate <= 50 && (Rate(100) / rate).denominator() == 1;
    };
    return codec;
}

Codec Png() {
    Codec codec = Video(CodecID::PNG, "png", "png", {700.0e6, 0.05, 3.0});
    codec.hasBitrate = false;
    VideoCodec& video = *codec.video;
    video.intraOnly = true;
    video.lossless = true;
    video.ofStandardRange = true;
    video.oddSides = OddSides::Taken;
    return codec;
}

Codec Webp() {
    Codec codec = Video(CodecID::WebP, "webp", "webp", {27.0e6, 0.05, 20.0});
    codec.hasBitrate = false;
    VideoCodec& video = *codec.video;
    video.intraOnly = true;
    video.ofStandardRange = true;
    video.playable = PixelFormat::YUV420P;
    video.quality = {100, 1, true};
    video.largestWidth = video.largestHeight = 16383;
    video.oddSides = OddSides::Taken;
    // A picture lasts whole milliseconds, in 24 bits, and browsers show what lasts less than eleven for a tenth of a
    // second.
    video.takesFrameRate = [](const Rate& rate) { return rate * 11 <= 1000 && rate * 16'777'215 >= 1000; };
    video.profiles = {{"lossy", "yuv420p yuva420p"}, {"lossless", "bgra"}};
    return codec;
}

constexpr double NO_LIMIT = 1.0e12;

std::vector<int> RatesUpTo(int highest) {
    std::vector<int> rates{8000, 11025, 12000, 16000, 22050, 24000, 32000, 44100, 48000, 88200, 96000, 176400, 192000};
    rates.erase(std::upper_bound(rates.begin(), rates.end(), highest), rates.end());
    return rates;
}

Codec Audio(CodecID id, const char* name, const AudioBitrates& bitrates, int highestRate) {
    Codec codec;
    codec.id = id;
    codec.name = codec.avName = name;
    AudioCodec& audio = codec.audio.emplace();
    audio.bitrates = bitrates;
    audio.sampleRates = RatesUpTo(highestRate);
    audio.layouts = {CHANNEL_LAYOUT_MONO,    CHANNEL_LAYOUT_STEREO,  CHANNEL_LAYOUT_QUAD,
                     CHANNEL_LAYOUT_5POINT0, CHANNEL_LAYOUT_5POINT1, CHANNEL_LAYOUT_7POINT1};
    return codec;
}

/// From near silence, or all of it, to what the samples themselves take.
Codec LosslessAudio(CodecID id, const char* name, double leastBits, double mostBits) {
    Codec codec =
        Audio(id, name, {leastBits * 48'000, mostBits * 48'000, true, 0, NO_LIMIT}, std::numeric_limits<int>::max());
    codec.hasBitrate = false;
    codec.audio->lossless = true;
    return codec;
}

Codec Aac() {
    // 6144 bits a frame of 1024 samples and channel.
    return Audio(CodecID::AAC, "aac", {16'000, 288'000, true, 0, NO_LIMIT}, 96000);
}

Codec Opus() {
    Codec codec = Audio(CodecID::Opus, "opus", {6'000, 256'000, false, 0, 510'000}, 48000);
    codec.audio->sampleRates = {48000}; // it takes others, but every decoder gives this one
    return codec;
}

Codec Mp3() {
    Codec codec = Audio(CodecID::MP3, "mp3", {16'000, 320'000, false, 32'000, 320'000}, 48000);
    codec.audio->layouts = {CHANNEL_LAYOUT_MONO, CHANNEL_LAYOUT_STEREO};
    // There is a table for full sample rates, one for halves of them, and only the start of that for quarters.
    codec.audio->bitrateSteps = [](int sampleRate) -> std::vector<int> {
        if (sampleRate >= 32000)
            return {32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
        if (sampleRate >= 16000)
            return {8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160};
        return {8, 16, 24, 32, 40, 48, 56, 64};
    };
    return codec;
}

Codec Vorbis() {
    Codec codec =
        Audio(CodecID::Vorbis, "vorbis", {24'000, 240'000, true, 0, NO_LIMIT}, 48000); // higher at a quality only
    codec.audio->bitrates.highestAt = [](double sampleRate) -> double {
        if (sampleRate < 9'000)
            return 32'000;
        if (sampleRate < 15'000)
            return 44'000;
        return sampleRate < 26'000 ? 86'000 : sampleRate < 40'000 ? 190'000 : 240'000;
    };
    return codec;
}

Codec Ac3() {
    Codec codec = Audio(CodecID::AC3, "ac3", {32'000, 320'000, false, 32'000, 640'000}, 48000);
    codec.audio->sampleRates = {32000, 44100, 48000};
    codec.audio->layouts.pop_back();
    codec.audio->bitrateSteps = [](int) -> std::vector<int> {
        return {32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384, 448, 512, 576, 640};
    };
    return codec;
}

Codec Alac() {
    Codec codec = LosslessAudio(CodecID::ALAC, "alac", 0.3 * 24, 24);
    codec.audio->layouts = {CHANNEL_LAYOUT_MONO, CHANNEL_LAYOUT_STEREO, CHANNEL_LAYOUT_5POINT0, CHANNEL_LAYOUT_5POINT1};
    return codec;
}

Codec Pcm() {
    Codec codec = LosslessAudio(CodecID::PCM, "pcm", 8, 64);
    codec.avName = "pcm_s16le"; // where nothing is said of bits
    return codec;
}

} // namespace

const std::vector<Codec>& Codec::All() {
    static const auto& table = *new std::vector<Codec>{
        H264(),
        Hevc(),
        Vp9(),
        ProRes(),
        Mpeg4(),
        Av1(),
        Vp8(),
        Mpeg2(),
        Ffv1(),
        Dnxhd(),
        Mjpeg(),
        Gif(),
        Png(),
        Webp(),
        Aac(),
        Opus(),
        Mp3(),
        LosslessAudio(CodecID::FLAC, "flac", 0.3 * 24, 24),
        LosslessAudio(CodecID::PCM_S16LE, "pcm_s16le", 16, 16),
        LosslessAudio(CodecID::PCM_S24LE, "pcm_s24le", 24, 24),
        Vorbis(),
        Ac3(),
        Alac(),
        Pcm(),
    };
    return table;
}

const Codec* Codec::Find(CodecID id) {
    const auto found = std::find_if(All().begin(), All().end(), [id](const Codec& codec) { return codec.id == id; });
    return found == All().end() ? nullptr : &*found;
}

const Codec* Codec::Find(const std::string& name) {
    const auto found =
        std::find_if(All().begin(), All().end(), [&name](const Codec& codec) { return name == codec.name; });
    return found == All().end() ? nullptr : &*found;
}

const VideoCodec* Codec::FindVideo(CodecID id) {
    const Codec* const codec = Find(id);
    return codec && codec->video ? &*codec->video : nullptr;
}

const AudioCodec* Codec::FindAudio(CodecID id) {
    const Codec* const codec = Find(id);
    return codec && codec->audio ? &*codec->audio : nullptr;
}

} // namespace Kestra::Conf
