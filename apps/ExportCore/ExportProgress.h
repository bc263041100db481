// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::ExportProgress: how far a run has come.
#pragma once

#include <QMetaType>

namespace ExportCore {

struct ExportProgress {
    int percent = 0; ///< of all passes, each of which is an equal share
    int pass = 1;
    int passes = 1;
    qint64 elapsedMs = 0;
    qint64 remainingMs = -1;    ///< -1 when unknown; counts what every pass costs, see RunForecast
    double speed = 0;           ///< seconds of media a second; 0 when unknown
    double framesPerSecond = 0; ///< of late, in the pass that runs; 0 when unknown
    qint64 bytes = -1;          ///< written so far; -1 when unknown
};

} // namespace ExportCore

Q_DECLARE_METATYPE(ExportCore::ExportProgress)
