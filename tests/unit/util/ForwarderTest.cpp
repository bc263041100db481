// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Util/FunctorExecutionForwarder.h"
#include "support/WaitUntil.h"
#include <QEventLoop>
#include <QThread>
#include <atomic>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

using Kestra::Util::FunctorExecutionForwarder;
using TestSupport::turnEventLoop;
using TestSupport::waitUntil;

TEST(Forwarder, QueuesAlsoOnTheOwnersThread) {
    FunctorExecutionForwarder forwarder;
    bool ran = false;
    forwarder.Forward([&] { ran = true; });
    EXPECT_FALSE(ran);
    EXPECT_TRUE(waitUntil([&] { return ran; }));
}

TEST(Forwarder, KeepsTheOrderOfCallsFromEachThread) {
    constexpr int THREADS = 4;
    constexpr int CALLS = 500;
    FunctorExecutionForwarder forwarder;
    std::vector<std::vector<int>> seen(THREADS);
    std::vector<std::thread> threads;
    for (int thread = 0; thread < THREADS; ++thread) {
        threads.emplace_back([&forwarder, &seen, thread] {
            for (int call = 0; call < CALLS; ++call)
                forwarder.Forward([&seen, thread, call] { seen[static_cast<std::size_t>(thread)].push_back(call); });
        });
    }
    for (auto& thread : threads)
        thread.join();
    std::vector<int> expected;
    for (int call = 0; call < CALLS; ++call)
        expected.push_back(call);
    waitUntil([&] {
        std::size_t ran = 0;
        for (const auto& calls : seen)
            ran += calls.size();
        return ran == THREADS * CALLS;
    });
    for (const auto& calls : seen)
        EXPECT_EQ(calls, expected);
}

TEST(Forwarder, RunsFunctorsOnTheThreadThatMadeIt) {
    FunctorExecutionForwarder forwarder;
    std::thread::id ranOn;
    std::thread caller([&] { forwarder.Forward([&] { ranOn = std::this_thread::get_id(); }); });
    caller.join();
    ASSERT_TRUE(waitUntil([&] { return ranOn != std::thread::id(); }));
    EXPECT_EQ(ranOn, std::this_thread::get_id());
}

TEST(Forwarder, ServesAThreadOtherThanTheMainOne) {
    std::atomic<QThread*> ranOn{nullptr};
    std::unique_ptr<QThread> owner(QThread::create([&] {
        FunctorExecutionForwarder forwarder;
        QEventLoop loop;
        forwarder.Forward([&] {
            ranOn = QThread::currentThread();
            loop.quit();
        });
        loop.exec();
    }));
    owner->start();
    ASSERT_TRUE(owner->wait(20'000));
    EXPECT_EQ(ranOn, owner.get());
}

TEST(Forwarder, RunsNothingAfterItsDestruction) {
    bool ran = false;
    {
        FunctorExecutionForwarder forwarder;
        forwarder.Forward([&] { ran = true; });
    }
    turnEventLoop();
    EXPECT_FALSE(ran);
}

TEST(Forwarder, ReleasesFunctorsThatNeverRan) {
    auto held = std::make_shared<int>(1);
    {
        FunctorExecutionForwarder forwarder;
        forwarder.Forward([held] {});
        EXPECT_EQ(held.use_count(), 2);
    }
    EXPECT_EQ(held.use_count(), 1);
}

TEST(Forwarder, MayBeDestroyedByItsOwnFunctor) {
    auto forwarder = std::make_unique<FunctorExecutionForwarder>();
    bool second = false;
    forwarder->Forward([&] { forwarder.reset(); });
    forwarder->Forward([&] { second = true; });
    ASSERT_TRUE(waitUntil([&] { return !forwarder; }));
    turnEventLoop();
    EXPECT_FALSE(second);
}

TEST(Forwarder, ForwardsFromWithinAFunctorBehindWhatWaits) {
    FunctorExecutionForwarder forwarder;
    std::vector<int> order;
    forwarder.Forward([&] {
        forwarder.Forward([&] { order.push_back(3); });
        order.push_back(1);
    });
    forwarder.Forward([&] { order.push_back(2); });
    EXPECT_TRUE(waitUntil([&] { return order.size() == 3; }));
    EXPECT_EQ(order, (std::vector<int>{1, 2, 3}));
}

TEST(Forwarder, LetsExceptionsOutAndGoesOnWithTheNextFunctor) {
    FunctorExecutionForwarder forwarder;
    bool second = false;
    forwarder.Forward([] { throw std::runtime_error("from a functor"); });
    forwarder.Forward([&] { second = true; });
    EXPECT_THROW(QCoreApplication::sendPostedEvents(), std::runtime_error);
    EXPECT_TRUE(waitUntil([&] { return second; }));
}
