// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::ExportApplication: an application that survives an exception in its event loop.
#pragma once

#include "ExportCore/EventLoopFailures.h"
#include <QCoreApplication>
#include <QPointer>

namespace ExportCore {

/// `Application` is QCoreApplication or one derived from it. Make one in main, as usual.
template <class Application>
class ExportApplication : public Application {
public:
    using Application::Application;

    EventLoopFailures& failures() { return eventLoopFailures; }

    bool notify(QObject* receiver, QEvent* event) override {
        const QPointer<QObject> held(receiver);
        try {
            return Application::notify(receiver, event);
        } catch (...) { // of whatever kind: past this place it would end the process
            Q_EMIT eventLoopFailures.caught(std::current_exception(), held);
            return false;
        }
    }

private:
    EventLoopFailures eventLoopFailures;
};

} // namespace ExportCore
