// SPDX-License-Identifier: GPL-3.0-or-later
// Cli::CommandTable: all commands and options, described once.
#pragma once

#include <string>
#include <vector>

namespace Cli {

/// What stands behind an option, or in a command's place for names.
/// Others than those that are Offered are right, too; one that ends with "=" is gone on with.
enum class ValueKind { None, Text, Choice, Offered, File, Folder, Preset, PresetOrTag, Tag, Quality };

/// Values. Help, the man page, completions and hints are made of them.
struct OptionText {
    std::vector<std::string> names; ///< "-o", "--output": the short ones first
    std::string value;              ///< what stands for its value: "FILE"; empty for a flag
    std::string meaning;
    ValueKind kind = ValueKind::None;
    std::vector<std::string> choices; ///< of a Choice, and what is Offered
    bool repeats = false;

    std::string joinedNames() const;
};

struct CommandText {
    std::vector<std::string> words; ///< behind the program's name: "presets", "export"; none for the program itself
    std::string summary;
    std::string arguments; ///< "INPUT..."; empty where there are none
    ValueKind argumentKind = ValueKind::None;
    std::vector<OptionText> options;
    std::vector<std::string> notes;    ///< paragraphs; lines with a tab are rows: a name, what it means
    std::vector<std::string> examples; ///< command lines, each with "# what it does" behind it

    /// "editor-export presets export".
    std::string name() const;
};

/// The program itself first, then its commands, subcommands behind theirs.
using CommandTable = std::vector<CommandText>;

} // namespace Cli
