// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::EventLoopFailures: where an application tells of what reached its event loop.
#pragma once

#include "ExportCoreExport.h"
#include <QObject>
#include <exception>

namespace ExportCore {

class EXPORTCORE_EXPORT EventLoopFailures : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

Q_SIGNALS:
    /// Comes from inside the event loop, on its thread. `receiver` is the object whose event it was; null when it is
    /// gone.
    void caught(const std::exception_ptr& error, QObject* receiver);
};

} // namespace ExportCore
