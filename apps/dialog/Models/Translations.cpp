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
    if (ofTheWindow.load(locale, QStringLiteral("editor-export"), separator, QStringLiteral(":/translations")))
        application.installTranslator(&ofTheWindow);
}

Translations::~Translations() {
    application.removeTranslator(&ofTheWindow);
    application.removeTranslator(&ofQt);
}

} // namespace Dialog
