// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Export/PresetProvider.h"
#include "Export/Transcoder.h"
#include "component/transcoder-outcome/FakeRunner.h"
#include "fakes/editor/FakeModel.h"
#include "fakes/editor/TestCatalogue.h"
#include "support/LogCapture.h"
#include "support/WaitUntil.h"
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

using Signals = std::vector<std::string>;
using Steps = std::vector<std::string>;

/// A transcoder over a runner that the test plays, and what it has emitted and logged.
class Outcome : public ::testing::Test {
protected:
    Outcome();
    ~Outcome() override;

    void note(const char* emitted);
    Export::Transcoder::Data request();
    /// Selects the preset and initializes.
    void initialize(const char* preset = "av");
    /// The streams, null ones unless given, become available; the event loop turns.
    void makeReady(const boost::intrusive_ptr<Kestra::Proc::IStreamVideo>& video = nullptr,
                   const boost::intrusive_ptr<Kestra::Proc::IStreamAudio>& audio = nullptr);
    /// Brings the transcoder to its runner, with a file at the output path and the log empty.
    void start(const char* preset = "av");

    FakeRunner& runner() { return *FakeRunner::current(); }
    QString output() const { return folder.filePath(QStringLiteral("output.mp4")); }
    void writeOutput() const;
    std::vector<int> tags() const;

    QTemporaryDir folder;
    TestSupport::LogCapture log;
    EditorFakes::TestCatalogue catalogue;
    Export::PresetProvider presets{nullptr};
    EditorFakes::FakeModel model;
    Signals emissions;
    /// What the runner went through and the log lines between, as "log <tag>".
    Steps steps;
    std::vector<QThread*> threads;
    Kestra::Proc::ProcessingError error;
    std::unique_ptr<Export::Transcoder> transcoder;
};
