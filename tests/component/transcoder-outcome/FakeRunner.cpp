// SPDX-License-Identifier: GPL-3.0-or-later
#include "component/transcoder-outcome/FakeRunner.h"

#include <QMetaMethod>
#include <stdexcept>

namespace {

FakeRunner* last = nullptr;

} // namespace

FakeRunner::FakeRunner() {
    last = this;
    tell("made");
}

FakeRunner::~FakeRunner() {
    if (last == this)
        last = nullptr;
    tell("destroyed");
}

void FakeRunner::start() {
    ++starts;
    tell("start");
    if (script().errorOfStart)
        std::rethrow_exception(script().errorOfStart);
    if (script().emitAllFromStart)
        emitAll();
}

void FakeRunner::stop() {
    ++stops;
    tell("stop");
}

void FakeRunner::emitAll() {
    const auto error = std::make_exception_ptr(std::runtime_error("too early"));
    Q_EMIT started();
    Q_EMIT progressChanged(1, KTime(2));
    Q_EMIT stopped();
    Q_EMIT startFailed(error);
    Q_EMIT processingFailed(error);
}

FakeRunner* FakeRunner::current() {
    return last;
}

FakeRunner::Script& FakeRunner::script() {
    static Script script;
    return script;
}

void FakeRunner::connectNotify(const QMetaMethod& signal) {
    tell("connect " + signal.name().toStdString());
}

void FakeRunner::tell(const std::string& step) {
    if (script().onStep)
        script().onStep(step);
}

std::unique_ptr<Export::IStreamProcessingHelper>
Export::createStreamProcessingHelper(int passMode, const EncoderFactory& videoEncoderFactory,
                                     const EncoderFactory& audioEncoderFactory, const MuxerFactory& muxerFactory,
                                     const QString& temporaryDirectory) {
    if (FakeRunner::script().errorOfMaking)
        std::rethrow_exception(FakeRunner::script().errorOfMaking);
    if (FakeRunner::script().makeNone)
        return nullptr;
    auto runner = std::make_unique<FakeRunner>();
    runner->passMode = passMode;
    runner->temporaryDirectory = temporaryDirectory;
    runner->videoEncoderFactory = videoEncoderFactory;
    runner->audioEncoderFactory = audioEncoderFactory;
    runner->muxerFactory = muxerFactory;
    return runner;
}
