// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CommandLine.h"

#include "ExportCore/LoudnessGain.h"
#include "ExportCore/NameList.h"
#include "ExportCore/NearNames.h"
#include "ExportCore/TimeText.h"
#include "ExportCore/TimelineOpening.h"
#include <algorithm>
#include <sys/stat.h>

namespace Cli {
namespace {

constexpr double BELOW_FULL_SCALE = 0.891; // -1 dB

ProgressStyle styleOf(const std::string& name) {
    static const auto& styles = *new std::map<std::string, ProgressStyle>{{"auto", ProgressStyle::Automatic},
                                                                          {"bar", ProgressStyle::Bar},
                                                                          {"plain", ProgressStyle::Plain},
                                                                          {"json", ProgressStyle::Json},
                                                                          {"none", ProgressStyle::None}};
    return styles.at(name);
}

/// A file, or a timeline, which may be a folder; other folders are none of what can be read.
bool standsAsInput(const std::string& path) {
    struct stat state = {};
    return ::stat(path.c_str(), &state) == 0 &&
           (!S_ISDIR(state.st_mode) || ExportCore::TimelineOpening::isTimeline(path));
}

bool isFolder(const std::string& path) {
    struct stat state = {};
    return ::stat(path.c_str(), &state) == 0 && S_ISDIR(state.st_mode);
}

/// "INPUT...", "[ID]...", "FILE".
std::string argumentsOf(const CLI::Option& option) {
    const std::string name = option.get_required() ? option.get_name(true) : '[' + option.get_name(true) + ']';
    return option.get_items_expected_max() > 1 ? name + "..." : name;
}

} // namespace

CommandLine::CommandLine(Options& options)
    : options(options) {
    app.require_subcommand(1);
    addGeneral();
    addRender();
    addQueue();
    addPresets();
    addPresetFiles();
    addInfo();
    addValidate();
}

void CommandLine::parse(std::vector<std::string> words) {
    requireRightAssignments(words);
    std::reverse(words.begin(), words.end()); // as the library wants them
    app.parse(std::move(words));
    requireValues(app);
    options.command = command();
    if (options.command == Options::Command::Presets)
        requireOneList();
    takeTexts();
    if (options.command == Options::Command::Render && output->count() == 0)
        takeOutput();
}

/// A variable of a script that is not set, as in --report "$REPORT", is to be told.
void CommandLine::requireValues(const CLI::App& command) const {
    for (const CLI::Option* option : command.get_options()) {
        const std::vector<std::string>& values = option->results();
        if (!option->get_positional() && std::find(values.begin(), values.end(), std::string()) != values.end())
            throw CLI::ValidationError(option->get_name() + " needs a value, which is empty");
    }
    for (const CLI::App* below : command.get_subcommands())
        requireValues(*below);
}

void CommandLine::requireRightAssignments(const std::vector<std::string>& words) const {
    const auto names = std::find(words.begin(), words.end(), "--"); // whatever follows is a name
    for (auto word = words.begin(); word != names; ++word)
        if (word->rfind("--", 0) == 0)
            requireNoEmptyAssignment(*word);
        else if (word->rfind('-', 0) == 0)
            requireNoShortAssignment(*word);
}

/// As in --report="$REPORT": the parser would take the next word for the value, which may be a file to be spared, and
/// --overwrite="$FORCE" for a yes.
void CommandLine::requireNoEmptyAssignment(const std::string& word) const {
    if (word.find('=') + 1 != word.size())
        return;
    const std::string name = word.substr(0, word.size() - 1);
    if (const auto option = optionCalled(name))
        throw CLI::ValidationError(name +
                                   (option->value.empty() ? " takes no value" : " needs a value, which is empty"));
}

/// The parser would take "=out.mp4" for the value in -o=out.mp4, also behind flags as in -yo=out.mp4.
void CommandLine::requireNoShortAssignment(const std::string& word) const {
    const std::size_t sign = word.find('=');
    if (sign == std::string::npos || sign < 2)
        return;
    for (std::size_t letter = 1; letter + 1 < sign; ++letter)
        if (const auto flag = optionCalled({'-', word[letter]}); !flag || !flag->value.empty())
            return; // what follows is its value
    const auto option = optionCalled({'-', word[sign - 1]});
    if (!option || option->value.empty())
        return;
    const std::string value = word.substr(sign + 1), &name = option->names.front();
    if (value.empty())
        throw CLI::ValidationError(name + " needs a value, which is empty");
    throw CLI::ValidationError(name + " takes its value without \"=\": write " + name + ' ' + value + " or " +
                               option->names.back() + '=' + value);
}

/// Of whatever command.
std::optional<OptionText> CommandLine::optionCalled(const std::string& name) const {
    for (const CommandText& command : table())
        for (const OptionText& option : command.options)
            if (std::find(option.names.begin(), option.names.end(), name) != option.names.end())
                return option;
    return std::nullopt;
}

void CommandLine::requireOneList() const {
    const int given = (options.inputs.empty() ? 0 : 1) + (options.tag ? 1 : 0) + (options.listTags ? 1 : 0);
    if (given > 1)
        throw CLI::ValidationError("IDs, --tag and --tags are three lists; ask for one of them");
}

Options::Command CommandLine::command() {
    for (const auto& [subcommand, action] : presetActions)
        if (subcommand->parsed()) {
            options.presetAction = action;
            return Options::Command::PresetFiles;
        }
    return presets->parsed()    ? Options::Command::Presets
           : queue->parsed()    ? Options::Command::Queue
           : info->parsed()     ? Options::Command::Info
           : validate->parsed() ? Options::Command::Validate
                                : Options::Command::Render;
}

void CommandLine::takeTexts() {
    options.in = ExportCore::TimeText::parsePoint(inText);
    options.out = ExportCore::TimeText::parsePoint(outText);
    options.duration = ExportCore::TimeText::parsePoint(durationText);
    options.progress = styleOf(progressText);
    if (missingText == "black")
        options.timelines.missing = ExportCore::TimelineOptions::Missing::Black;
    if (pitchText == "moved")
        options.timelines.sound.pitch = Kestra::Proc::Pitch::Moved;
    if (loudnessText != SAME_LOUDNESS)
        options.loudness = ExportCore::LoudnessGain::parse(loudnessText);
    if (limiter)
        options.timelines.sound.ceiling = BELOW_FULL_SCALE;
    if (!audioText.empty())
        options.tracks.chooseSound(audioText);
    options.tracks.picture = videoText != "none";
    options.tracks.metadata = metadataText != "none";
    options.tracks.subtitles = subtitlesText != "none";
    options.mediaLimits.pictureBytes = pictureMebibytes << 20;
    takeTimelineOptions();
}

/// Those that nothing but a timeline knows.
void CommandLine::takeTimelineOptions() {
    for (const char* name : {"--media-root", "--timeline", "--lenient", "--missing", "--pitch", "--limiter"})
        for (const CLI::App* command : app.get_subcommands())
            if (const CLI::Option* option = command->get_option_no_throw(name); option && option->count() > 0)
                options.timelineOptions.emplace_back(name);
}

/// The last of several names is the output, where no such file stands, or where it is a folder.
void CommandLine::takeOutput() {
    const std::string last = options.inputs.back();
    if (options.each)
        throw CLI::ValidationError("no folder was given for what --each makes; name it with --output");
    const std::string missing = "no output file was given; name it behind the inputs or with --output";
    if (options.inputs.size() < 2)
        throw CLI::ValidationError(missing);
    if (standsAsInput(last))
        throw CLI::ValidationError(missing + " (\"" + last + "\" is a file already: to replace it, write --output \"" +
                                   last + "\" --overwrite)");
    if (isFolder(last) && options.preset.empty())
        throw CLI::ValidationError('"' + last + "\" is a folder: name a file in it, or let -p PRESET --each -o \"" +
                                   last + "\" export every input into it");
    options.output = last;
    options.inputs.pop_back();
}

CLI::App* CommandLine::addCommand(CLI::App& parent, const char* name, const char* summary, Text text) {
    CLI::App* const command = parent.add_subcommand(name, summary);
    command->fallthrough();
    texts[command] = std::move(text);
    return command;
}

CLI::Option* CommandLine::typed(CLI::Option* option, const char* value, ValueKind kind) {
    kinds[option].kind = kind;
    return option->type_name(value);
}

CLI::Option* CommandLine::addFile(CLI::App& command, const char* names, std::string& value, const char* meaning) {
    return typed(command.add_option(names, value, meaning), "FILE", ValueKind::File);
}

CLI::Option* CommandLine::addChoice(CLI::App& command, const char* names, std::string& value,
                                    std::vector<std::string> choices, const char* meaning) {
    CLI::Option* const option = typed(command.add_option(names, value, meaning), "WHAT", ValueKind::Choice);
    // The library's own check would print the values in its own way.
    option->check([choices](const std::string& text) {
        if (std::find(choices.begin(), choices.end(), text) != choices.end())
            return std::string();
        std::string all;
        for (const std::string& choice : choices)
            all += (all.empty() ? "" : ", ") + choice;
        return '"' + text + "\" is none of " + all + ExportCore::NearNames::question(text, choices);
    });
    kinds[option].choices = std::move(choices);
    return option;
}

CLI::Option* CommandLine::offer(CLI::Option* option, const char* value, std::vector<std::string> choices) {
    kinds[option].choices = std::move(choices);
    return typed(option, value, ValueKind::Offered);
}

std::vector<std::string> CommandLine::chosen() const {
    std::vector<std::string> words;
    for (std::vector<CLI::App*> below = app.get_subcommands(); !below.empty(); below = below.front()->get_subcommands())
        words.push_back(below.front()->get_name());
    return words;
}

CommandTable CommandLine::table() const {
    CommandTable table;
    list(app, {}, table);
    return table;
}

void CommandLine::list(const CLI::App& command, const std::vector<std::string>& words, CommandTable& table) const {
    table.push_back(textOf(command, words));
    for (const CLI::App* below : command.get_subcommands([](const CLI::App*) { return true; })) {
        std::vector<std::string> longer = words;
        longer.push_back(below->get_name());
        list(*below, longer, table);
    }
}

CommandText CommandLine::textOf(const CLI::App& command, std::vector<std::string> words) const {
    CommandText text;
    text.words = std::move(words);
    text.summary = command.get_description();
    if (const auto more = texts.find(&command); more != texts.end()) {
        text.notes = more->second.notes;
        text.examples = more->second.examples;
        text.argumentKind = more->second.arguments;
    }
    for (const CLI::Option* option : command.get_options()) {
        if (option->get_positional())
            text.arguments = argumentsOf(*option);
        else
            text.options.push_back(textOf(*option));
    }
    // The program itself takes what render does.
    if (text.arguments.empty() && !text.words.empty())
        text.argumentKind = ValueKind::None;
    return text;
}

OptionText CommandLine::textOf(const CLI::Option& option) const {
    OptionText text;
    for (const std::string& name : option.get_snames())
        text.names.push_back('-' + name);
    for (const std::string& name : option.get_lnames())
        text.names.push_back("--" + name);
    text.meaning = option.get_description();
    const bool isFlag = option.get_items_expected_max() == 0;
    text.value = isFlag ? std::string() : option.get_type_name();
    text.kind = isFlag ? ValueKind::None : ValueKind::Text;
    if (const auto kind = kinds.find(&option); kind != kinds.end()) {
        text.kind = kind->second.kind;
        text.choices = kind->second.choices;
        if (text.kind == ValueKind::Choice)
            text.meaning += ": " + ExportCore::NameList::joined(text.choices, " or ");
    }
    if (!option.get_default_str().empty())
        text.meaning += "; " + option.get_default_str() + " by default";
    text.repeats = option.get_items_expected_max() > 1;
    return text;
}

} // namespace Cli
