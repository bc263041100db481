// SPDX-License-Identifier: GPL-3.0-or-later
// The command "render" and what it shares with others.
#include "ExportCore/LoudnessGain.h"
#include "ExportCore/OutroPictures.h"
#include "ExportCore/PresetSettings.h"
#include "ExportCore/Refusal.h"
#include "ExportCore/TimeText.h"
#include "cli/CommandLine.h"
#include <charconv>
#include <system_error>

namespace Cli {
namespace {

const char* const EXIT_CODES =
    "Exit codes: 0 done, 1 the export failed, 2 wrong usage or bad input, 130 or 143 stopped by a signal.";

/// The library hands a check the text and takes an error message back; empty is good.
std::string checkTime(const std::string& text) {
    return ExportCore::TimeText::parsePoint(text) ? std::string()
                                                  : '"' + text + "\" is no time; write " + ExportCore::TimeText::FORMS;
}

std::string checkAudio(const std::string& text) {
    return ExportCore::TrackOptions().chooseSound(text)
               ? std::string()
               : '"' + text + "\" is no sound track; write its number, its language (as in eng or en), all or none";
}

std::string checkLoudness(const std::string& text) {
    if (text == CommandLine::SAME_LOUDNESS)
        return {};
    try {
        ExportCore::LoudnessGain::parse(text);
        return {};
    } catch (const ExportCore::Refusal& refusal) {
        return refusal.what() + std::string(", or ") + CommandLine::SAME_LOUDNESS;
    }
}

constexpr int LARGEST_LIMIT = 1'000'000;

std::string checkLimit(const std::string& text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    return whole && number >= 1 && number <= LARGEST_LIMIT
               ? std::string()
               : '"' + text + "\" is no whole number from 1 to " + std::to_string(LARGEST_LIMIT);
}

std::string settingsText() {
    std::string text = "Settings (--set KEY=VALUE):\n";
    for (const ExportCore::PresetSettings::Key& key : ExportCore::PresetSettings::keys())
        text += std::string(key.name) + '=' + key.value + '\t' + key.meaning + '\n';
    return text;
}

/// "bitrate=" and so on.
std::vector<std::string> settingsBegun() {
    std::vector<std::string> begun;
    for (const ExportCore::PresetSettings::Key& key : ExportCore::PresetSettings::keys())
        begun.push_back(std::string(key.name) + '=');
    return begun;
}

} // namespace

void CommandLine::addGeneral() {
    app.set_help_flag("-h,--help", "Print this help");
    app.set_version_flag("--version", std::string(), "Print the versions of the program and of its libraries");
    app.add_flag("-v,--verbose", options.verbose, "Write logs to standard error");
    texts[&app] = {{EXIT_CODES},
                   {"editor-export clip.mov film.mp4 # Exports with the usual preset for .mp4",
                    "editor-export presets --tag web # Lists the presets for the web",
                    "editor-export info clip.mov # Says what a file holds"},
                   ValueKind::File};
}

void CommandLine::addRender() {
    const std::string times = std::string("Times are ") + ExportCore::TimeText::FORMS + '.';
    render =
        addCommand(app, "render", "Export media files, one after the other, or a timeline to one file",
                   {{times, settingsText(), EXIT_CODES},
                    {"editor-export clip.mov film.mp4 # The output's extension chooses the preset",
                     "editor-export render a.mov b.mov -p mp4-h264-720p --quality high -o film.mp4 # Two clips, one "
                     "behind the other",
                     "editor-export render cut.otio --in 1:00 --duration 30s -p web -o teaser.mp4 # Half a minute "
                     "of a timeline"},
                    ValueKind::File});
    addInputs(*render);
    addPresetAndOutput();
    addChanges();
    addHandling();
    addTracks();
    addTimelines(*render);
    addChoice(*render, "--missing", missingText, {"refused", "black"},
              "What media of a timeline that are missing become")
        ->capture_default_str();
    addChoice(*render, "--pitch", pitchText, {"kept", "moved"},
              "What the pitch of a timeline's sound does at another speed")
        ->capture_default_str();
    render->add_flag("--limiter", limiter, "Turn peaks of a timeline's mix down that go beyond -1 dB of full scale");
    addLimits(*render);
}

void CommandLine::addPresetAndOutput() {
    typed(render->add_option("-p,--preset", options.preset,
                             "Id of the preset, or a tag for its default (see presets); by default the output's "
                             "extension tells"),
          "ID", ValueKind::PresetOrTag);
    output = addFile(*render, "-o,--output", options.output,
                     "The file to write, or the folder or names (shot_%05d.png) of pictures; by default the last of "
                     "several INPUTs, unless that is a file already");
}

/// Which of the inputs' tracks, and what of their descriptions, the file takes.
void CommandLine::addTracks() {
    offer(render->add_option(
              "--audio", audioText,
              "The sound track: its number, as info lists it, or its language; none; all of them; by default the "
              "inputs' own choice"),
          "TRACK", {"all", "none"})
        ->check(checkAudio);
    const auto addSwitch = [this](const char* name, std::string& text, const char* what) {
        addChoice(*render, name, text, {"kept", "none"}, what)->capture_default_str();
    };
    addSwitch("--video", videoText, "The picture");
    addSwitch("--metadata", metadataText,
              "Title, tags, chapters, languages, cover, time code, as far as the file can hold them");
    addSwitch("--subtitles", subtitlesText, "Subtitles of text, where the file can hold them");
}

/// What makes the file other than preset and inputs do.
void CommandLine::addChanges() {
    typed(render->add_option("--quality", options.quality, "One of the preset's qualities (see presets)"), "NAME",
          ValueKind::Quality);
    offer(
        render->add_option("--set", options.settings, "Change one setting of the preset; may be given more than once"),
        "KEY=VALUE", settingsBegun())
        ->allow_extra_args(false);
    render
        ->add_option("--loudness", loudnessText,
                     "Bring the sound to so many LUFS (EBU R 128), as -14 or -23, with peaks below -1 dBTP; or off")
        ->type_name("LUFS")
        ->check(checkLoudness)
        ->capture_default_str();
    render->add_option("--in", inText, "Where to begin")->type_name("TIME")->check(checkTime);
    render->add_option("--out", outText, "Where to end")->type_name("TIME")->check(checkTime);
    render->add_option("--duration", durationText, "How long it lasts, from --in on or up to --out")
        ->type_name("TIME")
        ->check(checkTime);
    offer(render->add_option("--branding", options.branding, "Append this outro (demo); none by default"), "NAME",
          ExportCore::OutroPictures::names());
}

/// How the export goes, not what it makes.
void CommandLine::addHandling() {
    render->add_flag("-y,--overwrite", options.overwrite, "Replace the output when it exists");
    render->add_flag("--dry-run", options.dryRun,
                     "Make nothing: check all, try the export for some seconds, print what it would make");
    render->add_flag("--json", options.json, "The result, or what --dry-run finds, as JSON");
    render->add_flag("--each", options.each, "Export every INPUT by itself into the folder that is the output");
    addFile(*render, "--report", options.report, "Write a report of the export, as JSON");
    addTelling(*render);
}

/// How much is said on the way.
void CommandLine::addTelling(CLI::App& command) {
    addChoice(command, "--progress", progressText, {"auto", "bar", "plain", "json", "none"}, "How progress is told")
        ->type_name("STYLE");
    command.add_flag("-q,--quiet", options.quiet, "Say nothing but errors");
    addFile(command, "--log", options.log, "Append all that is told, and the logs of codecs, to a file");
}

/// Jobs that stand in a file.
void CommandLine::addQueue() {
    queue = addCommand(app, "queue", "Run the exports that a file lists, one after the other",
                       {{"What is done is kept beside the file, in FILE.state, and not done again. Names in the file "
                         "count from where it stands. A job that fails does not keep the others from being run.",
                         EXIT_CODES},
                        {"editor-export queue jobs.json # Runs what is not done yet",
                         "editor-export queue jobs.json --progress json # The same, followed by a program",
                         "editor-export queue jobs.json -q --log jobs.log # Silent, but for errors"},
                        ValueKind::File});
    queue->add_option("FILE", options.queueFile, "The jobs")->required()->type_name("");
    addTelling(*queue);
}

void CommandLine::addInputs(CLI::App& command) {
    command.add_option("INPUT", options.inputs, "Files")->required()->type_name("");
}

/// What the inputs may claim of themselves.
void CommandLine::addLimits(CLI::App& command) {
    command.add_option("--max-picture", pictureMebibytes, "How large a picture of an input may be in memory, in MiB")
        ->type_name("MIB")
        ->check(checkLimit)
        ->capture_default_str();
    command.add_option("--max-tracks", options.mediaLimits.tracks, "How many tracks an input may have")
        ->type_name("N")
        ->check(checkLimit)
        ->capture_default_str();
}

void CommandLine::addTimelines(CLI::App& command) {
    typed(command.add_option("--media-root", options.timelines.mediaRoot,
                             "Where to look for media that are not in their place"),
          "FOLDER", ValueKind::Folder);
    command
        .add_option("--timeline", options.timelines.timeline,
                    "Which timeline of a file that holds several, by its name or number")
        ->type_name("NAME");
    command.add_flag("--lenient", options.timelines.lenient,
                     "Read newer versions of timelines as far as they are known");
}

} // namespace Cli
