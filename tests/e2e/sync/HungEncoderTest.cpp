// SPDX-License-Identifier: GPL-3.0-or-later
// What the event loop does while an encoder, or the writing, hangs in a call that nothing interrupts.
#include "WatchedJob.h"
#include "fakes/kestra/FakeEngineParts.h"
#include "support/LoopWatch.h"
#include <algorithm>
#include <gtest/gtest.h>

using Kestra::Fakes::FakeEngineParts;
using Kestra::Fakes::Gate;
using Kestra::Proc::TranscodingError;
using TestSupport::LoopWatch;
using TestSupport::waitUntil;
using Status = ExportCore::ExportOutcome::Status;
using namespace std::chrono_literals;

namespace {

/// Where it hangs, and whether the run has started by then.
struct Hang {
    const char* at;
    bool started;
};

void PrintTo(const Hang& hang, std::ostream* stream) {
    *stream << hang.at;
}

class HungEncoder : public ::testing::TestWithParam<Hang>, protected TestExport::WatchedJob {
protected:
    HungEncoder() {
        TestMedia::makeFlashBeep(media / "clip.mov", {});
        for (const auto& script : {engine.encoders, engine.muxing})
            script->At(GetParam().at, [gate = gate] { gate->Pass(); });
    }
    ~HungEncoder() override {
        gate->Open();
        job.reset();
    }

    void start(const ExportCore::WatchdogLimits& limits) {
        WatchedJob::start(media / "clip.mov", "mp4-h264-480p", limits);
    }
    bool waitUntilHung() {
        return waitUntil([this] { return gate->WaitUntilReached(0ms) && (startCount > 0) == GetParam().started; });
    }
    /// Two seconds for what hangs: who waited for it here would be away as long.
    void expectEndToComeWhileTheLoopTurns(const LoopWatch& loop) {
        ASSERT_TRUE(waitForEnd());
        job.reset(); // which waits for nobody any more
        EXPECT_LT(loop.longestAway(), 1s) << loop.longestAway().count() << " ms";
        EXPECT_GE(loop.turns(), 24);
        expectUntouched();
    }

    const TestMedia::Folder media;
    const std::shared_ptr<Gate> gate = std::make_shared<Gate>();
    const FakeEngineParts engine;
};

TEST_P(HungEncoder, KeepsNoEventWaitingAfterAStop) {
    start({1h, 1h, 1s});
    ASSERT_TRUE(waitUntilHung());
    const LoopWatch loop;
    job->stop();
    expectEndToComeWhileTheLoopTurns(loop);
    EXPECT_EQ(outcome.status, Status::Stopped);
}

TEST_P(HungEncoder, KeepsNoEventWaitingAfterAStall) {
    start({3s, 3s, 1h}); // longer than a slow machine takes to get there
    ASSERT_TRUE(waitUntilHung());
    const LoopWatch loop;
    expectEndToComeWhileTheLoopTurns(loop);
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_EQ(outcome.error.GetCode(), TranscodingError::Stalled);
}

TEST_P(HungEncoder, IsWaitedForWhileTheJobIsDestroyedAndThenLeft) {
    start({1h, 1h, 1h});
    ASSERT_TRUE(waitUntilHung());
    const auto begin = std::chrono::steady_clock::now();
    job.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 8s) << "two seconds for what hangs";
    EXPECT_EQ(finishCount, 0);
    expectUntouched();
}

std::string nameOf(const testing::TestParamInfo<Hang>& testCase) {
    std::string name = testCase.param.at;
    name.erase(std::remove(name.begin(), name.end(), ' '), name.end());
    return name;
}

INSTANTIATE_TEST_SUITE_P(In, HungEncoder,
                         testing::Values(Hang{"Prepare", false}, Hang{"ReadRaw 5", true}, Hang{"Open", false},
                                         Hang{"Write 3", true}),
                         nameOf);

/// A run that goes on as slowly as it likes is no reason for the loop to be away, and its end is waited for.
TEST_P(HungEncoder, ThatComesOutAfterAllIsNotLeft) {
    start({1h, 1h, 1h});
    ASSERT_TRUE(waitUntilHung());
    job->stop();
    TestSupport::turnEventLoop(20);
    EXPECT_EQ(finishCount, 0);
    gate->Open();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Stopped);
    EXPECT_EQ(outcome.error.GetDescription(), "");
    expectUntouched();
}

} // namespace
