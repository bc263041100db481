// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProcessorFixture.h"
#include "fakes/kestra/FakeStreamVideo.h"
#include <pthread.h>

namespace Kestra::Proc {
namespace {

using ProcessorRun = ProcessorFixture;
using Events = CallLog::Calls;

std::string ThisThreadsName() {
    char name[16] = {};
    pthread_getname_np(pthread_self(), name, sizeof(name));
    return name;
}

TEST_F(ProcessorRun, ReportsStartedThenFinishedOnce) {
    RunToEnd();
    Release();
    EXPECT_EQ(events.GetMainEvents(), (Events{"onStarted", "onFinished"}));
}

TEST_F(ProcessorRun, ReportsProgressOnlyBetweenStartedAndFinished) {
    RunToEnd();
    Release();
    const Events all = events.GetScript().GetLog()->Get();
    EXPECT_EQ(all.front(), "onStarted");
    EXPECT_EQ(all.back(), "onFinished");
    EXPECT_FALSE(events.GetProgress().empty());
}

TEST_F(ProcessorRun, ReportsStartedWhenAllEncodersArePreparedAndTheHeaderIsWritten) {
    events.GetScript().At("onStarted", [this] { log->Add("started"); });
    RunToEnd();
    EXPECT_LT(IndexOf("video:Prepare"), IndexOf("muxer:AddStream 0"));
    EXPECT_LT(IndexOf("audio:Prepare"), IndexOf("muxer:AddStream 0"));
    EXPECT_LT(IndexOf("muxer:AddStream 0"), IndexOf("muxer:AddStream 1"));
    EXPECT_LT(IndexOf("muxer:AddStream 1"), IndexOf("muxer:Open"));
    EXPECT_LT(IndexOf("muxer:Open"), IndexOf("started"));
    EXPECT_LT(IndexOf("started"), IndexOf("muxer:Write 0"));
}

TEST_F(ProcessorRun, TellsEncodersThatTheyAreSeveralBeforeTheyOpen) {
    RunToEnd();
    EXPECT_LT(IndexOf("video:RunBesideOthers"), IndexOf("video:Prepare"));
    EXPECT_LT(IndexOf("audio:RunBesideOthers"), IndexOf("audio:Prepare"));
}

TEST_F(ProcessorRun, LeavesAnEncoderThatIsAloneAllProcessors) {
    processor = CreateStreamProcessor({new FakeEncoder(audioPlan, audio)}, new FakeMuxer(muxer));
    processor->SetEventsReceiver(&events);
    processor->Initialize();
    processor->Start();
    ASSERT_TRUE(events.WaitForEnd());
    EXPECT_TRUE(log->Contains("audio:Prepare"));
    EXPECT_FALSE(log->Contains("audio:RunBesideOthers"));
}

TEST_F(ProcessorRun, WaitsForTheSlowestEncoderBeforeItOpensTheMuxer) {
    const auto gate = audio->BlockAt("Prepare");
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    ASSERT_TRUE(log->WaitForCall("video:ReadRaw 0"));
    EXPECT_FALSE(log->Contains("muxer:AddStream 0"));
    EXPECT_TRUE(events.GetMainEvents().empty());
    gate->Open();
    ASSERT_TRUE(events.WaitForEnd());
    EXPECT_TRUE(log->Contains("muxer:Finish"));
}

TEST_F(ProcessorRun, RunsWithoutAMuxerAndReportsTheSame) {
    withMuxer = false;
    RunToEnd();
    Release();
    EXPECT_EQ(events.GetMainEvents(), (Events{"onStarted", "onFinished"}));
    EXPECT_TRUE(log->Contains("video:ReadRaw 10"));
    EXPECT_EQ(events.GetProgress().back().percent, 100);
}

TEST_F(ProcessorRun, ReportsStartedAfterPrepareWhenThereIsNoMuxer) {
    withMuxer = false;
    const auto gate = video->BlockAt("Prepare");
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    ASSERT_TRUE(log->WaitForCall("audio:ReadRaw 0"));
    EXPECT_TRUE(events.GetMainEvents().empty());
    gate->Open();
    ASSERT_TRUE(events.WaitForEnd());
    EXPECT_EQ(events.GetMainEvents().front(), "onStarted");
}

TEST_F(ProcessorRun, ResetsTheStreamsInInitializeAndNeverAgain) {
    Make();
    EXPECT_FALSE(log->Contains("video:Reset"));
    processor->Initialize();
    EXPECT_EQ(log->Get(), (Events{"video:Reset", "audio:Reset"}));
    processor->Start();
    ASSERT_TRUE(events.WaitForEnd());
    Release();
    EXPECT_EQ(log->Count("video:Reset"), 1u);
}

TEST_F(ProcessorRun, RunsAgainOverStreamsThatAnEarlierProcessorHasReadAndStopped) {
    boost::intrusive_ptr<FakeEncoder> encoder(new FakeEncoder(videoPlan, video));
    const auto first = CreateStreamProcessor({encoder}, nullptr);
    EventRecorder firstEvents;
    const auto gate = video->BlockAt("ReadRaw 5");
    first->SetEventsReceiver(&firstEvents);
    first->Initialize();
    first->Start();
    ASSERT_TRUE(gate->WaitUntilReached());
    first->Stop();
    ASSERT_TRUE(firstEvents.WaitForEnd());

    output.reset(new FakeMuxer(muxer));
    processor = CreateStreamProcessor({encoder}, output);
    processor->SetEventsReceiver(&events);
    processor->Initialize();
    processor->Start();
    ASSERT_TRUE(events.WaitForEnd());
    EXPECT_EQ(output->GetWritten().size(), 10u);
}

TEST_F(ProcessorRun, WritesEveryPacketInTheOrderOfTime) {
    videoPlan.count = 200;
    audioPlan.count = 375;
    audioPlan.period = TIME_BASE * 1024 / 48000;
    RunToEnd();
    const auto written = output->GetWritten();
    ASSERT_EQ(written.size(), 575u);
    for (std::size_t i = 1; i < written.size(); ++i) {
        ASSERT_GE(written[i].decodeTime, written[i - 1].decodeTime) << "packet " << i;
    }
}

TEST_F(ProcessorRun, WritesTheRestOfTheLongerStreamWhenTheOtherHasEnded) {
    videoPlan.count = 3;
    audioPlan.count = 300;
    RunToEnd();
    EXPECT_EQ(output->GetWritten().size(), 303u);
    EXPECT_EQ(events.GetProgress().back().position, 300 * audioPlan.period);
}

TEST_F(ProcessorRun, UsesAThreadForEachEncoderAndOneForTheMuxer) {
    std::string videoThread;
    std::string audioThread;
    std::string muxerThread;
    std::string eventThread;
    video->At("ReadRaw 0", [&] { videoThread = ThisThreadsName(); });
    audio->At("Prepare", [&] { audioThread = ThisThreadsName(); });
    muxer->At("Open", [&] { muxerThread = ThisThreadsName(); });
    events.GetScript().At("onStarted", [&] { eventThread = ThisThreadsName(); });
    RunToEnd();
    Release();
    EXPECT_EQ(videoThread, "kestra-enc-vid");
    EXPECT_EQ(audioThread, "kestra-enc-aud");
    EXPECT_EQ(muxerThread, "kestra-mux");
    EXPECT_EQ(eventThread, "kestra-mux");
    EXPECT_NE(events.GetThread(), std::this_thread::get_id());
}

TEST_F(ProcessorRun, NeverLetsThePercentageFall) {
    videoPlan.count = 400;
    audioPlan.count = 400;
    for (int packet = 0; packet < 800; packet += 50) {
        // A slow device: the run has to last for several reports.
        muxer->At("Write " + std::to_string(packet),
                  [] { std::this_thread::sleep_for(std::chrono::milliseconds(30)); });
    }
    RunToEnd();
    const auto progress = events.GetProgress();
    ASSERT_GE(progress.size(), 4u);
    for (std::size_t i = 1; i < progress.size(); ++i) {
        EXPECT_GE(progress[i].percent, progress[i - 1].percent);
        EXPECT_GE(progress[i].position, progress[i - 1].position);
    }
}

TEST_F(ProcessorRun, EndsACleanRunWithOneHundredPercentOnce) {
    RunToEnd();
    const auto progress = events.GetProgress();
    EXPECT_EQ(progress.back().percent, 100);
    EXPECT_EQ(progress.back().position, 10 * videoPlan.period);
    EXPECT_EQ(progress.back().duration, 10 * videoPlan.period);
    EXPECT_EQ(progress.back().remainingSeconds, 0);
    EXPECT_EQ(std::count_if(progress.begin(), progress.end(), [](const auto& p) { return p.percent == 100; }), 1);
}

TEST_F(ProcessorRun, CountsProgressOnWhatIsMuxedNotOnWhatIsEncoded) {
    videoPlan.count = 40;
    audioPlan.count = 40;
    const auto gate = muxer->BlockAt("Write 1");
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    ASSERT_TRUE(log->WaitForCall("video:ReadRaw 40"));
    const auto progress = events.GetProgress();
    ASSERT_EQ(progress.size(), 1u);
    EXPECT_EQ(progress[0].percent, 0);
    EXPECT_EQ(progress[0].position, 0);
    gate->Open();
    ASSERT_TRUE(events.WaitForEnd());
}

TEST_F(ProcessorRun, ReportsAboutTenTimesASecondAtMost) {
    videoPlan.count = 5000;
    audioPlan.count = 5000;
    const auto before = std::chrono::steady_clock::now();
    RunToEnd();
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - before;
    EXPECT_LE(static_cast<double>(events.GetProgress().size()), took.count() * 10 + 2);
}

TEST_F(ProcessorRun, ReportsAnUnknownDurationAsMinusOne) {
    videoPlan.saidDuration = TIME_UNKNOWN;
    audioPlan.saidDuration = TIME_UNKNOWN;
    RunToEnd();
    const auto progress = events.GetProgress();
    EXPECT_EQ(progress.front().percent, 0);
    EXPECT_EQ(progress.front().duration, -1);
    EXPECT_EQ(progress.front().remainingSeconds, -1);
    EXPECT_EQ(progress.back().percent, 100);
}

TEST_F(ProcessorRun, AsksForTheDurationOnlyAfterPrepare) {
    RunToEnd();
    EXPECT_LT(IndexOf("video:Prepare"), IndexOf("video:GetDuration"));
}

TEST_F(ProcessorRun, HoldsNoMorePacketsThanTheQueueMayWeigh) {
    audioPlan.count = 1;
    videoPlan.count = 20;
    videoPlan.size = std::size_t{8} * 1024 * 1024;
    videoPlan.period = TIME_BASE / 1000;
    videoPlan.lifeToken = std::make_shared<int>(0);
    const auto gate = muxer->BlockAt("Write 0");
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    // Four of them are the 32 MiB of the queue, one more is waiting for room and one is in the muxer.
    EXPECT_FALSE(log->WaitForCall("video:ReadRaw 6", 1, std::chrono::milliseconds(300)));
    gate->Open();
    ASSERT_TRUE(events.WaitForEnd());
    EXPECT_EQ(output->GetWritten().size(), 21u);
}

TEST_F(ProcessorRun, HoldsNoMorePacketsThanTheQueueMayLast) {
    videoPlan.count = 60;
    videoPlan.period = TIME_BASE / 2;
    audioPlan.period = TIME_BASE / 2;
    const auto gate = muxer->BlockAt("Write 0");
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    // Two seconds are five packets, from the first one's time to the last one's; one more waits and one is in the
    // muxer.
    EXPECT_FALSE(log->WaitForCall("video:ReadRaw 7", 1, std::chrono::milliseconds(300)));
    gate->Open();
    ASSERT_TRUE(events.WaitForEnd());
    EXPECT_EQ(output->GetWritten().size(), 70u);
}

TEST_F(ProcessorRun, ReleasesEachPacketAsSoonAsItIsMuxed) {
    videoPlan.lifeToken = std::make_shared<int>(0);
    RunToEnd();
    Release();
    // The plan, its copy in the run (gone with the processor), and no packet.
    EXPECT_EQ(videoPlan.lifeToken.use_count(), 1);
}

TEST_F(ProcessorRun, FinishesAtOnceWhenThereIsNoStream) {
    processor = CreateStreamProcessor({}, nullptr);
    processor->SetEventsReceiver(&events);
    processor->Initialize();
    processor->Start();
    ASSERT_TRUE(events.WaitForEnd());
    EXPECT_EQ(events.GetMainEvents(), (Events{"onStarted", "onFinished"}));
}

TEST_F(ProcessorRun, RunsWithoutAReceiver) {
    Make();
    processor->SetEventsReceiver(nullptr);
    processor->Initialize();
    processor->Start();
    ASSERT_TRUE(log->WaitForCall("muxer:Finish"));
    Release();
    EXPECT_TRUE(events.GetMainEvents().empty());
}

TEST_F(ProcessorRun, TellsOnlyTheReceiverThatWasSetLast) {
    EventRecorder other;
    const auto gate = video->BlockAt("ReadRaw 5");
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    ASSERT_TRUE(events.GetScript().GetLog()->WaitForCall("onStarted"));
    processor->SetEventsReceiver(&other);
    const auto soFar = events.GetScript().GetLog()->Get();
    gate->Open();
    ASSERT_TRUE(other.WaitForEnd());
    EXPECT_EQ(events.GetScript().GetLog()->Get(), soFar);
}

TEST_F(ProcessorRun, RefusesStreamsThatAreNullOrNotRaw) {
    boost::intrusive_ptr<IStream> notRaw(new Fakes::FakeStreamVideo(1));
    EXPECT_THROW(CreateStreamProcessor({nullptr}, nullptr), std::invalid_argument);
    EXPECT_THROW(CreateStreamProcessor({notRaw}, nullptr), std::invalid_argument);
}

TEST_F(ProcessorRun, RefusesToBeLaunchedInAWrongOrder) {
    Make();
    EXPECT_THROW(processor->Start(), std::logic_error);
    processor->Initialize();
    EXPECT_THROW(processor->Initialize(), std::logic_error);
    processor->Start();
    EXPECT_THROW(processor->Start(), std::logic_error);
    EXPECT_THROW(processor->Initialize(), std::logic_error);
    ASSERT_TRUE(events.WaitForEnd());
    EXPECT_EQ(events.GetMainEvents(), (Events{"onStarted", "onFinished"}));
}

} // namespace
} // namespace Kestra::Proc
