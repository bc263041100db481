// SPDX-License-Identifier: GPL-3.0-or-later
#include "component/transcoder-outcome/OutcomeFixture.h"

Outcome::Outcome()
    : transcoder(std::make_unique<Export::Transcoder>(nullptr)) {
    using Export::Transcoder;
    presets.load();
    QObject::connect(transcoder.get(), &Transcoder::started, [this] { note("started"); });
    QObject::connect(transcoder.get(), &Transcoder::stopped, [this] { note("stopped"); });
    QObject::connect(transcoder.get(), &Transcoder::progressChanged, [this] { note("progress"); });
    QObject::connect(transcoder.get(), &Transcoder::failed, [this](const Kestra::Proc::ProcessingError& failure) {
        error = failure;
        note("failed");
    });
    FakeRunner::script().onStep = [this](const std::string& step) { steps.push_back(step); };
    log.onLine = [this](const TestSupport::LogLine& line) { steps.push_back("log " + std::to_string(line.tag)); };
}

Outcome::~Outcome() {
    transcoder.reset();
    FakeRunner::script() = {};
}

void Outcome::note(const char* emitted) {
    emissions.emplace_back(emitted);
    threads.push_back(QThread::currentThread());
}

Export::Transcoder::Data Outcome::request() {
    Export::Transcoder::Data data;
    data.composition = &model.composition;
    data.outputPath = output();
    data.presetProvider = &presets;
    return data;
}

void Outcome::initialize(const char* preset) {
    presets.selectPreset(std::string(preset));
    ASSERT_EQ(presets.preset().id(), preset);
    QString refusal;
    ASSERT_TRUE(transcoder->initialize(request(), refusal)) << refusal.toStdString();
}

void Outcome::makeReady(const boost::intrusive_ptr<Kestra::Proc::IStreamVideo>& video,
                        const boost::intrusive_ptr<Kestra::Proc::IStreamAudio>& audio) {
    model.buildStreams(video, audio);
    TestSupport::turnEventLoop();
}

void Outcome::start(const char* preset) {
    initialize(preset);
    makeReady();
    ASSERT_NE(FakeRunner::current(), nullptr);
    ASSERT_EQ(FakeRunner::current()->starts, 1);
    writeOutput();
    log.lines.clear();
}

void Outcome::writeOutput() const {
    QFile file(output());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
}

std::vector<int> Outcome::tags() const {
    std::vector<int> found;
    for (const auto& line : log.lines)
        found.push_back(line.tag);
    return found;
}
