// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/JobRunner.h"

#include "ExportCore/ExportJob.h"
#include "ExportCore/NameList.h"
#include "cli/ErrorOutput.h"
#include "cli/ExitCode.h"
#include "cli/IProgressDisplay.h"
#include "cli/JsonText.h"
#include "cli/OutcomeText.h"
#include "cli/Report.h"
#include <QEventLoop>
#include <algorithm>
#include <cstdio>
#include <sstream>
#include <utility>

namespace Cli {
namespace {

using ExportCore::ExportJob;
using ExportCore::ExportOutcome;
using Kestra::Proc::TranscodingError;
using Process::SignalStop;

void printLines(const char* kind, const QStringList& lines) {
    constexpr int most = 20;
    for (int i = 0; i < std::min(lines.size(), most); ++i)
        ErrorOutput::tell(kind, lines[i].toStdString());
    if (lines.size() > most)
        ErrorOutput::tell(kind, "and " + std::to_string(lines.size() - most) + " more of this kind");
}

/// Why the end of a run that was stopped was not waited for.
std::string stallText(const ExportOutcome& outcome) {
    const std::string& reason = outcome.error.GetDescription();
    return reason.empty() ? reason : " (" + reason + ')';
}

void printError(const ExportOutcome& outcome) {
    const std::string& what = outcome.error.GetDescription();
    if (outcome.status == ExportOutcome::Status::Refused)
        ErrorOutput::refuse(what);
    else if (outcome.status == ExportOutcome::Status::Failed)
        ErrorOutput::fail(std::string("the export failed (") +
                          Kestra::Proc::TranscodingErrorToString(outcome.error.GetCode()) + "): " + what);
    else if (outcome.status == ExportOutcome::Status::Stopped)
        ErrorOutput::fail("stopped, nothing was written" + stallText(outcome));
}

std::string resultOf(const ExportOutcome& outcome, bool json) {
    if (json)
        return jsonLine(outcomeObject(outcome)) + '\n';
    return outcome.status == ExportOutcome::Status::Planned ? OutcomeText::of(*outcome.plan)
                                                            : OutcomeText::of(outcome.facts) + '\n';
}

void keepLines(const std::string& text) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        ErrorOutput::keep(line);
}

/// A result goes to standard output; everything else was an error. In JSON the display has told it already.
void printOutcome(const ExportOutcome& outcome, const Options& options) {
    const bool json = options.progress == ProgressStyle::Json;
    if (!json) {
        printLines("warning", outcome.warnings);
        printLines("note", outcome.notes);
        printError(outcome);
    }
    const bool hasResult =
        outcome.status == ExportOutcome::Status::Done || outcome.status == ExportOutcome::Status::Planned;
    if (!hasResult)
        return;
    if (!json)
        keepLines(resultOf(outcome, false));
    if (!options.quiet || options.json)
        std::fputs(resultOf(outcome, json || options.json).c_str(), stdout);
}

/// What is ordered, for who reads a log.
void keepOrder(const Options& options) {
    std::vector<std::string> inputs;
    for (const std::string& input : options.inputs)
        inputs.push_back('"' + input + '"');
    ErrorOutput::keep("inputs: " + ExportCore::NameList::joined(inputs));
    ErrorOutput::keep("output: \"" + options.output + '"' +
                      (options.preset.empty() ? std::string() : ", preset: " + options.preset));
}

/// With what the command line itself gives to be noted.
ExportOutcome noted(ExportOutcome outcome, const Options& options) {
    const QString note = QString::fromStdString(options.noteWithoutEffect());
    if (!note.isEmpty() && outcome.status != ExportOutcome::Status::Refused)
        outcome.notes.prepend(note);
    return outcome;
}

int exitCodeOf(const ExportOutcome& outcome, int signalNumber) {
    switch (outcome.status) {
    case ExportOutcome::Status::Done:
    case ExportOutcome::Status::Planned:
        return EXIT_DONE;
    case ExportOutcome::Status::Refused:
        return EXIT_BAD_INPUT;
    case ExportOutcome::Status::Failed:
        return EXIT_EXPORT_FAILED;
    case ExportOutcome::Status::Stopped:
        break;
    }
    return EXIT_SIGNAL_BASE + signalNumber;
}

/// A trial makes nothing that could be followed.
ProgressStyle styleOf(const Options& options) {
    const bool isSilent = options.quiet || options.dryRun;
    return isSilent && options.progress != ProgressStyle::Json ? ProgressStyle::None : options.progress;
}

} // namespace

ExportCore::ExportRequest JobRunner::requestOf(const Options& options) {
    ExportCore::ExportRequest request;
    for (const std::string& input : options.inputs)
        request.inputs << QString::fromStdString(input);
    request.presetId = options.preset;
    request.quality = options.quality;
    request.settings = options.settings;
    request.outputPath = QString::fromStdString(options.output);
    request.overwrite = options.overwrite;
    request.dryRun = options.dryRun;
    request.in = options.in;
    request.out = options.out;
    request.tracks = options.tracks;
    request.duration = options.duration;
    request.loudness = options.loudness;
    request.brandingName = QString::fromStdString(options.branding);
    request.mediaLimits = options.mediaLimits;
    request.timelines = options.timelines;
    return request;
}

JobRunner::JobRunner(ExportCore::EventLoopFailures& failures)
    : failures(failures) {}

JobRunner::Ended JobRunner::run(const Options& options, BeforePlacing beforePlacing) {
    Ended ended;
    keepOrder(options);
    Report report(options);
    const std::unique_ptr<IProgressDisplay> display = IProgressDisplay::create(styleOf(options));
    QEventLoop loop;
    ExportJob job(requestOf(options));
    job.callBeforePlacing(std::move(beforePlacing));
    QObject::connect(&failures, &ExportCore::EventLoopFailures::caught, &job, &ExportJob::failInEventLoop);
    QObject::connect(&signalStop, &SignalStop::stopRequested, &job, &ExportJob::stop);
    QObject::connect(&job, &ExportJob::started, [&] { display->started(); });
    QObject::connect(&job, &ExportJob::progressChanged,
                     [&](const ExportCore::ExportProgress& progress) { display->progress(progress); });
    QObject::connect(&job, &ExportJob::finished, [&](const ExportOutcome& outcome) {
        ended.outcome = noted(outcome, options);
        ended.code = exitCodeOf(outcome, SignalStop::received());
        display->ended(ended.outcome);
        printOutcome(ended.outcome, options);
        ended.code = report.write(ended.outcome, ended.code);
        if (outcome.error.GetCode() == TranscodingError::Stalled) {
            // What hangs has been left, or would be waited for some seconds more.
            std::fflush(nullptr);
            SignalStop::endOnTheSpot(ended.code);
        }
        loop.quit();
    });
    job.start();
    loop.exec();
    return ended;
}

} // namespace Cli
