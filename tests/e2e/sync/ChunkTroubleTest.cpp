// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of an export of sound alone when a thread that encodes a chunk of it fails or hangs.
#include "WatchedJob.h"
#include "fakes/chunks/ChunkCalls.h"
#include "fakes/chunks/SoundChunks.h"
#include "fakes/kestra/Gate.h"
#include <QDir>
#include <atomic>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <stdexcept>
#include <thread>

using ExportCore::ExportOutcome;
using Kestra::Fakes::ChunkCalls;
using Kestra::Fakes::Gate;
using Kestra::Proc::TranscodingError;
using TestSupport::waitUntil;
using Status = ExportOutcome::Status;
using namespace std::chrono_literals;

namespace {

/// Twelve chunks on two threads.
class ChunkTrouble : public ::testing::Test, protected TestExport::WatchedJob {
protected:
    ChunkTrouble() {
        TestMedia::FlashBeep sound;
        sound.frames = 0;
        TestMedia::makeFlashBeep(media / "clip.wav", sound);
    }
    ~ChunkTrouble() override {
        gate->Open();
        job.reset();
        EXPECT_TRUE(waitUntil([] { return threads().isEmpty(); })) << threads().join(QLatin1Char(' ')).toStdString();
        EXPECT_EQ(workers.size(), 2U);
    }

    /// `action` is what happens to a thread at the frame of that number.
    void atFrame(int number, const std::function<void()>& action) {
        chunkCalls.emplace([this, number, action] {
            {
                const std::lock_guard<std::mutex> lock(mutex);
                workers.insert(std::this_thread::get_id());
            }
            if (frames++ == number)
                action();
        });
    }
    void start(const ExportCore::WatchdogLimits& limits) { WatchedJob::start(media / "clip.wav", "m4a-aac", limits); }
    /// The engine's, by their names.
    static QStringList threads() {
        QStringList names;
        for (const QString& thread :
             QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            const QByteArray name = TestFiles::read("/proc/self/task/" + thread.toStdString() + "/comm");
            if (name.startsWith("kestra-"))
                names << QString::fromUtf8(name.trimmed());
        }
        return names;
    }

    const TestMedia::Folder media;
    const Kestra::Fakes::ChunkedSound chunks{{16 * 1024, 2}};
    const std::shared_ptr<Gate> gate = std::make_shared<Gate>();
    std::atomic<int> frames{0};
    std::mutex mutex; ///< guards the next
    std::set<std::thread::id> workers;
    std::optional<ChunkCalls> chunkCalls;
};

TEST_F(ChunkTrouble, AThreadThatFailsFailsTheRunWithItsReason) {
    atFrame(100, [] { throw std::runtime_error("the coder broke"); });
    start({});
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_EQ(outcome.error.GetDescription(), "the coder broke");
    expectUntouched();
}

TEST_F(ChunkTrouble, AThreadThatThrowsNoExceptionOfTheStandardFailsTheRunToo) {
    atFrame(100, [] { throw 7; });
    start({});
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_FALSE(outcome.error.GetDescription().empty());
    expectUntouched();
}

TEST_F(ChunkTrouble, AThreadThatHangsIsAStall) {
    atFrame(100, [gate = gate] { gate->Pass(); });
    start({1h, 1s, 1h});
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_EQ(outcome.error.GetCode(), TranscodingError::Stalled);
    expectUntouched();
}

TEST_F(ChunkTrouble, AThreadThatHangsDoesNotKeepAStopFromItsEnd) {
    atFrame(100, [gate = gate] { gate->Pass(); });
    start({1h, 1h, 1h});
    ASSERT_TRUE(waitUntil([this] { return gate->WaitUntilReached(0ms); }));
    job->stop();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Stopped);
    expectUntouched();
}

TEST_F(ChunkTrouble, AThreadThatHangsDoesNotKeepTheJobFromItsDestruction) {
    atFrame(100, [gate = gate] { gate->Pass(); });
    start({1h, 1h, 1h});
    ASSERT_TRUE(waitUntil([this] { return gate->WaitUntilReached(0ms); }));
    job.reset();
    EXPECT_EQ(finishCount, 0);
    expectUntouched();
}

} // namespace
