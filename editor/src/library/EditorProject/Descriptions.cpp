#include "EditorProject/Descriptions.h"

#include "EditorProject/ExportWindow.h"
#include "EditorProject/SampleDepth.h"
#include "EditorProject/Span.h"
#include "Kestra/Conf/SampleInfo.h"
#include "Kestra/Conf/StandardRates.h"
#include <algorithm>
#include <numeric>
#include <vector>

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

using ClipNumbers = std::vector<std::size_t>;

// All clips, in the order in which they are asked for a description: those in the range first.
template <class Has>
const Clip* firstOf(const Timeline& timeline, const ClipNumbers& numbers, Has has) {
    for (const std::size_t number : numbers)
        if (has(timeline.clips()[number]))
            return &timeline.clips()[number];
    const auto& clips = timeline.clips();
    const auto found = std::find_if(clips.begin(), clips.end(), has);
    return found == clips.end() ? nullptr : &*found;
}

bool hasPicture(const Clip& clip) {
    return clip.info.video.has_value();
}

bool hasSound(const Clip& clip) {
    return clip.info.audio.has_value();
}

ClipNumbers allOf(const Timeline& timeline) {
    ClipNumbers numbers(timeline.clips().size());
    std::iota(numbers.begin(), numbers.end(), std::size_t(0));
    return numbers;
}

// Without pictures, and for less than two of them, the range is not on a grid of frames.
ExportWindow windowOf(const Timeline& timeline, const Types::Range& range) {
    const Ticks duration(timeline.duration());
    const ExportWindow exact(range, duration, std::nullopt);
    const Clip* const pictures = firstOf(timeline, {}, hasPicture);
    if (!pictures)
        return exact;
    const Rate rate = isRate(pictures->info.video->frameRate) ? pictures->info.video->frameRate : DEFAULT_RATE;
    const FrameGrid grid(rate);
    const bool holdsFrames = grid.Nearest(exact.end() - exact.start()) > FrameIndex(1);
    return holdsFrames ? ExportWindow(range, duration, grid) : exact;
}

ClipNumbers picturesIn(const Timeline& timeline, const Types::Range& range) {
    if (range.end <= range.start)
        return allOf(timeline);
    const ExportWindow window = windowOf(timeline, range);
    return window.grid() ? clipsOf(pictureSpans(timeline, window)) : ClipNumbers();
}

ClipNumbers soundsIn(const Timeline& timeline, const Types::Range& range) {
    if (range.end <= range.start)
        return allOf(timeline);
    return clipsOf(soundSpans(timeline, windowOf(timeline, range), SampleGrid(DEFAULT_SAMPLE_RATE)));
}

} // namespace

Media::Video describeVideo(const Timeline& timeline, const Types::Range& range) {
    Media::Video video;
    setFrame(video, DEFAULT_FRAME);
    setRate(video, DEFAULT_RATE);
    const Clip* const found = firstOf(timeline, picturesIn(timeline, range), hasPicture);
    if (!found)
        return video;
    const Proc::VideoTrackInfo& track = *found->info.video;
    if (track.frame.width && track.frame.height)
        setFrame(video, track.frame);
    if (isRate(track.frameRate))
        setRate(video, track.frameRate);
    return video;
}

Media::Audio describeAudio(const Timeline& timeline, const Types::Range& range) {
    Media::Audio audio;
    audio.sampleRate = DEFAULT_SAMPLE_RATE;
    audio.channelLayout = Conf::CHANNEL_LAYOUT_STEREO;
    audio.sampleFormat = Conf::SAMPLE_FORMAT_FLTP;
    const ClipNumbers clips = soundsIn(timeline, range);
    const Clip* const found = firstOf(timeline, clips, hasSound);
    if (!found)
        return audio;
    const Proc::AudioTrackInfo& track = *found->info.audio;
    if (const auto depth = SampleDepth::of(timeline, clips); depth.format != Conf::SAMPLE_FORMAT_UNKNOWN)
        audio.sampleFormat = depth.format;
    if (track.sampleRate > 0)
        audio.sampleRate = track.sampleRate;
    audio.channelLayout = track.channelLayout;
    return audio;
}

} // namespace Project
