// SPDX-License-Identifier: GPL-3.0-or-later
#include "component/runner/RunnerFixture.h"
#include <QThread>
#include <limits>
#include <stdexcept>

namespace {

constexpr std::int64_t SECOND = 705'600'000;

FakeProcessor::Event progress(int percent, int elapsedSeconds, int remainingSeconds) {
    return FakeProcessor::Progress(percent, SECOND, 10 * SECOND, elapsedSeconds, remainingSeconds);
}

std::exception_ptr failure(const std::string& text) {
    return std::make_exception_ptr(std::runtime_error(text));
}

} // namespace

TEST_F(Runner, EmitsOnlyFromTheEventLoopAfterStartHasReturned) {
    processors.Prepare([](FakeProcessor& made) {
        made.PlayOnStart({FakeProcessor::Started(), progress(1, 5, 7), FakeProcessor::Finished()});
    });
    runner->start();
    processor().WaitUntilDelivered();
    EXPECT_EQ(emissions, Signals());
    TestSupport::turnEventLoop();
    EXPECT_EQ(emissions, (Signals{"started", "progress 1 7000", "stopped"}));
}

TEST_F(Runner, EmitsOnItsOwnThread) {
    QThread* thread = nullptr;
    onSignal = [&](const std::string&) { thread = QThread::currentThread(); };
    runner->start();
    play({FakeProcessor::Started()});
    EXPECT_EQ(thread, QThread::currentThread());
}

TEST_F(Runner, TellsNothingOfPauses) {
    runner->start();
    play({FakeProcessor::Paused(), FakeProcessor::Resumed()});
    EXPECT_EQ(emissions, Signals());
}

TEST_F(Runner, ReportsTheEnginesOwnPercentAndRemainingTimeWithOnePass) {
    runner->start();
    play({progress(0, 2, 100), progress(37, 3, 60), progress(100, 500, 0)});
    EXPECT_EQ(emissions, (Signals{"progress 0 100000", "progress 37 60000", "progress 100 0"}));
}

TEST_F(Runner, KnowsNoRemainingTimeInTheFirstTwoSeconds) {
    runner->start();
    play({progress(1, -1, 50), progress(2, 0, 50), progress(3, 1, 50), progress(4, 2, 50)});
    EXPECT_EQ(emissions, (Signals{"progress 1 -1", "progress 2 -1", "progress 3 -1", "progress 4 50000"}));
}

TEST_F(Runner, KnowsNoRemainingTimeWhereTheEngineKnowsNone) {
    runner->start();
    play({progress(50, 10, -1)});
    EXPECT_EQ(emissions, Signals{"progress 50 -1"});
}

TEST_F(Runner, DropsProgressThatWasUnderWayWhenItWasStopped) {
    runner->start();
    playUnheard({progress(10, 5, 5)});
    runner->stop();
    processor().WaitUntilDelivered();
    play({progress(20, 6, 5)});
    EXPECT_EQ(emissions, Signals{"stopped"});
}

TEST_F(Runner, StopsAndThenDiscardsWithoutASignalOfItsOwn) {
    processors.Prepare([](FakeProcessor& made) { made.PlayOnStop({}); });
    runner->start();
    processors.GetLog().Clear();
    runner->stop();
    EXPECT_EQ(calls(), (CallLog::Calls{"Stop", "Discard"}));
    TestSupport::turnEventLoop();
    EXPECT_EQ(emissions, Signals());
    play({FakeProcessor::Finished()});
    EXPECT_EQ(emissions, Signals{"stopped"});
}

TEST_F(Runner, StoppedBeforeItsStartDoesNothing) {
    runner->stop();
    TestSupport::turnEventLoop();
    EXPECT_EQ(calls(), CallLog::Calls());
    EXPECT_EQ(emissions, Signals());
}

TEST_F(Runner, PassesAnErrorOnAndGoesOn) {
    runner->start();
    processors.GetLog().Clear();
    play({FakeProcessor::Error(failure("disk full")), progress(50, 10, 3)});
    EXPECT_EQ(emissions, (Signals{"processingFailed disk full", "progress 50 3000"}));
    EXPECT_EQ(calls(), CallLog::Calls()) << "stopping is for others to decide";
}

TEST_F(Runner, PassesAnErrorOfAForeignTypeOn) {
    runner->start();
    play({FakeProcessor::Error(std::make_exception_ptr(42))});
    EXPECT_EQ(emissions, Signals{"processingFailed foreign"});
}

TEST_F(Runner, EndsWhenTheEngineFinishesAfterAnError) {
    runner->start();
    play({FakeProcessor::Error(failure("broken")), FakeProcessor::Finished()});
    EXPECT_EQ(emissions, (Signals{"processingFailed broken", "stopped"}));
}

TEST_F(Runner, TellsOfEveryEndThatTheEngineReports) {
    runner->start();
    play({FakeProcessor::Finished(), FakeProcessor::Finished()});
    EXPECT_EQ(emissions, (Signals{"stopped", "stopped"}));
    EXPECT_EQ(processors.GetMade().size(), 1U) << "no further pass begins";
}

TEST_F(Runner, AsksTheProcessorToEndAsOftenAsItIsStopped) {
    processors.Prepare([](FakeProcessor& made) { made.PlayOnStop({}); });
    runner->start();
    processors.GetLog().Clear();
    runner->stop();
    runner->stop();
    EXPECT_EQ(calls(), (CallLog::Calls{"Stop", "Discard", "Stop", "Discard"}));
}

TEST_F(Runner, HoldsTheProcessorAfterTheEnd) {
    runner->start();
    play({FakeProcessor::Finished()});
    EXPECT_FALSE(processors.GetLog().Contains("~FakeProcessor"));
    runner.reset();
    EXPECT_TRUE(processors.GetLog().Contains("~FakeProcessor"));
}

TEST_F(Runner, StartsAgainFromTheFirstPassAfterTheEnd) {
    runner->start();
    play({FakeProcessor::Started(), FakeProcessor::Finished()});
    processors.GetLog().Clear();
    runner->start();
    EXPECT_EQ(calls(), (CallLog::Calls{"video encoder", "audio encoder", "muxer", "CreateStreamProcessor",
                                       "~FakeProcessor", "SetEventsReceiver", "Initialize", "Start"}))
        << "the old processor goes when the new one exists";
    play({FakeProcessor::Started(), progress(30, 5, 4), FakeProcessor::Finished()});
    EXPECT_EQ(emissions, (Signals{"started", "stopped", "started", "progress 30 4000", "stopped"}));
}

TEST_F(Runner, StartsAgainAfterAStop) {
    runner->start();
    runner->stop();
    processor().WaitUntilDelivered();
    TestSupport::turnEventLoop();
    runner->start();
    play({progress(5, 5, 5)});
    EXPECT_EQ(emissions, (Signals{"stopped", "progress 5 5000"}));
}

TEST_F(Runner, SurvivesAnyNumberFromTheEngine) {
    constexpr auto LOWEST = std::numeric_limits<std::int64_t>::min();
    constexpr auto HIGHEST = std::numeric_limits<std::int64_t>::max();
    constexpr auto MAXIMUM = std::numeric_limits<std::int32_t>::max();
    constexpr auto MINIMUM = std::numeric_limits<std::int32_t>::min();
    runner->start();
    play({FakeProcessor::Progress(MAXIMUM, HIGHEST, LOWEST, MAXIMUM, MAXIMUM),
          FakeProcessor::Progress(MINIMUM, LOWEST, HIGHEST, MINIMUM, MINIMUM)});
    EXPECT_EQ(emissions, (Signals{"progress 2147483647 2147483647000", "progress -2147483648 -1"}));
}

TEST_F(Runner, IsSilentOnceDestroyedWithEventsUnderWay) {
    processors.Prepare([](FakeProcessor& made) {
        made.PlayOnStart({FakeProcessor::Started(), progress(1, 1, 1), FakeProcessor::Finished()});
    });
    runner->start();
    processor().WaitUntilDelivered();
    runner.reset();
    TestSupport::turnEventLoop();
    EXPECT_EQ(emissions, Signals());
    EXPECT_TRUE(processors.GetLog().Contains("~FakeProcessor"));
}

TEST_F(Runner, MayBeDestroyedWhileTheEngineIsTalking) {
    processors.Prepare(
        [](FakeProcessor& made) { made.PlayOnStart(std::vector<FakeProcessor::Event>(20'000, progress(1, 5, 5))); });
    runner->start();
    TestSupport::waitUntil([&] { return !emissions.empty(); });
    runner.reset();
    const auto heard = emissions.size();
    TestSupport::turnEventLoop();
    EXPECT_EQ(emissions.size(), heard);
}

TEST_F(Runner, MayBeDestroyedFromItsStoppedSignal) {
    onSignal = [&](const std::string& emitted) {
        if (emitted == "stopped")
            runner.reset();
    };
    runner->start();
    playUnheard({FakeProcessor::Finished(), FakeProcessor::Started()});
    TestSupport::turnEventLoop();
    EXPECT_EQ(runner, nullptr);
    EXPECT_EQ(emissions, Signals{"stopped"});
}
