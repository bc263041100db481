// SPDX-License-Identifier: GPL-3.0-or-later
// Rows of samples blended, in loops that compilers make vectors of. Sample is std::uint8_t or std::uint16_t.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <vector>

namespace Kestra::FF {

/// Added before what follows the point is cut off: unlike the library's functions, this becomes vectors.
constexpr float ROUNDING = 0.5F;

template <class Sample>
const Sample* RowOf(const AVFrame& frame, int plane, int y) {
    return reinterpret_cast<const Sample*>(frame.data[plane] + static_cast<std::ptrdiff_t>(y) * frame.linesize[plane]);
}
template <class Sample>
Sample* RowOf(AVFrame& frame, int plane, int y) {
    return reinterpret_cast<Sample*>(frame.data[plane] + static_cast<std::ptrdiff_t>(y) * frame.linesize[plane]);
}

/// The mean alpha of the pixels that share each sample of row `y` of a subsampled plane; `row` has its width.
template <class Sample>
void ShareAlpha(const AVFrame& frame, int y, int shiftX, int shiftY, std::vector<Sample>& row) {
    const int firstY = y << shiftY;
    const int lastY = std::min((y + 1) << shiftY, frame.height);
    int x = 0;
    if (shiftX == 1 && shiftY == 1 && lastY - firstY == 2) {
        // Whole groups of four, the usual case, in a loop that becomes vectors.
        const auto* above = RowOf<Sample>(frame, 3, firstY);
        const auto* below = RowOf<Sample>(frame, 3, firstY + 1);
        Sample* const shared = row.data();
        const int groups = frame.width / 2;
        for (; x < groups; ++x, above += 2, below += 2)
            shared[x] = static_cast<Sample>((std::uint32_t{above[0]} + above[1] + below[0] + below[1] + 2) / 4);
    }
    for (; x < static_cast<int>(row.size()); ++x) {
        const int firstX = x << shiftX;
        const int lastX = std::min((x + 1) << shiftX, frame.width);
        std::uint32_t sum = 0;
        for (int line = firstY; line < lastY; ++line)
            for (int column = firstX; column < lastX; ++column)
                sum += RowOf<Sample>(frame, 3, line)[column];
        const auto count = static_cast<std::uint32_t>(std::max(1, (lastY - firstY) * (lastX - firstX)));
        row[static_cast<std::size_t>(x)] = static_cast<Sample>((sum + count / 2) / count);
    }
}

/// `top` over an opaque `bottom`, weighted by top's alpha. The division by 2^depth - 1 is exact and needs no divider;
/// no sum is greater than Sum holds. Rows that are transparent or opaque throughout, as bars of layers are, are copied.
template <class Sample>
void OverRow(const Sample* bottom, const Sample* top, const Sample* alpha, Sample* result, int width, int alphaDepth) {
    constexpr int BYTE = 8;
    const int depth = sizeof(Sample) == 1 ? BYTE : alphaDepth;
    using Sum = std::conditional_t<sizeof(Sample) == 1, std::uint16_t, std::uint32_t>;
    const auto highest = static_cast<Sum>((1U << depth) - 1);
    const auto half = static_cast<Sum>(1U << (depth - 1));
    Sample any = 0;
    auto all = static_cast<Sample>(highest);
    for (int x = 0; x < width; ++x) {
        any |= alpha[x];
        all &= alpha[x];
    }
    if (any == 0 || all == highest) {
        std::copy_n(any == 0 ? bottom : top, width, result);
        return;
    }
    for (int x = 0; x < width; ++x) {
        const auto rest = static_cast<Sample>(highest - alpha[x]);
        const auto sum = static_cast<Sum>(Sum{bottom[x]} * rest + Sum{top[x]} * alpha[x] + half);
        result[x] = static_cast<Sample>(static_cast<Sum>(sum + (sum >> depth)) >> depth);
    }
}

/// Parts that MixRow counts in.
constexpr std::uint32_t WHOLE = 1U << 16;

/// The mean of two rows, `weight` of WHOLE of `to`, the rest of `from`; neither is nothing.
template <class Sample>
void MixRow(const Sample* from, const Sample* to, Sample* result, int width, std::uint16_t weight) {
    // Products of 16 bits each are cheap.
    const auto rest = static_cast<std::uint16_t>(WHOLE - weight);
    for (int x = 0; x < width; ++x) {
        const std::uint16_t before = from[x];
        const std::uint16_t after = to[x];
        result[x] =
            static_cast<Sample>((std::uint32_t{before} * rest + std::uint32_t{after} * weight + WHOLE / 2) / WHOLE);
    }
}

} // namespace Kestra::FF
