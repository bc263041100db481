// SPDX-License-Identifier: GPL-3.0-or-later
// EditorPreset::Catalogue: what a catalogue file says, checked.
#pragma once

#include "EditorPreset/Preset.h"
#include <cstddef>
#include <deque>
#include <map>
#include <string>

namespace EditorPreset {

/// Every preset id that a tag names is in `presets`, every default lies within its tag, no tag is empty.
struct Catalogue {
    struct Tag {
        std::string name;
        std::size_t defaultIndex = 0;
        std::deque<std::string> presetIds;
    };
    using Modifiers = std::map<std::string, Kestra::Core::Property>;

    std::deque<Tag> tags;
    std::map<std::string, Preset> presets;
    /// By preset id; a preset without modifiers has no entry.
    std::map<std::string, Modifiers> modifiers;
};

} // namespace EditorPreset
