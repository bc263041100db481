// SPDX-License-Identifier: GPL-3.0-or-later
// Turns of the event loop for tests.
#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>
#include <memory>

namespace TestSupport {

/// Sleeps until there is an event, which it handles, or for a millisecond: a condition may come true without one.
inline void waitForAnEvent() {
    QTimer tick;
    tick.start(1);
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

/// Runs the event loop until `condition` holds; false when the deadline, which only a hang reaches, passes first.
template <class Condition>
bool waitUntil(Condition condition, int deadlineMilliseconds = 1'000'000) {
    const QDeadlineTimer deadline(deadlineMilliseconds);
    // Asked only when nothing is due any more; whoever asked all the time would take a processor from what is awaited.
    for (bool idle = false; !condition(); idle = true) {
        if (deadline.hasExpired())
            return false;
        if (idle)
            waitForAnEvent();
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    }
    return true;
}

/// Runs everything that is due now, and what that makes due, as far as `turns` goes: posted events, then zero timers.
inline void turnEventLoop(int turns = 6) {
    for (int turn = 0; turn < turns; ++turn) {
        // Shared, as the call outlives this one when an exception leaves the event loop.
        const auto ended = std::make_shared<bool>(false);
        QTimer::singleShot(0, [ended] { *ended = true; });
        waitUntil([&ended] { return *ended; });
    }
}

} // namespace TestSupport
