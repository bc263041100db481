// SPDX-License-Identifier: GPL-3.0-or-later
// Sweep::SweepApplication: an application as the program's own, and a place to act between two events.
#pragma once

#include "ExportCore/ExportApplication.h"
#include <QGuiApplication>
#include <QThread>
#include <functional>

namespace Sweep {

class SweepApplication final : public ExportCore::ExportApplication<QGuiApplication> {
public:
    using ExportApplication::ExportApplication;
    static SweepApplication& instance() { return *static_cast<SweepApplication*>(QCoreApplication::instance()); }

    /// Called on the main thread after each event there that was not delivered from inside another one.
    std::function<void()> afterEvent;

    bool notify(QObject* receiver, QEvent* event) override {
        if (QThread::currentThread() != thread())
            return ExportApplication::notify(receiver, event);
        ++depth;
        const bool accepted = ExportApplication::notify(receiver, event);
        if (--depth == 0 && afterEvent)
            afterEvent();
        return accepted;
    }

private:
    int depth = 0;
};

} // namespace Sweep
