// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/NameList.h"
#include "cli/ManPage.h"
#include <algorithm>

namespace Cli {
namespace {

using ExportCore::NameList;

// What the program is asked for while a word is completed: ids and tags are its own to know.
const char* const PRESET_IDS = "editor-export --describe=presets 2>/dev/null";
const char* const NAMES = "editor-export --describe=names 2>/dev/null";
const char* const QUALITIES = "editor-export --describe=qualities 2>/dev/null";
const char* const TAGS = "editor-export --describe=tags 2>/dev/null";

/// What answers for names of that kind; null where the shell or the table knows them.
const char* commandFor(ValueKind kind) {
    switch (kind) {
    case ValueKind::Preset:
        return PRESET_IDS;
    case ValueKind::PresetOrTag:
        return NAMES;
    case ValueKind::Quality:
        return QUALITIES;
    case ValueKind::Tag:
        return TAGS;
    default:
        return nullptr;
    }
}

/// Whether values of some are begun by them only.
bool areGoneOnWith(const std::vector<std::string>& choices) {
    return !choices.empty() && choices.front().back() == '=';
}

std::string joined(const std::vector<std::string>& words) {
    return NameList::joined(words, " ", " ");
}

std::vector<std::string> optionNames(const CommandText& command) {
    std::vector<std::string> names;
    for (const OptionText& option : command.options)
        names.insert(names.end(), option.names.begin(), option.names.end());
    return names;
}

/// Files without a command are rendered: what render takes, the program takes as well.
CommandTable withMainForm(CommandTable table) {
    const auto render = std::find_if(table.begin(), table.end(), [](const CommandText& command) {
        return command.words == std::vector<std::string>{"render"};
    });
    if (render == table.end())
        return table;
    const std::vector<std::string> own = optionNames(table.front());
    for (const OptionText& option : std::vector<OptionText>(render->options))
        if (std::find(own.begin(), own.end(), option.names.back()) == own.end())
            table.front().options.push_back(option);
    return table;
}

std::vector<std::string> wordsBelow(const CommandTable& table, const std::vector<std::string>& words) {
    std::vector<std::string> below;
    for (const CommandText& command : table)
        if (command.words.size() == words.size() + 1 && std::equal(words.begin(), words.end(), command.words.begin()))
            below.push_back(command.words.back());
    return below;
}

/// For bash: what follows a word, as an assignment to COMPREPLY.
std::string bashValues(ValueKind kind, const std::vector<std::string>& choices) {
    if (const char* const command = commandFor(kind))
        return std::string("COMPREPLY=($(compgen -W \"$(") + command + ")\" -- \"$word\"))";
    switch (kind) {
    case ValueKind::Choice:
    case ValueKind::Offered:
        return (areGoneOnWith(choices) ? "compopt -o nospace 2>/dev/null; " : "") +
               ("COMPREPLY=($(compgen -W \"" + joined(choices) + "\" -- \"$word\"))");
    case ValueKind::File:
        return "compopt -o filenames 2>/dev/null; mapfile -t COMPREPLY < <(compgen -f -- \"$word\")";
    case ValueKind::Folder:
        return "compopt -o filenames 2>/dev/null; mapfile -t COMPREPLY < <(compgen -d -- \"$word\")";
    default:
        return "COMPREPLY=()";
    }
}

std::string bashCommand(const CommandTable& table, const CommandText& command) {
    std::string text = "    \"" + joined(command.words) + "\")\n        case \"$before\" in\n";
    for (const OptionText& option : command.options)
        if (option.kind != ValueKind::None)
            text += "        " + NameList::joined(option.names, "|", "|") + ") " +
                    bashValues(option.kind, option.choices) + "; return;;\n";
    std::vector<std::string> words = optionNames(command);
    text += "        esac\n        if [[ $word == -* ]]; then COMPREPLY=($(compgen -W \"" + joined(words) +
            "\" -- \"$word\")); return; fi\n        " + bashValues(command.argumentKind, {}) + '\n';
    const std::vector<std::string> below = wordsBelow(table, command.words);
    if (!below.empty())
        text += "        COMPREPLY+=($(compgen -W \"" + joined(below) + "\" -- \"$word\"))\n";
    return text + "        ;;\n";
}

/// For zsh: what follows an option, behind its meaning.
std::string zshAction(ValueKind kind, const std::vector<std::string>& choices) {
    if (const char* const command = commandFor(kind))
        return std::string("{compadd -- ${(f)\"$(") + command + ")\"}}";
    switch (kind) {
    case ValueKind::Choice:
        return "(" + joined(choices) + ")";
    case ValueKind::Offered:
        return std::string("{compadd ") + (areGoneOnWith(choices) ? "-S \"\" " : "") + "-- " + joined(choices) + '}';
    case ValueKind::File:
        return "_files";
    case ValueKind::Folder:
        return "_files -/";
    default:
        return " ";
    }
}

/// In single quotes of zsh's _arguments, which takes colons and brackets for its own.
std::string zshText(const std::string& text) {
    std::string safe;
    for (const char letter : text) {
        if (letter == '[' || letter == ']' || letter == ':')
            safe += '\\';
        safe += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
    }
    return safe;
}

std::string zshCommand(const CommandTable& table, const CommandText& command) {
    std::string text = "    \"" + joined(command.words) + "\")\n        _arguments -s \\\n";
    for (const OptionText& option : command.options)
        for (const std::string& name : option.names) {
            const bool takesEqual = option.kind != ValueKind::None && name.size() > 2;
            text += "            '*" + name +
                    (takesEqual                       ? "="
                     : option.kind != ValueKind::None ? "+"
                                                      : "") +
                    '[' + zshText(option.meaning) + ']' +
                    (option.kind == ValueKind::None
                         ? ""
                         : ':' + zshText(option.value) + ':' + zshAction(option.kind, option.choices)) +
                    "' \\\n";
        }
    const std::vector<std::string> below = wordsBelow(table, command.words);
    const std::string own = zshAction(command.argumentKind, {});
    text += "            '*:argument:{";
    if (!below.empty())
        text += "compadd -- " + joined(below) + "; ";
    return text + (own.front() == '{' ? own.substr(1, own.size() - 2) : own == " " ? ":" : own) + "}'\n        ;;\n";
}

std::string fishText(const std::string& text) {
    std::string safe;
    for (const char letter : text)
        safe += letter == '\'' || letter == '\\' ? std::string("\\") + letter : std::string(1, letter);
    return '\'' + safe + '\'';
}

std::string fishValues(const OptionText& option) {
    if (const char* const command = commandFor(option.kind))
        return std::string(" -x -a '(") + command + ")'";
    switch (option.kind) {
    case ValueKind::Choice:
    case ValueKind::Offered:
        return " -x -a " + fishText(joined(option.choices));
    case ValueKind::File:
        return " -r -F";
    case ValueKind::Folder:
        return " -x -a '(__fish_complete_directories)'";
    case ValueKind::Text:
        return " -x";
    default:
        return {};
    }
}

std::string fishCondition(const CommandTable& table, const CommandText& command) {
    if (command.words.empty())
        return " -n 'not __fish_seen_subcommand_from " + joined(wordsBelow(table, command.words)) + '\'';
    std::string text = "__fish_seen_subcommand_from " + command.words.back();
    if (command.words.size() > 1)
        text = "__fish_seen_subcommand_from " + command.words.front() + "; and " + text;
    else if (const std::vector<std::string> below = wordsBelow(table, command.words); !below.empty())
        text += "; and not __fish_seen_subcommand_from " + joined(below);
    return " -n '" + text + '\'';
}

} // namespace

std::string bashCompletion(const CommandTable& commandTable) {
    const CommandTable table = withMainForm(commandTable);
    std::string commands;
    std::vector<std::string> all;
    for (const CommandText& command : table) {
        commands += bashCommand(table, command);
        if (!command.words.empty())
            all.push_back('"' + joined(command.words) + '"');
    }
    return "# Completion of editor-export for bash.\n"
           "_editor_export() {\n"
           "    local word=\"${COMP_WORDS[COMP_CWORD]}\" before=\"${COMP_WORDS[COMP_CWORD-1]}\" command=\"\" next i\n"
           "    if [[ $before == \"=\" ]]; then before=\"${COMP_WORDS[COMP_CWORD-2]}\"; fi\n"
           "    if [[ $word == \"=\" ]]; then before=\"${COMP_WORDS[COMP_CWORD-1]}\"; word=\"\"; fi\n"
           "    for ((i = 1; i < COMP_CWORD; i++)); do\n"
           "        next=\"${command:+$command }${COMP_WORDS[i]}\"\n"
           "        case \"$next\" in " +
           NameList::joined(all, "|", "|") +
           ") command=\"$next\";; esac\n"
           "    done\n"
           "    case \"$command\" in\n" +
           commands +
           "    esac\n"
           "}\n"
           "complete -F _editor_export editor-export\n";
}

std::string zshCompletion(const CommandTable& commandTable) {
    const CommandTable table = withMainForm(commandTable);
    std::string commands;
    std::vector<std::string> all;
    for (const CommandText& command : table) {
        commands += zshCommand(table, command);
        if (!command.words.empty())
            all.push_back('"' + joined(command.words) + '"');
    }
    return "#compdef editor-export\n"
           "# Completion of editor-export for zsh.\n"
           "_editor_export() {\n"
           "    local command=\"\" next i\n"
           "    for ((i = 2; i < CURRENT; i++)); do\n"
           "        next=\"${command:+$command }${words[i]}\"\n"
           "        case \"$next\" in\n"
           "        " +
           NameList::joined(all, "|", "|") +
           ") command=\"$next\";;\n"
           "        esac\n"
           "    done\n"
           "    case \"$command\" in\n" +
           commands +
           "    esac\n"
           "}\n"
           "_editor_export \"$@\"\n";
}

std::string fishCompletion(const CommandTable& commandTable) {
    const CommandTable table = withMainForm(commandTable);
    std::string text = "# Completion of editor-export for fish.\n";
    for (const CommandText& command : table) {
        const std::string head = "complete -c editor-export" + fishCondition(table, command);
        for (const CommandText& below : table)
            if (below.words.size() == command.words.size() + 1 &&
                std::equal(command.words.begin(), command.words.end(), below.words.begin()))
                text += (command.words.empty() ? "complete -c editor-export -n __fish_use_subcommand" : head) + " -a " +
                        below.words.back() + " -d " + fishText(below.summary) + '\n';
        if (command.argumentKind == ValueKind::Preset)
            text += head + " -f -a '(" + PRESET_IDS + ")'\n";
        for (const OptionText& option : command.options) {
            text += head;
            for (const std::string& name : option.names)
                text += name.size() == 2 ? " -s " + name.substr(1) : " -l " + name.substr(2);
            text += fishValues(option) + " -d " + fishText(option.meaning) + '\n';
        }
    }
    return text;
}

} // namespace Cli
