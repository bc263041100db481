// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/Watchdog.h"
#include <algorithm>

namespace ExportCore {
namespace {

// A limit is counted in parts: a process that was suspended for long wakes up to one overdue part, not to a stall.
constexpr int PARTS = 10;

} // namespace

Watchdog::Watchdog(const WatchdogLimits& limits, QObject* parent)
    : QObject(parent)
    , limits(limits)
    , timer(this) {
    connect(&timer, &QTimer::timeout, this, &Watchdog::tick);
}

void Watchdog::expect(Wait wait) {
    silentTicks = 0;
    if (timer.isActive() && waiting == wait)
        return;
    waiting = wait;
    timer.start(std::max(limitOf(wait) / PARTS, std::chrono::milliseconds(1)));
}

void Watchdog::disarm() {
    timer.stop();
}

void Watchdog::tick() {
    if (++silentTicks < PARTS)
        return;
    timer.stop();
    Q_EMIT stalled(waiting);
}

std::chrono::milliseconds Watchdog::limitOf(Wait wait) const {
    switch (wait) {
    case Wait::Start:
        return limits.start;
    case Wait::Progress:
        return limits.progress;
    case Wait::Interruption:
        return limits.stop / 2;
    case Wait::Stop:
        break;
    }
    return limits.stop - limits.stop / 5;
}

} // namespace ExportCore
