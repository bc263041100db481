// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Conf::HdrInfo: what pictures of a high dynamic range tell of their display and of their light.
#pragma once

#include "Kestra/Conf/IFormatCodecVideo.h"
#include <array>

namespace Kestra::Conf {

/// A value; it travels in the description of a stream.
struct KESTRA_EXPORT HdrInfo {
    /// Of the mastering display: x and y of red, green, blue and white, in steps of 0.00002. All 0 where untold.
    std::array<std::int64_t, 8> places{};
    /// Its luminance, in steps of 0.0001 cd/m2; `whitest` is 0 where untold.
    std::int64_t whitest = 0;
    std::int64_t blackest = 0;
    /// In cd/m2, of the brightest pixel and of the brightest picture; 0 where untold.
    std::int64_t maxCll = 0;
    std::int64_t maxFall = 0;

    bool HasPlaces() const { return places != decltype(places){}; }
    /// Of pictures that follow each other: the display that shows more light, and the highest levels. Levels that one
    /// of them does not tell are not known.
    static HdrInfo Together(const HdrInfo& a, const HdrInfo& b);

    /// Whether the description tells anything of it, be it that nothing is known.
    static bool IsTold(const IFormatCodecVideo& format);
    static HdrInfo Of(const IFormatCodecVideo& format);
    void TellIn(IFormatCodecVideo& format) const;

    friend bool operator==(const HdrInfo& a, const HdrInfo& b) {
        return a.places == b.places && a.whitest == b.whitest && a.blackest == b.blackest && a.maxCll == b.maxCll &&
               a.maxFall == b.maxFall;
    }
    friend bool operator!=(const HdrInfo& a, const HdrInfo& b) { return !(a == b); }
};

} // namespace Kestra::Conf
