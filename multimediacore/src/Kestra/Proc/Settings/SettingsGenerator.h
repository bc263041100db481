// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::SettingsGenerator: pictures or sound that are made, not read.
#pragma once

#include "Kestra/Conf/FrameInfo.h"
#include <boost/rational.hpp>
#include <cstdint>

namespace Kestra::Proc {

/// Bars and Colour are pictures, Tone and Silence are sound; what the other kind needs is not looked at.
struct SettingsGenerator {
    enum class Kind { Bars, Colour, Tone, Silence };

    Kind kind = Kind::Colour;
    /// R', G' and B' of a colour, from 0 to 1.
    double red = 0;
    double green = 0;
    double blue = 0;
    double frequency = 1000; ///< of a tone, in Hz
    Conf::FrameInfo frame;
    boost::rational<long long> frameRate = 25;
    int sampleRate = 48000;
    std::uint32_t channelLayout = 0; ///< a mask of channels, as in Conf::SampleInfo
    std::int64_t duration = 0;       ///< engine time
};

} // namespace Kestra::Proc
