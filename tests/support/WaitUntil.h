// Turns of the event loop for tests.
#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>
#include <memory>

namespace TestSupport {

/// Runs the event loop until `condition` holds; false when the deadline, which only a hang reaches, passes first.
template <class Condition>
bool waitUntil(Condition condition, int deadlineMilliseconds = 1'000'000) {
    const QDeadlineTimer deadline(deadlineMilliseconds);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
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
