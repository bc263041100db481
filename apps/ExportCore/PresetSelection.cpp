// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/PresetSelection.h"

#include "EditorPreset/PresetTags.h"
#include "Export/PresetProvider.h"
#include "ExportCore/NearNames.h"
#include "ExportCore/Refusal.h"
#include <algorithm>
#include <boost/exception/get_error_info.hpp>

namespace ExportCore {
namespace {

bool isSelected(const Export::PresetProvider& provider, const std::string& id) {
    return provider.originalPreset().id() == id;
}

/// Equal to no preset that has a stream.
Preset emptied(const std::string& id) {
    Kestra::Core::Property tree;
    tree.SetChild(EditorPreset::TAG_ID, id);
    return Preset(tree);
}

} // namespace

/// The provider keeps what it has when the preset asked for equals it under another name. An export goes by the name:
/// qualities and edits belong to it.
void PresetSelection::selectInTag(Export::PresetProvider& provider, const std::string& id) {
    provider.selectPreset(id);
    if (isSelected(provider, id))
        return;
    provider.updatePreset(nullptr, emptied(provider.originalPreset().id()));
    provider.selectPreset(id);
    if (!isSelected(provider, id))
        KESTRA_THROW(Refusal("The preset \"" + id + "\" cannot be selected"));
}

std::unique_ptr<Export::PresetProvider> PresetSelection::makeProvider() {
    try {
        auto provider = std::make_unique<Export::PresetProvider>(nullptr);
        provider->load();
        return provider;
    } catch (const Kestra::Exception& error) {
        const std::string* const reason = boost::get_error_info<Kestra::TagDescription>(error);
        KESTRA_THROW(Refusal("Cannot load the presets: " + (reason ? *reason : std::string(error.what()))));
    }
}

void PresetSelection::select(Export::PresetProvider& provider, const std::string& id) {
    std::vector<std::string> known;
    for (const std::string& tag : provider.tags()) {
        provider.selectTag(tag);
        const std::vector<std::string> ids = provider.availablePresets();
        if (std::find(ids.begin(), ids.end(), id) != ids.end())
            return selectInTag(provider, id);
        for (const std::string& other : ids) {
            if (std::find(known.begin(), known.end(), other) == known.end())
                known.push_back(other);
        }
    }
    const auto tags = provider.tags();
    NearNames::refuseUnknownPreset(id, known, {tags.begin(), tags.end()});
}

} // namespace ExportCore
