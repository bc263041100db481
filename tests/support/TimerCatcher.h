// SPDX-License-Identifier: GPL-3.0-or-later
// TestSupport::TimerCatcher: what timer events let out.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <exception>

namespace TestSupport {

/// While it lives, an exception that leaves a timer event ends here, as an application's notify() would end it, and not
/// in the event dispatcher, which cannot bear one.
class TimerCatcher : public QObject {
public:
    TimerCatcher() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (event->type() != QEvent::Timer)
            return false;
        try {
            receiver->event(event);
        } catch (...) {
            caught = std::current_exception();
        }
        return true;
    }

    std::exception_ptr caught;
};

} // namespace TestSupport
