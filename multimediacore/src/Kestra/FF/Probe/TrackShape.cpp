// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Probe/TrackShape.h"

#include "Kestra/Conf/StandardRates.h"
#include "Kestra/FF/Av/Convert.h"
#include <array>
#include <cmath>

namespace Kestra::FF {

namespace {

constexpr std::array<AVRational, 16> USUAL_RATES{{{24000, 1001},
                                                  {24, 1},
                                                  {25, 1},
                                                  {30000, 1001},
                                                  {30, 1},
                                                  {48, 1},
                                                  {50, 1},
                                                  {60000, 1001},
                                                  {60, 1},
                                                  {10, 1},
                                                  {12, 1},
                                                  {15, 1},
                                                  {15000, 1001},
                                                  {100, 1},
                                                  {120000, 1001},
                                                  {120, 1}}};
// Half the distance of 29.97 and 30.
constexpr double USUAL_RATE_TOLERANCE = 0.0005;
// A recording that misses one frame in ten still has the rate it was set to.
constexpr double DROPPED_FRAMES = 1.12;
constexpr double SAME_RATE = 1.005;
// A usual rate on which a few of many frames stand (a screen that seldom changes) is still the grid they stand on.
constexpr double SPARSE_FRAMES = 8;

bool IsRate(AVRational rate) {
    return rate.num > 0 && rate.den > 0 && av_q2d(rate) <= Conf::HIGHEST_FRAME_RATE;
}

const AVRational* FindUsualRate(AVRational rate) {
    for (const AVRational& usual : USUAL_RATES)
        if (std::abs(av_q2d(rate) / av_q2d(usual) - 1) < USUAL_RATE_TOLERANCE)
            return &usual;
    return nullptr;
}

boost::rational<long long> ToUsualRate(AVRational rate) {
    const AVRational* usual = FindUsualRate(rate);
    return FromAv(usual ? *usual : rate);
}

/// Whether frames at a variable rate stand on the grid of the nominal one. A whole multiple of the average counts
/// fields, or ticks.
bool IsSparseGrid(AVRational nominal, double ratio) {
    const bool multiple = std::abs(ratio / std::round(ratio) - 1) < SAME_RATE - 1;
    return FindUsualRate(nominal) && ratio > 1 && ratio < SPARSE_FRAMES && !multiple;
}

} // namespace

boost::rational<long long> NominalRate(const AVStream& stream) {
    const AVRational nominal = stream.r_frame_rate;
    const AVRational average = stream.avg_frame_rate;
    if (!IsRate(average))
        return IsRate(nominal) ? ToUsualRate(nominal) : boost::rational<long long>(0);
    if (!IsRate(nominal))
        return ToUsualRate(average);
    const double ratio = av_q2d(nominal) / av_q2d(average);
    // Otherwise the nominal rate counts fields, or the ticks of a variable rate.
    const bool meant = (ratio > 1 / SAME_RATE && ratio < DROPPED_FRAMES) || IsSparseGrid(nominal, ratio);
    return ToUsualRate(meant ? nominal : average);
}

bool ClaimsTooHighRate(const AVStream& stream) {
    const AVRational nominal = stream.r_frame_rate;
    return nominal.num > 0 && nominal.den > 0 && !IsRate(nominal) && av_cmp_q(nominal, av_inv_q(stream.time_base)) != 0;
}

int SampleBitsOf(const AVCodecParameters& parameters, AVSampleFormat format) {
    const AVCodecDescriptor* const codec = avcodec_descriptor_get(parameters.codec_id);
    if (!codec || !(codec->props & AV_CODEC_PROP_LOSSLESS))
        return 0;
    // Of a codec that knows both (WavPack, DTS), the decoder tells the bits where the samples have any of their own.
    if ((codec->props & AV_CODEC_PROP_LOSSY) && parameters.bits_per_raw_sample <= 0)
        return 0;
    const int known = parameters.bits_per_raw_sample > 0 ? parameters.bits_per_raw_sample
                                                         : av_get_exact_bits_per_sample(parameters.codec_id);
    const int room = 8 * av_get_bytes_per_sample(format);
    return known > 0 && known < room ? known : room;
}

} // namespace Kestra::FF
