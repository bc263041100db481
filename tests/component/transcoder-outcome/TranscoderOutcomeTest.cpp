#include "Export/PresetProvider.h"
#include "Export/Transcoder.h"
#include "Kestra/Proc/ProcException.h"
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
#include <stdexcept>
#include <thread>

using Signals = std::vector<std::string>;

namespace {

std::exception_ptr refused() {
    return std::make_exception_ptr(
        Kestra::Proc::ProcException(Kestra::Proc::TranscodingError::CodecRefused, "no such profile"));
}

} // namespace

class Outcome : public ::testing::Test {
protected:
    Outcome() {
        using Export::Transcoder;
        presets.load();
        QObject::connect(&transcoder, &Transcoder::started, [this] { note("started"); });
        QObject::connect(&transcoder, &Transcoder::stopped, [this] { note("stopped"); });
        QObject::connect(&transcoder, &Transcoder::progressChanged, [this] { note("progress"); });
        QObject::connect(&transcoder, &Transcoder::failed, [this](const Kestra::Proc::ProcessingError& failure) {
            error = failure;
            note("failed");
        });
    }

    void note(const char* emitted) {
        emissions.emplace_back(emitted);
        threads.push_back(QThread::currentThread());
    }

    /// Brings the transcoder to its runner, with a file at the output path.
    void start(const char* preset = "av") {
        presets.selectPreset(std::string(preset));
        Export::Transcoder::Data data;
        data.composition = &model.composition;
        data.outputPath = output();
        data.presetProvider = &presets;
        QString refusal;
        ASSERT_TRUE(transcoder.initialize(data, refusal));
        model.buildStreams(nullptr, nullptr);
        ASSERT_TRUE(TestSupport::waitUntil([] { return FakeRunner::current() != nullptr; }));
        ASSERT_EQ(FakeRunner::current()->starts, 1);
        QFile file(output());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        log.lines.clear();
    }

    FakeRunner& runner() { return *FakeRunner::current(); }
    QString output() const { return folder.filePath(QStringLiteral("output.mp4")); }
    std::vector<int> tags() const {
        std::vector<int> found;
        for (const auto& line : log.lines)
            found.push_back(line.tag);
        return found;
    }

    QTemporaryDir folder;
    TestSupport::LogCapture log;
    EditorFakes::TestCatalogue catalogue;
    Export::PresetProvider presets{nullptr};
    EditorFakes::FakeModel model;
    Signals emissions;
    std::vector<QThread*> threads;
    Kestra::Proc::ProcessingError error;
    Export::Transcoder transcoder{nullptr};
};

TEST_F(Outcome, AStartFailureIsReportedAndKeepsTheFile) {
    start();
    Q_EMIT runner().startFailed(refused());
    EXPECT_EQ(emissions, (Signals{"failed", "stopped"}));
    EXPECT_EQ(error.GetCode(), Kestra::Proc::TranscodingError::CodecRefused);
    EXPECT_EQ(error.GetDescription(), "no such profile");
    EXPECT_TRUE(QFileInfo::exists(output()));
}

TEST_F(Outcome, AProcessingFailureIsReportedAndDeletesTheFile) {
    start();
    Q_EMIT runner().processingFailed(refused());
    EXPECT_EQ(emissions, (Signals{"failed", "stopped"}));
    EXPECT_FALSE(QFileInfo::exists(output()));
}

TEST_F(Outcome, AStartFailureIsLoggedWithPresetAndDetails) {
    start();
    Q_EMIT runner().startFailed(refused());
    EXPECT_EQ(tags(), (std::vector<int>{377, 378, 383}));
    ASSERT_EQ(log.lines.size(), 3U);
    EXPECT_EQ(log.lines[0].text, "EXPORT start: errInfo: codec refused(9) - no such profile");
    EXPECT_EQ(log.lines[1].text + '\n', "EXPORT start: presetInfo:\n" + presets.preset().formattedPresetInfo());
    EXPECT_EQ(log.lines[2].text.find("EXPORT start: Exception has been caught while starting export. Details:\n"), 0U);
    EXPECT_NE(log.lines[2].text.find("no such profile"), std::string::npos);
    for (const auto& line : log.lines) {
        EXPECT_EQ(line.severity, "ERROR");
        EXPECT_EQ(line.file, "Transcoder.cpp");
    }
}

TEST_F(Outcome, AStartFailureOfAForeignTypeIsLoggedWithoutDetails) {
    start();
    Q_EMIT runner().startFailed(std::make_exception_ptr(42));
    EXPECT_EQ(emissions, (Signals{"failed", "stopped"}));
    EXPECT_EQ(tags(), (std::vector<int>{377, 378}));
}

TEST_F(Outcome, AFailureOfAStandardTypeIsExplained) {
    start();
    Q_EMIT runner().startFailed(std::make_exception_ptr(std::runtime_error("plain words")));
    EXPECT_EQ(log.lines.at(0).text, "EXPORT start: errInfo: unknown error(1) - plain words");
    EXPECT_NE(log.lines.at(2).text.find("std::exception::what: plain words"), std::string::npos)
        << log.lines.at(2).text;
}

TEST_F(Outcome, AFailureThatOnlyBoostKnowsIsForeign) {
    struct OnlyBoost : boost::exception {};
    start();
    Q_EMIT runner().processingFailed(std::make_exception_ptr(OnlyBoost()));
    EXPECT_EQ(tags(), (std::vector<int>{395, 396}));
    EXPECT_EQ(emissions, (Signals{"failed", "stopped"}));
}

TEST_F(Outcome, EveryFailureIsReportedAndTheEndAfterItToo) {
    start();
    Q_EMIT runner().startFailed(refused());
    Q_EMIT runner().processingFailed(refused());
    Q_EMIT runner().stopped();
    EXPECT_EQ(emissions, (Signals{"failed", "stopped", "failed", "stopped", "stopped"}));
}

TEST_F(Outcome, SignalsOfARunnerOnAnotherThreadArriveOnTheTranscodersInOrder) {
    start();
    std::thread worker([this] {
        Q_EMIT runner().started();
        Q_EMIT runner().progressChanged(1, KTime(2));
        Q_EMIT runner().startFailed(refused());
        Q_EMIT runner().processingFailed(refused());
        Q_EMIT runner().stopped();
    });
    worker.join();
    EXPECT_EQ(emissions, Signals());
    TestSupport::turnEventLoop();
    EXPECT_EQ(emissions, (Signals{"started", "progress", "failed", "stopped", "failed", "stopped", "stopped"}));
    for (const QThread* thread : threads)
        EXPECT_EQ(thread, QThread::currentThread());
}

TEST_F(Outcome, StopReachesTheRunner) {
    start();
    transcoder.stop();
    EXPECT_EQ(runner().stops, 1);
    EXPECT_EQ(emissions, Signals());
}

TEST_F(Outcome, TheRunnerGetsTheScratchDirectory) {
    start();
    EXPECT_TRUE(QFileInfo(runner().temporaryDirectory).isDir());
}

TEST_F(Outcome, OnePassIsAskedForWithoutTheTwoPassSetting) {
    start("av");
    EXPECT_EQ(runner().passMode, 0);
}

TEST_F(Outcome, TwoPassesAreAskedForWithTheTwoPassSettingInTheAutomaticMode) {
    start("two-pass");
    EXPECT_EQ(runner().passMode, 1);
}

TEST_F(Outcome, OnePassIsAskedForInTheModeThatNeverTakesTwo) {
    presets.selectPreset(std::string("two-pass"));
    Preset edited = presets.preset();
    edited.setVideoBitrateMode(Export::BitrateMode::Quality);
    ASSERT_TRUE(presets.updatePreset(nullptr, edited));
    Export::Transcoder::Data data;
    data.composition = &model.composition;
    data.presetProvider = &presets;
    QString refusal;
    ASSERT_TRUE(transcoder.initialize(data, refusal));
    model.buildStreams(nullptr, nullptr);
    ASSERT_TRUE(TestSupport::waitUntil([] { return FakeRunner::current() != nullptr; }));
    EXPECT_EQ(runner().passMode, 0);
}

TEST_F(Outcome, OnePassIsAskedForWhenOnlySoundIsLeft) {
    model.videoStreams.adoptOffers(false);
    start("two-pass");
    EXPECT_EQ(runner().passMode, 0);
}
