// SPDX-License-Identifier: GPL-3.0-or-later
// A message bus of the test's own.
#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace TestDialog {

/// The session's and the system's bus of this process. Once, before anything asks for one of them.
class PrivateBus {
public:
    /// Whether there is a program for it: scripts/setup installs one with the tests.
    static bool isInstalled();

    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// Empty where it did not start.
    QString address() const { return place; }

private:
    const QTemporaryDir folder;
    QProcess process;
    QString place;
};

} // namespace TestDialog
