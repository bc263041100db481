#include "EditorProject/Descriptions.h"

#include "EditorProject/SampleDepth.h"
#include "Kestra/Conf/SampleInfo.h"
#include "Kestra/Conf/StandardRates.h"
#include <algorithm>
#include <numeric>

namespace Project {
namespace {

using namespace Kestra;
using Rate = boost::rational<long long>;

constexpr Conf::FrameInfo DEFAULT_FRAME{1920, 1080, 16, 9};
constexpr int DEFAULT_SAMPLE_RATE = 48000;
const Rate DEFAULT_RATE(25);
constexpr long long LARGEST_TERM = 0xFFFFFFFFLL;

bool isRate(const Rate& rate) {
    return rate > 0 && rate <= Conf::HIGHEST_FRAME_RATE && rate.numerator() <= LARGEST_TERM &&
           rate.denominator() <= LARGEST_TERM;
}

void setFrame(Media::Video& video, const Conf::FrameInfo& frame) {
    video.width = frame.width;
    video.height = frame.height;
    video.aspectNumerator = frame.aspectNumerator;
    video.aspectDenominator = frame.aspectDenominator;
    if (frame.aspectNumerator && frame.aspectDenominator)
        return;
    const std::uint32_t common = std::max(1U, std::gcd(frame.width, frame.height)); // square pixels
    video.aspectNumerator = frame.width / common;
    video.aspectDenominator = frame.height / common;
}

void setRate(Media::Video& video, const Rate& rate) {
    video.frameRateNumerator = static_cast<std::uint32_t>(rate.numerator());
    video.frameRateDenominator = static_cast<std::uint32_t>(rate.denominator());
}

} // namespace

Media::Video describeVideo(const Timeline& timeline) {
    Media::Video video;
    setFrame(video, DEFAULT_FRAME);
    setRate(video, DEFAULT_RATE);
    const auto& clips = timeline.clips();
    const auto found =
        std::find_if(clips.begin(), clips.end(), [](const Clip& clip) { return clip.info.video.has_value(); });
    if (found == clips.end())
        return video;
    const Proc::VideoTrackInfo& track = *found->info.video;
    if (track.frame.width && track.frame.height)
        setFrame(video, track.frame);
    if (isRate(track.frameRate))
        setRate(video, track.frameRate);
    return video;
}

Media::Audio describeAudio(const Timeline& timeline) {
    Media::Audio audio;
    audio.sampleRate = DEFAULT_SAMPLE_RATE;
    audio.channelLayout = Conf::CHANNEL_LAYOUT_STEREO;
    audio.sampleFormat = Conf::SAMPLE_FORMAT_FLTP;
    const auto& clips = timeline.clips();
    const auto found =
        std::find_if(clips.begin(), clips.end(), [](const Clip& clip) { return clip.info.audio.has_value(); });
    if (found == clips.end())
        return audio;
    const Proc::AudioTrackInfo& track = *found->info.audio;
    if (const auto depth = SampleDepth::of(timeline); depth.format != Conf::SAMPLE_FORMAT_UNKNOWN)
        audio.sampleFormat = depth.format;
    if (track.sampleRate > 0)
        audio.sampleRate = track.sampleRate;
    audio.channelLayout = track.channelLayout;
    return audio;
}

} // namespace Project
