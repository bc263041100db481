// SPDX-License-Identifier: GPL-3.0-or-later
#include "component/runner/RunnerFixture.h"
#include <stdexcept>

namespace {

std::exception_ptr failure(const std::string& text) {
    return std::make_exception_ptr(std::runtime_error(text));
}

} // namespace

TEST_F(Runner, EmitsStartFailedInsideStartWhenTheReceiverIsRefused) {
    processors.Prepare([](FakeProcessor& made) { made.ThrowFromSetEventsReceiver(failure("no receiver")); });
    runner->start();
    EXPECT_EQ(emissions, Signals{"startFailed no receiver"});
    EXPECT_FALSE(processors.GetLog().Contains("Initialize"));
}

TEST_F(Runner, EmitsStartFailedInsideStartWhenTheFirstLaunchingCallThrows) {
    processors.Prepare([](FakeProcessor& made) { made.ThrowFromInitialize(failure("no reset")); });
    runner->start();
    EXPECT_EQ(emissions, Signals{"startFailed no reset"});
    EXPECT_FALSE(processors.GetLog().Contains("Start"));
}

TEST_F(Runner, EmitsStartFailedInsideStartWhenTheSecondLaunchingCallThrows) {
    processors.Prepare([](FakeProcessor& made) { made.ThrowFromStart(failure("no threads")); });
    runner->start();
    EXPECT_EQ(emissions, Signals{"startFailed no threads"});
    TestSupport::turnEventLoop();
    EXPECT_EQ(emissions, Signals{"startFailed no threads"}) << "no stopped() without the engine's word";
    play({FakeProcessor::Finished()});
    EXPECT_EQ(emissions, (Signals{"startFailed no threads", "stopped"}));
}

TEST_F(Runner, KeepsTheProcessorThatFailedToLaunch) {
    processors.Prepare([](FakeProcessor& made) { made.ThrowFromStart(failure("no threads")); });
    runner->start();
    EXPECT_FALSE(processors.GetLog().Contains("~FakeProcessor"));
    processors.GetLog().Clear();
    runner->stop();
    EXPECT_EQ(calls(), (CallLog::Calls{"Stop", "Discard"}));
}

TEST_F(Runner, LetsAForeignExceptionOfLaunchingThrough) {
    processors.Prepare([](FakeProcessor& made) { made.ThrowFromInitialize(std::make_exception_ptr(42)); });
    EXPECT_THROW(runner->start(), int);
    EXPECT_EQ(emissions, Signals());
}

TEST_F(Runner, LetsAnExceptionOfCreatingTheProcessorThrough) {
    processors.ThrowNext(failure("no processor"));
    EXPECT_THROW(runner->start(), std::runtime_error);
    EXPECT_EQ(emissions, Signals());
}

TEST_F(Runner, LetsAnExceptionOfAFactoryThroughAndCallsNoneAfterIt) {
    runner = Export::createStreamProcessingHelper(
        0, videoFactory(),
        []() -> boost::intrusive_ptr<Kestra::Proc::IEncoder> { throw std::runtime_error("no audio encoder"); },
        muxerFactory(), {});
    listen(*runner);
    EXPECT_THROW(runner->start(), std::runtime_error);
    EXPECT_EQ(calls(), CallLog::Calls{"video encoder"});
    EXPECT_EQ(emissions, Signals());
}

TEST_F(Runner, MayBeStartedAgainAfterAFactoryThrew) {
    processors.ThrowNext(failure("once"));
    EXPECT_THROW(runner->start(), std::runtime_error);
    runner->start();
    play({FakeProcessor::Started()});
    EXPECT_EQ(emissions, Signals{"started"});
}
