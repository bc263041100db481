// SPDX-License-Identifier: GPL-3.0-or-later
// How long the event loop of a test's thread is away.
#pragma once

#include <QObject>
#include <QTimerEvent>
#include <algorithm>
#include <chrono>

namespace TestSupport {

/// Counts turns of the event loop that are at least so far apart, and measures, on the wall, the longest time without
/// one. What a test does between its own turns of the loop counts as well.
class LoopWatch : public QObject {
public:
    static constexpr std::chrono::milliseconds STEP{10};

    LoopWatch() { startTimer(STEP, Qt::PreciseTimer); }

    int turns() const { return count; }
    std::chrono::milliseconds longestAway() const {
        return std::chrono::duration_cast<std::chrono::milliseconds>(std::max(longest, Clock::now() - last));
    }

protected:
    void timerEvent(QTimerEvent*) override {
        const Clock::time_point now = Clock::now();
        longest = std::max(longest, now - last);
        last = now;
        ++count;
    }

private:
    using Clock = std::chrono::steady_clock;

    Clock::time_point last = Clock::now();
    Clock::duration longest{0};
    int count = 0;
};

} // namespace TestSupport
