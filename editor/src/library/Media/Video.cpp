// SPDX-License-Identifier: GPL-3.0-or-later
#include "Media/Video.h"

#include <tuple>

namespace Media {

namespace {

auto fields(const Video& video) {
    return std::tie(video.width, video.height, video.frameRateNumerator, video.frameRateDenominator,
                    video.aspectNumerator, video.aspectDenominator, video.exported);
}

} // namespace

bool operator==(const Video& left, const Video& right) {
    return fields(left) == fields(right);
}

} // namespace Media
