// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/OutputEstimate.h"

#include "Export/PresetProvider.h"
#include "Kestra/Base/Time.h"
#include "Kestra/ClientAPI/BitrateLimits.h"
#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/Conf/Codec.h"
#include "Kestra/Conf/SampleInfo.h"
#include "Types/Time.h"
#include <algorithm>
#include <cmath>
#include <string>

// The model and where its numbers come from: docs/bitrates.md.
namespace ExportCore {
namespace {

using Export::BitrateMode;
using Kestra::Conf::CodecID;

struct Rate {
    double bitsPerSecond = 0;
    bool rough = false;
    bool exact = false;
};

/// The default bitrate belongs to `reference`. On a quantiser's scale bits fall as the number grows; elsewhere every
/// `halving` steps take half of them.
struct QualityScale {
    CodecID codec;
    double reference;
    double halving; ///< 0: a quantiser
};

constexpr QualityScale QUALITY_SCALES[] = {
    {CodecID::H264, 21, 6}, {CodecID::HEVC, 23, 6}, {CodecID::VP9, 24, 10}, {CodecID::AV1, 26, 8},
    {CodecID::VP8, 10, 12}, {CodecID::MPEG4, 3, 0}, {CodecID::MPEG2, 3, 0}, {CodecID::MJPEG, 3, 0},
};

/// What a profile takes of the codec's default bitrate.
struct ProfileShare {
    CodecID codec;
    const char* profile;
    double share;
};

constexpr ProfileShare PROFILE_SHARES[] = {
    {CodecID::ProRes, "proxy", 0.31},    {CodecID::ProRes, "lt", 0.70},       {CodecID::ProRes, "standard", 1.0},
    {CodecID::ProRes, "hq", 1.5},        {CodecID::ProRes, "4444", 2.25},     {CodecID::ProRes, "4444xq", 3.4},
    {CodecID::DNxHD, "dnxhr_lb", 0.31},  {CodecID::DNxHD, "dnxhr_sq", 1.0},   {CodecID::DNxHD, "dnxhr_hq", 1.51},
    {CodecID::DNxHD, "dnxhr_hqx", 1.51}, {CodecID::DNxHD, "dnxhr_444", 3.03}, {CodecID::WebP, "lossless", 8.2},
};

/// On libwebp's scale the upper quarter is as long as the rest.
double factorOfWebP(double quality) {
    constexpr double BEND = 75, HIGHEST = 100, EIGHTFOLD = 3;
    const double place = quality < BEND ? quality / BEND / 2 : (quality - BEND) / (HIGHEST - BEND) / 2 + 0.5;
    return std::exp2(EIGHTFOLD * (place - 0.5));
}

double factorOfQuality(CodecID codec, double quality) {
    if (codec == CodecID::WebP && quality > 0)
        return factorOfWebP(quality);
    for (const QualityScale& scale : QUALITY_SCALES)
        if (scale.codec == codec && quality > 0)
            return scale.halving > 0 ? std::exp2((scale.reference - quality) / scale.halving)
                                     : scale.reference / quality;
    return 1;
}

double shareOfProfile(CodecID codec, const std::string& profile) {
    for (const ProfileShare& row : PROFILE_SHARES)
        if (row.codec == codec && profile == row.profile)
            return row.share;
    return 1;
}

/// With what the codec is asked for where no bitrate is.
double factorOf(const Preset& preset) {
    const CodecID codec = preset.videoCodec();
    return preset.videoProfile().empty() || Kestra::ClientAPI::CodecLimits::HasBitrate(codec)
               ? factorOfQuality(codec, preset.videoQuality())
               : shareOfProfile(codec, preset.videoProfile());
}

Rate rateOf(const Export::PresetProvider& provider, const Media::Video& video) {
    const Preset preset = provider.preset();
    const bool ordered = Kestra::ClientAPI::CodecLimits::HasBitrate(preset.videoCodec()) &&
                         preset.videoBitrateMode() != BitrateMode::Quality;
    if (ordered)
        return {static_cast<double>(provider.bitrate(&video).maximum), false};
    const auto standard = Kestra::ClientAPI::GetDefaultVideoBitrate(provider.formatCodec(&video, nullptr));
    return {static_cast<double>(standard) * factorOf(preset), true};
}

int sampleRateOf(const Preset& preset, const Media::Audio& audio) {
    constexpr int USUAL = 48'000;
    const int rate = preset.sampleRate() > 0 ? static_cast<int>(preset.sampleRate()) : audio.sampleRate;
    return rate > 0 ? rate : USUAL;
}

bool isFloatingPoint(const Media::Audio& audio) {
    return std::string(Kestra::Conf::SampleFmtRecord::Find(audio.sampleFormat)->name).find_first_of("fd") == 0;
}

/// A channel's, without compression. Floating point is mostly what was coded with loss, which has no bits of its own.
double bitsOfSamples(const Preset& preset, const Media::Audio& audio) {
    constexpr int WORD = 16, LONG_WORD = 24, BITS_OF_BYTE = 8;
    const int source = Kestra::Conf::SampleFmtRecord::Find(audio.sampleFormat)->bytesPerSample * BITS_OF_BYTE;
    const int known = source > 0 && !isFloatingPoint(audio) ? source : WORD;
    switch (preset.audioCodec()) {
    case CodecID::PCM_S16LE:
        return WORD;
    case CodecID::PCM_S24LE:
        return LONG_WORD;
    case CodecID::PCM:
        return known;
    default:
        return std::min(known, LONG_WORD); // the codecs without loss know no longer ones
    }
}

Rate rateOf(const Export::PresetProvider& provider, const Media::Audio& audio) {
    constexpr int USUAL_CHANNELS = 2;
    constexpr double SHARE_WITHOUT_LOSS = 0.6;
    const Preset preset = provider.preset();
    const CodecID id = preset.audioCodec();
    const Kestra::Conf::AudioCodec* const codec = Kestra::Conf::Codec::FindAudio(id);
    if (!codec || !codec->lossless) // Vorbis takes a bitrate for a quality
        return {static_cast<double>(provider.bitrate(&audio).maximum), id == CodecID::Vorbis};
    const int layout =
        Kestra::Conf::CountChannels(preset.channelLayout() != 0 ? preset.channelLayout() : audio.channelLayout);
    const double samples = static_cast<double>(sampleRateOf(preset, audio)) * (layout > 0 ? layout : USUAL_CHANNELS);
    const bool packs = id == CodecID::FLAC || id == CodecID::ALAC;
    const bool rough = packs || (id == CodecID::PCM && isFloatingPoint(audio));
    return {samples * bitsOfSamples(preset, audio) * (packs ? SHARE_WITHOUT_LOSS : 1), rough, !rough};
}

qint64 bytesOf(const Rate& rate, KTime duration) {
    constexpr double BITS_IN_MILLISECONDS = 8.0 * 1000;
    return std::llround(rate.bitsPerSecond * static_cast<double>(duration.milliseconds()) / BITS_IN_MILLISECONDS);
}

/// What a container tells of itself, and of every frame and packet of sound.
qint64 overheadOf(const OutputEstimate& estimate, int sounds) {
    constexpr qint64 HEAD = 4096, OF_PACKET = 16, PACKETS_A_SECOND = 47;
    const qint64 packets = estimate.audioBytes > 0 ? estimate.duration.milliseconds() * PACKETS_A_SECOND / 1000 : 0;
    return HEAD + OF_PACKET * (estimate.frames + sounds * packets);
}

} // namespace

OutputEstimate OutputEstimate::of(const Export::PresetProvider& provider, const Media::Video* video,
                                  const Media::Audio* audio, KTime duration, int sounds) {
    OutputEstimate estimate;
    estimate.duration = std::max(duration, KTime(0));
    if (provider.videoExists(video)) {
        const Rate rate = rateOf(provider, *video);
        const auto frames = provider.frameRate(video);
        estimate.frames = frames > 0 ? Kestra::TimeToFrames(Types::toAvTime(estimate.duration), frames) : 0;
        estimate.videoBytes = bytesOf(rate, estimate.duration);
        estimate.rough = rate.rough;
    }
    if (provider.audioExists(audio)) {
        const Rate rate = rateOf(provider, *audio);
        estimate.audioBytes = sounds * bytesOf(rate, estimate.duration);
        estimate.rough = estimate.rough || rate.rough;
        estimate.exact = rate.exact && estimate.videoBytes == 0;
    }
    estimate.sizeBytes = estimate.videoBytes + estimate.audioBytes + overheadOf(estimate, sounds);
    return estimate;
}

void OutputEstimate::learn(qint64 bytes, double part) {
    constexpr qint64 ENOUGH = 1 << 18; // bytes, of which what a file begins with is little
    constexpr double TELLING = 0.2;
    if (rough && bytes > 0 && part > 0 && (bytes >= ENOUGH || part >= TELLING))
        resize(std::llround(static_cast<double>(bytes) / part));
}

void OutputEstimate::know(qint64 bytes) {
    if (bytes <= 0)
        return;
    resize(bytes);
    rough = false;
}

void OutputEstimate::resize(qint64 bytes) {
    const double ratio = static_cast<double>(bytes) / static_cast<double>(std::max<qint64>(sizeBytes, 1));
    videoBytes = std::llround(static_cast<double>(videoBytes) * ratio);
    audioBytes = std::llround(static_cast<double>(audioBytes) * ratio);
    sizeBytes = bytes;
}

} // namespace ExportCore
