#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/Conf/SampleInfo.h"
#include <algorithm>

namespace Kestra::ClientAPI {

namespace {

using Conf::CodecID;
using Rate = boost::rational<long long>;

/// The time base of MPEG-4 Visual is a 16-bit number.
constexpr long long HIGHEST_MPEG4_TIME_BASE = 65535;
constexpr int SMALLEST_HEVC_SIDE = 16;
constexpr int SMALLEST_HEVC_BLOCK = 32;
constexpr int LONGEST_HEVC_SIDE_OF_SMALL_BLOCKS = 4216;
constexpr int SMALLEST_DNXHR_WIDTH = 256;
constexpr int SMALLEST_DNXHR_HEIGHT = 120;
/// libvpx and AV1 count a frame's period in a unit of at most a billionth of a second.
constexpr long long FINEST_VPX_TIME_BASE = 1'000'000'000;
constexpr int HIGHEST_AV1_RATE = 240;

const std::vector<int>& UsualSampleRates() {
    static const std::vector<int> rates{8000,  11025, 12000, 16000, 22050,  24000, 32000,
                                        44100, 48000, 88200, 96000, 176400, 192000};
    return rates;
}

const std::vector<std::uint32_t>& UsualLayouts() {
    static const std::vector<std::uint32_t> layouts{Conf::CHANNEL_LAYOUT_MONO,    Conf::CHANNEL_LAYOUT_STEREO,
                                                    Conf::CHANNEL_LAYOUT_QUAD,    Conf::CHANNEL_LAYOUT_5POINT0,
                                                    Conf::CHANNEL_LAYOUT_5POINT1, Conf::CHANNEL_LAYOUT_7POINT1};
    return layouts;
}

std::vector<int> RatesUpTo(int highest) {
    const std::vector<int>& all = UsualSampleRates();
    return {all.begin(), std::upper_bound(all.begin(), all.end(), highest)};
}

constexpr int HIGHEST_AV1_PICTURE = 8704;

int LargestSide(CodecID codec) {
    switch (codec) {
    case CodecID::MPEG4:
        return 8190;
    case CodecID::MPEG2:
    case CodecID::VP8:
        return 16382;
    default:
        return 16384;
    }
}

struct Profile {
    CodecID codec;
    const char* name;
    const char* pixelFormats; ///< separated by blanks
};

// A profile is an upper bound to some encoders, which then write the lower one that suffices: with these formats they
// write the profile itself.
constexpr Profile PROFILES[] = {
    {CodecID::H264, "baseline", "yuv420p nv12 yuvj420p"},
    {CodecID::H264, "main", "yuv420p nv12 yuvj420p"},
    {CodecID::H264, "high", "yuv420p nv12 yuvj420p"},
    {CodecID::H264, "high10", "yuv420p10le"},
    {CodecID::H264, "high422", "yuv422p yuv422p10le"},
    {CodecID::H264, "high444", "yuv444p yuv444p10le"},
    {CodecID::HEVC, "main", "yuv420p yuvj420p"},
    {CodecID::HEVC, "main10", "yuv420p10le"},
    {CodecID::HEVC, "main12", "yuv420p12le"},
    {CodecID::HEVC, "main422-10", "yuv422p10le"},
    {CodecID::HEVC, "main422-12", "yuv422p12le"},
    {CodecID::HEVC, "main444-8", "yuv444p gbrp"},
    {CodecID::HEVC, "main444-10", "yuv444p10le gbrp10le"},
    {CodecID::HEVC, "main444-12", "yuv444p12le"},
    {CodecID::VP9, "0", "yuv420p"},
    {CodecID::VP9, "1", "yuv422p yuv444p gbrp"},
    {CodecID::VP9, "2", "yuv420p10le yuv420p12le"},
    {CodecID::VP9, "3", "yuv422p10le yuv444p10le yuv422p12le yuv444p12le gbrp10le"},
    {CodecID::MPEG2, "main", "yuv420p"},
    {CodecID::MPEG2, "422", "yuv422p"},
    {CodecID::ProRes, "proxy", "yuv422p10le"},
    {CodecID::ProRes, "lt", "yuv422p10le"},
    {CodecID::ProRes, "standard", "yuv422p10le"},
    {CodecID::ProRes, "hq", "yuv422p10le"},
    {CodecID::ProRes, "4444", "yuv444p10le yuva444p10le"},
    {CodecID::ProRes, "4444xq", "yuv444p10le yuva444p10le"},
    {CodecID::DNxHD, "dnxhr_lb", "yuv422p"},
    {CodecID::DNxHD, "dnxhr_sq", "yuv422p"},
    {CodecID::DNxHD, "dnxhr_hq", "yuv422p"},
    {CodecID::DNxHD, "dnxhr_hqx", "yuv422p10le"},
    {CodecID::DNxHD, "dnxhr_444", "yuv444p10le gbrp10le"},
};

bool HasWord(const std::string& words, const std::string& word) {
    return (" " + words + " ").find(" " + word + " ") != std::string::npos;
}

/// The rates that MPEG-2 has a code for.
bool IsMpeg2Rate(const Rate& rate) {
    static const std::vector<Rate> rates{{24000, 1001}, 24, 25, {30000, 1001}, 30, 50, {60000, 1001}, 60};
    return std::find(rates.begin(), rates.end(), rate) != rates.end();
}

std::vector<std::int64_t> Kilobits(std::initializer_list<int> steps) {
    std::vector<std::int64_t> result;
    for (const int step : steps)
        result.push_back(std::int64_t{1000} * step);
    return result;
}

/// MP3 has a table for full sample rates, one for halves of them, and only the start of that for quarters.
std::vector<std::int64_t> Mp3Steps(int sampleRate) {
    if (sampleRate >= 32000)
        return Kilobits({32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320});
    if (sampleRate >= 16000)
        return Kilobits({8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160});
    return Kilobits({8, 16, 24, 32, 40, 48, 56, 64});
}

} // namespace

QualityRange CodecLimits::VideoQuality(CodecID codec) {
    switch (codec) {
    case CodecID::H264:
    case CodecID::HEVC:
        return {1, 51, true};
    case CodecID::VP8:
        return {4, 63, false}; // its encoder's lowest quantiser
    case CodecID::VP9:
    case CodecID::AV1:
        return {1, 63, false};
    case CodecID::MPEG4:
    case CodecID::MPEG2:
    case CodecID::MJPEG:
        return {1, 31, true};
    default:
        return {};
    }
}

bool CodecLimits::HasBitrate(CodecID codec) {
    switch (codec) {
    case CodecID::None:
    case CodecID::ProRes:
    case CodecID::DNxHD:
    case CodecID::FFV1:
    case CodecID::FLAC:
    case CodecID::ALAC:
    case CodecID::PCM_S16LE:
    case CodecID::PCM_S24LE:
    case CodecID::PCM:
        return false;
    default:
        return true;
    }
}

int CodecLimits::SmallestSide(CodecID codec) {
    return codec == CodecID::HEVC ? SMALLEST_HEVC_SIDE : 2;
}

bool CodecLimits::TakesWidth(CodecID codec, int pixels) {
    const int smallest = codec == CodecID::DNxHD ? SMALLEST_DNXHR_WIDTH : SmallestSide(codec);
    // 12 bits of a side stand in a sequence's header, and may not be all zero.
    const bool written = codec != CodecID::MPEG2 || pixels % 4096 != 0;
    return pixels >= smallest && pixels <= LargestSide(codec) && written;
}

bool CodecLimits::TakesHeight(CodecID codec, int pixels) {
    if (codec == CodecID::DNxHD)
        return pixels >= SMALLEST_DNXHR_HEIGHT && pixels <= LargestSide(codec);
    if (codec == CodecID::AV1)
        return pixels >= SmallestSide(codec) && pixels <= HIGHEST_AV1_PICTURE;
    return TakesWidth(codec, pixels);
}

// The levels of HEVC for longer sides have no blocks of less than 32 pixels, which no smaller picture can be made of.
bool CodecLimits::TakesSize(CodecID codec, int width, int height) {
    return codec != CodecID::HEVC || std::min(width, height) >= SMALLEST_HEVC_BLOCK ||
           std::max(width, height) <= LONGEST_HEVC_SIDE_OF_SMALL_BLOCKS;
}

std::vector<std::string> CodecLimits::Profiles(CodecID codec) {
    std::vector<std::string> names;
    for (const Profile& profile : PROFILES) {
        if (profile.codec == codec)
            names.emplace_back(profile.name);
    }
    return names;
}

bool CodecLimits::ProfileTakes(CodecID codec, const std::string& profile, const std::string& pixelFormat) {
    for (const Profile& known : PROFILES) {
        if (known.codec == codec && profile == known.name)
            return HasWord(known.pixelFormats, pixelFormat);
    }
    return false;
}

bool CodecLimits::CodesFields(CodecID codec) {
    // The profiles of DNxHD that take any size are progressive.
    return codec == CodecID::H264 || codec == CodecID::MPEG2 || codec == CodecID::MPEG4 || codec == CodecID::ProRes ||
           codec == CodecID::FFV1;
}

bool CodecLimits::TakesFrameRate(CodecID codec, const Rate& rate) {
    if (rate <= 0)
        return false;
    if (codec == CodecID::MPEG2)
        return IsMpeg2Rate(rate);
    if (codec == CodecID::VP8 || codec == CodecID::VP9)
        return rate.numerator() <= FINEST_VPX_TIME_BASE;
    if (codec == CodecID::AV1)
        return rate >= 1 && rate <= HIGHEST_AV1_RATE && rate.numerator() <= FINEST_VPX_TIME_BASE;
    return codec != CodecID::MPEG4 ||
           (rate.numerator() <= HIGHEST_MPEG4_TIME_BASE && rate.denominator() <= HIGHEST_MPEG4_TIME_BASE);
}

std::vector<int> CodecLimits::SampleRates(CodecID codec) {
    switch (codec) {
    case CodecID::AAC:
        return RatesUpTo(96000);
    case CodecID::MP3:
    case CodecID::Vorbis: // higher ones at a quality only
        return RatesUpTo(48000);
    case CodecID::Opus:
        return {48000}; // it takes others, but every decoder gives this one
    case CodecID::AC3:
        return {32000, 44100, 48000};
    case CodecID::None:
        return {};
    default:
        return Conf::IsVideoCodec(codec) ? std::vector<int>() : UsualSampleRates();
    }
}

std::vector<std::uint32_t> CodecLimits::ChannelLayouts(CodecID codec) {
    if (codec == CodecID::None || Conf::IsVideoCodec(codec))
        return {};
    std::vector<std::uint32_t> layouts = UsualLayouts();
    const auto leaveOut = [&layouts](std::uint32_t layout) {
        layouts.erase(std::remove(layouts.begin(), layouts.end(), layout), layouts.end());
    };
    if (codec == CodecID::MP3)
        return {Conf::CHANNEL_LAYOUT_MONO, Conf::CHANNEL_LAYOUT_STEREO};
    if (codec == CodecID::AC3 || codec == CodecID::ALAC)
        leaveOut(Conf::CHANNEL_LAYOUT_7POINT1);
    if (codec == CodecID::ALAC)
        leaveOut(Conf::CHANNEL_LAYOUT_QUAD);
    return layouts;
}

std::vector<std::int64_t> CodecLimits::AudioBitrateSteps(CodecID codec, int sampleRate) {
    if (codec == CodecID::MP3)
        return Mp3Steps(sampleRate);
    if (codec == CodecID::AC3)
        return Kilobits({32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384, 448, 512, 576, 640});
    return {};
}

} // namespace Kestra::ClientAPI
