// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of an export when the engine hangs or fails where it should not.
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/IMuxerFactory.h"
#include "WatchedJob.h"
#include "fakes/kestra/FakeFactories.h"
#include <gtest/gtest.h>
#include <stdexcept>

using ExportCore::ExportOutcome;
using Kestra::Core::CoreManager;
using Kestra::Fakes::FakeMuxerFactory;
using Kestra::Fakes::Script;
using Kestra::Proc::TranscodingError;
using TestSupport::waitUntil;
using Status = ExportOutcome::Status;
using namespace std::chrono_literals;

namespace {

class EngineTrouble : public ::testing::Test, protected TestExport::WatchedJob {
protected:
    EngineTrouble() {
        TestMedia::makeFlashBeep(media / "clip.mov", {});
        factory->UseMuxerScript(script);
        CoreManager::Instance().SetMuxerFactory(factory);
    }
    ~EngineTrouble() override {
        script->OpenGates();
        job.reset();
        CoreManager::Instance().SetMuxerFactory(nullptr);
    }

    void start(const ExportCore::WatchdogLimits& limits) {
        WatchedJob::start(media / "clip.mov", "mp4-h264-480p", limits);
    }

    const TestMedia::Folder media;
    const std::shared_ptr<Script> script = std::make_shared<Script>();
    const std::shared_ptr<FakeMuxerFactory> factory = std::make_shared<FakeMuxerFactory>();
};

TEST_F(EngineTrouble, AMuxerThatHangsWhileWritingIsAStall) {
    script->BlockAt("Write 10");
    start({1h, 300ms, 1h});
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(startCount, 1);
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_EQ(outcome.error.GetCode(), TranscodingError::Stalled);
    EXPECT_NE(outcome.error.GetDescription().find("no progress for 1 s"), std::string::npos)
        << outcome.error.GetDescription();
    expectUntouched();
}

TEST_F(EngineTrouble, AMuxerThatHangsWhileStoppingIsAStoppedRunWithAMark) {
    const auto gate = script->BlockAt("Write 10");
    start({1h, 1h, 200ms});
    ASSERT_TRUE(waitUntil([this] { return startCount > 0; }));
    ASSERT_TRUE(gate->WaitUntilReached());
    job->stop();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Stopped);
    EXPECT_EQ(outcome.error.GetCode(), TranscodingError::Stalled);
    expectUntouched();
}

TEST_F(EngineTrouble, AMuxerThatFailsFailsTheRun) {
    script->ThrowAt("Write 10", std::make_exception_ptr(std::runtime_error("the tape broke")));
    start({});
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_EQ(outcome.error.GetDescription(), "the tape broke");
    expectUntouched();
}

TEST_F(EngineTrouble, AnEmptyFileThatIsCalledFinishedIsFoundOut) {
    // The fake muxer writes nothing and is content.
    start({});
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_EQ(outcome.error.GetCode(), TranscodingError::OutputFailed);
    EXPECT_NE(outcome.error.GetDescription().find("/film"), std::string::npos) << outcome.error.GetDescription();
    expectUntouched();
}

TEST_F(EngineTrouble, ACodecThatHangsBeforeTheStartIsAStall) {
    script->BlockAt("Open");
    start({300ms, 1h, 1h});
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(startCount, 0);
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_EQ(outcome.error.GetCode(), TranscodingError::Stalled);
    EXPECT_NE(outcome.error.GetDescription().find("did not start within"), std::string::npos)
        << outcome.error.GetDescription();
    expectUntouched();
}

} // namespace
