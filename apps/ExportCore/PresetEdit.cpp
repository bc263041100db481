#include "ExportCore/PresetEdit.h"

#include "Export/PresetProvider.h"
#include "ExportCore/SettingKey.h"

namespace ExportCore {

void PresetEdit::apply(Export::PresetProvider& provider, const Media::Video& video, const Media::Audio& audio) const {
    if (!modifier.empty())
        provider.updatePreset(&video, provider.modifiedPreset(modifier));
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
