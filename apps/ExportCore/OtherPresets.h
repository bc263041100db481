// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::OtherPresets: which presets do what another one does not.
#pragma once

#include "EditorPreset/Preset.h"
#include <string>

namespace ExportCore {

/// Each answer is how a refusal ends that names the way out: "; " and a clause, empty where no preset is one. Looked
/// for among the installed presets and the user's own; throws Refusal where these cannot be loaded.
struct OtherPresets {
    /// The next larger one with the same container and codec of the pictures that takes such a picture, lying or
    /// upright, with sound where this one has it, and keeps its transparency and dynamic range.
    static std::string holding(const Preset& preset, int width, int height);
    /// Likewise the nearest one that encodes the pictures in so many passes, one or two.
    static std::string encodingIn(int passes, const Preset& preset);
    /// The nearest one with the same container and codec of the pictures that has sound.
    static std::string withSound(const Preset& preset);
    /// Those that let the bitrate be chosen: with the same container where there are pictures, else of sound alone.
    static std::string choosingBitrate(const Preset& preset, bool ofPicture);
    /// Those that have qualities: with the same container where there are pictures, else of sound alone.
    static std::string withQualities(const Preset& preset);
    /// The qualities of the preset itself, which choose for its pictures what no number does.
    static std::string qualitiesOf(const Preset& preset);

    OtherPresets() = delete;
};

} // namespace ExportCore
