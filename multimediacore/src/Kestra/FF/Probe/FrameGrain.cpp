// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Probe/FrameGrain.h"

namespace Kestra::FF {

namespace {

// Samples in a tick from which on a clock is too coarse to tell them apart.
constexpr int COARSE_CLOCK = 8;

// The length in samples that every block of the codec has, or is a multiple of.
int GrainOf(AVCodecID codec, int frameSize) {
    switch (codec) {
    case AV_CODEC_ID_OPUS:
        return 120;
    case AV_CODEC_ID_VORBIS:
        return 64;
    case AV_CODEC_ID_AAC:
    case AV_CODEC_ID_MP3:
    case AV_CODEC_ID_MP2:
    case AV_CODEC_ID_AC3:
    case AV_CODEC_ID_EAC3:
    case AV_CODEC_ID_ALAC:
    case AV_CODEC_ID_FLAC:
        return frameSize;
    default:
        return 0;
    }
}

bool IsUncompressed(const AVCodecParameters& parameters) {
    return av_get_bits_per_sample(parameters.codec_id) > 0;
}

} // namespace

FrameGrain FindFrameGrain(const AVStream& stream, int frameSize, int firstBlock) {
    const AVCodecParameters& parameters = *stream.codecpar;
    const int own = GrainOf(parameters.codec_id, frameSize);
    const bool coarse = av_q2d(stream.time_base) * parameters.sample_rate >= COARSE_CLOCK;
    if (own > 0 || !coarse || !IsUncompressed(parameters))
        return {own, false};
    return {firstBlock, true};
}

} // namespace Kestra::FF
