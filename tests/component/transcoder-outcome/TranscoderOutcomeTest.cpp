// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/ProcException.h"
#include "component/transcoder-outcome/OutcomeFixture.h"
#include <stdexcept>
#include <thread>

namespace {

std::exception_ptr refused() {
    return std::make_exception_ptr(
        Kestra::Proc::ProcException(Kestra::Proc::TranscodingError::CodecRefused, "no such profile"));
}

} // namespace

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

TEST_F(Outcome, ARunStartAndItsProgressAreForwarded) {
    std::vector<std::pair<int, KTime>> heard;
    QObject::connect(transcoder.get(), &Export::Transcoder::progressChanged,
                     [&](int percent, KTime remaining) { heard.emplace_back(percent, remaining); });
    start();
    Q_EMIT runner().started();
    Q_EMIT runner().progressChanged(37, KTime(-1));
    Q_EMIT runner().started();
    EXPECT_EQ(emissions, (Signals{"started", "progress", "started"})) << "as often as the runner says so";
    EXPECT_EQ(heard, (std::vector<std::pair<int, KTime>>{{37, KTime(-1)}}));
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(Outcome, AnEndIsLoggedAndKeepsTheFile) {
    start();
    Q_EMIT runner().stopped();
    EXPECT_EQ(emissions, Signals{"stopped"});
    EXPECT_EQ(tags(), std::vector<int>{368});
    EXPECT_TRUE(QFileInfo::exists(output()));
    EXPECT_NE(FakeRunner::current(), nullptr) << "the runner stays until the transcoder goes";
}

TEST_F(Outcome, TheErrorTextIsNameNumberAndDescriptionInUtf8) {
    using Kestra::Proc::TranscodingError;
    start();
    for (const auto code : {TranscodingError::OutOfMemory, TranscodingError::OutputFailed, TranscodingError::Unknown}) {
        log.lines.clear();
        Q_EMIT runner().processingFailed(
            std::make_exception_ptr(Kestra::Proc::ProcException(code, "\xc3\xa4 %3 50%1")));
        const std::string expected = std::string(Kestra::Proc::TranscodingErrorToString(code)) + '(' +
                                     std::to_string(static_cast<int>(code)) + ") - \xc3\xa4 %3 50%1";
        EXPECT_EQ(log.lines.at(0).text, "EXPORT process: errInfo: " + expected);
    }
}

TEST_F(Outcome, AFailureIsLoggedWithThePresetThatIsSelectedThen) {
    start("av");
    presets.selectPreset(std::string("fixed"));
    Q_EMIT runner().startFailed(refused());
    EXPECT_EQ(log.lines.at(1).text + '\n', "EXPORT start: presetInfo:\n" + presets.preset().formattedPresetInfo());
    EXPECT_NE(log.lines.at(1).text.find("id = fixed"), std::string::npos);
}

TEST_F(Outcome, AFailureIsLoggedBeforeItIsTold) {
    std::vector<std::size_t> linesWhenTold;
    QObject::connect(transcoder.get(), &Export::Transcoder::failed, [&] { linesWhenTold.push_back(log.lines.size()); });
    start();
    Q_EMIT runner().startFailed(refused());
    log.lines.clear();
    Q_EMIT runner().processingFailed(refused());
    EXPECT_EQ(linesWhenTold, (std::vector<std::size_t>{3, 3}));
}
