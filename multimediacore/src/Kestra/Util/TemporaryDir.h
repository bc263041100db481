// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Util::TemporaryDir: a scratch directory that goes with its owner.
#pragma once

#include "Kestra/Util/RemovalOnTheSpot.h"
#include "KestraQtExport.h"
#include <QString>
#include <QTemporaryDir>
#include <optional>

namespace Kestra::Util {

/// A directory of its own under the system's directory for temporary files, readable by this user alone. Any thread,
/// one at a time. Destruction removes it with its content, as does RemovalOnTheSpot; what cannot be removed stays,
/// silently.
/// While a codec opens over statistics in it, it stays too, and goes right after: nobody waits for that.
class KESTRAQT_EXPORT TemporaryDir {
public:
    /// Throws ProcException (OutputNotWritable) with the path that was tried and the system's reason.
    TemporaryDir();
    ~TemporaryDir();
    TemporaryDir(const TemporaryDir&) = delete;
    TemporaryDir& operator=(const TemporaryDir&) = delete;

    /// Absolute, with '/' as separator and none at the end.
    QString path() const;

private:
    QTemporaryDir directory;
    std::optional<RemovalOnTheSpot> removal;
};

} // namespace Kestra::Util
