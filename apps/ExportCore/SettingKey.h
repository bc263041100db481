// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::SettingKey: one key of the settings of a request, on its way from a text into the preset.
#pragma once

#include "EditorPreset/Preset.h"
#include "ExportCore/PresetSettings.h"
#include "Kestra/Base/SourcePlace.h"
#include "Media/Audio.h"
#include "Media/Video.h"
#include <string>
#include <vector>

namespace Export {
class PresetProvider;
}

namespace ExportCore {

/// One KEY=VALUE.
struct SettingEntry {
    std::string key;
    std::string value;

    [[noreturn]] void refuse(const std::string& reason, Kestra::SourcePlace place = Kestra::SourcePlace::Here()) const;
};

/// Every function throws Refusal that names key, value and reason. Those of the given keys are called in the order of
/// the keys; what is not given is left to the preset.
struct SettingKey {
    PresetSettings::Key shown;
    /// Reads the entry into the settings.
    void (*read)(const SettingEntry& entry, PresetSettings& settings);
    /// Whether it suits preset and codec, as far as that is known without the inputs.
    void (*requireFit)(const PresetSettings& settings, const Preset& preset);
    void (*edit)(const PresetSettings& settings, const Media::Video& video, Preset& preset);
    /// Whether it suits everything else that is set, the edited preset being the provider's.
    void (*requireInside)(const PresetSettings& settings, const Export::PresetProvider& provider,
                          const Media::Video& video, const Media::Audio& audio);

    /// In the order in which they are shown.
    static const std::vector<SettingKey>& all();
    /// Those that the settings were given, in that order.
    static std::vector<SettingKey> givenTo(const PresetSettings& settings);

    /// For a key whose limits requireFit knows all.
    static void insideAnyway(const PresetSettings& settings, const Export::PresetProvider& provider,
                             const Media::Video& video, const Media::Audio& audio);
    [[noreturn]] static void refuse(const std::string& what, const std::string& reason,
                                    Kestra::SourcePlace place = Kestra::SourcePlace::Here());
    /// bit/s.
    static std::int64_t bitrateOf(const SettingEntry& entry);
    /// Of the pictures' codec or of the sound's.
    static void requireBitrate(const char* key, const Preset& preset, bool ofPicture);
    static void requireRange(const char* key, std::int64_t bitrate, std::int64_t lowest, std::int64_t highest,
                             const std::string& subject);

private:
    static std::vector<SettingKey> ofPicture();
    static std::vector<SettingKey> ofSound();
};

} // namespace ExportCore
