// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Conf::FrameInfo: size and shape of a frame.
#pragma once

#include <cstdint>

namespace Kestra::Conf {

/// Width and height in pixels; the aspect is that of the whole frame as it is to be shown (16:9), 0:0 when unknown,
/// which means square pixels.
struct FrameInfo {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t aspectNumerator = 0;
    std::uint32_t aspectDenominator = 0;

    friend bool operator==(const FrameInfo& a, const FrameInfo& b) {
        return a.width == b.width && a.height == b.height && a.aspectNumerator == b.aspectNumerator &&
               a.aspectDenominator == b.aspectDenominator;
    }
    friend bool operator!=(const FrameInfo& a, const FrameInfo& b) { return !(a == b); }
};

} // namespace Kestra::Conf
