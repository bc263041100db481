// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorProject/Descriptions.h"

#include "EditorProject/ExportWindow.h"
#include "EditorProject/SquarePixels.h"
#include "Kestra/Conf/SampleInfo.h"
#include "Kestra/Conf/StandardRates.h"
#include "Render/SampleDepth.h"
#include "Render/SequenceMedia.h"
#include "Timeline/ClipVisit.h"
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

using Kind = Timeline::Track::Kind;
using Source = Render::MediaPool::Source;

bool has(const Proc::MediaInfo& info, Kind kind) {
    return kind == Kind::Video ? info.video.has_value() : info.audio.has_value();
}

/// The first one anywhere; null where there is none.
Source firstOf(const Render::Sequence& sequence, Kind kind) {
    Source found;
    Timeline::visitClips(*sequence.document->tracks,
                         [&](const Timeline::Track& track, const Timeline::Item& item, const Timeline::Clip& clip) {
                             if (found || track.kind() != kind || !track.isEnabled() || !item.enabled)
                                 return;
                             const Source source = sequence.media->open(clip.media);
                             if (source && has(source->GetInfo(), kind))
                                 found = source;
                         });
    return found;
}

/// In which the timeline tells the times of the first clip that shows the medium, or of any where there is none; 0
/// where it does not.
Rate toldRate(const Render::Sequence& sequence, const Source& medium) {
    Rate told = 0;
    Timeline::visitClips(
        *sequence.document->tracks, [&](const Timeline::Track& track, const auto&, const Timeline::Clip& clip) {
            if (told == 0 && track.kind() == Kind::Video && (!medium || sequence.media->open(clip.media) == medium))
                told = clip.rate.value_or(0);
        });
    return told;
}

/// Still pictures have no rate of their own.
Rate rateOf(const Render::Sequence& sequence, const Source& medium) {
    const bool isMoving = medium && !medium->GetInfo().video->stillPicture;
    const Rate rate = isMoving ? medium->GetInfo().video->frameRate : toldRate(sequence, medium);
    return isRate(rate) ? rate : DEFAULT_RATE;
}

// Without pictures, and for less than two of them, the range is not on a grid of frames.
ExportWindow windowOf(const Render::Sequence& sequence, const Types::Range& range) {
    const Ticks duration = sequence.document->duration();
    const ExportWindow exact(range, duration, std::nullopt);
    const Source pictures = firstOf(sequence, Kind::Video);
    if (!pictures)
        return exact;
    const FrameGrid grid(rateOf(sequence, pictures));
    const bool holdsFrames = grid.Nearest(exact.end() - exact.start()) > FrameIndex(1);
    return holdsFrames ? ExportWindow(range, duration, grid) : exact;
}

/// There is no window on it.
bool isEmpty(const Render::Sequence& sequence, const Types::Range& range) {
    return sequence.document->duration() == Ticks(0) && range.end <= range.start;
}

std::vector<Source> seenIn(const Render::Sequence& sequence, const Types::Range& range) {
    if (isEmpty(sequence, range))
        return {};
    return Render::mediaSeen(sequence, windowOf(sequence, range));
}

std::vector<Source> heardIn(const Render::Sequence& sequence, const Types::Range& range) {
    if (isEmpty(sequence, range))
        return {};
    return Render::mediaHeard(sequence, windowOf(sequence, range), SampleGrid(DEFAULT_SAMPLE_RATE));
}

/// Of further sounds, too.
std::vector<Source> heardInAny(const Render::Sequence& sequence, const Types::Range& range) {
    std::vector<Source> media = heardIn(sequence, range);
    for (const Render::Sequence& further : sequence.furtherSounds)
        for (const Source& source : heardIn(further, range))
            media.push_back(source);
    return media;
}

/// One has no more channels than the other where nobody says where they are heard.
int channelsOf(std::uint32_t layout) {
    return Conf::IsDiscreteLayout(layout) ? 0 : Conf::CountChannels(layout);
}

/// Where sounds are heard together none of them is to lose by which one begins: the widest layout and the highest rate.
void widen(Media::Audio& audio, const std::vector<Source>& media) {
    for (const Source& medium : media) {
        const Proc::AudioTrackInfo& track = *medium->GetInfo().audio;
        audio.sampleRate = std::max(audio.sampleRate, track.sampleRate);
        if (channelsOf(track.channelLayout) > channelsOf(audio.channelLayout) &&
            !Conf::IsDiscreteLayout(audio.channelLayout))
            audio.channelLayout = track.channelLayout;
    }
}

} // namespace

Media::Video describeVideo(const Render::Sequence& sequence, const Types::Range& range) {
    Media::Video video;
    setFrame(video, DEFAULT_FRAME);
    const std::vector<Source> media = seenIn(sequence, range);
    const Source found = media.empty() ? firstOf(sequence, Kind::Video) : media.front();
    setRate(video, rateOf(sequence, found));
    if (!found)
        return video;
    const Proc::VideoTrackInfo& track = *found->GetInfo().video;
    if (track.frame.width && track.frame.height)
        setFrame(video, track.frame);
    return sequence.squarePixels ? inSquarePixels(video) : video;
}

std::vector<SeenPictures> picturesIn(const Render::Sequence& sequence, const Types::Range& range) {
    std::vector<SeenPictures> pictures;
    for (const Source& medium : seenIn(sequence, range)) {
        const Proc::VideoTrackInfo& track = *medium->GetInfo().video;
        pictures.push_back({medium->GetPath(), track.frame, track.stillPicture ? Rate(0) : track.frameRate});
    }
    return pictures;
}

std::vector<HeardSound> soundsIn(const Render::Sequence& sequence, const Types::Range& range) {
    std::vector<HeardSound> sounds;
    for (const Source& medium : heardIn(sequence, range))
        sounds.push_back({medium->GetPath(), medium->GetInfo().audio->channelLayout});
    return sounds;
}

Media::Audio describeAudio(const Render::Sequence& sequence, const Types::Range& range) {
    Media::Audio audio;
    audio.sampleRate = DEFAULT_SAMPLE_RATE;
    audio.channelLayout = Conf::CHANNEL_LAYOUT_STEREO;
    audio.sampleFormat = Conf::SAMPLE_FORMAT_FLTP;
    const std::vector<Source> media = heardIn(sequence, range);
    const Source found = media.empty() ? firstOf(sequence, Kind::Audio) : media.front();
    if (!found)
        return audio;
    const Proc::AudioTrackInfo& track = *found->GetInfo().audio;
    if (const auto depth = Render::SampleDepth::of(heardInAny(sequence, range));
        depth.format != Conf::SAMPLE_FORMAT_UNKNOWN)
        audio.sampleFormat = depth.format;
    if (track.sampleRate > 0)
        audio.sampleRate = track.sampleRate;
    audio.channelLayout = track.channelLayout;
    if (media.size() > 1 && Render::mixesSound(sequence, windowOf(sequence, range), SampleGrid(DEFAULT_SAMPLE_RATE)))
        widen(audio, media);
    for (const Render::Sequence& further : sequence.furtherSounds)
        audio.sampleRate = std::max(audio.sampleRate, describeAudio(further, range).sampleRate);
    return audio;
}

} // namespace Project
