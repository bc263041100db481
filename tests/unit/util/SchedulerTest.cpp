// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Util/Scheduler.h"
#include "support/TimerCatcher.h"
#include "support/WaitUntil.h"
#include <QElapsedTimer>
#include <QThread>
#include <atomic>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

using TestSupport::TimerCatcher;
using TestSupport::turnEventLoop;
using TestSupport::waitUntil;

namespace {

class Target {
public:
    using Scheduler = Kestra::Util::Scheduler<Target>;

    explicit Target(std::int32_t state = Scheduler::ARMED, std::int32_t interval = 0)
        : scheduler(std::make_unique<Scheduler>(this, &Target::called, state, interval)) {}

    void called() {
        ++calls;
        thread = QThread::currentThread();
        if (duringCall)
            duringCall();
    }

    int calls = 0;
    QThread* thread = nullptr;
    std::function<void()> duringCall;
    std::unique_ptr<Scheduler> scheduler;
};

/// A way to a private member: explicit instantiations may name it.
template <auto Member>
struct Reveal {
    friend std::atomic<std::int32_t>& stateOf(Target::Scheduler& scheduler) { return scheduler.*Member; }
};
std::atomic<std::int32_t>& stateOf(Target::Scheduler& scheduler);
template struct Reveal<&Target::Scheduler::state>;

/// Writes down which of the objects that it watches gets an event, in order.
class Order : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::User)
            receivers.push_back(watched);
        return false;
    }

    std::vector<QObject*> receivers;
};

/// Counts the events that a scheduler is sent for its requests.
class RequestCounter : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override {
        requests += event->type() == 1000 ? 1 : 0;
        return false;
    }

    int requests = 0;
};

} // namespace

TEST(Scheduler, PostsOneEventForManyRequests) {
    RequestCounter counter;
    Target target;
    target.scheduler->installEventFilter(&counter);
    for (int request = 0; request < 10; ++request)
        target.scheduler->schedule();
    EXPECT_TRUE(waitUntil([&] { return target.calls > 0; }));
    turnEventLoop();
    EXPECT_EQ(counter.requests, 1);
}

TEST(Scheduler, MakesOneCallOfManyRequests) {
    Target target;
    for (int request = 0; request < 10; ++request)
        target.scheduler->schedule();
    EXPECT_TRUE(waitUntil([&] { return target.calls > 0; }));
    turnEventLoop();
    EXPECT_EQ(target.calls, 1);
}

TEST(Scheduler, CallsNothingUnasked) {
    Target target;
    turnEventLoop();
    EXPECT_EQ(target.calls, 0);
}

TEST(Scheduler, CallsTwoEventLoopPassesAfterTheRequest) {
    Target target;
    target.scheduler->schedule();
    EXPECT_EQ(target.calls, 0) << "the request itself calls nothing";
    QCoreApplication::sendPostedEvents(target.scheduler.get());
    EXPECT_EQ(target.calls, 0) << "the posted event only starts the timer";
    EXPECT_TRUE(waitUntil([&] { return target.calls == 1; }));
}

TEST(Scheduler, TakesRequestsBetweenEventAndTimerAsTheSame) {
    Target target;
    target.scheduler->schedule();
    QCoreApplication::sendPostedEvents(target.scheduler.get());
    target.scheduler->schedule();
    EXPECT_TRUE(waitUntil([&] { return target.calls > 0; }));
    turnEventLoop();
    EXPECT_EQ(target.calls, 1);
}

TEST(Scheduler, StaysArmedAfterACall) {
    Target target;
    for (int round = 1; round <= 3; ++round) {
        target.scheduler->schedule();
        EXPECT_TRUE(waitUntil([&] { return target.calls == round; }));
    }
}

TEST(Scheduler, AcceptsARequestMadeDuringTheCall) {
    Target target;
    target.duringCall = [&] {
        if (target.calls == 1)
            target.scheduler->schedule();
    };
    target.scheduler->schedule();
    EXPECT_TRUE(waitUntil([&] { return target.calls == 2; }));
    turnEventLoop();
    EXPECT_EQ(target.calls, 2);
}

TEST(Scheduler, IgnoresRequestsWhileDisarmed) {
    Target target(0);
    target.scheduler->schedule();
    turnEventLoop();
    EXPECT_EQ(target.calls, 0);
}

TEST(Scheduler, PostsNothingWhileDisarmed) {
    RequestCounter counter;
    Target target(0);
    target.scheduler->installEventFilter(&counter);
    target.scheduler->schedule();
    target.scheduler->schedule();
    turnEventLoop();
    EXPECT_EQ(counter.requests, 0);
    EXPECT_EQ(stateOf(*target.scheduler), 0);
}

TEST(Scheduler, DropsAPendingMarkWithoutBeingArmed) {
    Target target(Target::Scheduler::PENDING);
    QCoreApplication::postEvent(target.scheduler.get(), new QEvent(QEvent::User));
    turnEventLoop();
    EXPECT_EQ(target.calls, 0);
    EXPECT_EQ(stateOf(*target.scheduler), 0);
}

TEST(Scheduler, MarksARequestUntilItsCall) {
    Target target;
    int during = 0;
    target.duringCall = [&] { during = stateOf(*target.scheduler); };
    EXPECT_EQ(stateOf(*target.scheduler), Target::Scheduler::ARMED);
    target.scheduler->schedule();
    EXPECT_EQ(stateOf(*target.scheduler), Target::Scheduler::ARMED | Target::Scheduler::PENDING);
    EXPECT_TRUE(waitUntil([&] { return target.calls == 1; }));
    EXPECT_EQ(during, Target::Scheduler::ARMED) << "a request during the call counts";
}

TEST(Scheduler, PostsAmongOtherEventsInTheirOrder) {
    Order order;
    QObject before, after;
    Target target;
    for (QObject* watched : {&before, static_cast<QObject*>(target.scheduler.get()), &after})
        watched->installEventFilter(&order);
    QCoreApplication::postEvent(&before, new QEvent(QEvent::User));
    target.scheduler->schedule();
    QCoreApplication::postEvent(&after, new QEvent(QEvent::User));
    turnEventLoop();
    EXPECT_EQ(order.receivers, (std::vector<QObject*>{&before, target.scheduler.get(), &after}));
}

TEST(Scheduler, StartsNoSecondTimerWhileOneRuns) {
    Target target;
    target.scheduler->schedule();
    QCoreApplication::sendPostedEvents(target.scheduler.get());
    QCoreApplication::postEvent(target.scheduler.get(), new QEvent(QEvent::User));
    QCoreApplication::sendPostedEvents(target.scheduler.get());
    turnEventLoop();
    EXPECT_EQ(target.calls, 1);
}

TEST(Scheduler, IgnoresAnEventThatNobodyScheduled) {
    Target target;
    QCoreApplication::postEvent(target.scheduler.get(), new QEvent(QEvent::User));
    turnEventLoop();
    EXPECT_EQ(target.calls, 0);
}

TEST(Scheduler, WaitsForItsInterval) {
    constexpr int INTERVAL = 100;
    Target target(Target::Scheduler::ARMED, INTERVAL);
    QElapsedTimer clock;
    clock.start();
    target.scheduler->schedule();
    EXPECT_TRUE(waitUntil([&] { return target.calls == 1; }));
    // A coarse timer may be early by a twentieth.
    EXPECT_GE(clock.elapsed(), INTERVAL * 19 / 20 - 1);
}

TEST(Scheduler, CallsOnItsOwnThreadWhoeverAsks) {
    Target target;
    std::thread asking([&] {
        for (int request = 0; request < 100; ++request)
            target.scheduler->schedule();
    });
    asking.join();
    EXPECT_TRUE(waitUntil([&] { return target.calls > 0; }));
    EXPECT_EQ(target.thread, QThread::currentThread());
    turnEventLoop();
    EXPECT_EQ(target.calls, 1);
}

TEST(Scheduler, DestroyedWithAPostedEventCallsNothing) {
    Target target;
    target.scheduler->schedule();
    target.scheduler.reset();
    turnEventLoop();
    EXPECT_EQ(target.calls, 0);
}

TEST(Scheduler, DestroyedWithARunningTimerCallsNothing) {
    Target target;
    target.scheduler->schedule();
    QCoreApplication::sendPostedEvents(target.scheduler.get());
    target.scheduler.reset();
    turnEventLoop();
    EXPECT_EQ(target.calls, 0);
}

TEST(Scheduler, MayBeDestroyedByTheCall) {
    Target target;
    target.duringCall = [&] { target.scheduler.reset(); };
    target.scheduler->schedule();
    EXPECT_TRUE(waitUntil([&] { return target.calls == 1; }));
    turnEventLoop();
}

TEST(Scheduler, LetsTheCallsExceptionOutAndWorksAgain) {
    TimerCatcher catcher;
    Target target;
    target.duringCall = [&] {
        if (target.calls == 1)
            throw std::runtime_error("from the call");
    };
    target.scheduler->schedule();
    ASSERT_TRUE(waitUntil([&] { return catcher.caught != nullptr; }));
    EXPECT_THROW(std::rethrow_exception(catcher.caught), std::runtime_error);
    target.scheduler->schedule();
    EXPECT_TRUE(waitUntil([&] { return target.calls == 2; }));
}
