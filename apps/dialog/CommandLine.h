// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::CommandLine: what the program is started with.
#pragma once

#include <QString>
#include <QStringList>

namespace Dialog {

/// A value.
struct CommandLine {
    /// Whether help or the version is asked for, which needs no display. For main, before there is an application.
    static bool asksForText(int argc, const char* const* argv);
    /// What was asked for, in the language of the application, with its line breaks.
    static QString text(const QStringList& arguments);
    /// `arguments` are the application's: Qt's own are not among them.
    static CommandLine of(const QStringList& arguments);

    QStringList inputs;
    QString problem; ///< one line; empty where there is none
};

} // namespace Dialog
