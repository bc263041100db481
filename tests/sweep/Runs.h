// SPDX-License-Identifier: GPL-3.0-or-later
// Runs of a reference export by two roads: the module alone, and the whole job.
#pragma once

#include "ExportCore/ExportOutcome.h"
#include "sweep/ReferenceExport.h"
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class EditorProject;
class QObject;

namespace Export {
class PresetProvider;
class Transcoder;
} // namespace Export

namespace ExportCore {
class ExportJob;
}

namespace Sweep {

using Signals = std::vector<std::string>;

/// Export::Transcoder over an EditorProject, writing straight to the output. For one run; needs an ExportApplication.
class TranscoderRun {
public:
    explicit TranscoderRun(const ExportCore::ExportRequest& request);
    ~TranscoderRun();
    TranscoderRun(const TranscoderRun&) = delete;
    TranscoderRun& operator=(const TranscoderRun&) = delete;

    /// Opens the inputs and offers the streams; throws what these throw.
    void start();
    /// False when nothing ended the run in time.
    bool waitForEnd();
    bool ended() const;
    /// Before start() and after destroy() it does nothing.
    void stop();
    /// Destroys the transcoder, then whatever it needs.
    void destroy();

    /// Without progress.
    const Signals& emitted() const { return emissions; }
    /// What the run ended with: the failure, or what reached the event loop, or what kept a stream from being built.
    const std::string& error() const { return words; }
    /// Whether something ended the run that is no signal of the transcoder.
    bool endedOutside() const { return outside; }

    /// Told of every signal, progress included.
    std::function<void(const std::string&)> onSignal;

private:
    void note(const std::string& signal);
    void fail(const std::exception_ptr& error);

    const ExportCore::ExportRequest request;
    std::unique_ptr<QObject> context;
    std::unique_ptr<EditorProject> project;
    std::unique_ptr<Export::PresetProvider> provider;
    std::unique_ptr<Export::Transcoder> transcoder;
    Signals emissions;
    std::string words;
    bool outside = false;
};

/// ExportCore::ExportJob, with what reaches the event loop handed to it.
class JobRun {
public:
    explicit JobRun(const ExportCore::ExportRequest& request);
    ~JobRun();
    JobRun(const JobRun&) = delete;
    JobRun& operator=(const JobRun&) = delete;

    void start();
    bool waitForEnd();
    void stop();
    void destroy();

    int ends() const { return endCount; }
    const ExportCore::ExportOutcome& outcome() const { return result; }

    /// Told of every signal, progress included.
    std::function<void(const std::string&)> onSignal;

private:
    std::unique_ptr<ExportCore::ExportJob> job;
    ExportCore::ExportOutcome result;
    int endCount = 0;
};

} // namespace Sweep
