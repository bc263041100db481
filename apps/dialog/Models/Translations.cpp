// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Models/Translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>

// Outside any namespace, as Qt wants it; a static library's resources are registered by name.
static void registerResources() {
    Q_INIT_RESOURCE(dialog);
}

namespace Dialog {

Translations::Translations(QCoreApplication& application, const QLocale& locale)
    : application(application) {
    registerResources();
    const QString separator = QStringLiteral("_");
    if (ofQt.load(locale, QStringLiteral("qtbase"), separator, QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        application.installTranslator(&ofQt);
    const QString name = QStringLiteral("editor-export"), folder = QStringLiteral(":/translations");
    // The English one has the forms for one and for several.
    if (ofTheWindow.load(locale, name, separator, folder) ||
        ofTheWindow.load(name + separator + QStringLiteral("en"), folder))
        application.installTranslator(&ofTheWindow);
}

Translations::~Translations() {
    application.removeTranslator(&ofTheWindow);
    application.removeTranslator(&ofQt);
}

} // namespace Dialog
