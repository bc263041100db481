// What becomes of an export when the engine hangs or fails where it should not.
#include "ExportCore/ExportJob.h"
#include "Exported.h"
#include "Kestra/Core/CoreManager.h"
#include "fakes/kestra/FakeFactories.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/WaitUntil.h"
#include <gtest/gtest.h>
#include <stdexcept>

using ExportCore::ExportJob;
using ExportCore::ExportOutcome;
using ExportCore::ExportRequest;
using Kestra::Core::CoreManager;
using Kestra::Fakes::FakeMuxerFactory;
using Kestra::Fakes::Script;
using Kestra::Proc::TranscodingError;
using TestSupport::waitUntil;
using Status = ExportOutcome::Status;
using namespace std::chrono_literals;

namespace {

class EngineTrouble : public ::testing::Test {
protected:
    EngineTrouble() {
        TestFiles::write(output, "old");
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
        ExportRequest request = TestExport::requestOf(media / "clip.mov", "mp4-h264-480p", output);
        request.overwrite = true;
        request.limits = limits;
        job = std::make_unique<ExportJob>(request);
        QObject::connect(job.get(), &ExportJob::started, [this] { ++startCount; });
        QObject::connect(job.get(), &ExportJob::finished, [this](const ExportOutcome& result) {
            outcome = result;
            ++finishCount;
        });
        job->start();
    }
    bool waitForEnd() {
        const bool ended = waitUntil([this] { return finishCount > 0; });
        TestSupport::turnEventLoop();
        EXPECT_EQ(finishCount, 1);
        return ended;
    }
    void expectUntouched() const {
        EXPECT_EQ(TestFiles::read(output), "old");
        EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(QStringLiteral("film.mp4")));
    }

    const TestMedia::Folder media, place;
    const std::string output = place / "film.mp4";
    const std::shared_ptr<Script> script = std::make_shared<Script>();
    const std::shared_ptr<FakeMuxerFactory> factory = std::make_shared<FakeMuxerFactory>();
    std::unique_ptr<ExportJob> job;
    ExportOutcome outcome;
    int startCount = 0;
    int finishCount = 0;
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
    EXPECT_NE(outcome.error.GetDescription().find("film.mp4"), std::string::npos) << outcome.error.GetDescription();
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
