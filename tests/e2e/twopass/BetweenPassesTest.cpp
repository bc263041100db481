// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of an export when the engine hangs or fails from one pass to the next.
#include "WatchedJob.h"
#include "fakes/kestra/FakeEngineParts.h"
#include <atomic>
#include <gtest/gtest.h>
#include <stdexcept>

using ExportCore::ExportOutcome;
using Kestra::Fakes::FakeEngineParts;
using Kestra::Fakes::Gate;
using Kestra::Proc::TranscodingError;
using TestSupport::waitUntil;
using Status = ExportOutcome::Status;
using namespace std::chrono_literals;

namespace {

/// The encoders' calls happen on the engine's threads, the factories' on this one.
class BetweenPasses : public ::testing::Test, protected TestExport::WatchedJob {
protected:
    BetweenPasses() { TestMedia::makeFlashBeep(media / "clip.mov", {}); }
    ~BetweenPasses() override {
        gate.Open();
        job.reset();
    }

    void start(const ExportCore::WatchdogLimits& limits) {
        WatchedJob::start(media / "clip.mov", "mp4-h264-1080p-2pass", limits);
    }
    /// As an application's event loop does: what a handler throws becomes the run's failure.
    bool waitForEnd() {
        while (finishCount == 0) {
            try {
                return WatchedJob::waitForEnd();
            } catch (...) {
                job->fail(std::current_exception());
            }
        }
        return true;
    }
    /// In the second pass three encoders have been made: video, and then video and audio.
    void atSecondPrepare(const std::function<void()>& action) {
        engine.encoders->At("Prepare", [this, action] {
            if (++prepared == 2)
                action();
        });
    }

    const TestMedia::Folder media;
    const FakeEngineParts engine;
    std::atomic<int> prepared{0};
    Gate gate;
};

TEST_F(BetweenPasses, AnEncoderThatHangsBeforeTheSecondPassBeginsIsAStall) {
    atSecondPrepare([this] { gate.Pass(); });
    start({1h, 500ms, 1h});
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(engine.codecs->GetMade().size(), 3U);
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_EQ(outcome.error.GetCode(), TranscodingError::Stalled);
    EXPECT_NE(outcome.error.GetDescription().find("no progress"), std::string::npos) << outcome.error.GetDescription();
    expectUntouched();
}

TEST_F(BetweenPasses, AStopWhileTheSecondPassPreparesIsAStop) {
    atSecondPrepare([this] { gate.Pass(); });
    start({1h, 1h, 10s});
    ASSERT_TRUE(waitUntil([this] { return prepared >= 2; }));
    job->stop();
    gate.Open();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Stopped);
    expectUntouched();
}

TEST_F(BetweenPasses, AnEncoderThatCannotBeMadeForTheSecondPassFailsTheRun) {
    int made = 0;
    engine.codecs->GetScript().At("CreateVideoEncoder", [&] {
        if (++made == 2)
            throw std::runtime_error("no second encoder");
    });
    start({});
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_EQ(outcome.error.GetDescription(), "no second encoder");
    expectUntouched();
}

TEST_F(BetweenPasses, AMuxerThatCannotBeMadeForTheSecondPassFailsTheRun) {
    engine.muxers->GetScript().ThrowAt("CreateMuxer", std::make_exception_ptr(std::runtime_error("no muxer")));
    start({});
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_EQ(outcome.error.GetDescription(), "no muxer");
    expectUntouched();
}

TEST_F(BetweenPasses, AnEncoderThatFailsInTheFirstPassEndsTheRunThere) {
    engine.encoders->ThrowAt("ReadRaw 5", std::make_exception_ptr(std::runtime_error("the first pass broke")));
    start({});
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_EQ(outcome.error.GetDescription(), "the first pass broke");
    EXPECT_EQ(engine.codecs->GetMade().size(), 1U);
    expectUntouched();
}

TEST_F(BetweenPasses, AnEncoderThatFailsInTheSecondPassFailsTheRun) {
    atSecondPrepare([] { throw std::runtime_error("the second pass broke"); });
    start({});
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_EQ(outcome.error.GetDescription(), "the second pass broke");
    expectUntouched();
}

} // namespace
