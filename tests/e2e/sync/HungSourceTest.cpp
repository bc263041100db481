// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of an export whose input hangs in a call that nothing interrupts, in a process that goes on.
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/IMuxerFactory.h"
#include "ScriptedSources.h"
#include "WatchedJob.h"
#include "fakes/chunks/ChunkCalls.h"
#include "fakes/chunks/SoundChunks.h"
#include "fakes/kestra/FakeFactories.h"
#include "support/LoopWatch.h"
#include <QElapsedTimer>
#include <gtest/gtest.h>
#include <optional>
#include <stdexcept>

using ExportCore::ExportOutcome;
using Kestra::Core::CoreManager;
using Kestra::Fakes::Script;
using Kestra::Proc::TranscodingError;
using TestExport::Hang;
using TestExport::SOUND_ALONE;
using TestSupport::LoopWatch;
using TestSupport::waitUntil;
using Status = ExportOutcome::Status;
using namespace std::chrono_literals;

namespace {

/// Sound alone is encoded in short chunks, which two threads hold until the source hangs.
class HungSource : public ::testing::TestWithParam<Hang>, protected TestExport::WatchedJob {
protected:
    static void SetUpTestSuite() {
        media = new TestMedia::Folder;
        TestMedia::FlashBeep flashBeep;
        flashBeep.frames = 250;
        TestMedia::makeFlashBeep(*media / "clip.mov", flashBeep);
    }
    static void TearDownTestSuite() { delete media; }

    HungSource() {
        CoreManager::Instance().SetSourceFactory(
            std::make_shared<TestExport::ScriptedSources>(*media / "clip.mov", calls));
        calls->script->At(GetParam().at, [gate = gate] { gate->Pass(); });
        if (GetParam().preset != SOUND_ALONE)
            return;
        chunks.emplace(Kestra::Fakes::SoundChunks{16 * 1024, 2});
        chunkCalls.emplace([this] {
            ++chunkFrames;
            gate->WaitUntilReached();
        });
    }
    ~HungSource() override {
        gate->Open();
        job.reset();
        EXPECT_TRUE(waitUntil([this] { return calls->under == 0; })) << "what was left comes out";
        EXPECT_EQ(chunkFrames > 0, chunks.has_value());
        CoreManager::Instance().SetMuxerFactory(nullptr);
        CoreManager::Instance().SetSourceFactory(nullptr);
    }

    void start(const ExportCore::WatchdogLimits& limits = {1h, 1h, 1h}, const char* preset = GetParam().preset) {
        WatchedJob::start(*media / "clip.mov", preset, limits);
    }
    /// The event loop goes on while a call hangs.
    bool waitUntilHung() {
        return waitUntil([this] { return gate->WaitUntilReached(0ms) && (!chunks || chunkFrames > 1); });
    }
    bool isInOpening() const { return GetParam().at == "open"; }
    void expectNamed(const std::string& text) const {
        EXPECT_NE(text.find("clip.mov\" does not come"), std::string::npos) << text;
    }

    /// What hangs is left after two seconds, and who waited for it on the event loop's thread would be away as long.
    static void expectLoopToHaveTurned(const LoopWatch& loop) {
        EXPECT_LT(loop.longestAway(), 1s) << loop.longestAway().count() << " ms";
        EXPECT_GE(loop.turns(), 24);
    }

    static TestMedia::Folder* media;
    const std::shared_ptr<TestExport::Calls> calls = std::make_shared<TestExport::Calls>();
    const std::shared_ptr<Kestra::Fakes::Gate> gate = std::make_shared<Kestra::Fakes::Gate>();
    std::atomic<int> chunkFrames{0};
    std::optional<Kestra::Fakes::ChunkedSound> chunks;
    std::optional<Kestra::Fakes::ChunkCalls> chunkCalls;
};

TestMedia::Folder* HungSource::media = nullptr;

TEST_P(HungSource, DoesNotKeepAStopFromItsEndAndIsNamed) {
    start({1h, 1h, 1s});
    ASSERT_TRUE(waitUntilHung());
    const LoopWatch loop;
    job->stop();
    ASSERT_TRUE(waitForEnd());
    job.reset();
    expectLoopToHaveTurned(loop);
    EXPECT_EQ(outcome.status, Status::Stopped);
    EXPECT_EQ(outcome.error.GetCode(), TranscodingError::Stalled);
    expectNamed(outcome.error.GetDescription());
    expectUntouched();
}

TEST_P(HungSource, DoesNotKeepAFailureFromItsEndAndIsTold) {
    start({1h, 1h, 1s});
    ASSERT_TRUE(waitUntilHung());
    const LoopWatch loop;
    job->fail(std::make_exception_ptr(std::runtime_error("another thing broke")));
    ASSERT_TRUE(waitForEnd());
    job.reset();
    expectLoopToHaveTurned(loop);
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_EQ(outcome.error.GetDescription(), "another thing broke");
    expectUntouched();
}

TEST_P(HungSource, DoesNotKeepTheJobFromItsDestruction) {
    start();
    ASSERT_TRUE(waitUntilHung());
    QElapsedTimer clock;
    clock.start();
    job.reset();
    EXPECT_LT(clock.elapsed(), 8000) << "two seconds for what hangs";
    EXPECT_EQ(finishCount, 0);
    expectUntouched();
}

TEST_P(HungSource, IsAStallThatIsNamed) {
    const LoopWatch loop;
    start({5s, 5s, 1h}); // longer than a slow machine takes to get there
    ASSERT_TRUE(waitForEnd());
    job.reset();
    expectLoopToHaveTurned(loop);
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_EQ(outcome.error.GetCode(), TranscodingError::Stalled);
    expectNamed(outcome.error.GetDescription());
    expectUntouched();
    if (isInOpening()) {
        ASSERT_TRUE(calls->interruption.load());
        EXPECT_TRUE(*calls->interruption.load()) << "an opening that comes back goes on with nothing";
    }
}

class HungFirstPass : public HungSource {};

TEST_P(HungFirstPass, StartsNothingAnewWhenItComesBackAfterTheEnd) {
    constexpr int secondPass = 4000; // milliseconds, in which it would have begun
    start({5s, 5s, 1h}, "mp4-mpeg4-720p-2pass");
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.error.GetCode(), TranscodingError::Stalled);
    gate->Open();
    EXPECT_FALSE(waitUntil([this] { return TestFiles::namesIn(place / "").size() > 1; }, secondPass));
    expectUntouched();
}

TEST_P(HungSource, DoesNotKeepTheOutputsFailureFromItsEnd) {
    const std::string& hung = GetParam().at;
    if (hung != "picture 60" && hung != "sound 100")
        GTEST_SKIP() << "nothing is written before";
    const auto script = std::make_shared<Script>();
    const auto muxers = std::make_shared<Kestra::Fakes::FakeMuxerFactory>();
    // Not before: a failure interrupts the reads, which would never come to where they hang.
    script->At("Write 10", [gate = gate] {
        gate->WaitUntilReached();
        throw std::runtime_error("the tape broke");
    });
    muxers->UseMuxerScript(script);
    CoreManager::Instance().SetMuxerFactory(muxers);
    start();
    ASSERT_TRUE(waitUntilHung());
    const LoopWatch loop;
    ASSERT_TRUE(waitForEnd());
    job.reset();
    expectLoopToHaveTurned(loop);
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_EQ(outcome.error.GetDescription(), "the tape broke");
    ASSERT_FALSE(outcome.warnings.isEmpty());
    expectNamed(outcome.warnings.last().toStdString());
    expectUntouched();
}

INSTANTIATE_TEST_SUITE_P(In, HungFirstPass, testing::Values(Hang{"picture 60"}), TestExport::nameOf);

INSTANTIATE_TEST_SUITE_P(In, HungSource,
                         testing::Values(Hang{"open"}, Hang{"prepare picture "}, Hang{"sound 0"}, Hang{"picture 60"},
                                         Hang{"sound 100"}, Hang{"close picture "}, Hang{"close sound "},
                                         Hang{"sound 100", SOUND_ALONE}),
                         TestExport::nameOf);

} // namespace
