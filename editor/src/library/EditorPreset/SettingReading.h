// SPDX-License-Identifier: GPL-3.0-or-later
// What the settings of a preset come to, for the encoders, the muxer and comparisons.
#pragma once

#include "EditorPreset/Preset.h"
#include "EditorPreset/SettingRow.h"
#include <type_traits>

namespace EditorPreset {

using Value = Kestra::Core::Property::Value;

/// As the catalogue writes it; nothing where it is missing.
Value asWritten(const Preset& preset, Setting setting);
Value videoCodecName(const Preset& preset, Setting setting);
Value audioCodecName(const Preset& preset, Setting setting);
Value modeName(const Preset& preset, Setting setting);
/// In the mode that uses it.
Value usedQuality(const Preset& preset, Setting setting);
/// Formats have several names; presets that mean the same one are alike.
Value pixelFormatName(const Preset& preset, Setting setting);
Value keptRange(const Preset& preset, Setting setting);
Value keptFields(const Preset& preset, Setting setting);
Value halfFirstPass(const Preset& preset, Setting setting);
/// 0 for codecs that know none.
Value audioBitrate(const Preset& preset, Setting setting);
Value aspectMode(const Preset& preset, Setting setting);
Value interpolation(const Preset& preset, Setting setting);

/// What a getter answers.
template <auto getter>
Value answer(const Preset& preset, Setting) {
    const auto found = (preset.*getter)();
    using Found = std::remove_const_t<decltype(found)>;
    if constexpr (std::is_enum_v<Found> || (std::is_integral_v<Found> && !std::is_same_v<Found, bool>))
        return static_cast<std::int64_t>(found);
    else
        return found;
}

/// The same; nothing where that is 0, which is the source's own.
template <auto getter>
Value answerUnlessOpen(const Preset& preset, Setting setting) {
    return (preset.*getter)() == 0 ? Value() : answer<getter>(preset, setting);
}

std::vector<std::string> containerNames();
std::vector<std::string> videoCodecNames();
std::vector<std::string> audioCodecNames();
std::vector<std::string> pixelFormatNames();
std::vector<int> usualSampleRates();

} // namespace EditorPreset
