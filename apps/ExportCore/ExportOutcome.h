// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::ExportOutcome: how an export ended.
#pragma once

#include "ExportCore/ExportFacts.h"
#include "ExportCore/ExportPlan.h"
#include "Kestra/Proc/ProcessingError.h"
#include <QHash>
#include <QMetaType>
#include <QStringList>

namespace ExportCore {

struct ExportOutcome {
    enum class Status {
        Done,    ///< the file stands at its place and has been checked
        Refused, ///< the request cannot be carried out; nothing was begun
        Failed,  ///< the run ended with an error; what stood at the output stands there still
        Stopped, ///< at the user's wish; likewise
        Planned, ///< it was not to be made, and can be; likewise
    };

    Status status = Status::Failed;
    Kestra::Proc::ProcessingError error; ///< when refused or failed; its code is Stalled, too, when a stopped run hangs
    QString errorPath;                   ///< the input or output that the error is about; empty when it is about none
    ExportFacts facts;                   ///< when done
    std::optional<ExportPlan> plan;      ///< of every run that came so far
    QStringList warnings;                ///< what the user should know of inputs and presets, one sentence each
    QStringList notes;             ///< what was done to the material, or left out, beyond the order; one line each
    QHash<QString, QString> paths; ///< the input or output that a warning or note is about, where it is about one
};

} // namespace ExportCore

Q_DECLARE_METATYPE(ExportCore::ExportOutcome)
