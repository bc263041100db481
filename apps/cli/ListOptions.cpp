// SPDX-License-Identifier: GPL-3.0-or-later
// The commands that export nothing.
#include "cli/CommandLine.h"

namespace Cli {

void CommandLine::addPresets() {
    presets = addCommand(app, "presets", "List the presets, or show some of them whole",
                         {{"An asterisk marks a tag's default preset."},
                          {"editor-export presets # All of them, a line each",
                           "editor-export presets mp4-h264-1080p # What one does, and its qualities",
                           "editor-export presets --tags # The tags, each with its presets"},
                          ValueKind::Preset});
    presets->add_option("ID", options.inputs, "Presets to be shown whole")->type_name("");
    typed(presets->add_option("--tag", options.tag, "Only those of this tag"), "NAME", ValueKind::Tag);
    presets->add_flag("--tags", options.listTags, "The tags, each with its presets");
    presets->add_flag("--json", options.json, "As JSON");
}

/// Presets of one's own in files.
void CommandLine::addPresetFiles() {
    using Action = Options::PresetAction;
    const auto add = [this](Action action, const char* name, const char* summary, const char* arguments,
                            const char* meaning, Text text) {
        CLI::App* const command = addCommand(*presets, name, summary, std::move(text));
        command->add_option(arguments, options.inputs, meaning)->required()->type_name("");
        presetActions[command] = action;
        return command;
    };
    CLI::App* const exported =
        add(Action::Export, "export", "Write presets to a file that can be edited and imported", "ID", "Presets",
            {{},
             {"editor-export presets export mp4-h264-1080p -o mine.json # To "
              "a file, where it is to get an id of its own",
              "editor-export presets export mp3 flac # Two of them, to standard output",
              "editor-export presets export mp3 -o mine.json -y # Replaces the file"},
             ValueKind::Preset});
    addFile(*exported, "-o,--output", options.output, "The file to write; standard output by default");
    exported->add_flag("-y,--overwrite", options.overwrite, "Replace the file when it exists");
    CLI::App* const imported = add(Action::Import, "import", "Add the presets of files to one's own", "FILE", "Files",
                                   {{},
                                    {"editor-export presets import mine.json # They can be used from now on",
                                     "editor-export presets import mine.json -y # Replaces those of the same id",
                                     "editor-export presets validate mine.json # Looks for errors before"},
                                    ValueKind::File});
    imported->add_flag("-y,--overwrite", options.overwrite, "Replace presets of one's own that have the same id");
    add(Action::Validate, "validate", "Say what is wrong with files of presets", "FILE", "Files",
        {{"Exit code 0 when they can be imported as they are, else 2."},
         {"editor-export presets validate mine.json # Says file, place and reason",
          "editor-export presets validate *.json # Several",
          "editor-export presets import mine.json # Adds what is right"},
         ValueKind::File});
    add(Action::Diff, "diff", "Say in what settings two presets differ", "ID", "Two presets, or a file of one",
        {{"Exit code 0 when they are the same, 1 when they differ."},
         {"editor-export presets diff mp4-h264-1080p mp4-h264-720p # Setting by setting",
          "editor-export presets diff mp4-h264-1080p mine.json # With the only preset of a file",
          "editor-export presets diff mine.json yours.json # The presets of two files"},
         ValueKind::Preset});
}

void CommandLine::addInfo() {
    info = addCommand(app, "info", "Say what media files and timelines hold",
                      {{},
                       {"editor-export info clip.mov # Tracks, codecs, length",
                        "editor-export info --json clip.mov # The same for programs",
                        "editor-export info cut.otio # A timeline, clip by clip"},
                       ValueKind::File});
    addInputs(*info);
    info->add_flag("--json", options.json, "As JSON");
    addTimelines(*info);
    addLimits(*info);
}

void CommandLine::addValidate() {
    validate = addCommand(app, "validate", "Say what is wrong with timelines",
                          {{"Exit code 0 when they can be rendered as they are, else 2."},
                           {"editor-export validate cut.otio # Every finding, a line each",
                            "editor-export validate cut.otio --media-root /media/disk # Media that have moved",
                            "editor-export validate --json cut.otio # The same for programs"},
                           ValueKind::File});
    addInputs(*validate);
    validate->add_flag("--json", options.json, "As JSON");
    addTimelines(*validate);
    addLimits(*validate);
}

} // namespace Cli
