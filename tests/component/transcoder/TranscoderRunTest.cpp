// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/ProcException.h"
#include "component/transcoder/TranscoderFixture.h"
#include <QSignalSpy>
#include <stdexcept>

namespace {

constexpr std::int64_t SECOND = 705'600'000;

std::exception_ptr diskFull() {
    return std::make_exception_ptr(
        Kestra::Proc::ProcException(Kestra::Proc::TranscodingError::DiskFull, "no space left on %1 or %2"));
}

FakeProcessor::Event progress(int percent, int elapsedSeconds, int remainingSeconds) {
    return FakeProcessor::Progress(percent, SECOND, 10 * SECOND, elapsedSeconds, remainingSeconds);
}

} // namespace

TEST_F(TranscoderTest, ForwardsTheRunFromStartToEnd) {
    start();
    EXPECT_EQ(emissions, Signals());
    play({FakeProcessor::Started(), progress(0, 0, -1), progress(40, 4, 6), FakeProcessor::Finished()});
    EXPECT_EQ(emissions, (Signals{"started", "progress 0 -1", "progress 40 6000", "stopped"}));
    EXPECT_EQ(logged().back(), "INFO 368 EXPORT: Stopped");
    EXPECT_EQ(countLogged(368), 1U);
}

TEST_F(TranscoderTest, LogsTheStopBeforeItTells) {
    std::size_t logsWhenTold = 0;
    onSignal = [&](const std::string& emitted) {
        if (emitted == "stopped")
            logsWhenTold = countLogged(368);
    };
    start();
    play({FakeProcessor::Finished()});
    EXPECT_EQ(logsWhenTold, 1U);
}

TEST_F(TranscoderTest, ReachesListenersByQueuedCalls) {
    std::vector<std::pair<int, KTime>> heard;
    QObject context;
    QObject::connect(
        transcoder.get(), &Export::Transcoder::progressChanged, &context,
        [&](int percent, KTime remaining) { heard.emplace_back(percent, remaining); }, Qt::QueuedConnection);
    start();
    play({progress(40, 4, 6)});
    ASSERT_EQ(heard.size(), 1U);
    EXPECT_EQ(heard[0].first, 40);
    EXPECT_EQ(heard[0].second, KTime(6'000));
}

TEST_F(TranscoderTest, StoppedBeforeTheStreamsAreReadyStartsAllTheSame) {
    transcoder->stop();
    initialize();
    transcoder->stop();
    TestSupport::turnEventLoop();
    EXPECT_EQ(emissions, Signals());
    makeReady();
    EXPECT_EQ(countLogged(355), 1U);
}

TEST_F(TranscoderTest, EndsThroughTheEngineWhenItIsStopped) {
    start();
    calls->Clear();
    transcoder->stop();
    EXPECT_EQ(emissions, Signals());
    EXPECT_EQ(calls->Get(), (CallLog::Calls{"Stop", "Discard"}));
    processor().WaitUntilDelivered();
    TestSupport::turnEventLoop();
    EXPECT_EQ(emissions, Signals{"stopped"});
}

TEST_F(TranscoderTest, KeepsTheFileOfAStoppedRun) {
    start();
    writeOutput();
    transcoder->stop();
    processor().WaitUntilDelivered();
    TestSupport::turnEventLoop();
    EXPECT_EQ(emissions, Signals{"stopped"});
    EXPECT_TRUE(QFileInfo::exists(outputPath()));
}

TEST_F(TranscoderTest, DoesNotHearAFailureInsideTheRunnersStart) {
    processors.Prepare(
        [](FakeProcessor& made) { made.ThrowFromStart(std::make_exception_ptr(std::runtime_error("no threads"))); });
    start();
    writeOutput();
    TestSupport::turnEventLoop();
    EXPECT_EQ(emissions, Signals());
    EXPECT_EQ(logged(), (std::vector<std::string>{"INFO 259 EXPORT: Trying to start", "INFO 355 EXPORT: Started"}));
    EXPECT_TRUE(QFileInfo::exists(outputPath()));
}

TEST_F(TranscoderTest, ReportsAProcessingFailureThenStops) {
    start();
    play({FakeProcessor::Started(), FakeProcessor::Error(diskFull())});
    EXPECT_EQ(emissions, (Signals{"started", "failed", "stopped"}));
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_EQ(errors[0].GetCode(), Kestra::Proc::TranscodingError::DiskFull);
    EXPECT_EQ(errors[0].GetDescription(), "no space left on %1 or %2");
}

TEST_F(TranscoderTest, LogsAProcessingFailureWithThePresetAndTheDetails) {
    start();
    log.lines.clear();
    play({FakeProcessor::Error(diskFull())});
    ASSERT_EQ(log.lines.size(), 3U);
    const std::string file = "Transcoder.cpp";
    EXPECT_EQ(log.lines[0],
              (TestSupport::LogLine{"ERROR", file, 395,
                                    "EXPORT process: errInfo: disk full(6) - no space left on %1 or %2"}));
    // The log leaves out the newline that a text ends with.
    EXPECT_EQ(log.lines[1].text + '\n', "EXPORT process: presetInfo:\n" + presets.preset().formattedPresetInfo());
    EXPECT_EQ(log.lines[1].severity, "ERROR");
    EXPECT_EQ(log.lines[1].file, file);
    EXPECT_EQ(log.lines[1].tag, 396);
    EXPECT_EQ(log.lines[2].severity, "ERROR");
    EXPECT_EQ(log.lines[2].file, file);
    EXPECT_EQ(log.lines[2].tag, 401);
    const std::string& details = log.lines[2].text;
    EXPECT_EQ(details.find("EXPORT process: Exception has been caught while processing export. Details:\n"), 0U);
    EXPECT_NE(details.find("Kestra::Proc::ProcException"), std::string::npos) << details;
    EXPECT_NE(details.find("TagErrorCodeName"), std::string::npos) << "the records of the exception: " << details;
}

TEST_F(TranscoderTest, LogsNoDetailsOfAForeignException) {
    start();
    log.lines.clear();
    play({FakeProcessor::Error(std::make_exception_ptr(42))});
    EXPECT_EQ(emissions, (Signals{"failed", "stopped"}));
    ASSERT_EQ(log.lines.size(), 2U);
    EXPECT_EQ(log.lines[0].tag, 395);
    EXPECT_EQ(log.lines[1].tag, 396);
    EXPECT_EQ(errors.at(0).GetCode(), Kestra::Proc::TranscodingError::Unknown);
}

TEST_F(TranscoderTest, SurvivesAFailureWithoutAnException) {
    start();
    play({FakeProcessor::Error(nullptr)});
    EXPECT_EQ(emissions, (Signals{"failed", "stopped"}));
    EXPECT_EQ(countLogged(401), 0U);
}

TEST_F(TranscoderTest, DeletesTheOutputFileAfterItHasToldOfAProcessingFailure) {
    start();
    writeOutput();
    bool thereWhenStopped = false;
    onSignal = [&](const std::string& emitted) {
        if (emitted == "stopped")
            thereWhenStopped = QFileInfo::exists(outputPath());
    };
    play({FakeProcessor::Error(diskFull())});
    EXPECT_TRUE(thereWhenStopped);
    EXPECT_FALSE(QFileInfo::exists(outputPath()));
}

TEST_F(TranscoderTest, KeepsTheFileOfACompleteRun) {
    start();
    writeOutput();
    play({FakeProcessor::Started(), FakeProcessor::Finished()});
    EXPECT_TRUE(QFileInfo::exists(outputPath()));
}

TEST_F(TranscoderTest, MayBeDestroyedFromItsStoppedSignal) {
    start();
    onSignal = [&](const std::string& emitted) {
        if (emitted == "stopped")
            transcoder.reset();
    };
    play({FakeProcessor::Finished()});
    EXPECT_EQ(transcoder, nullptr);
    EXPECT_EQ(emissions, Signals{"stopped"});
}

TEST_F(TranscoderTest, MayBeDestroyedFromItsFailedSignalAndStillDeletesTheFile) {
    start();
    writeOutput();
    onSignal = [&](const std::string& emitted) {
        if (emitted == "failed")
            transcoder.reset();
    };
    play({FakeProcessor::Error(diskFull())});
    EXPECT_EQ(transcoder, nullptr);
    EXPECT_EQ(emissions, Signals{"failed"});
    EXPECT_FALSE(QFileInfo::exists(outputPath()));
}
