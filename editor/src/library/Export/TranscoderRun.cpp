// SPDX-License-Identifier: GPL-3.0-or-later
// The run: the runner's signals, and what becomes of a failure.
#include "Export/Transcoder.h"

#include "EditorPreset/Preset.h"
#include "Export/IStreamProcessingHelper.h"
#include "Export/PresetProvider.h"
#include "Export/TranscoderErrorText.h"
#include "Export/TranscoderLog.h"
#include "Kestra/Base/Exception.h"
#include "Kestra/Core/RemoveFile.h"
#include <QMetaType>
#include <QPointer>
#include <boost/exception/diagnostic_information.hpp>

Q_DECLARE_METATYPE(std::exception_ptr)

namespace Export {

/// The lines by which the log tells the kinds of failure apart.
struct Transcoder::FailureLines {
    TranscoderLog::Line error;
    TranscoderLog::Line preset;
    TranscoderLog::Line details;
};

void Transcoder::startProcessing(std::unique_ptr<IStreamProcessingHelper> newRunner) {
    if (!newRunner) {
        KESTRA_THROW(Kestra::Exception("the export cannot start: there is no runner for this kind of run"));
    }
    // A runner that works on another thread is heard through queued calls, which carry registered types only.
    qRegisterMetaType<std::exception_ptr>("std::exception_ptr");
    qRegisterMetaType<KTime>("KTime");

    runner = std::move(newRunner);
    // Ahead of the connections on purpose: what a runner emits inside start() is not for the editor.
    runner->start();
    connect(runner.get(), &IStreamProcessingHelper::started, this, &Transcoder::started);
    connect(runner.get(), &IStreamProcessingHelper::progressChanged, this, &Transcoder::progressChanged);
    connect(runner.get(), &IStreamProcessingHelper::stopped, this, &Transcoder::onStopped);
    connect(runner.get(), &IStreamProcessingHelper::startFailed, this, &Transcoder::onStartFailed);
    connect(runner.get(), &IStreamProcessingHelper::processingFailed, this, &Transcoder::onProcessingFailed);
}

void Transcoder::onStopped() {
    TranscoderLog::write(TranscoderLog::STOPPED);
    Q_EMIT stopped();
}

void Transcoder::onStartFailed(std::exception_ptr exception) {
    reportFailure(exception, {TranscoderLog::START_ERROR, TranscoderLog::START_PRESET, TranscoderLog::START_DETAILS});
}

void Transcoder::onProcessingFailed(std::exception_ptr exception) {
    // Kept beyond this object: a listener may destroy it.
    const Kestra::ioPath partialFile = outputPath;
    reportFailure(exception,
                  {TranscoderLog::PROCESS_ERROR, TranscoderLog::PROCESS_PRESET, TranscoderLog::PROCESS_DETAILS});
    Kestra::Core::RemoveFile(partialFile);
}

void Transcoder::reportFailure(const std::exception_ptr& exception, const FailureLines& lines) {
    const auto error = Kestra::Proc::ProcessingError::MakeProcessingErrorFromException(exception);
    logFailure(exception, error, lines);
    const QPointer<Transcoder> self(this);
    Q_EMIT failed(error);
    if (self) {
        Q_EMIT stopped();
    }
}

/// Never throws: a failure in the telling is told in place of the failure itself.
void Transcoder::logFailure(const std::exception_ptr& exception, const Kestra::Proc::ProcessingError& error,
                            const FailureLines& lines) const {
    try {
        const Preset preset = presetProvider->preset();
        TranscoderLog::write(lines.error, errorText(error));
        TranscoderLog::write(lines.preset, preset.formattedPresetInfo());
        if (exception) {
            std::rethrow_exception(exception);
        }
    } catch (const std::exception& caught) {
        TranscoderLog::write(lines.details, boost::diagnostic_information(caught));
    } catch (...) {
        // Nothing can be said of a foreign type beyond the error's own text.
    }
}

} // namespace Export
