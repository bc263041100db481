// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Conf::PixelLoss: what pictures lose when they are brought to another pixel format.
#pragma once

#include "Kestra/Conf/PixelFormat.h"
#include <string>
#include <tuple>

namespace Kestra::Conf {

/// A value; graver losses compare greater.
struct KESTRA_EXPORT PixelLoss {
    bool colour = false; ///< what had colours becomes gray
    bool alpha = false;
    int chroma = 0;     ///< how often the resolution of colour is halved
    int bits = 0;       ///< of each component
    bool model = false; ///< RGB becomes YUV or the other way, which rounds

    static PixelLoss Between(const PixelFormatRecord& from, const PixelFormatRecord& to) noexcept;
    bool IsNone() const noexcept { return *this == PixelLoss(); }

    friend bool operator==(const PixelLoss& a, const PixelLoss& b) { return a.Key() == b.Key(); }
    friend bool operator<(const PixelLoss& a, const PixelLoss& b) { return a.Key() < b.Key(); }

private:
    std::tuple<bool, bool, int, int, bool> Key() const { return {colour, alpha, chroma, bits, model}; }
};

/// "10 bits became 8, colour of 4:4:4 became 4:2:0, transparency was left out, over black"; nothing where nothing is
/// lost but by rounding.
KESTRA_EXPORT std::string LossInWords(const PixelFormatRecord& from, const PixelFormatRecord& to);
KESTRA_EXPORT std::string AlphaLossInWords(const PixelFormatRecord& from, const PixelFormatRecord& to);

} // namespace Kestra::Conf
