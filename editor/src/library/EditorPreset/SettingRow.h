// SPDX-License-Identifier: GPL-3.0-or-later
// EditorPreset::SettingRow: all that is known of one setting of a preset.
#pragma once

#include "EditorPreset/BitrateMode.h"
#include "EditorPreset/PresetTags.h"
#include "Kestra/Conf/EngineSetting.h"
#include "Kestra/Core/Property.h"
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

class Preset;

namespace EditorPreset {

/// SettingTable.h names them.
enum class Setting : int;

/// Modifiers may override what is said of video and audio, and nothing of the container.
enum class Section { Container, Video, Audio };

/// What may stand in a catalogue.
struct Flag {};
struct Text {
    int shortest;
    int longest;
};
struct Whole {
    std::int64_t lowest;
    std::int64_t highest;
};
struct Number {
    double lowest;
    double highest;
};
/// "source", "25", "30000/1001"; a rational in the tree.
struct FrameRateText {};
struct Choice {
    const char* name;
    std::int64_t meaning;
};
struct OneOf {
    template <std::size_t size>
    constexpr OneOf(const Choice (&all)[size])
        : first(all)
        , last(all + size) {}
    constexpr const Choice* begin() const { return first; }
    constexpr const Choice* end() const { return last; }

    const Choice* first;
    const Choice* last;
};
/// Names that stand in tables of the engine.
struct NameOf {
    std::vector<std::string> (*names)();
};
struct OneOfNumbers {
    std::vector<int> (*numbers)();
};
/// Names and values that encoder or muxer know.
struct Options {};

using Values = std::variant<Flag, Text, Whole, Number, FrameRateText, OneOf, NameOf, OneOfNumbers, Options>;

/// What a setting comes to in a preset; no value where that is nothing.
using Reading = Kestra::Core::Property::Value (*)(const Preset& preset, Setting setting);

/// What encoder or muxer are told of it; nothing where the setting is the export's own affair.
struct Told {
    std::variant<std::monostate, Kestra::Conf::ContainerSetting, Kestra::Conf::VideoSetting, Kestra::Conf::AudioSetting>
        as;
    std::optional<Reading> value; ///< none for Options, which are told by name
};

/// How it counts when presets are compared.
struct Compared {
    unsigned inModes; ///< a bit for each bitrate mode in which the file depends on it; else it is on offer only
    std::optional<Reading> value; ///< none where what is told says it
};

/// Whether the range that the schema holds says all, or PresetChecks has rules, too.
enum class Rules { Range, More };

struct SettingRow {
    Setting setting;
    Section section;
    const char* name; ///< in the catalogue
    Values values;
    std::int64_t missing; ///< what a number, a flag or a choice is where it is missing
    Told told;
    Compared compared;
    Rules rules;
    const char* description; ///< for people: in the schema and in docs/presets.md
};

constexpr const char* nameOf(Section section) {
    switch (section) {
    case Section::Container:
        return TAG_CONTAINER;
    case Section::Video:
        return TAG_VIDEO;
    case Section::Audio:
        return TAG_AUDIO;
    }
    return nullptr;
}

constexpr unsigned bitOf(Export::BitrateMode mode) {
    return 1U << static_cast<unsigned>(mode);
}

} // namespace EditorPreset
