// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorPreset/PresetStorage.h"
#include "EditorPreset/CatalogueReader.h"
#include "EditorSettings/Settings.h"
#include "Kestra/Base/Exception.h"
#include <QFileInfo>
#include <QString>
#include <algorithm>
#include <utility>

namespace {

using EditorPreset::Catalogue;

const Catalogue::Tag* findTag(const Catalogue& catalogue, const std::string& name) {
    const auto found = std::find_if(catalogue.tags.begin(), catalogue.tags.end(),
                                    [&name](const Catalogue::Tag& tag) { return tag.name == name; });
    return found == catalogue.tags.end() ? nullptr : &*found;
}

/// Lays presets over the installed ones. Returns why they were left out; empty when they were not.
std::string overlay(const QString& own, Catalogue& catalogue) {
    try {
        catalogue = EditorPreset::readOverlay(own, catalogue, PresetStorage::TAG_OWN_PRESETS);
        return {};
    } catch (const Kestra::Exception& refusal) {
        return refusal.what();
    }
}

std::string overlayUsersOwn(Catalogue& catalogue) {
    const QString own = Settings::userPresetFilePath();
    const std::string fault = QFileInfo::exists(own) ? overlay(own, catalogue) : std::string();
    return fault.empty() ? fault : "Your own presets are left out: " + fault;
}

} // namespace

const char* const PresetStorage::TAG_OWN_PRESETS = "own-presets";

bool PresetStorage::loadPresets(const Kestra::ioPath& path) {
    try {
        Catalogue read = EditorPreset::readCatalogue(QString::fromStdString(path.ToUtf8()));
        ownError = overlayUsersOwn(read);
        catalogue = std::move(read);
    } catch (const Kestra::Exception& refusal) {
        error = refusal.what();
        return false;
    }
    error.clear();
    return true;
}

std::string PresetStorage::faultOf(const Kestra::ioPath& ownPresets) const {
    Catalogue copy = catalogue;
    return overlay(QString::fromStdString(ownPresets.ToUtf8()), copy);
}

std::deque<std::string> PresetStorage::tags() const {
    std::deque<std::string> names;
    for (const Catalogue::Tag& tag : catalogue.tags)
        names.push_back(tag.name);
    return names;
}

std::size_t PresetStorage::defaultPresetIndex(const std::string& tag) const {
    const Catalogue::Tag* const found = findTag(catalogue, tag);
    return found == nullptr ? 0 : found->defaultIndex;
}

std::deque<Preset> PresetStorage::presets(const std::string& tag) const {
    std::deque<Preset> result;
    if (const Catalogue::Tag* const found = findTag(catalogue, tag)) {
        for (const std::string& id : found->presetIds)
            result.push_back(preset(id));
    }
    return result;
}

Preset PresetStorage::preset(const std::string& id) const {
    const auto found = catalogue.presets.find(id);
    return found == catalogue.presets.end() ? Preset() : found->second;
}

bool PresetStorage::isPresetExists(const std::string& id) const {
    return catalogue.presets.count(id) != 0;
}

std::set<std::string> PresetStorage::qualityModifierTags(const std::string& id) const {
    std::set<std::string> names;
    const auto found = catalogue.modifiers.find(id);
    if (found == catalogue.modifiers.end())
        return names;
    for (const auto& modifier : found->second)
        names.insert(modifier.first);
    return names;
}

Kestra::Core::Property PresetStorage::qualityModifierData(const std::string& id, const std::string& modifier) const {
    const auto modifiers = catalogue.modifiers.find(id);
    if (modifiers == catalogue.modifiers.end())
        return {};
    const auto found = modifiers->second.find(modifier);
    return found == modifiers->second.end() ? Kestra::Core::Property() : found->second;
}
