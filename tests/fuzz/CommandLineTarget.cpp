// SPDX-License-Identifier: GPL-3.0-or-later
// Any words on the command line, one a line: they are refused with the code for that, or read into something that can
// be asked for.
#include "Export/PresetProvider.h"
#include "ExportCore/PresetSelection.h"
#include "ExportCore/Refusal.h"
#include "ExportCore/RequestCheck.h"
#include "ExportCore/TimeText.h"
#include "cli/ExitCode.h"
#include "cli/Options.h"
#include "fuzz/Fuzz.h"
#include <QString>
#include <vector>

namespace {

std::vector<std::string> wordsOf(Fuzz::Bytes bytes) {
    std::vector<std::string> words{"editor-export"};
    while (!bytes.empty())
        words.push_back(bytes.upTo("\n"));
    // A word ends where its first zero is.
    for (std::string& word : words)
        word = word.c_str();
    return words;
}

void checkTime(const std::optional<ExportCore::TimePoint>& point) {
    if (point)
        Fuzz::require(!ExportCore::TimeText::format(point->at(25)).empty(), "a time can be told");
}

void check(const Cli::Options& options) {
    using Command = Cli::Options::Command;
    const bool reads =
        options.command == Command::Render || options.command == Command::Info || options.command == Command::Validate;
    Fuzz::require(!reads || !options.inputs.empty(), "something is to be read");
    Fuzz::require(options.command != Command::Queue || !options.queueFile.empty(), "there is a queue");
    checkTime(options.in);
    checkTime(options.out);
    checkTime(options.duration);
}

/// As far as a request is checked before anything is opened.
void request(const Cli::Options& options, Export::PresetProvider& provider) {
    ExportCore::ExportRequest request;
    request.presetId = options.preset;
    request.quality = options.quality;
    request.settings = options.settings;
    request.outputPath = QString::fromStdString(options.output);
    request.in = options.in;
    request.out = options.out;
    request.duration = options.duration;
    try {
        ExportCore::PresetSelection::select(provider, request.presetId);
        ExportCore::RequestCheck::ranges(request);
        ExportCore::RequestCheck::outputName(request, provider.preset());
        ExportCore::RequestCheck::presetEdit(request, provider);
    } catch (const ExportCore::Refusal& refusal) {
        Fuzz::require(*refusal.what() != '\0', "a refusal has a reason");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Fuzz::Folder home;
    static const bool set = qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(home.path("."))) &&
                            qputenv("EDITOR_EXPORT_PRESETS", CATALOGUE);
    static const auto provider = ExportCore::PresetSelection::makeProvider();
    Fuzz::require(set, "the environment can be set");
    std::vector<std::string> words = wordsOf({data, size});
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    const auto count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    int exitCode = -1;
    const auto options = Cli::Options::read(count, arguments.data(), exitCode);
    if (options) {
        check(*options);
        request(*options, *provider);
    } else {
        Fuzz::require(exitCode == Cli::EXIT_DONE || exitCode == Cli::EXIT_BAD_INPUT, "an end has a code");
    }
    return 0;
}
