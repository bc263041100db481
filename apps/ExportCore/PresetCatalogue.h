// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::PresetCatalogue: finding presets by their ids.
#pragma once

#include "EditorPreset/PresetStorage.h"
#include "ExportCoreExport.h"
#include <map>
#include <string>
#include <vector>

namespace ExportCore {

/// A value.
class EXPORTCORE_EXPORT PresetCatalogue {
public:
    /// Reads the catalogue that the settings name. Throws Refusal with file, place and reason when it is malformed.
    PresetCatalogue();
    /// Why the user's own presets are left out; empty when they are not, or when there are none.
    const std::string& warning() const { return storage.warning(); }

    /// As PresetStorage::faultOf().
    std::string faultOf(const std::string& ownPresets) const { return storage.faultOf(Kestra::ioPath(ownPresets)); }

    /// Every id once, in catalogue order.
    const std::vector<std::string>& ids() const { return known; }
    std::vector<std::string> tags() const;
    /// The tags that hold the preset, in catalogue order.
    std::vector<std::string> tagsOf(const std::string& id) const;
    /// The presets of a tag. Throws Refusal with near names for a tag that is none.
    std::vector<std::string> idsOf(const std::string& tag) const;
    /// Of a tag. Throws as idsOf.
    std::string defaultOf(const std::string& tag) const;
    /// Names of a preset's quality modifiers, the one that gives most bits first.
    std::vector<std::string> qualitiesOf(const std::string& id) const;
    /// The preset with one of them applied. Throws as preset().
    Preset withQuality(const std::string& id, const std::string& quality) const;
    /// Throws Refusal with near names for an id that is none.
    Preset preset(const std::string& id) const;

private:
    PresetStorage storage;
    std::vector<std::string> known;
    std::map<std::string, std::vector<std::string>> tagsById;
    std::map<std::string, std::vector<std::string>> idsByTag;
};

} // namespace ExportCore
