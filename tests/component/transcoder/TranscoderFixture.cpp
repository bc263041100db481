// SPDX-License-Identifier: GPL-3.0-or-later
#include "component/transcoder/TranscoderFixture.h"
#include "Kestra/Proc/ICodecFactory.h"
#include "Kestra/Proc/IMuxerFactory.h"

TranscoderTest::TranscoderTest()
    : codecs(std::make_shared<Kestra::Fakes::FakeCodecFactory>(calls))
    , muxers(std::make_shared<Kestra::Fakes::FakeMuxerFactory>(calls))
    , videoStream(new Kestra::Fakes::FakeStreamVideo(250))
    , audioStream(new Kestra::Fakes::FakeStreamAudio(480'000)) {
    Kestra::Core::CoreManager::Instance().SetCodecFactory(codecs);
    Kestra::Core::CoreManager::Instance().SetMuxerFactory(muxers);
    presets.load();
    transcoder = makeTranscoder();
}

TranscoderTest::~TranscoderTest() {
    transcoder.reset();
    Kestra::Core::CoreManager::Instance().SetCodecFactory(nullptr);
    Kestra::Core::CoreManager::Instance().SetMuxerFactory(nullptr);
}

std::unique_ptr<Export::Transcoder> TranscoderTest::makeTranscoder() {
    auto made = std::make_unique<Export::Transcoder>(nullptr);
    listen(*made);
    return made;
}

void TranscoderTest::listen(Export::Transcoder& who) {
    using Export::Transcoder;
    const auto note = [this](const std::string& emitted) {
        emissions.push_back(emitted);
        if (onSignal)
            onSignal(emitted);
    };
    QObject::connect(&who, &Transcoder::started, [note] { note("started"); });
    QObject::connect(&who, &Transcoder::stopped, [note] { note("stopped"); });
    QObject::connect(&who, &Transcoder::progressChanged, [note](int percent, KTime remaining) {
        note("progress " + std::to_string(percent) + ' ' + std::to_string(remaining.count()));
    });
    QObject::connect(&who, &Transcoder::failed, [this, note](const Kestra::Proc::ProcessingError& error) {
        errors.push_back(error);
        note("failed");
    });
}

Export::Transcoder::Data TranscoderTest::request() {
    Export::Transcoder::Data data;
    data.composition = &model.composition;
    data.streamRange = {KTime(1'000), KTime(11'000)};
    data.outputPath = outputPath();
    data.brandingName = QStringLiteral("house");
    data.presetProvider = &presets;
    return data;
}

void TranscoderTest::initialize(const char* preset) {
    presets.selectPreset(std::string(preset));
    ASSERT_EQ(presets.preset().id(), preset);
    QString error;
    ASSERT_TRUE(transcoder->initialize(request(), error)) << error.toStdString();
}

void TranscoderTest::changeBitrateMode(Export::BitrateMode mode) {
    Preset preset = presets.preset();
    preset.setVideoBitrateMode(mode);
    ASSERT_TRUE(presets.updatePreset(nullptr, preset));
}

void TranscoderTest::makeReady() {
    model.buildStreams(videoStream, audioStream);
    TestSupport::turnEventLoop();
}

void TranscoderTest::start(const char* preset) {
    initialize(preset);
    makeReady();
    ASSERT_EQ(processors.GetMade().size(), 1U);
}

void TranscoderTest::play(const std::vector<FakeProcessor::Event>& events) {
    for (const auto& event : events)
        processor().Emit(event);
    processor().WaitUntilDelivered();
    TestSupport::turnEventLoop();
}

std::vector<std::string> TranscoderTest::logged() const {
    std::vector<std::string> lines;
    for (const auto& line : log.lines)
        lines.push_back(line.severity + ' ' + std::to_string(line.tag) + ' ' +
                        line.text.substr(0, line.text.find('\n')));
    return lines;
}

std::size_t TranscoderTest::countLogged(int tag) const {
    std::size_t count = 0;
    for (const auto& line : log.lines)
        count += line.tag == tag ? 1 : 0;
    return count;
}

void TranscoderTest::writeOutput() const {
    QFile file(outputPath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("half a film");
}
