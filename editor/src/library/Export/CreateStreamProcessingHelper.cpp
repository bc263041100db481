// SPDX-License-Identifier: GPL-3.0-or-later
#include "Export/CreateStreamProcessingHelper.h"

#include "Export/MakeStreamProcessor.h"
#include "Export/RunProgress.h"
#include "Export/TwoPass.h"
#include "Kestra/Proc/IProcessingEvents.h"
#include "Kestra/Util/FunctorExecutionForwarder.h"
#include <chrono>
#include <new>
#include <utility>
#include <vector>

namespace Export {

namespace {

/// A clock that neither midnight nor a change of the time of day moves.
KTime clockTime() {
    const auto sinceEpoch = std::chrono::steady_clock::now().time_since_epoch();
    return KTime(std::chrono::duration_cast<std::chrono::milliseconds>(sinceEpoch).count());
}

/// Runs a list of passes one after the other. Engine events come on the engine's threads and only cross over there:
/// everything else, the members included but one, belongs to the thread that made the runner.
class MultiPassStreamProcessingHelper final : public IStreamProcessingHelper, private Kestra::Proc::IProcessingEvents {
public:
    explicit MultiPassStreamProcessingHelper(std::vector<ProcessorFactory> passFactories)
        : passes(std::move(passFactories)) {}

    void start() override;
    void stop() override;

private:
    void onError(std::exception_ptr error) override;
    void onProgress(std::int32_t percent, std::int64_t position, std::int64_t duration, std::int32_t elapsedSeconds,
                    std::int32_t remainingSeconds) override;
    void onStarted() override;
    void onPaused() override {}
    void onResumed() override {}
    void onFinished() override;

    void startPass();
    void startProcessor(boost::intrusive_ptr<Kestra::Proc::IStreamProcessor> nextProcessor);
    void reportProgress(const PassProgress& pass);
    void finishPass();
    std::int32_t passCount() const { return static_cast<std::int32_t>(passes.size()); }

    // The order is that of destruction, from the end: the processor joins its threads while the forwarder still takes
    // their events, and with the forwarder go the functors that point to this runner.
    std::vector<ProcessorFactory> passes;
    std::exception_ptr lastError; ///< of a pass that had no memory to tell it; the forwarder orders write and read
    Kestra::Util::FunctorExecutionForwarder forwarder;
    KTime startTime;
    bool stopped = true;
    std::int32_t passIndex = 0;
    boost::intrusive_ptr<Kestra::Proc::IStreamProcessor> processor;
};

void MultiPassStreamProcessingHelper::start() {
    stopped = false;
    passIndex = 0;
    startTime = clockTime();
    startPass();
}

void MultiPassStreamProcessingHelper::startPass() {
    startProcessor(passes[static_cast<std::size_t>(passIndex)]());
}

void MultiPassStreamProcessingHelper::startProcessor(
    boost::intrusive_ptr<Kestra::Proc::IStreamProcessor> nextProcessor) {
    processor = std::move(nextProcessor);
    try {
        // A pass may end for want of memory, and has to tell that.
        forwarder.KeepPlace();
        processor->SetEventsReceiver(this);
        processor->Initialize();
        processor->Start();
    } catch (const std::exception&) {
        Q_EMIT startFailed(std::current_exception());
    }
}

void MultiPassStreamProcessingHelper::stop() {
    stopped = true;
    passIndex = 0;
    if (processor) {
        processor->Stop();
        processor->Discard();
    }
}

void MultiPassStreamProcessingHelper::onStarted() {
    forwarder.Forward([this] { Q_EMIT started(); });
}

void MultiPassStreamProcessingHelper::onError(std::exception_ptr error) {
    try {
        forwarder.Forward([this, error] { Q_EMIT processingFailed(error); });
    } catch (const std::bad_alloc&) {
        lastError = std::move(error);
        forwarder.ForwardSurely([this] { Q_EMIT processingFailed(std::exchange(lastError, nullptr)); });
    }
}

void MultiPassStreamProcessingHelper::onFinished() {
    forwarder.ForwardSurely([this] { finishPass(); });
}

void MultiPassStreamProcessingHelper::onProgress(std::int32_t percent, std::int64_t position, std::int64_t duration,
                                                 std::int32_t elapsedSeconds, std::int32_t remainingSeconds) {
    const PassProgress pass{percent, position, duration, elapsedSeconds, remainingSeconds};
    forwarder.Forward([this, pass] { reportProgress(pass); });
}

void MultiPassStreamProcessingHelper::finishPass() {
    ++passIndex;
    if (stopped || passIndex >= passCount()) {
        Q_EMIT IStreamProcessingHelper::stopped();
    } else {
        startPass();
    }
}

void MultiPassStreamProcessingHelper::reportProgress(const PassProgress& pass) {
    if (stopped) {
        return;
    }
    const RunPosition run{passIndex, passCount(), clockTime() - startTime};
    Q_EMIT progressChanged(overallPercent(pass, run), remainingTime(pass, run));
}

std::vector<ProcessorFactory> singlePass(const EncoderFactory& videoEncoderFactory,
                                         const EncoderFactory& audioEncoderFactory, const MuxerFactory& muxerFactory) {
    return {[=] { return makeStreamProcessor(videoEncoderFactory, audioEncoderFactory, muxerFactory); }};
}

} // namespace

std::unique_ptr<IStreamProcessingHelper> createStreamProcessingHelper(int passMode,
                                                                      const EncoderFactory& videoEncoderFactory,
                                                                      const EncoderFactory& audioEncoderFactory,
                                                                      const MuxerFactory& muxerFactory,
                                                                      const QString& temporaryDirectory) {
    switch (passMode) {
    case 0:
        return std::make_unique<MultiPassStreamProcessingHelper>(
            singlePass(videoEncoderFactory, audioEncoderFactory, muxerFactory));
    case 1:
        return std::make_unique<MultiPassStreamProcessingHelper>(
            makeTwoPasses(videoEncoderFactory, audioEncoderFactory, muxerFactory, temporaryDirectory));
    default:
        return nullptr;
    }
}

} // namespace Export
