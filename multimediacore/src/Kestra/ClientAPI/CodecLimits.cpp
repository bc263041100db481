// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/ClientAPI/CodecLimits.h"

#include "Kestra/Conf/PixelFormat.h"
#include <algorithm>

namespace Kestra::ClientAPI {

namespace {

using Conf::AudioCodec;
using Conf::Codec;
using Conf::CodecID;
using Conf::VideoCodec;

/// Without limits where the codec is none for pictures.
const VideoCodec& VideoOf(CodecID codec) {
    static const auto& unlimited = *new VideoCodec;
    const VideoCodec* const video = Codec::FindVideo(codec);
    return video ? *video : unlimited;
}

/// Likewise for sound.
const AudioCodec& AudioOf(CodecID codec) {
    static const auto& none = *new AudioCodec;
    const AudioCodec* const audio = Codec::FindAudio(codec);
    return audio ? *audio : none;
}

bool HasWord(const std::string& words, const std::string& word) {
    return (" " + words + " ").find(" " + word + " ") != std::string::npos;
}

bool TakesSide(const VideoCodec& codec, int pixels, int smallest, int largest) {
    return pixels >= smallest && pixels <= largest && (!codec.takesSide || codec.takesSide(pixels));
}

bool HasFullChroma(const std::string& pixelFormat) {
    const auto* const format = Conf::PixelFormatRecord::Find(Conf::PixelFormatFromString(pixelFormat));
    return format && format->chromaShiftX + format->chromaShiftY == 0;
}

} // namespace

QualityRange CodecLimits::VideoQuality(CodecID codec) {
    return VideoOf(codec).quality;
}

bool CodecLimits::HasBitrate(CodecID codec) {
    const Codec* const known = Codec::Find(codec);
    return known && known->hasBitrate;
}

int CodecLimits::SmallestSide(CodecID codec) {
    return std::min(VideoOf(codec).smallestWidth, VideoOf(codec).smallestHeight);
}

bool CodecLimits::TakesWidth(CodecID codec, int pixels) {
    const VideoCodec& video = VideoOf(codec);
    return TakesSide(video, pixels, video.smallestWidth, video.largestWidth);
}

bool CodecLimits::TakesHeight(CodecID codec, int pixels) {
    const VideoCodec& video = VideoOf(codec);
    return TakesSide(video, pixels, video.smallestHeight, video.largestHeight);
}

bool CodecLimits::TakesSize(CodecID codec, int width, int height) {
    const VideoCodec& video = VideoOf(codec);
    return !video.takesSize || video.takesSize(width, height);
}

bool CodecLimits::TakesOddSides(CodecID codec, const std::string& pixelFormat) {
    const VideoCodec::OddSides odd = VideoOf(codec).oddSides;
    return odd == VideoCodec::OddSides::Taken ||
           (odd == VideoCodec::OddSides::WithFullChroma && HasFullChroma(pixelFormat));
}

std::vector<std::string> CodecLimits::Profiles(CodecID codec) {
    std::vector<std::string> names;
    for (const Conf::CodecProfile& profile : VideoOf(codec).profiles)
        names.emplace_back(profile.name);
    return names;
}

bool CodecLimits::NeedsProfile(CodecID codec) {
    return VideoOf(codec).needsProfile;
}

bool CodecLimits::ProfileTakes(CodecID codec, const std::string& profile, const std::string& pixelFormat) {
    const std::vector<Conf::CodecProfile>& all = VideoOf(codec).profiles;
    return std::any_of(all.begin(), all.end(), [&](const Conf::CodecProfile& known) {
        return profile == known.name && HasWord(known.pixelFormats, pixelFormat);
    });
}

bool CodecLimits::CodesFields(CodecID codec) {
    return VideoOf(codec).codesFields;
}

bool CodecLimits::KeepsAlphaBeside(CodecID codec) {
    return VideoOf(codec).alphaBeside;
}

bool CodecLimits::IsLossless(CodecID codec) {
    return VideoOf(codec).lossless || AudioOf(codec).lossless;
}

bool CodecLimits::IsOfStandardRange(CodecID codec) {
    return VideoOf(codec).ofStandardRange;
}

bool CodecLimits::TakesFrameRate(CodecID codec, const boost::rational<long long>& rate) {
    const VideoCodec& video = VideoOf(codec);
    return rate > 0 && (!video.takesFrameRate || video.takesFrameRate(rate));
}

std::vector<int> CodecLimits::SampleRates(CodecID codec) {
    return AudioOf(codec).sampleRates;
}

std::vector<std::uint32_t> CodecLimits::ChannelLayouts(CodecID codec) {
    return AudioOf(codec).layouts;
}

std::vector<std::int64_t> CodecLimits::AudioBitrateSteps(CodecID codec, int sampleRate) {
    std::vector<std::int64_t> steps;
    const auto inKilobits = AudioOf(codec).bitrateSteps;
    for (const int step : inKilobits ? inKilobits(sampleRate) : std::vector<int>())
        steps.push_back(std::int64_t{1000} * step);
    return steps;
}

} // namespace Kestra::ClientAPI
