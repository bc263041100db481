// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/HelpText.h"
#include "cli/CommandLine.h"
#include "cli/ManPage.h"
#include "cli/Wrapping.h"
#include <array>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <unistd.h>

using Cli::CommandTable;
using Cli::CommandText;
using Cli::HelpText;
using Cli::Wrapping;

namespace {

CommandTable table() {
    Cli::Options options;
    return Cli::CommandLine(options).table();
}

/// A text in a file of its own, which goes with this.
class TextFile {
public:
    explicit TextFile(const std::string& text)
        : path("/tmp/editor-export-text-" + std::to_string(::getpid())) {
        std::ofstream(path) << text;
    }
    ~TextFile() { std::remove(path.c_str()); }

    const std::string path;
};

std::string outputOf(const std::string& command) {
    FILE* const pipe = ::popen((command + " 2>&1").c_str(), "r");
    std::string text;
    std::array<char, 4096> buffer{};
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe))
        text.append(buffer.data(), count);
    ::pclose(pipe);
    return text;
}

TEST(Wrapping, BreaksAtBlanksAndIndentsTheRest) {
    EXPECT_EQ(Wrapping::wrapped("one two three", 7), "one two\nthree");
    EXPECT_EQ(Wrapping::wrapped("one two three", 9, 2), "one two\n  three");
    EXPECT_EQ(Wrapping::wrapped("  one two", 6), "  one\n  two");
    EXPECT_EQ(Wrapping::wrapped("one two", 7, 0, 3), "one\ntwo") << "some of the line is taken";
    EXPECT_EQ(Wrapping::wrapped("one\n\ntwo", 20), "one\n\ntwo");
    EXPECT_EQ(Wrapping::wrapped("unbreakable", 4), "unbreakable");
    EXPECT_EQ(Wrapping::wrapped("\xC3\xA4\xC3\xB6 \xC3\xBC", 4), "\xC3\xA4\xC3\xB6 \xC3\xBC")
        << "letters count, not bytes";
    EXPECT_EQ(Wrapping::wrapped("", 4), "");
}

TEST(Wrapping, LeavesLinesThatFitAndTheBlanksInThem) {
    EXPECT_EQ(Wrapping::fitted("one  two\nthree\n", 8, 2), "one  two\nthree\n");
    EXPECT_EQ(Wrapping::fitted("  one  two three four\n", 12, 4), "  one  two\n    three\n    four\n");
    EXPECT_EQ(Wrapping::fitted("unbreakable word\n", 4, 2), "unbreakable\n  word\n");
    EXPECT_EQ(Wrapping::fitted("\xC3\xA4\xC3\xB6 \xC3\xBC\n", 4, 2), "\xC3\xA4\xC3\xB6 \xC3\xBC\n") << "letters count";
}

std::size_t countOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += part.size())
        ++count;
    return count;
}

TEST(ManPage, TellsEachExampleOnceAndFilesVariablesAndRelatives) {
    const std::string page = Cli::manPage(table());
    EXPECT_EQ(countOf(page, "presets validate mine.json\n"), 1U);
    EXPECT_EQ(countOf(page, "presets diff \\-\\-help"), 0U);
    for (const char* part : {".SH FILES\n", ".SH ENVIRONMENT\n", "EDITOR_EXPORT_PRESETS", "TMPDIR", ".SH SEE ALSO\n"})
        EXPECT_EQ(countOf(page, part), 1U) << part;
}

TEST(Completion, OffersNamesAndTagsSettingsQualitiesOutrosAndTracks) {
    for (const auto completion : {&Cli::bashCompletion, &Cli::zshCompletion, &Cli::fishCompletion}) {
        const std::string text = completion(table());
        for (const char* part : {"--describe=names", "--describe=qualities", "frame-rate= bitrate=", "all none"})
            EXPECT_NE(text.find(part), std::string::npos) << part << " in " << text.substr(0, 40);
    }
    EXPECT_NE(Cli::bashCompletion(table()).find("compopt -o nospace"), std::string::npos);
}

TEST(Help, FitsEveryWidthButForWordsThatAreLonger) {
    for (const CommandText& command : table())
        for (std::size_t columns = 20; columns <= 200; columns += 12) {
            std::istringstream lines(HelpText::of(table(), command.words, columns));
            for (std::string line; std::getline(lines, line);) {
                const std::size_t start = line.find_first_not_of(' ');
                const bool isOneWord = start == std::string::npos || line.find(' ', start) == std::string::npos;
                // A name and what stands for its value are not parted.
                const bool isName = line.compare(0, 3, "  -") == 0 || line.find('=') != std::string::npos;
                EXPECT_TRUE(line.size() <= columns || isOneWord || isName) << columns << ": " << line;
            }
        }
}

TEST(Help, OfEveryCommandEndsInThreeExamples) {
    for (const CommandText& command : table()) {
        EXPECT_EQ(command.examples.size(), 3U) << command.name();
        const std::string help = HelpText::of(table(), command.words, 80);
        const std::size_t at = help.find("\nExamples:\n");
        ASSERT_NE(at, std::string::npos) << command.name();
        EXPECT_NE(help.find("  editor-export ", at), std::string::npos);
        for (const std::string& example : command.examples)
            EXPECT_NE(example.find(" # "), std::string::npos) << example;
    }
}

TEST(Help, TellsWhatEveryOptionMeans) {
    for (const CommandText& command : table())
        for (const Cli::OptionText& option : command.options) {
            EXPECT_FALSE(option.meaning.empty()) << option.joinedNames();
            EXPECT_EQ(option.value.empty(), option.kind == Cli::ValueKind::None) << option.joinedNames();
            const bool hasChoices = option.kind == Cli::ValueKind::Choice || option.kind == Cli::ValueKind::Offered;
            EXPECT_EQ(option.choices.empty(), !hasChoices) << option.joinedNames();
        }
}

TEST(ManPage, TellsEveryCommandAndOptionAndHasNoFault) {
    const std::string page = Cli::manPage(table());
    for (const CommandText& command : table())
        for (const Cli::OptionText& option : command.options) {
            std::string name = option.names.back();
            for (std::size_t at = 0; (at = name.find('-', at)) != std::string::npos; at += 2)
                name.insert(at, 1, '\\');
            EXPECT_NE(page.find(name), std::string::npos) << name;
        }
    const TextFile file(page);
    EXPECT_EQ(outputOf("groff -man -Tutf8 -ww -z " + file.path), "");
    const std::string shown = outputOf("groff -man -Tascii " + file.path + " | col -bx");
    EXPECT_NE(shown.find("editor-export render"), std::string::npos) << shown.substr(0, 2000);
}

/// What bash proposes for the last of the words.
std::string proposed(const TextFile& script, const std::string& words, int count) {
    return outputOf("bash -c '. " + script.path + "; COMP_WORDS=(" + words +
                    "); COMP_CWORD=" + std::to_string(count - 1) + "; _editor_export; echo \"${COMPREPLY[*]}\"'");
}

TEST(Completion, OfBashKnowsCommandsOptionsAndValues) {
    const TextFile script(Cli::bashCompletion(table()));
    EXPECT_EQ(outputOf("bash -n " + script.path), "");
    EXPECT_NE(proposed(script, "editor-export que", 2).find("queue"), std::string::npos);
    EXPECT_EQ(proposed(script, "editor-export render --over", 3), "--overwrite\n");
    EXPECT_EQ(proposed(script, "editor-export render --progress p", 4), "plain\n");
    EXPECT_EQ(proposed(script, "editor-export render --progress = p", 5), "plain\n");
    EXPECT_EQ(proposed(script, "editor-export presets diff --he", 4), "--help\n");
    EXPECT_EQ(proposed(script, "editor-export info --progress", 3), "\n") << "an option of another command";
    EXPECT_NE(proposed(script, "editor-export render --log /tm", 4).find("/tmp"), std::string::npos);
}

TEST(Completion, OfBashKnowsTheFormWithoutACommandAndNamesWithBlanks) {
    const TextFile script(Cli::bashCompletion(table()));
    EXPECT_EQ(proposed(script, "editor-export a.mov --over", 3), "--overwrite\n");
    EXPECT_EQ(proposed(script, "editor-export a.mov --progress p", 4), "plain\n");
    const std::string folder = script.path + ".folder";
    outputOf("mkdir " + folder + "; touch \"" + folder + "/holiday one.mov\"");
    const std::string words = "editor-export " + folder + "/hol";
    EXPECT_EQ(outputOf("bash -c '. " + script.path + "; COMP_WORDS=(" + words +
                       "); COMP_CWORD=1; _editor_export; printf \"[%s]\" \"${COMPREPLY[@]}\"'"),
              '[' + folder + "/holiday one.mov]");
    outputOf("rm -r " + folder);
}

TEST(Completion, OfOtherShellsTellsEveryCommandAndOption) {
    const std::string zsh = Cli::zshCompletion(table()), fish = Cli::fishCompletion(table());
    EXPECT_NE(fish.find("-n 'not __fish_seen_subcommand_from render queue presets info validate' -s y -l overwrite"),
              std::string::npos)
        << fish.substr(0, 4000);
    const std::size_t main = zsh.find("\n    \"\")");
    ASSERT_NE(main, std::string::npos);
    const std::string mainForm = zsh.substr(main, zsh.find("\n        ;;", main) - main);
    EXPECT_NE(mainForm.find("'*--overwrite["), std::string::npos) << mainForm;
    EXPECT_NE(mainForm.find("_files}"), std::string::npos) << mainForm;
    EXPECT_EQ(zsh.rfind("#compdef editor-export\n", 0), 0U);
    for (const CommandText& command : table())
        for (const Cli::OptionText& option : command.options)
            for (const std::string& name : option.names) {
                EXPECT_NE(zsh.find('*' + name), std::string::npos) << name;
                EXPECT_NE(fish.find(name.size() == 2 ? " -s " + name.substr(1) : " -l " + name.substr(2)),
                          std::string::npos)
                    << name;
            }
}

} // namespace
