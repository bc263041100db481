// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Interrupted.h"
#include "ProcessorFixture.h"

namespace Kestra::Proc {
namespace {

using Events = CallLog::Calls;

enum class Who { Video, Audio, Muxer };

struct FailingCall {
    const char* name;
    Who who;
    const char* call;
    bool started; ///< whether the run has been reported as started by then
};

class ProcessorFailure : public ProcessorFixture, public testing::WithParamInterface<FailingCall> {
protected:
    Script& GetScript() {
        switch (GetParam().who) {
        case Who::Video:
            return *video;
        case Who::Audio:
            return *audio;
        default:
            return *muxer;
        }
    }
};

TEST_P(ProcessorFailure, IsReportedOnceWithItsCauseAndNothingAfterIt) {
    GetScript().ThrowAt(GetParam().call, Failure("planned failure"));
    RunToEnd();
    Release();
    EXPECT_EQ(ErrorText(), "planned failure");
    EXPECT_EQ(events.GetMainEvents(), GetParam().started ? (Events{"onStarted", "onError"}) : (Events{"onError"}));
}

TEST_P(ProcessorFailure, ClosesAnOpenMuxerWithoutATrailer) {
    GetScript().ThrowAt(GetParam().call, Failure("planned failure"));
    RunToEnd();
    Release();
    EXPECT_EQ(log->Contains("Abort"), log->Contains("muxer:AddStream 0"));
    EXPECT_EQ(log->Contains("muxer:Finish"), GetParam().call == std::string("Finish"));
    EXPECT_NE(log->Count("~FakeEncoder"), 0u);
    for (const std::string& call : log->Get()) {
        EXPECT_EQ(call.find("misused"), std::string::npos) << call;
    }
}

TEST_P(ProcessorFailure, OfAForeignTypeIsReportedAsItIs) {
    GetScript().At(GetParam().call, [] { throw 42; });
    RunToEnd();
    Release();
    EXPECT_EQ(events.GetMainEvents().back(), "onError");
    EXPECT_THROW(std::rethrow_exception(events.GetError()), int);
}

TEST_P(ProcessorFailure, LeavesTheLastReleaseAble) {
    GetScript().ThrowAt(GetParam().call, Failure("planned failure"));
    Launch();
    Release();
    EXPECT_EQ(log->Count("~FakeEncoder"), 2u);
}

INSTANTIATE_TEST_SUITE_P(AtEachCall, ProcessorFailure,
                         testing::Values(FailingCall{"VideoReset", Who::Video, "Reset", false},
                                         FailingCall{"AudioReset", Who::Audio, "Reset", false},
                                         FailingCall{"VideoPrepare", Who::Video, "Prepare", false},
                                         FailingCall{"AudioPrepare", Who::Audio, "Prepare", false},
                                         FailingCall{"AudioDuration", Who::Audio, "GetDuration", false},
                                         FailingCall{"FirstTrack", Who::Muxer, "AddStream 0", false},
                                         FailingCall{"SecondTrack", Who::Muxer, "AddStream 1", false},
                                         FailingCall{"Open", Who::Muxer, "Open", false},
                                         FailingCall{"FirstWrite", Who::Muxer, "Write 0", true},
                                         FailingCall{"LaterWrite", Who::Muxer, "Write 7", true},
                                         FailingCall{"Finish", Who::Muxer, "Finish", true}),
                         [](const auto& testCase) { return testCase.param.name; });

using ProcessorFailures = ProcessorFixture;

TEST_F(ProcessorFailures, OfAReadAfterTheStartAreReportedAfterStarted) {
    events.GetScript().At("onStarted", [this] { log->Add("started"); });
    video->At("ReadRaw 5", [this] {
        log->WaitForCall("started");
        std::rethrow_exception(Failure("broken source"));
    });
    RunToEnd();
    Release();
    EXPECT_EQ(events.GetMainEvents(), (Events{"onStarted", "onError"}));
    EXPECT_EQ(ErrorText(), "broken source");
    EXPECT_TRUE(log->Contains("Abort"));
}

TEST_F(ProcessorFailures, OfOneEncoderInterruptTheOthers) {
    const auto gate = audio->BlockAt("ReadRaw 2");
    video->At("ReadRaw 1", [&] {
        gate->WaitUntilReached();
        std::rethrow_exception(Failure("broken picture"));
    });
    RunToEnd();
    EXPECT_EQ(ErrorText(), "broken picture");
    EXPECT_TRUE(log->Contains("audio:Interrupt"));
}

TEST_F(ProcessorFailures, CountOnlyOnceAndTheFirstWins) {
    const auto gate = audio->BlockAt("ReadRaw 2");
    audio->At("ReadRaw 2", [&] {
        gate->Pass();
        std::rethrow_exception(Failure("second"));
    });
    video->At("ReadRaw 1", [&] {
        gate->WaitUntilReached();
        std::rethrow_exception(Failure("first"));
    });
    RunToEnd();
    Release();
    EXPECT_EQ(ErrorText(), "first");
    EXPECT_EQ(events.GetScript().GetLog()->Count("onError"), 1u);
    EXPECT_FALSE(events.GetScript().GetLog()->Contains("onFinished"));
}

TEST_F(ProcessorFailures, AreReportedEvenWhenAnotherEncoderNeverReturns) {
    stubborn = true;
    const auto gate = audio->BlockAt("ReadRaw 2");
    video->At("ReadRaw 1", [&] {
        gate->WaitUntilReached();
        std::rethrow_exception(Failure("broken picture"));
    });
    RunToEnd();
    EXPECT_EQ(ErrorText(), "broken picture");
    gate->Open();
    Release();
}

TEST_F(ProcessorFailures, OfAResetDoNotThrowFromTheLaunchingCalls) {
    audio->ThrowAt("Reset", Failure("cannot rewind"));
    Make();
    EXPECT_NO_THROW(processor->Initialize());
    EXPECT_TRUE(events.GetMainEvents().empty());
    EXPECT_NO_THROW(processor->Start());
    ASSERT_TRUE(events.WaitForEnd());
    EXPECT_EQ(ErrorText(), "cannot rewind");
    EXPECT_FALSE(log->Contains("video:Prepare"));
}

TEST_F(ProcessorFailures, IncludeAnInterruptionThatNobodyInTheRunAskedFor) {
    video->ThrowAt("ReadRaw 5", std::make_exception_ptr(Interrupted()));
    RunToEnd();
    EXPECT_EQ(events.GetMainEvents().back(), "onError") << "a track that ends short is no success";
    EXPECT_NE(ErrorText().find("was interrupted"), std::string::npos) << ErrorText();
    EXPECT_FALSE(log->Contains("muxer:Finish"));
}

TEST_F(ProcessorFailures, OfAnInterruptionChangeNothing) {
    audio->At("Interrupt", [this] {
        audio->OpenGates();
        throw 1;
    });
    const auto gate = audio->BlockAt("ReadRaw 2");
    Launch();
    ASSERT_TRUE(gate->WaitUntilReached());
    processor->Stop();
    ASSERT_TRUE(events.WaitForEnd());
    EXPECT_EQ(events.GetMainEvents().back(), "onFinished");
}

TEST_F(ProcessorFailures, OfTheReceiverFailTheRun) {
    events.GetScript().ThrowAt("onStarted", Failure("receiver"));
    RunToEnd();
    Release();
    EXPECT_EQ(ErrorText(), "receiver");
    EXPECT_EQ(events.GetMainEvents(), (Events{"onStarted", "onError"}));
    EXPECT_TRUE(log->Contains("Abort"));
}

TEST_F(ProcessorFailures, OfTheReceiverInTheLastEventAreSwallowed) {
    events.GetScript().ThrowAt("onFinished", Failure("receiver"));
    RunToEnd();
    Release();
    EXPECT_EQ(events.GetMainEvents(), (Events{"onStarted", "onFinished"}));
}

TEST_F(ProcessorFailures, ComeWithNoOneHundredPercent) {
    muxer->ThrowAt("Finish", Failure("disk full"));
    RunToEnd();
    for (const auto& progress : events.GetProgress()) {
        EXPECT_LT(progress.percent, 100);
    }
}

} // namespace
} // namespace Kestra::Proc
