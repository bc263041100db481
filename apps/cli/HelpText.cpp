// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/HelpText.h"

#include "cli/Wrapping.h"
#include <algorithm>
#include <sstream>

namespace Cli {
namespace {

/// Two columns: names, and what they mean. Where the terminal is narrow the meaning stands below.
class Rows {
public:
    explicit Rows(std::size_t columns)
        : columns(columns)
        , second(columns >= WIDE ? SECOND : NARROW_SECOND) {}

    std::string row(const std::string& first, const std::string& meaning) const {
        std::string text = "  " + first;
        if (text.size() + 2 > second)
            text += '\n' + std::string(second, ' ');
        else
            text.resize(second, ' ');
        return text + Wrapping::wrapped(meaning, columns, second, second) + '\n';
    }
    std::string paragraph(const std::string& text) const { return Wrapping::wrapped(text, columns) + '\n'; }
    /// The meaning below the command line, which is not broken.
    std::string example(const std::string& line) const {
        const std::size_t hash = line.find(" # ");
        const std::string command = line.substr(0, hash);
        return "  " + Wrapping::wrapped(command, columns - 2, 6, 2) + '\n' +
               (hash == std::string::npos ? std::string()
                                          : "      " + Wrapping::wrapped(line.substr(hash + 3), columns, 6, 6) + '\n');
    }

private:
    static constexpr std::size_t WIDE = 60, SECOND = 26, NARROW_SECOND = 6;

    const std::size_t columns;
    const std::size_t second;
};

bool isBelow(const CommandText& row, const std::vector<std::string>& words) {
    return row.words.size() == words.size() + 1 && std::equal(words.begin(), words.end(), row.words.begin());
}

std::string usageOf(const CommandText& command, bool hasCommands) {
    if (command.words.empty())
        return "Usage: editor-export INPUT... OUTPUT\n   or: editor-export [OPTIONS] COMMAND";
    std::string text = "Usage: " + command.name() + " [OPTIONS]";
    if (!command.arguments.empty())
        text += ' ' + command.arguments;
    return hasCommands ? text + " [COMMAND]" : text;
}

std::string commandRows(const CommandTable& table, const std::vector<std::string>& words, const Rows& rows) {
    std::string text;
    for (const CommandText& row : table)
        if (isBelow(row, words))
            text += rows.row(row.words.back(), row.summary);
    return text.empty() ? text : "\nCommands:\n" + text;
}

std::string optionRows(const CommandText& command, const Rows& rows) {
    std::string text;
    for (const OptionText& option : command.options)
        text += rows.row(option.joinedNames() + (option.value.empty() ? "" : ' ' + option.value), option.meaning);
    return text.empty() ? text : "\nOptions:\n" + text;
}

/// A tab in a line makes a row of it.
std::string noteText(const std::string& note, const Rows& rows) {
    std::string text;
    std::istringstream lines(note);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t tab = line.find('\t');
        text += tab == std::string::npos ? rows.paragraph(line) : rows.row(line.substr(0, tab), line.substr(tab + 1));
    }
    return text;
}

} // namespace

std::string HelpText::of(const CommandTable& table, const std::vector<std::string>& words, std::size_t columns) {
    const auto found =
        std::find_if(table.begin(), table.end(), [&](const CommandText& row) { return row.words == words; });
    const CommandText& command = found == table.end() ? table.front() : *found;
    const Rows rows(columns);
    const std::string commands = commandRows(table, command.words, rows);
    std::string text = rows.paragraph(command.summary) + rows.paragraph(usageOf(command, !commands.empty())) +
                       optionRows(command, rows) + commands;
    for (const std::string& note : command.notes)
        text += '\n' + noteText(note, rows);
    if (!command.examples.empty())
        text += "\nExamples:\n";
    for (const std::string& example : command.examples)
        text += rows.example(example);
    return text;
}

} // namespace Cli
