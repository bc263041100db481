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
        return false;
    default:
        return true;
    }
}

int CodecLimits::SmallestSide(CodecID codec) {
    return codec == CodecID::HEVC ? SMALLEST_HEVC_SIDE : 2;
}

bool CodecLimits::TakesFrameRate(CodecID codec, const Rate& rate) {
    if (rate <= 0)
        return false;
    if (codec == CodecID::MPEG2)
        return IsMpeg2Rate(rate);
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
        return {8000, 12000, 16000, 24000, 48000};
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
