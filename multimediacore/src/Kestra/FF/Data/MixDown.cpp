// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Data/MixDown.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstddef>
#include <vector>

namespace Kestra::FF {
namespace {

/// Channels that libswresample's matrices have room for. However few there are, it goes through a matrix of so many,
/// and writes the rest of it anew as it is; rows lie as far apart as the caller says.
constexpr std::size_t MATRIX_SIDE = 64;

} // namespace

// Without its automatic gain, nothing but peaks changes: look-ahead and release in milliseconds.
std::string MixLimiter(AVSampleFormat format) {
    return std::string("alimiter=limit=1:level=0:latency=1:attack=5:release=50,aformat=sample_fmts=") +
           av_get_sample_fmt_name(format);
}

double LoudestMix(const AVChannelLayout& from, const AVChannelLayout& to) {
    const auto inputs = static_cast<std::size_t>(from.nb_channels);
    const auto outputs = static_cast<std::size_t>(to.nb_channels);
    if (inputs > MATRIX_SIDE || outputs > MATRIX_SIDE || av_channel_layout_compare(&from, &to) == 0)
        return 1;
    std::vector<double> matrix(MATRIX_SIDE * MATRIX_SIDE);
    if (swr_build_matrix2(&from, &to, M_SQRT1_2, M_SQRT1_2, 0, INT_MAX, 1, matrix.data(), MATRIX_SIDE,
                          AV_MATRIX_ENCODING_NONE, nullptr) < 0)
        return 1;
    double loudest = 0;
    for (std::size_t output = 0; output < outputs; ++output) {
        double sum = 0;
        for (std::size_t input = 0; input < inputs; ++input)
            sum += std::abs(matrix[output * MATRIX_SIDE + input]);
        loudest = std::max(loudest, sum);
    }
    return loudest;
}

} // namespace Kestra::FF
