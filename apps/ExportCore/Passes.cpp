// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/Passes.h"

#include "EditorPreset/Preset.h"

namespace ExportCore {
namespace {

/// Measured with the presets for two passes, their usual speed, on the material of the benchmarks.
double laterCostsOf(Kestra::Conf::CodecID codec) {
    using Kestra::Conf::CodecID;
    switch (codec) {
    case CodecID::H264:
        return 2.8;
    case CodecID::HEVC:
        return 1.2; // its first pass looks nearly as closely
    case CodecID::VP9:
        return 6.2;
    case CodecID::MPEG4:
        return 1.5;
    default:
        return 1.2;
    }
}

} // namespace

/// By quality there is nothing to spread over two passes: the setting waits there for another bitrate mode.
Passes Passes::of(const Preset& preset, bool hasPictures) {
    const bool two = hasPictures && preset.hasVideo() && preset.isVideoTwoPassEncodingEnabled() &&
                     preset.videoBitrateMode() != Export::BitrateMode::Quality;
    return two ? Passes{2, laterCostsOf(preset.videoCodec())} : Passes{};
}

} // namespace ExportCore
