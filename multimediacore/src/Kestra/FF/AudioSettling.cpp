#include "Kestra/FF/AudioSettling.h"

#include <algorithm>

namespace Kestra::FF {

namespace {

constexpr int MP3_FRAME = 1152;
constexpr int OPUS_SETTLING_MILLISECONDS = 80;
constexpr int LONGEST_VORBIS_OVERLAP = 4096;
constexpr int USUAL_FRAME = 1024;

} // namespace

// A transform overlaps its neighbour; MP3 also borrows bits of earlier packets, yet more than three of its packets
// would not fit the field in which its container says how much to skip.
std::int64_t SettlingSamples(const AVCodecParameters& parameters) noexcept {
    switch (parameters.codec_id) {
    case AV_CODEC_ID_OPUS:
        return std::int64_t{parameters.sample_rate} * OPUS_SETTLING_MILLISECONDS / 1000;
    case AV_CODEC_ID_MP3:
        return std::int64_t{3} * MP3_FRAME;
    case AV_CODEC_ID_VORBIS:
        return LONGEST_VORBIS_OVERLAP;
    case AV_CODEC_ID_FLAC:
    case AV_CODEC_ID_ALAC:
        return 0;
    default:
        return av_get_bits_per_sample(parameters.codec_id) > 0 ? 0 : 2 * std::max(parameters.frame_size, USUAL_FRAME);
    }
}

} // namespace Kestra::FF
