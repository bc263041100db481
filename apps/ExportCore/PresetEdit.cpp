// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/PresetEdit.h"

#include "EditorPreset/PresetTags.h"
#include "Export/PresetProvider.h"
#include "ExportCore/OtherPresets.h"
#include "ExportCore/Refusal.h"
#include "ExportCore/SettingKey.h"

namespace ExportCore {
namespace {

bool stands(const Media::Video& video) {
    return video.height > video.width;
}

/// "Up to 1080p" is 1080 columns of a picture that stands, not 1080 rows.
void turnLimitsTo(const Media::Video& video, Export::PresetProvider& provider) {
    Preset preset = provider.preset();
    if (preset.hasFixedResolution() || stands(video) == (preset.maxHeight() > preset.maxWidth()))
        return;
    preset.setLimits(preset.maxHeight(), preset.maxWidth());
    provider.updatePreset(&video, preset);
}

[[noreturn]] void refuseNothing(const Preset& preset, Kestra::SourcePlace place = Kestra::SourcePlace::Here()) {
    const std::string start = "Nothing is left to export: the preset \"" + preset.id() + "\" has ";
    if (preset.hasVideo() && preset.hasAudio())
        Kestra::ThrowFrom(Refusal(start + "picture and sound, and neither is wanted"), place);
    if (preset.hasVideo())
        Kestra::ThrowFrom(Refusal(start + "no sound, and the picture is not wanted" + OtherPresets::withSound(preset)),
                          place);
    Kestra::ThrowFrom(Refusal(start + "no picture, and the sound is not wanted"), place);
}

} // namespace

void PresetEdit::dropMedia(Export::PresetProvider& provider) const {
    const Preset whole = provider.preset();
    const bool dropsVideo = withoutVideo && whole.hasVideo();
    const bool dropsAudio = withoutAudio && whole.hasAudio();
    if (!dropsVideo && !dropsAudio)
        return;
    if ((dropsVideo || !whole.hasVideo()) && (dropsAudio || !whole.hasAudio()))
        refuseNothing(whole);
    Kestra::Core::Property tree = whole.property();
    if (dropsVideo)
        tree.RemoveChild(EditorPreset::TAG_VIDEO);
    if (dropsAudio)
        tree.RemoveChild(EditorPreset::TAG_AUDIO);
    provider.updatePreset(nullptr, Preset(tree));
}

void PresetEdit::apply(Export::PresetProvider& provider, const Media::Video& video, const Media::Audio& audio) const {
    if (!modifier.empty())
        provider.updatePreset(&video, provider.modifiedPreset(modifier));
    dropMedia(provider);
    if (provider.preset().hasVideo())
        turnLimitsTo(video, provider);
    provider.updateResolutionPresetIfNeeded(&video);
    if (settings.empty())
        return;
    const std::vector<SettingKey> keys = SettingKey::givenTo(settings);
    Preset edited = provider.preset();
    for (const SettingKey& key : keys)
        key.edit(settings, video, edited);
    provider.saveCustomPreset(edited);
    provider.updatePreset(&video, provider.customPreset());
    for (const SettingKey& key : keys)
        key.requireInside(settings, provider, video, audio);
}

} // namespace ExportCore
