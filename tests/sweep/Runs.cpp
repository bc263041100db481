// SPDX-License-Identifier: GPL-3.0-or-later
#include "sweep/Runs.h"

#include "EditorProject/EditorProject.h"
#include "Export/PresetProvider.h"
#include "Export/Transcoder.h"
#include "ExportCore/ExportJob.h"
#include "ExportCore/PresetSelection.h"
#include "ExportCore/RequestCheck.h"
#include "Kestra/Proc/ProcessingError.h"
#include "support/WaitUntil.h"
#include "sweep/SweepApplication.h"

namespace Sweep {
namespace {

// Only a hang reaches it, under a sanitizer on a busy machine too.
constexpr int DEADLINE = 300'000;

ExportCore::EventLoopFailures& failures() {
    return SweepApplication::instance().failures();
}

} // namespace

TranscoderRun::TranscoderRun(const ExportCore::ExportRequest& request)
    : request(request)
    , context(std::make_unique<QObject>()) {}

TranscoderRun::~TranscoderRun() {
    destroy();
}

void TranscoderRun::start() {
    using Export::Transcoder;
    provider = ExportCore::PresetSelection::makeProvider();
    ExportCore::PresetSelection::select(*provider, request.presetId);
    const ExportCore::PresetEdit edit = ExportCore::RequestCheck::presetEdit(request, *provider);
    project = std::make_unique<EditorProject>();
    project->open({Kestra::ioPath(request.inputs.front().toStdString())});
    edit.apply(*provider, project->video(), project->audio());
    QObject::connect(&failures(), &ExportCore::EventLoopFailures::caught, context.get(),
                     [this](const std::exception_ptr& error) { fail(error); });
    QObject::connect(project.get(), &EditorProject::streamFailed, context.get(),
                     [this](const std::exception_ptr& error) { fail(error); });
    transcoder = std::make_unique<Transcoder>(nullptr);
    QObject::connect(transcoder.get(), &Transcoder::started, context.get(), [this] { note("started"); });
    QObject::connect(transcoder.get(), &Transcoder::progressChanged, context.get(), [this] { note("progress"); });
    QObject::connect(transcoder.get(), &Transcoder::stopped, context.get(), [this] { note("stopped"); });
    QObject::connect(transcoder.get(), &Transcoder::failed, context.get(),
                     [this](const Kestra::Proc::ProcessingError& error) {
                         words = error.GetDescription();
                         note("failed");
                     });
    Transcoder::Data data;
    data.composition = project->composition();
    data.outputPath = request.outputPath;
    data.brandingName = request.brandingName;
    data.presetProvider = provider.get();
    QString refusal;
    if (!transcoder->initialize(data, refusal))
        qFatal("%s", qPrintable(refusal));
}

void TranscoderRun::note(const std::string& signal) {
    if (signal != "progress")
        emissions.push_back(signal);
    if (onSignal)
        onSignal(signal);
}

void TranscoderRun::fail(const std::exception_ptr& error) {
    outside = true;
    words = Kestra::Proc::ProcessingError::MakeProcessingErrorFromException(error).GetDescription();
}

bool TranscoderRun::ended() const {
    return outside || (!emissions.empty() && emissions.back() == "stopped");
}

bool TranscoderRun::waitForEnd() {
    const bool inTime = TestSupport::waitUntil([this] { return ended(); }, DEADLINE);
    TestSupport::turnEventLoop();
    return inTime;
}

void TranscoderRun::stop() {
    if (transcoder)
        transcoder->stop();
}

void TranscoderRun::destroy() {
    transcoder.reset();
    project.reset();
    provider.reset();
}

JobRun::JobRun(const ExportCore::ExportRequest& request)
    : job(std::make_unique<ExportCore::ExportJob>(request)) {
    using ExportCore::ExportJob;
    QObject::connect(&failures(), &ExportCore::EventLoopFailures::caught, job.get(), &ExportJob::failInEventLoop);
    const auto tell = [this](const char* signal) {
        if (onSignal)
            onSignal(signal);
    };
    QObject::connect(job.get(), &ExportJob::started, [tell] { tell("started"); });
    QObject::connect(job.get(), &ExportJob::progressChanged, [tell] { tell("progress"); });
    QObject::connect(job.get(), &ExportJob::finished, [this, tell](const ExportCore::ExportOutcome& outcome) {
        result = outcome;
        ++endCount;
        tell("finished");
    });
}

JobRun::~JobRun() = default;

void JobRun::start() {
    job->start();
}

bool JobRun::waitForEnd() {
    const bool inTime = TestSupport::waitUntil([this] { return endCount > 0; }, DEADLINE);
    TestSupport::turnEventLoop();
    return inTime;
}

void JobRun::stop() {
    job->stop();
}

void JobRun::destroy() {
    job.reset();
}

} // namespace Sweep
