// SPDX-License-Identifier: GPL-3.0-or-later
// What an export does while its private file does not go.
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/IMuxerFactory.h"
#include "WatchedJob.h"
#include "fakes/kestra/FakeFactories.h"
#include <atomic>
#include <cstring>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <stdexcept>
#include <unistd.h>

using ExportCore::ExportOutcome;
using Kestra::Core::CoreManager;
using Kestra::Fakes::FakeMuxerFactory;
using Kestra::Fakes::Gate;
using Kestra::Fakes::Script;
using Kestra::Proc::TranscodingError;
using TestSupport::turnEventLoop;
using TestSupport::waitUntil;
using Status = ExportOutcome::Status;
using namespace std::chrono_literals;

namespace {

/// In front of the removal of private files.
struct Barrier {
    Gate gate;
    std::atomic<bool> reached{false};
};

/// Null while nothing is to hang. Shared: a thread may come out when the test is over.
std::shared_ptr<Barrier> barrier;

bool isOfARemoval() {
    char name[32] = {};
    pthread_getname_np(pthread_self(), name, sizeof name);
    return std::strcmp(name, "remove-output") == 0;
}

} // namespace

// Stands in front of the system's for every library of this program.
#pragma GCC visibility push(default)
extern "C" int unlink(const char* path) noexcept {
    if (const auto there = std::atomic_load(&barrier); there && isOfARemoval()) {
        there->reached = true;
        there->gate.Pass();
    }
    return unlinkat(AT_FDCWD, path, 0);
}
#pragma GCC visibility pop

namespace {

class HungRemoval : public ::testing::Test, protected TestExport::WatchedJob {
protected:
    HungRemoval() {
        TestMedia::makeFlashBeep(media / "clip.mov", {});
        factory->UseMuxerScript(script);
        CoreManager::Instance().SetMuxerFactory(factory);
        std::atomic_store(&barrier, removal);
    }
    ~HungRemoval() override {
        removal->gate.Open();
        script->OpenGates();
        job.reset();
        std::atomic_store(&barrier, std::shared_ptr<Barrier>());
        CoreManager::Instance().SetMuxerFactory(nullptr);
    }

    void start(const ExportCore::WatchdogLimits& limits = {}) {
        WatchedJob::start(media / "clip.mov", "mp4-h264-480p", limits);
    }
    /// It hangs until the event loop lets it go, which whoever waited for it would never come to.
    void expectEventLoopToTurnMeanwhile() {
        ASSERT_TRUE(waitUntil([this] { return removal->reached || finishCount > 0; }));
        turnEventLoop();
        EXPECT_EQ(finishCount, 0) << "the end is told when nothing is left";
        EXPECT_EQ(TestFiles::namesIn(place / "").size(), 2);
        job->stop(); // it is over
        job->fail(std::make_exception_ptr(std::runtime_error("too late")));
        removal->gate.Open();
        ASSERT_TRUE(waitForEnd());
        expectUntouched();
        EXPECT_EQ(outcome.warnings, QStringList()) << "nothing is left there";
    }

    const TestMedia::Folder media;
    const std::shared_ptr<Script> script = std::make_shared<Script>();
    const std::shared_ptr<FakeMuxerFactory> factory = std::make_shared<FakeMuxerFactory>();
    const std::shared_ptr<Barrier> removal = std::make_shared<Barrier>();
};

TEST_F(HungRemoval, KeepsNoEventWaitingAfterAStop) {
    script->BlockAt("Write 10");
    start();
    ASSERT_TRUE(waitUntil([this] { return startCount > 0; }));
    job->stop();
    script->OpenGates();
    expectEventLoopToTurnMeanwhile();
    EXPECT_EQ(outcome.status, Status::Stopped);
    EXPECT_EQ(outcome.error.GetDescription(), "");
}

TEST_F(HungRemoval, KeepsNoEventWaitingAfterAFailure) {
    script->BlockAt("Write 10");
    start();
    ASSERT_TRUE(waitUntil([this] { return startCount > 0; }));
    job->fail(std::make_exception_ptr(std::runtime_error("the tape broke")));
    script->OpenGates();
    expectEventLoopToTurnMeanwhile();
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_EQ(outcome.error.GetDescription(), "the tape broke");
}

TEST_F(HungRemoval, KeepsNoEventWaitingAfterAStall) {
    script->BlockAt("Write 10");
    start({1h, 300ms, 1h});
    expectEventLoopToTurnMeanwhile();
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_EQ(outcome.error.GetCode(), TranscodingError::Stalled);
}

} // namespace
