// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Options.h"

#include "ExportCore/NameList.h"
#include "ExportCore/NearNames.h"
#include "ExportCore/PresetSettings.h"
#include "ExportCore/Refusal.h"
#include "cli/CommandLine.h"
#include "cli/ErrorOutput.h"
#include "cli/ExitCode.h"
#include "cli/HelpText.h"
#include "cli/ManPage.h"
#include "cli/Terminal.h"
#include <QString>
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <map>
#include <unistd.h>
#include <utility>

namespace Cli {
namespace {

bool stands(const std::string& path) {
    return ::access(path.c_str(), F_OK) == 0;
}

const char* const BYTE_ORDER_MARK = "\xef\xbb\xbf";

bool isUtf8(const std::string& text) {
    return QString::fromStdString(text).toStdString() == text;
}

/// Why a word can be no argument; empty where it can. A mark at its start would be lost, and the name another one.
std::string whyNoWord(const std::string& word) {
    if (word.rfind(BYTE_ORDER_MARK, 0) == 0)
        return "begins with a byte order mark; write ./ in front of a name that does";
    return isUtf8(word) ? std::string() : "is not valid UTF-8";
}

/// The first word that is no option; empty where there is none.
std::string commandOf(const std::vector<std::string>& words) {
    const auto found = std::find_if(words.begin(), words.end(),
                                    [](const std::string& word) { return word.empty() || word[0] != '-'; });
    return found == words.end() ? std::string() : *found;
}

bool isFileName(const std::string& word) {
    return word.empty() || (word[0] != '-' && (word.find_first_of("./") != std::string::npos || stands(word)));
}

/// Files alone are to be exported: "in.mov out.mp4" means "render in.mov out.mp4". A slip of a command is none. Behind
/// "--" every word is a name, whatever it looks like.
bool meansRender(const std::vector<std::string>& words, const std::vector<std::string>& commands) {
    const auto end = std::find(words.begin(), words.end(), "--");
    const bool isFollowed = words.end() - end > 1;
    const std::vector<std::string> before(words.begin(), end);
    const std::string first = commandOf(before);
    return std::find(commands.begin(), commands.end(), first) == commands.end() &&
           (isFileName(first) || ExportCore::NearNames::find(first, commands).empty()) &&
           (isFollowed || std::any_of(before.begin(), before.end(), isFileName));
}

/// Columns for help: on a terminal all that there are, up to what is read with ease.
std::size_t columnsOf(int descriptor) {
    constexpr int USUAL = 80, NARROWEST = 20, WIDEST = 110;
    return static_cast<std::size_t>(std::clamp(Terminal::columns(descriptor).value_or(USUAL), NARROWEST, WIDEST));
}

/// The names of the options of the command that was chosen, and of the program.
std::vector<std::string> optionNames(const CommandLine& line) {
    std::vector<std::string> names;
    const std::vector<std::string> chosen = line.chosen();
    for (const CommandText& command : line.table())
        if (command.words.size() <= chosen.size() &&
            std::equal(command.words.begin(), command.words.end(), chosen.begin()))
            for (const OptionText& option : command.options)
                names.insert(names.end(), option.names.begin(), option.names.end());
    return names;
}

/// "--frame-rate=25" or "--frame-rate", which is a setting: what to write in its place. Empty where it is none.
std::string asSetting(const std::string& word) {
    const std::size_t sign = word.find('=');
    const std::string name = word.substr(0, sign);
    for (const ExportCore::PresetSettings::Key& key : ExportCore::PresetSettings::keys())
        if (name == std::string("--") + key.name)
            return "; write --set " + std::string(key.name) +
                   (sign == std::string::npos ? '=' + std::string(key.value) : word.substr(sign));
    return {};
}

std::string noOption(const std::string& word, const CommandLine& line) {
    const std::string name = word.substr(0, word.find('='));
    const std::vector<std::string> names = optionNames(line);
    const bool hasSettings = std::find(names.begin(), names.end(), "--set") != names.end();
    const std::string setting = hasSettings ? asSetting(word) : std::string();
    return "there is no option \"" + name + '"' +
           (setting.empty() ? ExportCore::NearNames::question(name, names) : setting);
}

/// What nobody took: options that are none, with those that may be meant.
std::string reasonOf(const CLI::ExtrasError&, const CommandLine& line) {
    std::string text;
    for (const std::string& word : line.left()) {
        const bool isOption = word.size() > 1 && word[0] == '-';
        text += text.empty() ? "" : "; ";
        text += isOption ? noOption(word, line) : '"' + word + "\" was not expected";
    }
    return text;
}

/// The parser counts arguments aloud; people want to know what is wrong with theirs.
std::string reasonOf(const CLI::ParseError& error, const CommandLine& line) {
    if (const auto* extras = dynamic_cast<const CLI::ExtrasError*>(&error))
        return reasonOf(*extras, line);
    std::string text = error.what();
    const std::size_t colon = text.find(':');
    if (colon == std::string::npos || !dynamic_cast<const CLI::ArgumentMismatch*>(&error))
        return text;
    return text.substr(0, colon) +
           (text.find("At Most 1") != std::string::npos ? " can be given only once" : " needs a value");
}

void complain(const std::string& what) {
    ErrorOutput::refuse(what + " (see --help)");
}

/// Whether JSON is asked for on standard error, as far as that can be told before the rest has been understood.
bool asksForJson(int argc, char** argv) {
    bool isInfo = false;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        isInfo = isInfo || word == "info" || word == "validate";
        if (isInfo && word == "--json")
            return true;
        if (word == "--progress=json" || (word == "--progress" && i + 1 < argc && std::string("json") == argv[i + 1]))
            return true;
    }
    return false;
}

/// For builds and for shells: not in the help.
const char* const DESCRIBE = "--describe=";

std::optional<Options> describe(const std::string& what, const CommandTable& table, int& exitCode) {
    static const auto& texts = *new std::map<std::string, std::string (*)(const CommandTable&)>{
        {"man", &manPage}, {"bash", &bashCompletion}, {"zsh", &zshCompletion}, {"fish", &fishCompletion}};
    exitCode = EXIT_DONE;
    if (const auto text = texts.find(what); text != texts.end()) {
        std::fputs(text->second(table).c_str(), stdout);
        return std::nullopt;
    }
    if (what == "presets" || what == "tags" || what == "names" || what == "qualities") {
        Options options;
        options.command = Options::Command::Describe;
        options.described = what;
        return options;
    }
    complain("nothing is called \"" + what + "\" that could be described");
    exitCode = EXIT_BAD_INPUT;
    return std::nullopt;
}

} // namespace

std::string Options::noteWithoutEffect() const {
    using ExportCore::TimelineOpening;
    if (timelineOptions.empty() || std::any_of(inputs.begin(), inputs.end(), &TimelineOpening::isTimeline))
        return {};
    const auto limiter = std::find(timelineOptions.begin(), timelineOptions.end(), "--limiter");
    return ExportCore::NameList::joined(timelineOptions, " and ") +
           (timelineOptions.size() > 1 ? " have no effect: they are" : " has no effect: it is") +
           " for timelines, and no input is one" +
           (limiter != timelineOptions.end() ? " (--loudness keeps the peaks of media low)" : "");
}

Options Options::ofJob(const std::vector<std::string>& words) {
    Options options;
    CommandLine line(options);
    options.words = words;
    std::vector<std::string> all{"render"};
    all.insert(all.end(), words.begin(), words.end());
    try {
        line.parse(std::move(all));
    } catch (const CLI::ParseError& error) {
        KESTRA_THROW(ExportCore::Refusal(reasonOf(error, line)));
    }
    return options;
}

std::optional<Options> Options::read(int argc, char** argv, int& exitCode) {
    if (asksForJson(argc, argv))
        ErrorOutput::useJson();
    for (int i = 1; i < argc; ++i) {
        if (const std::string why = whyNoWord(argv[i]); !why.empty()) {
            complain("argument " + std::to_string(i) + ' ' + why);
            exitCode = EXIT_BAD_INPUT;
            return std::nullopt;
        }
    }
    Options options;
    CommandLine line(options);
    if (argc <= 1) {
        std::fputs(HelpText::of(line.table(), {}, columnsOf(STDERR_FILENO)).c_str(), stderr);
        exitCode = EXIT_BAD_INPUT;
        return std::nullopt;
    }
    const std::vector<std::string> commands{"render", "queue", "presets", "info", "validate"};
    std::vector<std::string> words(argv + 1, argv + argc);
    options.words = words;
    if (meansRender(words, commands))
        words.insert(words.begin(), commands.front());
    if (words.size() == 1 && words[0].rfind(DESCRIBE, 0) == 0)
        return describe(words[0].substr(std::strlen(DESCRIBE)), line.table(), exitCode);
    const std::string command = commandOf(words);
    if (!command.empty() && std::find(commands.begin(), commands.end(), command) == commands.end()) {
        complain("there is no command \"" + command + '"' + ExportCore::NearNames::question(command, commands));
        exitCode = EXIT_BAD_INPUT;
        return std::nullopt;
    }
    try {
        line.parse(std::move(words));
        return options;
    } catch (const CLI::CallForHelp&) {
        std::fputs(HelpText::of(line.table(), line.chosen(), columnsOf(STDOUT_FILENO)).c_str(), stdout);
        exitCode = EXIT_DONE;
    } catch (const CLI::CallForVersion&) {
        options.command = Command::Version;
        return options;
    } catch (const CLI::ParseError& error) {
        complain(reasonOf(error, line));
        exitCode = EXIT_BAD_INPUT;
    }
    return std::nullopt;
}

} // namespace Cli
