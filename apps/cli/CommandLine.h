// SPDX-License-Identifier: GPL-3.0-or-later
// Cli::CommandLine: the commands and their options, as they are read.
#pragma once

#include "cli/CommandTable.h"
#include "cli/Options.h"
#include <CLI/CLI.hpp>
#include <map>
#include <optional>

namespace Cli {

/// Fills the options that it borrows. Nothing is read from anywhere but the words.
class CommandLine {
public:
    /// What --loudness says where the sound stays as loud as it is.
    static constexpr const char* SAME_LOUDNESS = "off";

    explicit CommandLine(Options& options);

    /// `words` without the program's own name. Throws CLI::ParseError.
    void parse(std::vector<std::string> words);
    /// After a parse, whole or failed: the words of the command that was named.
    std::vector<std::string> chosen() const;
    /// After a parse that failed: what no command or option took.
    std::vector<std::string> left() const { return app.remaining(true); }

    CommandTable table() const;

    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

private:
    struct Kind {
        ValueKind kind = ValueKind::Text;
        std::vector<std::string> choices;
    };
    struct Text {
        std::vector<std::string> notes;
        std::vector<std::string> examples;
        ValueKind arguments = ValueKind::File;
    };

    void addGeneral();
    void addRender();
    void addPresetAndOutput();
    void addTracks();
    void addChanges();
    void addHandling();
    void addTelling(CLI::App& command);
    void addQueue();
    void addPresets();
    void addPresetFiles();
    void addInfo();
    void addValidate();
    void addInputs(CLI::App& command);
    void addLimits(CLI::App& command);
    void addTimelines(CLI::App& command);
    CLI::App* addCommand(CLI::App& parent, const char* name, const char* summary, Text text);

    /// Typed options, whose value's kind is kept for completions.
    CLI::Option* addFile(CLI::App& command, const char* names, std::string& value, const char* meaning);
    CLI::Option* addChoice(CLI::App& command, const char* names, std::string& value, std::vector<std::string> choices,
                           const char* meaning);
    CLI::Option* offer(CLI::Option* option, const char* value, std::vector<std::string> choices);
    CLI::Option* typed(CLI::Option* option, const char* value, ValueKind kind);

    void requireRightAssignments(const std::vector<std::string>& words) const;
    void requireNoEmptyAssignment(const std::string& word) const;
    void requireNoShortAssignment(const std::string& word) const;
    std::optional<OptionText> optionCalled(const std::string& name) const;
    void requireValues(const CLI::App& command) const;
    void requireOneList() const;
    Options::Command command();
    void takeTexts();
    void takeTimelineOptions();
    void takeOutput();
    CommandText textOf(const CLI::App& command, std::vector<std::string> words) const;
    OptionText textOf(const CLI::Option& option) const;
    void list(const CLI::App& command, const std::vector<std::string>& words, CommandTable& table) const;

    Options& options;
    CLI::App app{"Exports media files and timelines with the editor's presets.", "editor-export"};
    std::map<const CLI::Option*, Kind> kinds;
    std::map<const CLI::App*, Text> texts;
    CLI::App* render = nullptr;
    CLI::App* queue = nullptr;
    CLI::App* presets = nullptr;
    std::map<const CLI::App*, Options::PresetAction> presetActions;
    CLI::App* info = nullptr;
    CLI::App* validate = nullptr;
    CLI::Option* output = nullptr;
    std::string inText;
    std::string outText;
    std::string durationText;
    std::string progressText = "auto";
    std::string missingText = "refused";
    std::string pitchText = "kept";
    std::string audioText;
    std::string videoText = "kept";
    std::string metadataText = "kept";
    std::string subtitlesText = "kept";
    std::string loudnessText = SAME_LOUDNESS;
    bool limiter = false;
    std::int64_t pictureMebibytes = Kestra::Proc::MediaLimits().pictureBytes >> 20;
};

} // namespace Cli
