// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Util::Scheduler: many requests between two turns of the event loop become one deferred call.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QTimerEvent>
#include <atomic>
#include <cstdint>

namespace Kestra::Util {

/// Calls `(target->*method)()` on its own thread two event-loop passes after the first schedule() that follows an idle
/// moment: a posted event starts a timer of `interval` milliseconds, whose end makes the call. The target is borrowed
/// and must outlive the scheduler; the call may destroy the scheduler. An exception of the call leaves through the
/// event loop.
template <class T>
class Scheduler : public QObject {
public:
    using Method = void (T::*)();

    static constexpr std::int32_t ARMED = 2;   ///< calls may reach the target
    static constexpr std::int32_t PENDING = 4; ///< a call is under way
    static constexpr int EVENT_TYPE = QEvent::User;

    /// `initialState` is ARMED for a working scheduler, 0 for one that drops every request.
    Scheduler(T* callTarget, Method callMethod, std::int32_t initialState, std::int32_t intervalMilliseconds)
        : target(callTarget)
        , method(callMethod)
        , state(initialState)
        , interval(intervalMilliseconds) {}

    /// Thread-safe. Does nothing while a call is pending or the scheduler is disarmed.
    void schedule() {
        if (exchange(ARMED, ARMED | PENDING)) {
            QCoreApplication::postEvent(this, new QEvent(static_cast<QEvent::Type>(EVENT_TYPE)),
                                        Qt::NormalEventPriority);
        }
    }

protected:
    void customEvent(QEvent*) override {
        if (exchange(ARMED | PENDING, ARMED | PENDING) && timerId == 0) {
            timerId = startTimer(interval, Qt::CoarseTimer);
        } else {
            exchange(PENDING, 0);
        }
    }

    void timerEvent(QTimerEvent*) override {
        killTimer(timerId);
        timerId = 0;
        if ((clearPending() & ARMED) != 0) {
            // Last statement: the target may destroy this scheduler.
            (target->*method)();
        }
    }

private:
    bool exchange(std::int32_t expected, std::int32_t desired) {
        return state.compare_exchange_strong(expected, desired);
    }

    /// Returns the state before.
    std::int32_t clearPending() {
        std::int32_t before = state.load();
        while (!state.compare_exchange_weak(before, before & ~PENDING)) {
        }
        return before;
    }

    T* target;
    Method method;
    std::atomic<std::int32_t> state;
    std::int32_t interval;
    std::int32_t timerId = 0;
};

} // namespace Kestra::Util
