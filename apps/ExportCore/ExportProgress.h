// ExportCore::ExportProgress: how far a run has come.
#pragma once

#include <QMetaType>

namespace ExportCore {

struct ExportProgress {
    int percent = 0;
    qint64 elapsedMs = 0;
    qint64 remainingMs = -1; ///< -1 when unknown
    double speed = 0;        ///< seconds of media a second; 0 when unknown
};

} // namespace ExportCore

Q_DECLARE_METATYPE(ExportCore::ExportProgress)
