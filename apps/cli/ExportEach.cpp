// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/PresetCatalogue.h"
#include "ExportCore/PresetChoice.h"
#include "ExportCore/Refusal.h"
#include "Kestra/ClientAPI/ContainerLimits.h"
#include "cli/ErrorOutput.h"
#include "cli/ExitCode.h"
#include "cli/FilePath.h"
#include "cli/JobTally.h"
#include "cli/SeveralJobs.h"
#include <QDir>
#include <QFileInfo>
#include <map>

namespace Cli {
namespace {

using ExportCore::Refusal;

void requireFolder(const std::string& path) {
    const QFileInfo folder(filePath(path));
    if (!folder.exists())
        KESTRA_THROW(Refusal("Cannot write into \"" + path + "\": there is no such folder; make it first"));
    if (!folder.isDir())
        KESTRA_THROW(
            Refusal("Cannot write into \"" + path + "\": with --each the output is a folder, and that is none"));
}

/// What stands behind an input's name in its output's: the usual extension, or what says that it is a folder.
std::string endingOf(const Options& options) {
    if (options.preset.empty())
        KESTRA_THROW(Refusal("Name a preset (-p ID, see presets): a folder does not tell of what kind its files are"));
    const ExportCore::PresetCatalogue catalogue;
    const Preset preset = catalogue.preset(ExportCore::PresetChoice::of(options.preset, QString(), catalogue).id);
    if (Kestra::ClientAPI::ContainerLimits::IsSequence(preset.containerId()))
        return "/";
    return '.' + Kestra::ClientAPI::ContainerLimits::Extensions(preset.containerId(), preset.hasVideo()).front();
}

/// The name without its folder and its extension.
std::string stemOf(const std::string& input) {
    const std::string path = input.substr(0, input.find_last_not_of('/') + 1);
    const std::string name = path.substr(path.find_last_of('/') + 1); // npos + 1 is 0
    const std::size_t dot = name.find_last_of('.');
    return dot == std::string::npos || dot == 0 ? name : name.substr(0, dot);
}

} // namespace

std::vector<Options> exportsOfEach(const Options& options) {
    if (!options.report.empty())
        KESTRA_THROW(
            Refusal("A report is about one export; write --report without --each, or have a queue do the jobs, "
                    "each with its own"));
    requireFolder(options.output);
    const std::string ending = endingOf(options);
    const std::string folder = options.output.back() == '/' ? options.output : options.output + '/';
    std::map<std::string, std::string> inputs; // by their outputs
    std::vector<Options> jobs;
    for (const std::string& input : options.inputs) {
        Options job = options;
        if (!jobs.empty())
            job.timelineOptions.clear(); // what is to be said of them is said once
        job.inputs = {input};
        job.output = folder;
        job.output += stemOf(input);
        job.output += ending;
        const auto [same, isNew] = inputs.emplace(job.output, input);
        if (!isNew)
            KESTRA_THROW(Refusal('"' + same->second + "\" and \"" + input + "\" would both become \"" + job.output +
                                 "\"; export them in two runs, to two folders"));
        jobs.push_back(std::move(job));
    }
    return jobs;
}
int exportEach(const Options& options, JobRunner& runner) {
    const std::vector<Options> jobs = exportsOfEach(options);
    JobTally tally(jobs.size());
    for (std::size_t index = 0; index < jobs.size() && !JobRunner::isStopped(); ++index) {
        tally.begin(index, jobs[index].output);
        tally.end(index, jobs[index].output, runner.run(jobs[index]).code);
    }
    if (JobRunner::isStopped())
        tally.stop(Process::SignalStop::received());
    const int code = tally.exitCode();
    return code == EXIT_EXPORT_FAILED && !tally.anyBegun() ? EXIT_BAD_INPUT : code;
}

} // namespace Cli
