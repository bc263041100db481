#include "ExportCore/PresetCatalogue.h"

#include "EditorSettings/Settings.h"
#include "ExportCore/NearNames.h"
#include "ExportCore/Refusal.h"
#include <algorithm>

namespace ExportCore {
namespace {

[[noreturn]] void refuseUnknown(const char* what, const std::string& name, const std::vector<std::string>& known) {
    KESTRA_THROW(Refusal(std::string("There is no ") + what + " \"" + name + '"' + NearNames::question(name, known)));
}

} // namespace

PresetCatalogue::PresetCatalogue() {
    if (!storage.loadPresets(Kestra::ioPath(Settings::presetFilePath().toStdString())))
        KESTRA_THROW(Refusal("Cannot load the presets: " + storage.lastError()));
    for (const std::string& tag : storage.tags()) {
        for (const Preset& preset : storage.presets(tag)) {
            if (std::find(known.begin(), known.end(), preset.id()) == known.end())
                known.push_back(preset.id());
        }
    }
}

std::vector<std::string> PresetCatalogue::tags() const {
    const auto tags = storage.tags();
    return {tags.begin(), tags.end()};
}

std::vector<std::string> PresetCatalogue::tagsOf(const std::string& id) const {
    std::vector<std::string> holders;
    for (const std::string& tag : storage.tags()) {
        const auto presets = storage.presets(tag);
        if (std::any_of(presets.begin(), presets.end(), [&id](const Preset& preset) { return preset.id() == id; }))
            holders.push_back(tag);
    }
    return holders;
}

std::vector<std::string> PresetCatalogue::idsOf(const std::string& tag) const {
    const std::vector<std::string> all = tags();
    if (std::find(all.begin(), all.end(), tag) == all.end())
        refuseUnknown("tag", tag, all);
    std::vector<std::string> result;
    for (const Preset& preset : storage.presets(tag))
        result.push_back(preset.id());
    return result;
}

std::set<std::string> PresetCatalogue::qualitiesOf(const std::string& id) const {
    return storage.qualityModifierTags(id);
}

Preset PresetCatalogue::preset(const std::string& id) const {
    if (std::find(known.begin(), known.end(), id) == known.end())
        refuseUnknown("preset", id, known);
    return storage.preset(id);
}

} // namespace ExportCore
