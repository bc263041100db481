// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Export/PresetProvider.h"
#include "Export/Transcoder.h"
#include "Kestra/Core/CoreManager.h"
#include "fakes/editor/FakeModel.h"
#include "fakes/editor/TestCatalogue.h"
#include "fakes/kestra/FakeFactories.h"
#include "fakes/kestra/FakeStreamAudio.h"
#include "fakes/kestra/FakeStreamVideo.h"
#include "fakes/processors/FakeProcessorFactory.h"
#include "support/LogCapture.h"
#include "support/TimerCatcher.h"
#include "support/WaitUntil.h"
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

using Kestra::Fakes::CallLog;
using Kestra::Fakes::FakeProcessor;
using Signals = std::vector<std::string>;

/// A transcoder between a fake model and a fake engine, and what it has emitted and logged.
class TranscoderTest : public ::testing::Test {
protected:
    TranscoderTest();
    ~TranscoderTest() override;

    std::unique_ptr<Export::Transcoder> makeTranscoder();
    /// Signals of `who`, each also handed to onSignal.
    void listen(Export::Transcoder& who);
    /// A request that lacks nothing, for ten seconds.
    Export::Transcoder::Data request();
    /// Selects a preset of the test catalogue and initializes with request().
    void initialize(const char* preset = "av");
    /// As a user's edit of the selected preset.
    void changeBitrateMode(Export::BitrateMode mode);
    /// Attaches streams of ten seconds and lets the transcoder start.
    void makeReady();
    /// initialize() and makeReady().
    void start(const char* preset = "av");

    /// Plays events on the engine's thread and lets the transcoder hear them.
    void play(const std::vector<FakeProcessor::Event>& events);
    FakeProcessor& processor() { return processors.GetLast(); }
    /// "INFO 259 EXPORT: Trying to start" and so on, the text's first line alone.
    std::vector<std::string> logged() const;
    std::size_t countLogged(int tag) const;
    QString outputPath() const { return folder.filePath(QStringLiteral("output.mp4")); }
    void writeOutput() const;

    QTemporaryDir folder;
    TestSupport::LogCapture log;
    std::shared_ptr<CallLog> calls = std::make_shared<CallLog>();
    Kestra::Fakes::FakeProcessorFactory processors{calls};
    std::shared_ptr<Kestra::Fakes::FakeCodecFactory> codecs;
    std::shared_ptr<Kestra::Fakes::FakeMuxerFactory> muxers;
    EditorFakes::TestCatalogue catalogue;
    Export::PresetProvider presets{nullptr};
    EditorFakes::BusTrace bus;
    EditorFakes::FakeModel model{&bus};
    boost::intrusive_ptr<Kestra::Fakes::FakeStreamVideo> videoStream;
    boost::intrusive_ptr<Kestra::Fakes::FakeStreamAudio> audioStream;
    Signals emissions;
    std::vector<Kestra::Proc::ProcessingError> errors;
    std::function<void(const std::string&)> onSignal;
    std::unique_ptr<Export::Transcoder> transcoder;
};
