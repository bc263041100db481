// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::OutcomeText: how an export ended, in words for people.
#pragma once

#include "ExportCore/ExportOutcome.h"
#include "dialog/Models/Job.h"
#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace Dialog {

/// A value. Texts are plain: nothing in them is markup.
struct OutcomeText {
    Q_DECLARE_TR_FUNCTIONS(Dialog::OutcomeText)

public:
    /// Of a job that has ended.
    static OutcomeText of(const Job& job);

    QString title;
    QString reason; ///< a sentence; of a file that is done, what is in it
    QString advice; ///< what can be done; may be empty
    /// Everything there is to know, for a report; begins with the title.
    QString details;
};

} // namespace Dialog
