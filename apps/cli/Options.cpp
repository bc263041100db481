#include "cli/Options.h"

#include "ExportCore/NearNames.h"
#include "ExportCore/PresetSettings.h"
#include "ExportCore/TimeText.h"
#include "cli/ErrorOutput.h"
#include "cli/ExitCode.h"
#include <CLI/CLI.hpp>
#include <QString>
#include <algorithm>
#include <charconv>
#include <cstdio>
#include <map>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace Cli {
namespace {

const char* const EXIT_CODES =
    "Exit codes: 0 done, 1 the export failed, 2 wrong usage or bad input, 130 or 143 stopped by a signal.";

const std::map<std::string, ProgressStyle>& progressStyles() {
    static const std::map<std::string, ProgressStyle> styles{{"auto", ProgressStyle::Automatic},
                                                             {"bar", ProgressStyle::Bar},
                                                             {"plain", ProgressStyle::Plain},
                                                             {"json", ProgressStyle::Json},
                                                             {"none", ProgressStyle::None}};
    return styles;
}

/// CLI11 hands a check the text and takes an error message back; empty is good.
std::string checkProgress(const std::string& text) {
    return progressStyles().count(text) != 0 ? std::string()
                                             : '"' + text + "\" is none of auto, bar, plain, json, none";
}

std::string checkTime(const std::string& text) {
    return ExportCore::TimeText::parsePoint(text) ? std::string()
                                                  : '"' + text + "\" is no time; write " + ExportCore::TimeText::FORMS;
}

std::string checkAudio(const std::string& text) {
    return ExportCore::TrackOptions().chooseSound(text)
               ? std::string()
               : '"' + text + "\" is no sound track; write its number, its language (as in eng or en), all or none";
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

bool stands(const std::string& path) {
    return ::access(path.c_str(), F_OK) == 0;
}

bool isUtf8(const std::string& text) {
    return QString::fromStdString(text).toStdString() == text;
}

std::string settingsText() {
    std::string text = std::string("Times are ") + ExportCore::TimeText::FORMS + ".\n\nSettings (--set KEY=VALUE):\n";
    for (const ExportCore::PresetSettings::Key& key : ExportCore::PresetSettings::keys()) {
        std::string head = std::string("  ") + key.name + '=' + key.value;
        head.resize(std::max<std::size_t>(head.size() + 1, 24), ' ');
        text += head + key.meaning + '\n';
    }
    return text + '\n' + EXIT_CODES;
}

constexpr double BELOW_FULL_SCALE = 0.891; // -1 dB

/// The parser and the texts that it fills.
class Parser {
public:
    explicit Parser(Options& options)
        : options(options) {
        app.require_subcommand(1);
        app.set_version_flag("--version", std::string("editor-export ") + EDITOREXPORT_VERSION);
        app.add_flag("-v,--verbose", options.verbose, "Write logs to standard error");
        app.footer(EXIT_CODES);
        addRender();
        addPresets();
        addInfo();
        addValidate();
    }

    /// `words` without the program's own name.
    void parse(std::vector<std::string> words) {
        std::reverse(words.begin(), words.end()); // as the library wants them
        app.parse(std::move(words));
        options.command = presets->parsed()    ? Options::Command::Presets
                          : info->parsed()     ? Options::Command::Info
                          : validate->parsed() ? Options::Command::Validate
                                               : Options::Command::Render;
        options.in = ExportCore::TimeText::parsePoint(inText);
        options.out = ExportCore::TimeText::parsePoint(outText);
        options.duration = ExportCore::TimeText::parsePoint(durationText);
        options.progress = progressStyles().at(progressText);
        if (missingText == "black")
            options.timelines.missing = ExportCore::TimelineOptions::Missing::Black;
        if (pitchText == "moved")
            options.timelines.sound.pitch = Kestra::Proc::Pitch::Moved;
        if (limiter)
            options.timelines.sound.ceiling = BELOW_FULL_SCALE;
        if (!audioText.empty())
            options.tracks.chooseSound(audioText);
        options.tracks.picture = videoText != "none";
        options.tracks.metadata = metadataText != "none";
        options.tracks.subtitles = subtitlesText != "none";
        options.mediaLimits.pictureBytes = pictureMebibytes << 20;
        if (options.command == Options::Command::Render && output->count() == 0)
            takeOutput();
    }

    int print(const CLI::ParseError& error) { return app.exit(error); }
    std::string help() const { return app.help(); }

private:
    /// The last of several names is the output, where no such file stands.
    void takeOutput() {
        const std::string last = options.inputs.back();
        const std::string missing = "no output file was given; name it behind the inputs or with --output";
        if (options.inputs.size() < 2)
            throw CLI::ValidationError(missing);
        if (stands(last))
            throw CLI::ValidationError(missing + " (\"" + last +
                                       "\" is a file already: to replace it, write --output \"" + last +
                                       "\" --overwrite)");
        options.output = last;
        options.inputs.pop_back();
    }

    void addRender() {
        render = app.add_subcommand("render", "Export media files, one after the other, or a timeline to one file");
        render->fallthrough();
        addInputs(*render);
        addTimelines(*render);
        render
            ->add_option("--missing", missingText, "What media of a timeline that are missing become: refused or black")
            ->type_name("WHAT")
            ->check(CLI::IsMember({"refused", "black"}))
            ->capture_default_str();
        render
            ->add_option("--pitch", pitchText, "Of a timeline's sound at another speed: kept, or moved with the speed")
            ->type_name("WHAT")
            ->check(CLI::IsMember({"kept", "moved"}))
            ->capture_default_str();
        render->add_flag("--limiter", limiter,
                         "Turn peaks of a timeline's mix down that go beyond -1 dB of full scale");
        render
            ->add_option("-p,--preset", options.preset,
                         "Id of the preset, or a tag for its default (see presets); by default the output's extension "
                         "tells")
            ->type_name("ID");
        output = render->add_option(
            "-o,--output", options.output,
            "The file to write; by default the last of several INPUTs, unless that is a file already");
        output->type_name("FILE");
        addTracks();
        addChanges();
        render->add_flag("--overwrite", options.overwrite, "Replace the output when it exists");
        render->add_option("--progress", progressText, "auto, bar, plain, json (one object a line) or none")
            ->type_name("STYLE")
            ->check(checkProgress);
        render->footer(settingsText());
    }

    /// Which of the inputs' tracks, and what of their descriptions, the file takes.
    void addTracks() {
        render
            ->add_option("--audio", audioText,
                         "The sound track: its number, as info lists it, or its language; none; all, where there is "
                         "one; by default the inputs' own choice")
            ->type_name("TRACK")
            ->check(checkAudio);
        const auto addSwitch = [this](const char* name, std::string& text, const char* what) {
            render->add_option(name, text, what)
                ->type_name("WHAT")
                ->check(CLI::IsMember({"kept", "none"}))
                ->capture_default_str();
        };
        addSwitch("--video", videoText, "The picture: kept or none");
        addSwitch("--metadata", metadataText,
                  "Title, tags, chapters, languages, cover: kept, as far as the file can hold them, or none");
        addSwitch("--subtitles", subtitlesText, "Subtitles of text: kept, where the file can hold them, or none");
    }

    /// What makes the file other than preset and inputs do.
    void addChanges() {
        render->add_option("--quality", options.quality, "One of the preset's qualities (see presets)")
            ->type_name("NAME");
        render->add_option("--set", options.settings, "Change one setting of the preset; may be given more than once")
            ->type_name("KEY=VALUE")
            ->allow_extra_args(false);
        render->add_option("--in", inText, "Where to begin")->type_name("TIME")->check(checkTime);
        render->add_option("--out", outText, "Where to end")->type_name("TIME")->check(checkTime);
        render->add_option("--duration", durationText, "How long it lasts, from --in on or up to --out")
            ->type_name("TIME")
            ->check(checkTime);
        render->add_option("--branding", options.branding, "Append this outro (demo); none by default")
            ->type_name("NAME");
    }

    void addInputs(CLI::App& command) {
        command.add_option("INPUT", options.inputs, "Files")->required()->type_name("");
        command
            .add_option("--max-picture", pictureMebibytes, "How large a picture of an input may be in memory, in MiB")
            ->type_name("MIB")
            ->check(checkLimit)
            ->capture_default_str();
        command.add_option("--max-tracks", options.mediaLimits.tracks, "How many tracks an input may have")
            ->type_name("N")
            ->check(checkLimit)
            ->capture_default_str();
    }

    void addPresets() {
        presets = app.add_subcommand("presets", "List the presets, or show some of them whole");
        presets->fallthrough();
        presets->add_option("ID", options.inputs, "Presets to be shown whole")->type_name("");
        presets->add_option("--tag", options.tag, "Only those of this tag")->type_name("NAME");
        presets->add_flag("--tags", options.listTags, "The tags, each with its presets");
        presets->add_flag("--json", options.json, "As JSON");
        presets->footer(std::string("An asterisk marks a tag's default preset.\n\n") + EXIT_CODES);
    }

    void addInfo() {
        info = app.add_subcommand("info", "Say what media files and timelines hold");
        info->fallthrough();
        addInputs(*info);
        addTimelines(*info);
        info->add_flag("--json", options.json, "As JSON");
    }

    void addValidate() {
        validate = app.add_subcommand("validate", "Say what is wrong with timelines");
        validate->fallthrough();
        addInputs(*validate);
        addTimelines(*validate);
        validate->add_flag("--json", options.json, "As JSON");
        validate->footer(std::string("Exit code 0 when they can be rendered as they are, else 2.\n\n") + EXIT_CODES);
    }

    void addTimelines(CLI::App& command) {
        command
            .add_option("--media-root", options.timelines.mediaRoot,
                        "Where to look for media that are not in their place")
            ->type_name("FOLDER");
        command.add_option("--timeline", options.timelines.timeline, "Which timeline of a file that holds several")
            ->type_name("NAME");
        command.add_flag("--lenient", options.timelines.lenient,
                         "Read newer versions of timelines as far as they are known");
    }

    Options& options;
    CLI::App app{"Exports media files with the editor's presets.", "editor-export"};
    CLI::App* render = nullptr;
    CLI::App* presets = nullptr;
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
    bool limiter = false;
    std::int64_t pictureMebibytes = Kestra::Proc::MediaLimits().pictureBytes >> 20;
};

/// The first word that is no option; empty where there is none.
std::string commandOf(const std::vector<std::string>& words) {
    const auto found = std::find_if(words.begin(), words.end(),
                                    [](const std::string& word) { return word.empty() || word[0] != '-'; });
    return found == words.end() ? std::string() : *found;
}

bool isFileName(const std::string& word) {
    return word.empty() || (word[0] != '-' && (word.find_first_of("./") != std::string::npos || stands(word)));
}

/// Files alone are to be exported: "in.mov out.mp4" means "render in.mov out.mp4". A slip of a command is none.
bool meansRender(const std::vector<std::string>& words, const std::vector<std::string>& commands) {
    const std::string first = commandOf(words);
    return std::find(commands.begin(), commands.end(), first) == commands.end() &&
           (isFileName(first) || ExportCore::NearNames::find(first, commands).empty()) &&
           std::any_of(words.begin(), words.end(), isFileName);
}

/// The parser counts arguments aloud; people want to know what is wrong with theirs.
std::string reasonOf(const CLI::ParseError& error) {
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

} // namespace

std::optional<Options> Options::read(int argc, char** argv, int& exitCode) {
    if (asksForJson(argc, argv))
        ErrorOutput::useJson();
    for (int i = 1; i < argc; ++i) {
        if (!isUtf8(argv[i])) {
            complain("argument " + std::to_string(i) + " is not valid UTF-8");
            exitCode = EXIT_BAD_INPUT;
            return std::nullopt;
        }
    }
    Options options;
    Parser parser(options);
    if (argc <= 1) {
        std::fputs(parser.help().c_str(), stderr);
        exitCode = EXIT_BAD_INPUT;
        return std::nullopt;
    }
    const std::vector<std::string> commands{"render", "presets", "info", "validate"};
    std::vector<std::string> words(argv + 1, argv + argc);
    if (meansRender(words, commands))
        words.insert(words.begin(), commands.front());
    const std::string command = commandOf(words);
    if (!command.empty() && std::find(commands.begin(), commands.end(), command) == commands.end()) {
        complain("there is no command \"" + command + '"' + ExportCore::NearNames::question(command, commands));
        exitCode = EXIT_BAD_INPUT;
        return std::nullopt;
    }
    try {
        parser.parse(std::move(words));
        return options;
    } catch (const CLI::ParseError& error) {
        const bool asked = error.get_exit_code() == 0;
        exitCode = asked ? parser.print(error) : EXIT_BAD_INPUT;
        if (!asked)
            complain(reasonOf(error));
        return std::nullopt;
    }
}

} // namespace Cli
