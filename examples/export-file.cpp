// SPDX-License-Identifier: GPL-3.0-or-later
// One whole export: export-file INPUT... OUTPUT. The inputs are media files, or one timeline; the output's extension
// chooses the preset.
#include "Export/TranscoderLogOutput.h"
#include "ExportCore/ExportApplication.h"
#include "ExportCore/ExportJob.h"
#include <QCoreApplication>
#include <cstdio>

using namespace ExportCore;

int main(int argc, char** argv) {
    ExportApplication<QCoreApplication> application(argc, argv);
    Export::setTranscoderLogOutput(Export::TranscoderLogOutput::None);
    ExportRequest request;
    request.inputs = application.arguments().mid(1);
    if (request.inputs.size() < 2)
        return std::fputs("export-file INPUT... OUTPUT\n", stderr), 2;
    request.outputPath = request.inputs.takeLast();

    ExportJob job(request);
    // A start of the engine that fails is an exception in the event loop.
    QObject::connect(&application.failures(), &EventLoopFailures::caught, &job, &ExportJob::failInEventLoop);
    QObject::connect(&job, &ExportJob::progressChanged,
                     [](const ExportProgress& progress) { std::fprintf(stderr, "%d %%\r", progress.percent); });
    QObject::connect(&job, &ExportJob::finished, [](const ExportOutcome& outcome) {
        const bool isDone = outcome.status == ExportOutcome::Status::Done;
        if (isDone)
            std::printf("%s: %lld ms\n", qUtf8Printable(outcome.facts.path), outcome.facts.durationMs);
        else
            std::fprintf(stderr, "%s\n", outcome.error.GetDescription().c_str());
        QCoreApplication::exit(isDone ? 0 : 1);
    });
    job.start();
    return application.exec();
}
