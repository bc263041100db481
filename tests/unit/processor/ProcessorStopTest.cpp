// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProcessorFixture.h"

namespace Kestra::Proc {
namespace {

using ProcessorStop = ProcessorFixture;
using Events = CallLog::Calls;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds PROMISED{200};

class StopAtEvent : public ProcessorFixture, public testing::WithParamInterface<const char*> {};

TEST_P(StopAtEvent, EndsTheRunWithFinishedAndNothingAfterIt) {
    const auto gate = audio->BlockAt("ReadRaw 5");
    events.GetScript().At(GetParam(), [this] {
        processor->Stop();
        processor->Discard();
    });
    Launch();
    ASSERT_TRUE(events.WaitForEnd());
    Release();
    EXPECT_EQ(events.GetMainEvents(), (Events{"onStarted", "onFinished"}));
    EXPECT_TRUE(log->Contains("Abort"));
    EXPECT_FALSE(log->Contains("muxer:Finish"));
}

INSTANTIATE_TEST_SUITE_P(OfTheRun, StopAtEvent, testing::Values("onStarted", "onProgress"),
                         [](const auto& testCase) { return std::string(testCase.param); });

class StopAtCall : public ProcessorFixture, public testing::WithParamInterface<std::pair<const char*, const char*>> {};

TEST_P(StopAtCall, EndsTheRunWithFinishedOnce) {
    const auto stop = [this] {
        processor->Stop();
        processor->Discard();
    };
    const std::string who = GetParam().first;
    (who == "video" ? video : who == "audio" ? audio : muxer)->At(GetParam().second, stop);
    RunToEnd();
    Release();
    const Events main = events.GetMainEvents();
    EXPECT_EQ(std::count(main.begin(), main.end(), "onFinished"), 1);
    EXPECT_EQ(main.back(), "onFinished");
    EXPECT_FALSE(events.GetError());
    // A stop that comes while the trailer is being written comes too late.
    EXPECT_EQ(log->Contains("muxer:Finish"), GetParam().second == std::string("Finish"));
    EXPECT_EQ(log->Count("~FakeEncoder"), 2u);
}

INSTANTIATE_TEST_SUITE_P(OfTheEngine, StopAtCall,
                         testing::Values(std::make_pair("video", "Prepare"), std::make_pair("audio", "Prepare"),
                                         std::make_pair("video", "ReadRaw 0"), std::make_pair("audio", "ReadRaw 9"),
                                         std::make_pair("muxer", "AddStream 0"), std::make_pair("muxer", "Open"),
                                         std::make_pair("muxer", "Write 0"), std::make_pair("muxer", "Write 12"),
                                         std::make_pair("muxer", "Finish")));

/// How long a stopped run takes to its end, at best: the machine may be busy, the promise is the engine's.
template <class Launcher>
std::chrono::milliseconds QuickestOfFive(Launcher launchAndStop) {
    auto quickest = std::chrono::milliseconds::max();
    for (int i = 0; i < 5 && quickest >= PROMISED; ++i) {
        quickest = std::min(quickest, launchAndStop());
    }
    return quickest;
}

std::chrono::milliseconds TimeToStop(bool stubborn, const char* blockedCall) {
    EventRecorder events;
    const auto script = std::make_shared<Script>();
    const auto gate = script->BlockAt(blockedCall);
    boost::intrusive_ptr<FakeEncoder> encoder(new FakeEncoder(PacketPlan(), script));
    encoder->SetStubborn(stubborn);
    const auto processor = CreateStreamProcessor({encoder}, nullptr);
    processor->SetEventsReceiver(&events);
    processor->Initialize();
    processor->Start();
    EXPECT_TRUE(gate->WaitUntilReached());
    const auto before = Clock::now();
    processor->Stop();
    processor->Discard();
    EXPECT_TRUE(events.WaitForEnd());
    const auto took = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - before);
    EXPECT_EQ(events.GetMainEvents().back(), "onFinished");
    gate->Open();
    return took;
}

TEST_F(ProcessorStop, FinishesInTimeWhileAReadIsBlocked) {
    EXPECT_LT(QuickestOfFive([] { return TimeToStop(false, "ReadRaw 3"); }), PROMISED);
}

TEST_F(ProcessorStop, FinishesInTimeThoughTheReadNeverReturns) {
    EXPECT_LT(QuickestOfFive([] { return TimeToStop(true, "ReadRaw 3"); }), PROMISED);
}

TEST_F(ProcessorStop, FinishesInTimeThoughPrepareNeverReturns) {
    EXPECT_LT(QuickestOfFive([] { return TimeToStop(true, "Prepare"); }), PROMISED);
}

TEST_F(ProcessorStop, ReturnsAtOnceWhileTheMuxerIsBusy) {
    const auto gate = muxer->BlockAt("Write 3");
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    processor->Stop();
    processor->Discard();
    EXPECT_EQ(events.GetMainEvents(), (Events{"onStarted"}));
    gate->Open();
    ASSERT_TRUE(events.WaitForEnd());
    EXPECT_EQ(events.GetMainEvents(), (Events{"onStarted", "onFinished"}));
}

TEST_F(ProcessorStop, BeforeTheOutputIsOpenLeavesTheMuxerUntouched) {
    const auto gate = video->BlockAt("Prepare");
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    processor->Stop();
    ASSERT_TRUE(events.WaitForEnd());
    Release();
    EXPECT_EQ(events.GetMainEvents(), (Events{"onFinished"}));
    EXPECT_FALSE(log->Contains("muxer:AddStream 0"));
    EXPECT_FALSE(log->Contains("Abort"));
}

TEST_F(ProcessorStop, WithDiscardAbortsTheMuxerAndWritesNothingMore) {
    const auto gate = video->BlockAt("ReadRaw 5");
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    ASSERT_TRUE(log->WaitForCall("audio:ReadRaw 10"));
    // The fifth packet of sound waits for the sixth picture.
    ASSERT_TRUE(log->WaitForCall("muxer:Write 8"));
    processor->Stop();
    processor->Discard();
    ASSERT_TRUE(events.WaitForEnd());
    EXPECT_TRUE(log->Contains("Abort"));
    EXPECT_FALSE(log->Contains("muxer:Finish"));
    EXPECT_EQ(output->GetWritten().size(), 9u);
}

TEST_F(ProcessorStop, WithALateDiscardStillGivesUpTheOutput) {
    const auto gate = video->BlockAt("ReadRaw 5");
    const auto writingWhatIsQueued = muxer->BlockAt("Write 9");
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    ASSERT_TRUE(log->WaitForCall("audio:ReadRaw 10"));
    ASSERT_TRUE(log->WaitForCall("muxer:Write 8"));
    processor->Stop();
    ASSERT_TRUE(writingWhatIsQueued->WaitUntilReached());
    processor->Discard();
    writingWhatIsQueued->Open();
    ASSERT_TRUE(events.WaitForEnd());
    EXPECT_EQ(events.GetMainEvents().back(), "onFinished");
    EXPECT_TRUE(log->Contains("Abort"));
    EXPECT_FALSE(log->Contains("muxer:Finish"));
}

TEST_F(ProcessorStop, WithoutDiscardWritesWhatIsQueuedAndCompletesTheOutput) {
    const auto gate = video->BlockAt("ReadRaw 5");
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    ASSERT_TRUE(log->WaitForCall("audio:ReadRaw 10"));
    ASSERT_TRUE(log->WaitForCall("muxer:Write 4"));
    processor->Stop();
    ASSERT_TRUE(events.WaitForEnd());
    EXPECT_TRUE(log->Contains("muxer:Finish"));
    EXPECT_FALSE(log->Contains("Abort"));
    EXPECT_EQ(output->GetWritten().size(), 15u);
    EXPECT_EQ(events.GetMainEvents(), (Events{"onStarted", "onFinished"}));
}

TEST_F(ProcessorStop, WhoseOutputCannotBeCompletedIsAnError) {
    muxer->ThrowAt("Finish", Failure("disk full"));
    const auto gate = video->BlockAt("ReadRaw 5");
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    ASSERT_TRUE(log->WaitForCall("muxer:Open"));
    processor->Stop();
    ASSERT_TRUE(events.WaitForEnd());
    EXPECT_EQ(ErrorText(), "disk full");
    EXPECT_TRUE(log->Contains("Abort"));
}

TEST_F(ProcessorStop, IgnoresWhatInterruptedReadsThrow) {
    const auto gate = video->BlockAt("ReadRaw 5");
    video->At("ReadRaw 5", [&] {
        gate->Pass();
        std::rethrow_exception(Failure("interrupted"));
    });
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    processor->Stop();
    processor->Discard();
    ASSERT_TRUE(events.WaitForEnd());
    Release();
    EXPECT_EQ(events.GetMainEvents().back(), "onFinished");
    EXPECT_FALSE(events.GetError());
}

class StopInARead : public ProcessorFixture, public testing::WithParamInterface<std::pair<const char*, const char*>> {};

TEST_P(StopInARead, IsACleanEndWithWhatIsQueued) {
    const auto gate = (GetParam().first == std::string("video") ? video : audio)->BlockAt(GetParam().second);
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    processor->Stop();
    ASSERT_TRUE(events.WaitForEnd());
    Release();
    EXPECT_EQ(events.GetMainEvents().back(), "onFinished");
    EXPECT_FALSE(events.GetError()) << "an interruption is no failure";
}

INSTANTIATE_TEST_SUITE_P(OfAnEncoder, StopInARead,
                         testing::Values(std::make_pair("video", "Prepare"), std::make_pair("audio", "Prepare"),
                                         std::make_pair("video", "ReadRaw 0"), std::make_pair("audio", "ReadRaw 5"),
                                         std::make_pair("video", "ReadRaw 10")));

TEST_F(ProcessorStop, ReportsNoOneHundredPercentThoughTheOutputIsCompleted) {
    const auto gate = video->BlockAt("ReadRaw 5");
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    ASSERT_TRUE(log->WaitForCall("muxer:Write 0"));
    processor->Stop();
    ASSERT_TRUE(events.WaitForEnd());
    ASSERT_TRUE(log->Contains("muxer:Finish"));
    ASSERT_FALSE(events.GetProgress().empty());
    for (const auto& progress : events.GetProgress()) {
        EXPECT_LT(progress.percent, 100);
    }
}

TEST_F(ProcessorStop, DoesNothingBeforeTheStart) {
    Make();
    processor->Stop();
    processor->Initialize();
    processor->Stop();
    processor->Discard();
    processor->Start();
    ASSERT_TRUE(events.WaitForEnd());
    EXPECT_TRUE(log->Contains("muxer:Finish"));
    EXPECT_FALSE(log->Contains("video:Interrupt"));
}

TEST_F(ProcessorStop, DoesNothingAfterTheEnd) {
    RunToEnd();
    processor->Stop();
    processor->Discard();
    Release();
    EXPECT_EQ(events.GetMainEvents(), (Events{"onStarted", "onFinished"}));
    EXPECT_FALSE(log->Contains("video:Interrupt"));
    EXPECT_FALSE(log->Contains("Abort"));
}

TEST_F(ProcessorStop, TwiceIsAsOnce) {
    const auto gate = video->BlockAt("ReadRaw 5");
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    processor->Stop();
    processor->Stop();
    processor->Discard();
    processor->Discard();
    ASSERT_TRUE(events.WaitForEnd());
    Release();
    EXPECT_EQ(events.GetScript().GetLog()->Count("onFinished"), 1u);
}

TEST_F(ProcessorStop, DiscardAloneDoesNothing) {
    const auto gate = video->BlockAt("ReadRaw 5");
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    processor->Discard();
    gate->Open();
    ASSERT_TRUE(events.WaitForEnd());
    EXPECT_TRUE(log->Contains("muxer:Finish"));
    EXPECT_EQ(output->GetWritten().size(), 20u);
}

} // namespace
} // namespace Kestra::Proc
