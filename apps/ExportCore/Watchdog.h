// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::Watchdog: sees to it that waiting has an end.
#pragma once

#include "ExportCore/WatchdogLimits.h"
#include <QObject>
#include <QTimer>

namespace ExportCore {

/// Lives on the thread that made it. Idle until a wait begins; `stalled` ends the wait.
class Watchdog : public QObject {
    Q_OBJECT
public:
    /// A stop has four fifths of its time, the interruption of what only reads half of it: the end itself takes some.
    enum class Wait { Start, Progress, Stop, Interruption };
    Q_ENUM(Wait)

    explicit Watchdog(const WatchdogLimits& limits, QObject* parent = nullptr);

    /// Begins a wait in place of the one before. For Progress, every call is a sign of life.
    void expect(Wait wait);
    void disarm();
    std::chrono::milliseconds limitOf(Wait wait) const;

Q_SIGNALS:
    void stalled(ExportCore::Watchdog::Wait wait);

private:
    void tick();

    const WatchdogLimits limits;
    QTimer timer;
    Wait waiting = Wait::Start;
    int silentTicks = 0;
};

} // namespace ExportCore
