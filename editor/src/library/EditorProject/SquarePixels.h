// SPDX-License-Identifier: GPL-3.0-or-later
// Project::inSquarePixels: pictures whose shape is to be their size alone.
#pragma once

#include "Kestra/Proc/Settings/SettingsResizer.h"
#include "Media/Video.h"
#include <algorithm>
#include <cstdint>
#include <numeric>

namespace Project {

/// The same pictures in square pixels. The side that is too short grows, so that no pixel is lost; a size that would
/// change by less than two pixels stays, odd sides, too.
inline Media::Video inSquarePixels(Media::Video video) {
    Kestra::Proc::SettingsResizer settings;
    settings.aspectMode = Kestra::Proc::AspectMode::KeepSize;
    const Kestra::Conf::FrameInfo square =
        settings.GetOutputFrameSize({video.width, video.height, video.aspectNumerator, video.aspectDenominator});
    const auto differ = [](std::uint32_t a, std::uint32_t b) { return std::max(a, b) - std::min(a, b) > 1; };
    if (differ(square.width, video.width) || differ(square.height, video.height)) {
        video.width = square.width;
        video.height = square.height;
    }
    const std::uint32_t common = std::max(1U, std::gcd(video.width, video.height));
    video.aspectNumerator = video.width / common;
    video.aspectDenominator = video.height / common;
    return video;
}

} // namespace Project
