// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::Job: one export of the list, before, while and after it runs.
#pragma once

#include "ExportCore/ExportOutcome.h"
#include "ExportCore/ExportProgress.h"
#include "ExportCore/ExportRequest.h"
#include "ExportCore/SequenceName.h"
#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <optional>

namespace Dialog {

/// A value.
struct Job {
    Q_DECLARE_TR_FUNCTIONS(Dialog::Job)

public:
    enum class State {
        Waiting,
        Running,
        Stopping, ///< at somebody's wish, not yet at its end
        Ended,    ///< as the outcome tells
    };

    int id = 0; ///< unique in its list
    ExportCore::ExportRequest request;
    QString preset; ///< its title
    /// How the pictures are called where each is a file of its own.
    std::optional<ExportCore::SequenceName> sequence;
    QString place; ///< where it writes to, links resolved; empty where nobody has looked
    State state = State::Waiting;
    ExportCore::ExportProgress progress; ///< of one that runs
    bool called = false;                 ///< begins as soon as those before it have ended, also in a queue that rests
    bool started = false;                ///< the engine has begun
    std::optional<ExportCore::ExportOutcome> outcome;

    bool isRunning() const { return state == State::Running || state == State::Stopping; }
    bool isDone() const { return outcome && outcome->status == ExportCore::ExportOutcome::Status::Done; }
    bool hasFailed() const;
    /// The output's name without its folder.
    QString name() const;
    /// One or few words: "Waiting", "45 %", "Done".
    QString stateText() const;
    /// All of them but for percents.
    static QStringList stateTexts();
    /// "45 % · 2.3 times as fast as it plays · about 3 minutes left"; empty unless it runs.
    QString progressText() const;
};

} // namespace Dialog
