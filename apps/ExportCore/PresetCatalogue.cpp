#include "ExportCore/PresetCatalogue.h"

#include "EditorSettings/Settings.h"
#include "ExportCore/NearNames.h"
#include "ExportCore/Refusal.h"

namespace ExportCore {

PresetCatalogue::PresetCatalogue() {
    if (!storage.loadPresets(Kestra::ioPath(Settings::presetFilePath().toStdString())))
        KESTRA_THROW(Refusal("Cannot load the presets: " + storage.lastError()));
    for (const std::string& tag : storage.tags()) {
        for (const Preset& preset : storage.presets(tag)) {
            const std::string id = preset.id();
            std::vector<std::string>& holders = tagsById[id];
            if (holders.empty())
                known.push_back(id);
            holders.push_back(tag);
            idsByTag[tag].push_back(id);
        }
    }
}

std::vector<std::string> PresetCatalogue::tags() const {
    const auto tags = storage.tags();
    return {tags.begin(), tags.end()};
}

std::vector<std::string> PresetCatalogue::tagsOf(const std::string& id) const {
    const auto found = tagsById.find(id);
    return found == tagsById.end() ? std::vector<std::string>() : found->second;
}

std::vector<std::string> PresetCatalogue::idsOf(const std::string& tag) const {
    const auto found = idsByTag.find(tag);
    if (found == idsByTag.end())
        NearNames::refuseUnknown("tag", tag, tags());
    return found->second;
}

std::set<std::string> PresetCatalogue::qualitiesOf(const std::string& id) const {
    return storage.qualityModifierTags(id);
}

Preset PresetCatalogue::preset(const std::string& id) const {
    if (tagsById.count(id) == 0)
        NearNames::refuseUnknownPreset(id, known, tags());
    return storage.preset(id);
}

} // namespace ExportCore
