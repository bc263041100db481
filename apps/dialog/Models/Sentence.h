// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::Sentence: what is said in English elsewhere, in the language of the window.
#pragma once

#include <QCoreApplication>
#include <QString>
#include <functional>

namespace Dialog {

struct Sentence {
    Q_DECLARE_TR_FUNCTIONS(Dialog::Sentence)

public:
    /// Of a preset, by its id.
    using Titles = std::function<QString(const QString& id)>;

    /// A refusal, failure, warning or note whose form is known, with the names and numbers that it has; what is not
    /// known of it stays as it is.
    static QString translated(const QString& english, const Titles& titles = &translatedTitle);
    /// The title of one of the installed presets in the user's language; the id where there is none.
    static QString translatedTitle(const QString& id);

    Sentence() = delete;
};

} // namespace Dialog
