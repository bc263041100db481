// SPDX-License-Identifier: GPL-3.0-or-later
// PresetStorage: the catalogue of presets.
#pragma once

#include "EditorPreset/Catalogue.h"
#include "EditorPreset/Preset.h"
#include "Kestra/Base/ioPath.h"
#include <cstddef>
#include <deque>
#include <set>
#include <string>

/// A value; empty until loadPresets has succeeded. Strings are UTF-8.
class EDITORPRESET_EXPORT PresetStorage {
public:
    /// The tag under which a user's own presets appear that their file puts under none.
    static const char* const TAG_OWN_PRESETS;

    /// Replaces the content by that of the catalogue file, overlaid by the user's own presets
    /// (Settings::userPresetFilePath) where that file exists: by id for presets, by name for tags. Returns false when
    /// the catalogue cannot be read or is not a valid one; the content is then what it was before, and lastError() says
    /// why. Own presets that are not valid are left out, all of them, and warning() says why. Does not throw but for
    /// lack of memory.
    bool loadPresets(const Kestra::ioPath& path);
    /// "file: /json/pointer: reason" of the last loadPresets; empty after a success.
    const std::string& lastError() const { return error; }

    /// Why the last successful loadPresets left out the user's own presets, a sentence with "file: /json/pointer:
    /// reason"; empty when it did not.
    const std::string& warning() const { return ownError; }

    /// Why a file of own presets could not be laid over what has been loaded, "file: /json/pointer: reason"; empty when
    /// it could. Changes nothing.
    std::string faultOf(const Kestra::ioPath& ownPresets) const;

    /// In catalogue order.
    std::deque<std::string> tags() const;
    /// Row of the tag's default preset; 0 for a tag that is none.
    std::size_t defaultPresetIndex(const std::string& tag) const;
    /// The presets of a tag in its order; none for a tag that is none.
    std::deque<Preset> presets(const std::string& tag) const;
    /// A default-constructed preset for an id that is none.
    Preset preset(const std::string& id) const;
    bool isPresetExists(const std::string& id) const;

    /// Names of a preset's quality modifiers; none for an id that is none.
    std::set<std::string> qualityModifierTags(const std::string& id) const;
    /// The sparse tree for Preset::applyQualityModifier; an empty one, which changes nothing, for names that are none.
    Kestra::Core::Property qualityModifierData(const std::string& id, const std::string& modifier) const;

private:
    EditorPreset::Catalogue catalogue;
    std::string error;
    std::string ownError;
};
