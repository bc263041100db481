// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/Passes.h"

#include "EditorPreset/Preset.h"

namespace ExportCore {
namespace {

/// Times, in units of what reading takes: decoding the pictures and bringing them to their size. What fits best to
/// measured passes of the presets for two of them, with material of the benchmarks (1080p) in four sizes.
struct Costs {
    double first;     ///< of as many encoded pixels as are read, in the first pass
    double later;     ///< the same in a later one
    double laterRest; ///< what a later one takes at least: it reads as well, and encodes the sound
};

Costs costsOf(Kestra::Conf::CodecID codec) {
    using Kestra::Conf::CodecID;
    switch (codec) {
    case CodecID::H264:
        return {2, 4.3, 1.3};
    case CodecID::HEVC:
        return {8.2, 6.5, 1.2}; // its first pass looks as closely
    case CodecID::VP9:
        return {14, 108, 2};
    case CodecID::MPEG4:
        return {0.9, 0.5, 1.1};
    default:
        return {1, 1, 1.2};
    }
}

} // namespace

/// By quality there is nothing to spread over two passes: the setting waits there for another bitrate mode.
Passes Passes::of(const Preset& preset, bool hasPictures, double scale) {
    const bool two = hasPictures && preset.hasVideo() && preset.isVideoTwoPassEncodingEnabled() &&
                     preset.videoBitrateMode() != Export::BitrateMode::Quality;
    if (!two)
        return {};
    const Costs costs = costsOf(preset.videoCodec());
    return {2, (costs.laterRest + scale * costs.later) / (1 + scale * costs.first)};
}

} // namespace ExportCore
