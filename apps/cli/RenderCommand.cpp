#include "cli/RenderCommand.h"

#include "ExportCore/ExportJob.h"
#include "ExportCore/PlainText.h"
#include "ExportCore/TimeText.h"
#include "cli/ErrorOutput.h"
#include "cli/ExitCode.h"
#include "cli/IProgressDisplay.h"
#include "cli/JsonText.h"
#include "cli/SignalStop.h"
#include <QCoreApplication>
#include <cstdio>
#include <cstdlib>

namespace Cli {
namespace {

using ExportCore::ExportFacts;
using ExportCore::ExportJob;
using ExportCore::ExportOutcome;
using Kestra::Proc::TranscodingError;

ExportCore::ExportRequest requestOf(const Options& options) {
    ExportCore::ExportRequest request;
    for (const std::string& input : options.inputs)
        request.inputs << QString::fromStdString(input);
    request.presetId = options.preset;
    request.quality = options.quality;
    request.settings = options.settings;
    request.outputPath = QString::fromStdString(options.output);
    request.overwrite = options.overwrite;
    request.in = options.in;
    request.out = options.out;
    request.tracks = options.tracks;
    request.duration = options.duration;
    request.brandingName = QString::fromStdString(options.branding);
    request.mediaLimits = options.mediaLimits;
    request.timelines = options.timelines;
    return request;
}

std::string factsText(const ExportFacts& facts) {
    std::string text = ExportCore::PlainText::escaped(facts.path.toStdString()) + ": " +
                       ExportCore::TimeText::format(KTime(facts.durationMs));
    if (!facts.videoCodec.empty())
        text += ", " + facts.videoCodec + ' ' + std::to_string(facts.width) + 'x' + std::to_string(facts.height) +
                ", " + std::to_string(facts.frames) + (facts.frames == 1 ? " frame" : " frames");
    if (!facts.audioCodec.empty())
        text += ", " + facts.audioCodec + ' ' + std::to_string(facts.sampleRate) + " Hz, " +
                std::to_string(facts.channels) + (facts.channels == 1 ? " channel" : " channels");
    char tail[96];
    std::snprintf(tail, sizeof tail, ", %lld bytes, made in %.1f s (%.2fx)", static_cast<long long>(facts.sizeBytes),
                  static_cast<double>(facts.elapsedMs) / 1000, facts.speed);
    return text + tail;
}

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

/// A result goes to standard output; everything else was an error.
void printOutcome(const ExportOutcome& outcome, ProgressStyle style) {
    const bool json = style == ProgressStyle::Json;
    if (!json) {
        printLines("warning", outcome.warnings);
        printLines("note", outcome.notes);
    }
    switch (outcome.status) {
    case ExportOutcome::Status::Done:
        std::printf("%s\n", json ? jsonLine(outcomeObject(outcome)).c_str() : factsText(outcome.facts).c_str());
        break;
    case ExportOutcome::Status::Refused:
        if (!json)
            ErrorOutput::refuse(outcome.error.GetDescription());
        break;
    case ExportOutcome::Status::Failed:
        if (!json)
            ErrorOutput::fail(std::string("the export failed (") +
                              Kestra::Proc::TranscodingErrorToString(outcome.error.GetCode()) +
                              "): " + outcome.error.GetDescription());
        break;
    case ExportOutcome::Status::Stopped:
        if (!json)
            ErrorOutput::fail("stopped, nothing was written" + stallText(outcome));
        break;
    }
}

int exitCodeOf(const ExportOutcome& outcome, int signalNumber) {
    switch (outcome.status) {
    case ExportOutcome::Status::Done:
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

} // namespace

int render(const Options& options, ExportCore::EventLoopFailures& failures) {
    SignalStop signalStop;
    const std::unique_ptr<IProgressDisplay> display = IProgressDisplay::create(options.progress);
    ExportJob job(requestOf(options));
    QObject::connect(&failures, &ExportCore::EventLoopFailures::caught, &job, &ExportJob::failInEventLoop);
    QObject::connect(&signalStop, &SignalStop::stopRequested, &job, &ExportJob::stop);
    QObject::connect(&job, &ExportJob::started, [&] { display->started(); });
    QObject::connect(&job, &ExportJob::progressChanged,
                     [&](const ExportCore::ExportProgress& progress) { display->progress(progress); });
    QObject::connect(&job, &ExportJob::finished, [&](const ExportOutcome& outcome) {
        display->ended(outcome);
        printOutcome(outcome, options.progress);
        const int code = exitCodeOf(outcome, SignalStop::received());
        if (outcome.error.GetCode() == TranscodingError::Stalled) {
            // What hangs has been left, or would be waited for some seconds more.
            std::fflush(nullptr);
            SignalStop::endOnTheSpot(code);
        }
        QCoreApplication::exit(code);
    });
    job.start();
    return QCoreApplication::exec();
}

} // namespace Cli
