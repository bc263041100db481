// SPDX-License-Identifier: GPL-3.0-or-later
// What an encoder can be asked for without giving something else.
#pragma once

#include "Kestra/Conf/Codec.h"
#include "KestraExport.h"
#include <boost/rational.hpp>
#include <cstdint>
#include <string>
#include <vector>

namespace Kestra::ClientAPI {

using QualityRange = Conf::QualityScale;

/// Questions on the table of codecs. All of a codec without limits of its own: empty lists stand for codecs that are
/// none of the medium.
struct KESTRA_EXPORT CodecLimits {
    static QualityRange VideoQuality(Conf::CodecID codec);
    /// Whether bits can be asked for: not where a profile or the absence of loss decides about them.
    static bool HasBitrate(Conf::CodecID codec);
    /// The smallest side of a picture, in pixels.
    static int SmallestSide(Conf::CodecID codec);
    /// Whether pictures may be so wide, or so high.
    static bool TakesWidth(Conf::CodecID codec, int pixels);
    static bool TakesHeight(Conf::CodecID codec, int pixels);
    /// Whether sides that it takes go together.
    static bool TakesSize(Conf::CodecID codec, int width, int height);
    /// Whether its pictures may have sides that are odd, in that format (the engine's name).
    static bool TakesOddSides(Conf::CodecID codec, const std::string& pixelFormat);
    /// The profiles that can be asked for, by the encoder's names; empty where none can.
    static std::vector<std::string> Profiles(Conf::CodecID codec);
    /// Whether one of them has to be chosen.
    static bool NeedsProfile(Conf::CodecID codec);
    /// Whether a stream of that profile holds pictures of that format (the engine's name) and is marked as just that.
    static bool ProfileTakes(Conf::CodecID codec, const std::string& profile, const std::string& pixelFormat);
    /// Whether pictures of two fields can be coded as what they are.
    static bool CodesFields(Conf::CodecID codec);
    /// Whether it keeps transparency in one pass alone, and in containers of Matroska's kind.
    static bool KeepsAlphaBeside(Conf::CodecID codec);
    /// Whether what is decoded is what was encoded.
    static bool IsLossless(Conf::CodecID codec);
    /// Whether its pictures are of sRGB alone, without a high dynamic range.
    static bool IsOfStandardRange(Conf::CodecID codec);
    static bool TakesFrameRate(Conf::CodecID codec, const boost::rational<long long>& rate);

    /// The usual sample rates that the codec stores as they are, rising.
    static std::vector<int> SampleRates(Conf::CodecID codec);
    /// Those of mono, stereo, quad, 5.0, 5.1 and 7.1 that it stores with the same speakers; Conf::ChannelLayout.
    static std::vector<std::uint32_t> ChannelLayouts(Conf::CodecID codec);
    /// The steps in bit/s, rising, where a codec knows no others; empty where every bitrate can be asked for.
    static std::vector<std::int64_t> AudioBitrateSteps(Conf::CodecID codec, int sampleRate);

    CodecLimits() = delete;
};

} // namespace Kestra::ClientAPI
