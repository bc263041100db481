// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::Translations: the user's language.
#pragma once

#include <QLocale>
#include <QTranslator>

class QCoreApplication;

namespace Dialog {

/// Installed as long as it lives. What is not translated, in whatever language, is English.
class Translations {
public:
    explicit Translations(QCoreApplication& application, const QLocale& locale = QLocale());
    ~Translations();
    Translations(const Translations&) = delete;
    Translations& operator=(const Translations&) = delete;

private:
    QCoreApplication& application;
    QTranslator ofTheWindow;
    QTranslator ofQt;
};

} // namespace Dialog
