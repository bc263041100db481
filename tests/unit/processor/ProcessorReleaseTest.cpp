// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Processor/DeferredRelease.h"
#include "ProcessorFixture.h"
#include <future>

namespace Kestra::Proc {
namespace {

using ProcessorRelease = ProcessorFixture;
using Events = CallLog::Calls;

class ReleaseAtEvent : public ProcessorFixture, public testing::WithParamInterface<const char*> {
protected:
    void ReleaseInside(const char* event) {
        const auto released = std::make_shared<Fakes::Gate>();
        events.GetScript().At(event, [this, released, event] {
            // The test's own thread must have left Start before the last reference may go.
            released->Pass();
            processor.reset();
            log->Add(std::string("released in ") + event);
        });
        Launch();
        ASSERT_TRUE(released->WaitUntilReached());
        released->Open();
        ASSERT_TRUE(log->WaitForCall(std::string("released in ") + event));
    }
};

TEST_P(ReleaseAtEvent, IsTheLastEventAndLetsGoOfEverything) {
    if (GetParam() == std::string("onError")) {
        muxer->ThrowAt("Write 3", Failure("planned failure"));
    }
    ReleaseInside(GetParam());
    ASSERT_TRUE(log->WaitForCall("~FakeEncoder", 2));
    EXPECT_EQ(events.GetScript().GetLog()->Get().back(), GetParam());
    const bool complete = GetParam() == std::string("onFinished");
    EXPECT_EQ(log->Contains("Abort"), !complete);
    EXPECT_EQ(log->Contains("muxer:Finish"), complete);
}

TEST_P(ReleaseAtEvent, HasJoinedTheEncodersAndClosedTheOutputWhenItReturns) {
    if (GetParam() == std::string("onError")) {
        muxer->ThrowAt("Write 3", Failure("planned failure"));
    }
    ReleaseInside(GetParam());
    const Events calls = log->Get();
    const auto released = std::find(calls.begin(), calls.end(), std::string("released in ") + GetParam());
    for (auto call = released; call != calls.end(); ++call) {
        EXPECT_EQ(call->find("video:"), std::string::npos) << *call;
        EXPECT_EQ(call->find("muxer:"), std::string::npos) << *call;
        EXPECT_NE(*call, "Abort");
    }
    ASSERT_TRUE(log->WaitForCall("~FakeEncoder", 2));
}

INSTANTIATE_TEST_SUITE_P(OfTheRun, ReleaseAtEvent, testing::Values("onStarted", "onProgress", "onError", "onFinished"),
                         [](const auto& testCase) { return std::string(testCase.param); });

TEST_F(ProcessorRelease, BeforeTheLaunchDestroysTheEncoders) {
    Make();
    Release();
    EXPECT_EQ(log->Get(), (Events{"~FakeEncoder", "~FakeEncoder"}));
    processor.reset();
    Make();
    processor->Initialize();
    Release();
    EXPECT_EQ(log->Count("~FakeEncoder"), 4u);
}

TEST_F(ProcessorRelease, InterruptsABlockedReadAndJoinsEveryThread) {
    const auto gate = video->BlockAt("ReadRaw 5");
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    ASSERT_TRUE(events.GetScript().GetLog()->WaitForCall("onStarted"));
    Release();
    EXPECT_EQ(log->Count("~FakeEncoder"), 2u);
    EXPECT_TRUE(log->Contains("video:Interrupt"));
    EXPECT_TRUE(log->Contains("Abort"));
    EXPECT_EQ(events.GetMainEvents(), (Events{"onStarted"}));
}

TEST_F(ProcessorRelease, RightAfterTheStartLeavesTheReceiverFreeToGo) {
    for (std::size_t round = 1; round <= 50; ++round) {
        // Destroyed right after the release: a late event would find a dead receiver, as sanitizers tell.
        EventRecorder receiver;
        Make();
        processor->SetEventsReceiver(&receiver);
        processor->Initialize();
        processor->Start();
        Release();
        EXPECT_EQ(log->Count("~FakeEncoder"), 2 * round);
    }
}

TEST_F(ProcessorRelease, WaitsForAnEventThatIsUnderWay) {
    const auto gate = events.GetScript().BlockAt("onStarted");
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    auto released = std::async(std::launch::async, [this] { Release(); });
    EXPECT_EQ(released.wait_for(std::chrono::milliseconds(100)), std::future_status::timeout);
    gate->Open();
    released.get();
    EXPECT_EQ(events.GetMainEvents(), (Events{"onStarted"}));
}

TEST_F(ProcessorRelease, WaitsForAReadThatIsSlowToComeOut) {
    stubborn = true;
    const auto gate = video->BlockAt("ReadRaw 5");
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    auto released = std::async(std::launch::async, [this] { Release(); });
    EXPECT_EQ(released.wait_for(std::chrono::milliseconds(100)), std::future_status::timeout);
    gate->Open();
    released.get();
    EXPECT_TRUE(log->WaitForCall("~FakeEncoder", 2));
}

/// Where a thread hangs that nothing brings back, and what still has to be done there when it comes out after all.
class HungThread : public ProcessorFixture, public testing::WithParamInterface<const char*> {
protected:
    std::shared_ptr<Fakes::Gate> Hang() {
        const std::string where = GetParam();
        const std::string call = where.substr(where.find(':') + 1);
        stubborn = true;
        std::shared_ptr<Script> script = where.rfind("audio", 0) == 0 ? audio : video;
        script = where.rfind("muxer", 0) == 0 ? muxer : script;
        // Not through the script's own gates, which an interrupt of the other track opens.
        auto gate = std::make_shared<Fakes::Gate>();
        script->At(call, [gate] { gate->Pass(); });
        return gate;
    }
};

TEST_P(HungThread, IsLeftByTheLastReleaseAndLetsGoWhenItComesOut) {
    const auto gate = Hang();
    auto receiver = std::make_unique<EventRecorder>();
    Make();
    output.reset();
    processor->SetEventsReceiver(receiver.get());
    processor->Initialize();
    processor->Start();
    ASSERT_TRUE(gate->WaitUntilReached());
    Release();
    receiver.reset(); // what comes out later finds no receiver
    EXPECT_LT(log->Count("~FakeEncoder"), 2u) << "the thread holds what it is in";
    gate->Open();
    EXPECT_TRUE(log->WaitForCall("~FakeEncoder", 2));
    EXPECT_TRUE(log->WaitForCall("~FakeMuxer"));
}

TEST_P(HungThread, KeepsNobodyFromTheEndAfterAStop) {
    if (std::string(GetParam()).rfind("muxer", 0) == 0)
        GTEST_SKIP() << "the end is the muxer's thread to tell";
    const auto gate = Hang();
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    processor->Stop();
    processor->Discard();
    ASSERT_TRUE(events.WaitForEnd());
    Release();
    gate->Open();
    EXPECT_TRUE(log->WaitForCall("~FakeEncoder", 2));
}

TEST_P(HungThread, MayFailWhenItComesOutAfterTheRunIsGone) {
    const std::string where = GetParam();
    const auto gate = Hang();
    const std::string call = where.substr(where.find(':') + 1);
    const auto& script = where.rfind("audio", 0) == 0 ? audio : where.rfind("muxer", 0) == 0 ? muxer : video;
    script->At(call, [gate] {
        gate->Pass();
        throw std::runtime_error("too late for anybody");
    });
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    Release();
    output.reset();
    gate->Open();
    EXPECT_TRUE(log->WaitForCall("~FakeEncoder", 2));
    EXPECT_EQ(events.GetError(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(OfARun, HungThread,
                         testing::Values("video:Prepare", "video:ReadRaw 5", "audio:Prepare", "audio:ReadRaw 5",
                                         "muxer:Open", "muxer:Write 3"),
                         [](const auto& testCase) {
                             std::string name = testCase.param;
                             std::replace_if(
                                 name.begin(), name.end(), [](char c) { return c == ':' || c == ' '; }, '_');
                             return name;
                         });

TEST_F(ProcessorRelease, LeavesOneTrackThatHangsAfterTheOtherFailed) {
    stubborn = true;
    auto gate = std::make_shared<Fakes::Gate>();
    video->At("ReadRaw 5", [gate] { gate->Pass(); });
    audio->At("ReadRaw 3", [gate] {
        gate->WaitUntilReached(); // before, the failure would end the track that is to hang
        std::rethrow_exception(Failure("the sound is broken"));
    });
    Launch();
    ASSERT_TRUE(events.WaitForEnd());
    EXPECT_EQ(ErrorText(), "the sound is broken");
    Release();
    gate->Open();
    EXPECT_TRUE(log->WaitForCall("~FakeEncoder", 2));
}

TEST_F(ProcessorRelease, OnAnEncodersThreadNeitherHangsNorReportsAnything) {
    const auto gate = video->BlockAt("ReadRaw 5");
    video->At("ReadRaw 5", [&, this] {
        gate->Pass();
        processor.reset();
    });
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    ASSERT_TRUE(events.GetScript().GetLog()->WaitForCall("onStarted"));
    gate->Open();
    ASSERT_TRUE(log->WaitForCall("~FakeEncoder", 2));
    EXPECT_EQ(events.GetMainEvents(), (Events{"onStarted"}));
}

TEST_F(ProcessorRelease, AfterTheEndIsQuiet) {
    RunToEnd();
    Release();
    EXPECT_EQ(log->Count("~FakeEncoder"), 2u);
    EXPECT_FALSE(log->Contains("Abort"));
    EXPECT_FALSE(log->Contains("video:Interrupt"));
}

TEST_F(ProcessorRelease, OfTheMuxerComesWithTheProcessors) {
    RunToEnd();
    output.reset();
    EXPECT_FALSE(log->Contains("~FakeMuxer"));
    Release();
    EXPECT_TRUE(log->Contains("~FakeMuxer"));
}

TEST_F(ProcessorRelease, DetachingWaitsForAnEventThatIsUnderWay) {
    const auto gate = events.GetScript().BlockAt("onStarted");
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    auto detached = std::async(std::launch::async, [this] { processor->SetEventsReceiver(nullptr); });
    EXPECT_EQ(detached.wait_for(std::chrono::milliseconds(100)), std::future_status::timeout);
    gate->Open();
    detached.get();
    ASSERT_TRUE(log->WaitForCall("muxer:Finish"));
    Release();
    EXPECT_EQ(events.GetScript().GetLog()->Get(), (Events{"onStarted"}));
}

TEST_F(ProcessorRelease, DetachingInsideAnEventSilencesTheRest) {
    events.GetScript().At("onStarted", [this] { processor->SetEventsReceiver(nullptr); });
    Launch();
    ASSERT_TRUE(log->WaitForCall("muxer:Finish"));
    Release();
    EXPECT_EQ(events.GetScript().GetLog()->Get(), (Events{"onStarted"}));
}

/// A thread that hangs, and one that must not wait for it.
class DeferredProcessorRelease : public ProcessorFixture {
protected:
    void Hang() {
        stubborn = true;
        video->At("ReadRaw 5", [gate = gate] { gate->Pass(); });
        Launch();
        ASSERT_TRUE(gate->WaitUntilReached());
    }

    const std::shared_ptr<Fakes::Gate> gate = std::make_shared<Fakes::Gate>();
};

TEST_F(DeferredProcessorRelease, WaitsForNobodyButInterruptsAndDetaches) {
    Hang();
    const auto begin = std::chrono::steady_clock::now();
    std::shared_ptr<const void> rest;
    {
        DeferredRelease deferred;
        Release();
        rest = deferred.Take();
    }
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1))
        << "less than what hangs is waited for";
    ASSERT_NE(rest, nullptr);
    EXPECT_TRUE(log->Contains("video:Interrupt"));
    EXPECT_LT(log->Count("~FakeEncoder"), 2u);
    const Events told = events.GetMainEvents();
    gate->Open();
    rest.reset();
    EXPECT_EQ(log->Count("~FakeEncoder"), 2u) << "who lets go of the rest waits for all of it";
    EXPECT_EQ(events.GetMainEvents(), told);
}

TEST_F(DeferredProcessorRelease, MayBeWaitedForOnAnotherThread) {
    Hang();
    DeferredRelease deferred;
    Release();
    auto waited = std::async(std::launch::async, [rest = deferred.Take()]() mutable { rest.reset(); });
    EXPECT_EQ(waited.wait_for(std::chrono::milliseconds(100)), std::future_status::timeout);
    gate->Open();
    waited.get();
    EXPECT_TRUE(log->WaitForCall("~FakeEncoder", 2));
}

TEST_F(DeferredProcessorRelease, IsWaitedForAtItsEndWhereNobodyTookIt) {
    Hang();
    auto opened = std::async(std::launch::async, [this] {
        ASSERT_TRUE(log->WaitForCall("video:Interrupt"));
        gate->Open();
    });
    {
        const DeferredRelease deferred;
        Release();
    }
    EXPECT_EQ(log->Count("~FakeEncoder"), 2u);
    opened.get();
}

TEST_F(DeferredProcessorRelease, HoldsOneProcessorsRest) {
    DeferredRelease deferred;
    Launch();
    Release();
    Launch();
    Release();
    EXPECT_GE(log->Count("~FakeEncoder"), 2u) << "the second one was waited for";
    EXPECT_NE(deferred.Take(), nullptr);
    EXPECT_EQ(deferred.Take(), nullptr);
    EXPECT_EQ(log->Count("~FakeEncoder"), 4u);
}

TEST_F(DeferredProcessorRelease, IsNoneOfAnotherThreadsAndOfOneThatDoesNotRun) {
    DeferredRelease deferred;
    Make();
    Release();
    EXPECT_EQ(deferred.Take(), nullptr);
    Launch();
    std::async(std::launch::async, [this] { Release(); }).get();
    EXPECT_EQ(deferred.Take(), nullptr);
    EXPECT_EQ(log->Count("~FakeEncoder"), 4u);
}

} // namespace
} // namespace Kestra::Proc
