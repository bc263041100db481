// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ManPage.h"

#include <set>
#include <sstream>

namespace Cli {
namespace {

/// Plain text: a minus that can be copied, no line that troff takes for a request.
std::string plain(const std::string& text) {
    std::string safe;
    for (const char letter : text) {
        const bool atStart = safe.empty() || safe.back() == '\n';
        if (atStart && (letter == '.' || letter == '\''))
            safe += "\\&";
        if (letter == '\\')
            safe += "\\e";
        else if (letter == '-')
            safe += "\\-";
        else
            safe += letter;
    }
    return safe;
}

std::string row(const std::string& name, const std::string& value, const std::string& meaning) {
    return ".TP\n.B " + plain(name) + (value.empty() ? "" : " \\fI" + plain(value) + "\\fR") + '\n' + plain(meaning) +
           '\n';
}

std::string optionsOf(const CommandText& command) {
    std::string text;
    for (const OptionText& option : command.options)
        text += row(option.joinedNames(), option.value, option.meaning + '.');
    return text;
}

std::string notesOf(const CommandText& command) {
    std::string text;
    for (const std::string& note : command.notes) {
        std::istringstream lines(note);
        for (std::string line; std::getline(lines, line);) {
            const std::size_t tab = line.find('\t');
            text += tab == std::string::npos ? ".PP\n" + plain(line) + '\n'
                                             : row(line.substr(0, tab), {}, line.substr(tab + 1) + '.');
        }
    }
    return text;
}

std::string exampleOf(const std::string& example) {
    const std::size_t hash = example.find(" # ");
    return ".TP\n.B " + plain(example.substr(0, hash)) + '\n' + plain(example.substr(hash + 3)) + ".\n";
}

std::string synopsisOf(const CommandTable& table) {
    std::string text = ".SH SYNOPSIS\n.B editor\\-export\n.I INPUT... OUTPUT\n";
    for (const CommandText& command : table)
        if (!command.words.empty())
            text += ".br\n.B " + plain(command.name()) + "\n[\\fIOPTIONS\\fR]" +
                    (command.arguments.empty() ? "" : " \\fI" + plain(command.arguments) + "\\fR") + '\n';
    return text;
}

/// A command that is an example of two is told once.
std::string examplesOf(const CommandTable& table) {
    std::string text;
    std::set<std::string> told;
    for (const CommandText& command : table)
        for (const std::string& example : command.examples)
            if (told.insert(example.substr(0, example.find(" # "))).second)
                text += exampleOf(example);
    return text;
}

std::string placesOf() {
    return ".SH FILES\n" +
           row("OUTPUT", {}, "Appears, or is replaced with --overwrite, when the export is complete and checked.") +
           row(".editor-export-*", {},
               "Beside the output: the file under way. What a killed export leaves there is removed by the next one "
               "into "
               "that folder.") +
           row("FILE.state", {}, "Beside a queue: which of its jobs are done.") +
           row("$XDG_CONFIG_HOME/EditorExport/presets.json", {},
               "Your own presets; in ~/.config where the variable is not set.") +
           row("share/editor-export/VERSION/presets/catalogue.json", {}, "The presets.") +
           row("share/editor-export/schemas", {}, "The forms of reports and queues.") + ".SH ENVIRONMENT\n" +
           row("EDITOR_EXPORT_PRESETS", {}, "Another file of presets in the place of the installed one.") +
           row("XDG_CONFIG_HOME", {}, "Where your own presets are.") +
           row("TMPDIR", {}, "Where the statistics of two passes are kept for a while; /tmp by default.") +
           ".SH SEE ALSO\n.BR editor\\-export\\-dialog (1)\n";
}

} // namespace

std::string manPage(const CommandTable& table) {
    std::string text = ".TH EDITOR\\-EXPORT 1 \"\" \"editor\\-export " EDITOREXPORT_VERSION "\" \"User Commands\"\n"
                       ".SH NAME\neditor\\-export \\- export media files and timelines\n" +
                       synopsisOf(table) + ".SH DESCRIPTION\n" + plain(table.front().summary) +
                       "\nFiles without a command are rendered.\n.SH OPTIONS\n" + optionsOf(table.front());
    text += ".SH COMMANDS\n";
    for (const CommandText& command : table)
        if (!command.words.empty())
            text += ".SS " + plain(command.name().substr(sizeof "editor-export")) + '\n' + plain(command.summary) +
                    ".\n" + optionsOf(command) + notesOf(command);
    text += ".SH EXIT STATUS\n" + notesOf(table.front()) + ".SH EXAMPLES\n";
    return text + examplesOf(table) + placesOf();
}

} // namespace Cli
