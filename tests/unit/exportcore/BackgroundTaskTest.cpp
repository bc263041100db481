// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/BackgroundTask.h"
#include "fakes/kestra/Gate.h"
#include "support/WaitUntil.h"
#include <gtest/gtest.h>
#include <pthread.h>
#include <stdexcept>

using ExportCore::BackgroundTask;
using Kestra::Fakes::Gate;
using TestSupport::waitUntil;

namespace {

struct Ended {
    explicit Ended(BackgroundTask& task) {
        QObject::connect(&task, &BackgroundTask::finished, [this](const std::exception_ptr& result) {
            error = result;
            ++count;
        });
    }
    bool wait() {
        return waitUntil([this] { return count > 0; });
    }
    std::exception_ptr error;
    int count = 0;
};

TEST(BackgroundTask, RunsOnAnotherThreadAndTellsItsEndInTheEventLoop) {
    std::thread::id worker;
    char name[32] = {};
    BackgroundTask task("a-task", [&](const std::atomic<bool>&) {
        worker = std::this_thread::get_id();
        pthread_getname_np(pthread_self(), name, sizeof name);
    });
    Ended ended(task);
    EXPECT_FALSE(task.isRunning());
    task.start();
    EXPECT_TRUE(task.isRunning());
    ASSERT_TRUE(ended.wait());
    EXPECT_FALSE(task.isRunning());
    EXPECT_FALSE(ended.error);
    EXPECT_NE(worker, std::this_thread::get_id());
    EXPECT_STREQ(name, "a-task");
}

TEST(BackgroundTask, TellsWhatTheWorkThrew) {
    BackgroundTask task("a-task", [](const std::atomic<bool>&) { throw std::runtime_error("no"); });
    Ended ended(task);
    task.start();
    ASSERT_TRUE(ended.wait());
    ASSERT_TRUE(ended.error);
    EXPECT_THROW(std::rethrow_exception(ended.error), std::runtime_error);
}

TEST(BackgroundTask, AsksTheWorkToComeToAnEndWhenItIsInterruptedAndWhenItGoes) {
    for (const bool byHand : {true, false}) {
        auto task = std::make_unique<BackgroundTask>("a-task", [](const std::atomic<bool>& interrupted) {
            while (!interrupted)
                std::this_thread::yield();
        });
        Ended ended(*task);
        task->start();
        if (byHand) {
            task->interrupt();
            EXPECT_TRUE(ended.wait());
        }
        task.reset();
        EXPECT_EQ(ended.count, byHand ? 1 : 0);
    }
}

TEST(BackgroundTask, LeavesWorkThatHangsWithWhatItHolds) {
    const auto gate = std::make_shared<Gate>();
    auto token = std::make_shared<int>(0);
    const std::weak_ptr<int> held = token;
    auto task = std::make_unique<BackgroundTask>("a-task", [gate, token](const std::atomic<bool>&) {
        gate->Pass();
        ++*token;
    });
    token.reset();
    Ended ended(*task);
    task->start();
    ASSERT_TRUE(gate->WaitUntilReached());
    task.reset();
    EXPECT_FALSE(held.expired()) << "the thread that hangs holds it";
    gate->Open();
    EXPECT_TRUE(waitUntil([&] { return held.expired(); }));
    EXPECT_EQ(ended.count, 0);
}

TEST(BackgroundTask, ShowsLifeWhileItComputesAndNoneWhileItHangs) {
    const auto gate = std::make_shared<Gate>();
    const auto computing = std::make_shared<std::atomic<bool>>(true);
    BackgroundTask task("a-task", [gate, computing](const std::atomic<bool>&) {
        while (*computing)
            std::this_thread::yield();
        gate->Pass();
    });
    int signs = 0;
    QObject::connect(&task, &BackgroundTask::alive, [&signs] { ++signs; });
    task.start();
    EXPECT_TRUE(waitUntil([&] { return signs >= 3; }));
    *computing = false;
    ASSERT_TRUE(gate->WaitUntilReached());
    TestSupport::waitUntil([] { return false; }, 1200); // what was computed before is told by then
    signs = 0;
    TestSupport::waitUntil([] { return false; }, 2000);
    EXPECT_EQ(signs, 0);
    gate->Open();
}

} // namespace
