// SPDX-License-Identifier: GPL-3.0-or-later
// The fake processor is what other rooms' tests stand on, so it has to keep the processor's promises.
#include "fakes/kestra/FakeProcessor.h"
#include "fakes/kestra/EventRecorder.h"
#include <future>
#include <gtest/gtest.h>
#include <stdexcept>

namespace Kestra::Fakes {
namespace {

using Calls = CallLog::Calls;

TEST(FakeProcessor, PlaysItsScriptFromAnotherThread) {
    EventRecorder events;
    boost::intrusive_ptr<FakeProcessor> processor(new FakeProcessor);
    processor->PlayOnStart(
        {FakeProcessor::Started(), FakeProcessor::Progress(50, 1, 2, 3, 4), FakeProcessor::Finished()});
    processor->SetEventsReceiver(&events);
    processor->Initialize();
    processor->Start();
    ASSERT_TRUE(events.WaitForEnd());
    EXPECT_EQ(events.GetScript().GetLog()->Get(), (Calls{"onStarted", "onProgress", "onFinished"}));
    EXPECT_NE(events.GetThread(), std::this_thread::get_id());
    EXPECT_EQ(events.GetProgress()[0].percent, 50);
    EXPECT_EQ(events.GetProgress()[0].remainingSeconds, 4);
}

TEST(FakeProcessor, RecordsItsCallsInOrder) {
    EventRecorder events;
    const auto log = std::make_shared<CallLog>();
    boost::intrusive_ptr<FakeProcessor> processor(new FakeProcessor(log));
    processor->SetEventsReceiver(&events);
    processor->Initialize();
    processor->Start();
    processor->Stop();
    processor->Discard();
    processor->SetEventsReceiver(nullptr);
    processor.reset();
    EXPECT_EQ(log->Get(), (Calls{"SetEventsReceiver", "Initialize", "Start", "Stop", "Discard",
                                 "SetEventsReceiver(null)", "~FakeProcessor"}));
}

TEST(FakeProcessor, ThrowsWhereItIsToldTo) {
    const auto failure = std::make_exception_ptr(std::runtime_error("planned"));
    boost::intrusive_ptr<FakeProcessor> processor(new FakeProcessor);
    processor->ThrowFromSetEventsReceiver(failure);
    processor->ThrowFromInitialize(failure);
    processor->ThrowFromStart(failure);
    processor->ThrowFromStop(failure);
    EXPECT_THROW(processor->SetEventsReceiver(nullptr), std::runtime_error);
    EXPECT_THROW(processor->Initialize(), std::runtime_error);
    EXPECT_THROW(processor->Start(), std::runtime_error);
    EXPECT_THROW(processor->Stop(), std::runtime_error);
}

TEST(FakeProcessor, WaitsOnReleaseForTheEventUnderWayAndDropsTheRest) {
    EventRecorder events;
    const auto gate = events.GetScript().BlockAt("onStarted");
    boost::intrusive_ptr<FakeProcessor> processor(new FakeProcessor);
    processor->SetEventsReceiver(&events);
    processor->Emit(FakeProcessor::Started());
    processor->Emit(FakeProcessor::Finished());
    ASSERT_TRUE(gate->WaitUntilReached());
    auto released = std::async(std::launch::async, [&] { processor.reset(); });
    EXPECT_EQ(released.wait_for(std::chrono::milliseconds(100)), std::future_status::timeout);
    gate->Open();
    released.get();
    EXPECT_EQ(events.GetScript().GetLog()->Get(), (Calls{"onStarted"}));
}

TEST(FakeProcessor, MayBeReleasedInsideItsOwnEvent) {
    EventRecorder events;
    const auto log = std::make_shared<CallLog>();
    boost::intrusive_ptr<FakeProcessor> processor(new FakeProcessor(log));
    events.GetScript().At("onStarted", [&] { processor.reset(); });
    processor->SetEventsReceiver(&events);
    FakeProcessor& borrowed = *processor;
    borrowed.Emit(FakeProcessor::Started());
    ASSERT_TRUE(log->WaitForCall("~FakeProcessor"));
}

TEST(FakeProcessor, AnswersAStopWithFinished) {
    EventRecorder events;
    boost::intrusive_ptr<FakeProcessor> processor(new FakeProcessor);
    processor->SetEventsReceiver(&events);
    processor->Stop();
    ASSERT_TRUE(events.WaitForEnd());
    EXPECT_EQ(events.GetMainEvents(), (Calls{"onFinished"}));
}

} // namespace
} // namespace Kestra::Fakes
