// SPDX-License-Identifier: GPL-3.0-or-later
// What the runner remembers from call to call.
#include "component/runner/RunnerFixture.h"
#include <QElapsedTimer>
#include <atomic>
#include <memory>
#include <stdexcept>
#include <thread>

namespace {

constexpr std::int64_t SECOND = 705'600'000;
constexpr qint64 NOTICEABLE_MS = 300;

std::exception_ptr failure(const std::string& text) {
    return std::make_exception_ptr(std::runtime_error(text));
}

/// Half of a pass of ten seconds, settled: of two passes a quarter is done, so the rest takes three times the time so
/// far.
FakeProcessor::Event halfOfTheFirstOfTwo() {
    return FakeProcessor::Progress(50, 5 * SECOND, 10 * SECOND, 5, -1);
}

/// The remaining time of "progress 25 1234", in milliseconds.
qint64 remainingIn(const std::string& emitted) {
    return std::stoll(emitted.substr(emitted.rfind(' ') + 1));
}

void letTimePass() {
    QElapsedTimer clock;
    clock.start();
    ASSERT_TRUE(TestSupport::waitUntil([&] { return clock.elapsed() > NOTICEABLE_MS; }));
}

} // namespace

TEST_F(Runner, IsNotStoppedByAPassThatFailsToLaunch) {
    processors.Prepare([](FakeProcessor& made) { made.ThrowFromStart(failure("no threads")); });
    runner->start();
    play({FakeProcessor::Progress(30, SECOND, 10 * SECOND, 5, 4)});
    EXPECT_EQ(emissions, (Signals{"startFailed no threads", "progress 30 4000"}));
}

TEST_F(Runner, StaysStoppedWhenItIsStoppedWhileItsFirstPassIsMade) {
    make(1);
    bool first = true;
    processors.Prepare([&](FakeProcessor&) {
        if (std::exchange(first, false))
            runner->stop();
    });
    runner->start();
    play({FakeProcessor::Progress(30, SECOND, 10 * SECOND, 5, 4), FakeProcessor::Finished()});
    EXPECT_EQ(emissions, Signals{"stopped"});
    EXPECT_EQ(processors.GetMade().size(), 1U) << "no second pass";
}

TEST_F(Runner, TellsOfStartsAndErrorsAfterAStop) {
    processors.Prepare([](FakeProcessor& made) {
        made.PlayOnStop({FakeProcessor::Started(), FakeProcessor::Error(failure("late")), FakeProcessor::Finished()});
    });
    runner->start();
    runner->stop();
    play({});
    EXPECT_EQ(emissions, (Signals{"started", "processingFailed late", "stopped"}));
}

TEST_F(Runner, CountsTheTimeOfARunFromItsOwnStart) {
    make(1);
    runner->start();
    letTimePass();
    runner->stop();
    play({});
    emissions.clear();

    QElapsedTimer clock;
    clock.start();
    runner->start();
    play({halfOfTheFirstOfTwo()});
    const qint64 elapsed = clock.elapsed();
    ASSERT_EQ(emissions.size(), 1U);
    EXPECT_LE(remainingIn(emissions.front()), 3 * (elapsed + 1)) << "the first run's time is not this one's";
}

TEST_F(Runner, CountsTheMakingOfItsFirstPassAsTimeOfTheRun) {
    make(1);
    processors.Prepare([](FakeProcessor&) { letTimePass(); });
    runner->start();
    play({halfOfTheFirstOfTwo()});
    ASSERT_EQ(emissions.size(), 1U);
    EXPECT_GE(remainingIn(emissions.front()), 3 * (NOTICEABLE_MS - 1));
}

TEST_F(Runner, TakesTheEnginesEventsUntilTheProcessorIsGone) {
    const auto held = std::make_shared<int>();
    const auto underWay = std::make_shared<std::atomic<bool>>(false);
    runner->start();
    // Goes on only when the runner's destruction has come to the processor, which waits for it.
    processor().Emit([log = processor().GetLog(), error = std::make_exception_ptr(held),
                      underWay](Kestra::Proc::IProcessingEvents& events) {
        *underWay = true;
        while (!log->Contains("~FakeProcessor"))
            std::this_thread::yield();
        events.onStarted();
        events.onError(error);
        events.onFinished();
    });
    while (!*underWay)
        std::this_thread::yield();
    runner.reset();
    TestSupport::turnEventLoop();
    EXPECT_EQ(emissions, Signals());
    EXPECT_EQ(held.use_count(), 1) << "what was taken went with the forwarder";
}
