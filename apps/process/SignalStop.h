// SPDX-License-Identifier: GPL-3.0-or-later
// Process::SignalStop, SignalFlag: interruption from outside, gently at first.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <atomic>
#include <memory>

namespace Process {

/// While one exists, the first SIGINT, SIGTERM or SIGHUP is told as stopRequested() from the event loop; the second
/// ends the process on the spot, whatever it is doing, after removing the unfinished file. One at a time.
class SignalStop : public QObject {
    Q_OBJECT
public:
    SignalStop();
    ~SignalStop() override;

    /// An empty folder that an end on the spot removes too. Once, before there is one of these.
    static void setSessionFolder(const QByteArray& path);
    /// Ends the process without destructors, after removing the session's folder, those of the engine and unfinished
    /// files; within two seconds, however long that takes. May be called from a signal handler.
    [[noreturn]] static void endOnTheSpot(int code) noexcept;
    /// The signal that came; 0 when none did.
    static int received();

Q_SIGNALS:
    void stopRequested();

private:
    void onReadable();

    std::unique_ptr<QSocketNotifier> notifier;
};

/// The same for what runs without an event loop: the first signal sets a flag, and after five seconds more, or by the
/// second, the process ends on the spot. One at a time, and none beside a SignalStop.
class SignalFlag {
public:
    SignalFlag();
    ~SignalFlag();
    SignalFlag(const SignalFlag&) = delete;
    SignalFlag& operator=(const SignalFlag&) = delete;

    const std::atomic<bool>& isSet() const;
};

} // namespace Process
