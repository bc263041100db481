// Dialog::Sentence: what is said in English elsewhere, in the language of the window.
#pragma once

#include <QCoreApplication>
#include <QString>

namespace Dialog {

struct Sentence {
    Q_DECLARE_TR_FUNCTIONS(Dialog::Sentence)

public:
    /// A refusal, failure, warning or note whose form is known, with the names and numbers that it has; what is not
    /// known of it stays as it is.
    static QString translated(const QString& english);

    Sentence() = delete;
};

} // namespace Dialog
