#include "EditorProject/Descriptions.h"

#include "EditorProject/ExportWindow.h"
#include "EditorProject/SampleDepth.h"
#include "EditorProject/Section.h"
#include "Kestra/Base/Time.h"
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

using Sections = std::vector<Section>;

// All clips, in the order in which they are asked for a description: those in the range first.
template <class Has>
const Clip* firstOf(const Timeline& timeline, const Sections& sections, Has has) {
    for (const Section& section : sections)
        if (has(timeline.clips()[section.clip]))
            return &timeline.clips()[section.clip];
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

Sections allOf(const Timeline& timeline) {
    Sections sections(timeline.clips().size());
    for (std::size_t clip = 0; clip < sections.size(); ++clip)
        sections[clip].clip = clip;
    return sections;
}

// Without pictures, and for less than two of them, the range is not on a grid of frames.
ExportWindow windowOf(const Timeline& timeline, const Types::Range& range) {
    const ExportWindow exact(range, timeline.duration(), 0);
    const Clip* const pictures = firstOf(timeline, {}, hasPicture);
    if (!pictures)
        return exact;
    const Rate rate = isRate(pictures->info.video->frameRate) ? pictures->info.video->frameRate : DEFAULT_RATE;
    const bool holdsFrames = TimeToFrames(exact.end() - exact.start(), rate) > 1;
    return holdsFrames ? ExportWindow(range, timeline.duration(), rate) : exact;
}

Sections picturesIn(const Timeline& timeline, const Types::Range& range) {
    if (range.end <= range.start)
        return allOf(timeline);
    const ExportWindow window = windowOf(timeline, range);
    return window.rate() > 0 ? pictureSections(timeline, window) : Sections();
}

Sections soundsIn(const Timeline& timeline, const Types::Range& range) {
    if (range.end <= range.start)
        return allOf(timeline);
    return soundSections(timeline, windowOf(timeline, range), DEFAULT_SAMPLE_RATE);
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
    const Sections sections = soundsIn(timeline, range);
    const Clip* const found = firstOf(timeline, sections, hasSound);
    if (!found)
        return audio;
    const Proc::AudioTrackInfo& track = *found->info.audio;
    if (const auto depth = SampleDepth::of(timeline, sections); depth.format != Conf::SAMPLE_FORMAT_UNKNOWN)
        audio.sampleFormat = depth.format;
    if (track.sampleRate > 0)
        audio.sampleRate = track.sampleRate;
    audio.channelLayout = track.channelLayout;
    return audio;
}

} // namespace Project
