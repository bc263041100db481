// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Conf::Codec: all that is known of a codec without asking one of its encoders.
#pragma once

#include "Kestra/Conf/CodecID.h"
#include "Kestra/Conf/PixelFormat.h"
#include <boost/rational.hpp>
#include <cstdint>
#include <optional>
#include <vector>

namespace Kestra::Conf {

/// Constant quality on the codec's own scale, on which lower is better, but where its best number is the highest; 0 to
/// 0 where there is no such scale.
struct QualityScale {
    int best = 0;
    int worst = 0;
    bool fractions = false; ///< whether there is anything between two whole numbers

    bool Exists() const { return worst != 0; }
    bool Holds(double quality) const {
        return best < worst ? quality >= best && quality <= worst : quality >= worst && quality <= best;
    }
};

/// A profile is an upper bound to some encoders, which then write the lower one that suffices: with these formats they
/// write the profile itself.
struct CodecProfile {
    const char* name;
    const char* pixelFormats; ///< the engine's names, separated by blanks
};

/// What docs/bitrates.md reckons with.
struct VideoBitrates {
    double atReference = 0; ///< bit/s that 1920x1080 at 30 frames a second get by default
    double lowest = 0;      ///< as a part of the default
    double highest = 0;
};

struct VideoCodec {
    using Rate = boost::rational<long long>;
    enum class OddSides { Refused, WithFullChroma, Taken };

    VideoBitrates bitrates;
    /// Every picture stands alone: there is no distance of keyframes, and bits grow as pixels and frames do.
    bool intraOnly = false;
    bool lossless = false;
    /// Its pictures are of sRGB, whatever they were made of: there is no high dynamic range.
    bool ofStandardRange = false;
    /// The pixel format that players are sure to show; Unknown where the source's own is kept.
    PixelFormat playable = PixelFormat::Unknown;
    double gopSeconds = 0; ///< between keyframes
    QualityScale quality;
    /// Pixels; null rules take everything within these.
    int smallestWidth = 2;
    int smallestHeight = 2;
    int largestWidth = 16384;
    int largestHeight = 16384;
    bool (*takesSide)(int pixels) = nullptr;
    bool (*takesSize)(int width, int height) = nullptr;
    OddSides oddSides = OddSides::Refused;
    /// Null takes every rate above 0.
    bool (*takesFrameRate)(const Rate& rate) = nullptr;
    bool codesFields = false; ///< pictures of two fields, as what they are
    /// Transparency is a second picture beside each packet: Matroska's kind of files alone holds it, and two passes
    /// know nothing of it.
    bool alphaBeside = false;
    std::vector<CodecProfile> profiles;
    bool needsProfile = false;
};

struct AudioBitrates {
    double lowestPerChannel = 0; ///< bit/s at 48 kHz
    double highestPerChannel = 0;
    bool scalesWithRate = false;
    double lowest = 0; ///< of all channels together
    double highest = 0;
    /// Of one channel at a sample rate, where an encoder's tables end earlier than in proportion.
    double (*highestAt)(double sampleRate) = nullptr;
};

struct AudioCodec {
    AudioBitrates bitrates;
    bool lossless = false;
    /// The usual sample rates that it stores as they are, rising; the only one, where it has one.
    std::vector<int> sampleRates;
    /// Those of mono, stereo, quad, 5.0, 5.1 and 7.1 that it stores with the same speakers; ChannelLayout.
    std::vector<std::uint32_t> layouts;
    /// The bitrates in kbit/s, rising, where it knows no others.
    std::vector<int> (*bitrateSteps)(int sampleRate) = nullptr;
};

/// One row of the table, which CodecTable.cpp holds: a new codec is one more, and a driver for its encoder.
struct KESTRA_EXPORT Codec {
    CodecID id = CodecID::None;
    const char* name = "none";   ///< in descriptions and catalogues
    const char* avName = "none"; ///< as FFmpeg's libraries call it
    /// Bits can be asked for: not where a profile or the absence of loss decides about them.
    bool hasBitrate = true;
    /// One of the two.
    std::optional<VideoCodec> video;
    std::optional<AudioCodec> audio;

    static const std::vector<Codec>& All();
    /// Null for None, for a number that is none and for a name that is none.
    static const Codec* Find(CodecID id);
    static const Codec* Find(const std::string& name);
    /// Null where the codec is not one for that medium.
    static const VideoCodec* FindVideo(CodecID id);
    static const AudioCodec* FindAudio(CodecID id);
};

} // namespace Kestra::Conf
