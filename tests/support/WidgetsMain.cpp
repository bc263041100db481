// SPDX-License-Identifier: GPL-3.0-or-later
#include "Export/TranscoderLogOutput.h"
#include "ExportCore/ExportApplication.h"
#include <QApplication>
#include <QLocale>
#include <clocale>
#include <cstdio>
#include <gtest/gtest.h>

namespace {

/// What the platform that shows nothing cannot do concerns nobody.
void onMessage(QtMsgType, const QMessageLogContext&, const QString& message) {
    if (!message.contains(QLatin1String("propagateSizeHints")) && !message.contains(QLatin1String("XDG_RUNTIME_DIR")))
        std::fprintf(stderr, "%s\n", qUtf8Printable(message));
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen"); // test discovery runs this at build time, with no display
    qInstallMessageHandler(&onMessage);
    ::testing::InitGoogleTest(&argc, argv);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    ExportCore::ExportApplication<QApplication> application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    Export::setTranscoderLogOutput(Export::TranscoderLogOutput::None);
    return RUN_ALL_TESTS();
}
