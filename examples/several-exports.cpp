// SPDX-License-Identifier: GPL-3.0-or-later
// Several exports at once: several-exports FOLDER INPUT... makes of each input an MP4 and a sound file in the folder.
#include "Export/TranscoderLogOutput.h"
#include "ExportCore/ExportApplication.h"
#include "ExportCore/ExportJob.h"
#include <QCoreApplication>
#include <QFileInfo>
#include <cstdio>
#include <memory>
#include <vector>

using namespace ExportCore;

namespace {

/// Jobs run side by side in one event loop; each has threads of its own. One that fails leaves the others alone.
class Exports {
public:
    explicit Exports(EventLoopFailures& failures)
        : failures(failures) {}

    void add(const QString& input, const std::string& preset, const QString& output) {
        ExportRequest request;
        request.inputs << input;
        request.presetId = preset;
        request.outputPath = output;
        auto job = std::make_unique<ExportJob>(request);
        // Each is told of what the event loop caught, and takes what is its own.
        QObject::connect(&failures, &EventLoopFailures::caught, job.get(), &ExportJob::failInEventLoop);
        QObject::connect(job.get(), &ExportJob::finished,
                         [this, output](const ExportOutcome& outcome) { tell(output, outcome); });
        job->start();
        jobs.push_back(std::move(job));
    }

private:
    void tell(const QString& output, const ExportOutcome& outcome) {
        const bool isDone = outcome.status == ExportOutcome::Status::Done;
        std::printf("%s: %s\n", qUtf8Printable(output), isDone ? "done" : outcome.error.GetDescription().c_str());
        failed += isDone ? 0 : 1;
        if (++ended == jobs.size())
            QCoreApplication::exit(failed == 0 ? 0 : 1);
    }

    EventLoopFailures& failures;
    std::vector<std::unique_ptr<ExportJob>> jobs;
    std::size_t ended = 0;
    int failed = 0;
};

} // namespace

int main(int argc, char** argv) {
    ExportApplication<QCoreApplication> application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() < 3)
        return std::fputs("several-exports FOLDER INPUT...\n", stderr), 2;
    Export::setTranscoderLogOutput(Export::TranscoderLogOutput::None);
    Exports exports(application.failures());
    for (const QString& input : arguments.mid(2)) {
        const QString stem = arguments[1] + QLatin1Char('/') + QFileInfo(input).completeBaseName();
        exports.add(input, "mp4-h264-480p", stem + QStringLiteral("-small.mp4"));
        exports.add(input, "m4a-aac", stem + QStringLiteral(".m4a"));
    }
    return application.exec();
}
