// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Av/DecoderPreroll.h"

#include <algorithm>

namespace Kestra::FF {

namespace {

constexpr int MP3_FRAME = 1152;
constexpr int OPUS_SETTLING_MILLISECONDS = 80;
constexpr int LONGEST_VORBIS_OVERLAP = 4096;
constexpr int USUAL_FRAME = 1024;
constexpr int AAC_PRIMING = 2112; // of a decoder that counts frames of 1024
constexpr int MP3_PRIMING = MP3_FRAME + 529;
constexpr int LAME_PRIMING = 576 + 529;
constexpr int MP2_PRIMING = 481;
constexpr int AC3_PRIMING = 256;
constexpr int OPUS_PRIMING_MICROSECONDS = 6500;
constexpr int LONGEST_USUAL_VORBIS_BLOCK = 2048;

// Such a codec gives as many samples as were put in. WavPack does where it loses something, too: it predicts samples
// one by one. DTS overlaps its blocks, also where it stores what they lost.
bool KeepsCount(AVCodecID codec) {
    if (codec == AV_CODEC_ID_WAVPACK)
        return true;
    const AVCodecDescriptor* descriptor = avcodec_descriptor_get(codec);
    return descriptor && (descriptor->props & AV_CODEC_PROP_LOSSLESS) && !(descriptor->props & AV_CODEC_PROP_LOSSY);
}

} // namespace

// A transform overlaps its neighbour; MP3 also borrows bits of earlier packets, yet more than three of its packets
// would not fit the field in which its container says how much to skip.
std::int64_t PrerollSamples(const AVCodecParameters& parameters) noexcept {
    switch (parameters.codec_id) {
    case AV_CODEC_ID_OPUS:
        return std::int64_t{parameters.sample_rate} * OPUS_SETTLING_MILLISECONDS / 1000;
    case AV_CODEC_ID_MP3:
        return std::int64_t{3} * MP3_FRAME;
    case AV_CODEC_ID_VORBIS:
        return LONGEST_VORBIS_OVERLAP;
    case AV_CODEC_ID_FLAC:
    case AV_CODEC_ID_ALAC:
    case AV_CODEC_ID_WAVPACK:
        return 0;
    default:
        return av_get_bits_per_sample(parameters.codec_id) > 0 ? 0 : 2 * std::max(parameters.frame_size, USUAL_FRAME);
    }
}

std::int64_t PrimingSamples(const AVCodecParameters& parameters) noexcept {
    switch (parameters.codec_id) {
    case AV_CODEC_ID_AAC:
        return std::int64_t{AAC_PRIMING} * std::max(1, parameters.frame_size / USUAL_FRAME);
    case AV_CODEC_ID_MP2:
    case AV_CODEC_ID_MP3:
        return MP3_PRIMING;
    case AV_CODEC_ID_AC3:
    case AV_CODEC_ID_EAC3:
        return AC3_PRIMING;
    case AV_CODEC_ID_OPUS:
        return std::int64_t{parameters.sample_rate} * OPUS_PRIMING_MICROSECONDS / 1'000'000;
    default:
        return KeepsCount(parameters.codec_id) ? 0 : std::max(parameters.frame_size, 0);
    }
}

std::int64_t LibavPrimingSamples(const AVCodecParameters& parameters) noexcept {
    switch (parameters.codec_id) {
    case AV_CODEC_ID_AAC:
        return parameters.frame_size == USUAL_FRAME ? USUAL_FRAME : 0;
    case AV_CODEC_ID_MP3:
        return LAME_PRIMING;
    case AV_CODEC_ID_MP2:
        return MP2_PRIMING;
    case AV_CODEC_ID_AC3:
    case AV_CODEC_ID_EAC3:
        return AC3_PRIMING;
    case AV_CODEC_ID_OPUS: // stands in its header
        return std::max(parameters.initial_padding, 0);
    default:
        return 0;
    }
}

std::int64_t PaddingSamples(const AVCodecParameters& parameters, int block) noexcept {
    if (parameters.codec_id == AV_CODEC_ID_VORBIS)
        return LONGEST_USUAL_VORBIS_BLOCK;
    return KeepsCount(parameters.codec_id) ? 0 : block;
}

} // namespace Kestra::FF
