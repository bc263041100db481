#include "component/transcoder-outcome/FakeRunner.h"

namespace {

FakeRunner* last = nullptr;

} // namespace

FakeRunner::FakeRunner() {
    last = this;
}

FakeRunner::~FakeRunner() {
    if (last == this)
        last = nullptr;
}

void FakeRunner::start() {
    ++starts;
}

FakeRunner* FakeRunner::current() {
    return last;
}

std::unique_ptr<Export::IStreamProcessingHelper>
Export::createStreamProcessingHelper(int passMode, const EncoderFactory&, const EncoderFactory&, const MuxerFactory&,
                                     const QString& temporaryDirectory) {
    auto runner = std::make_unique<FakeRunner>();
    runner->passMode = passMode;
    runner->temporaryDirectory = temporaryDirectory;
    return runner;
}
