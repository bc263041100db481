// SPDX-License-Identifier: GPL-3.0-or-later
// editor-export-dialog: exports from a window.
#include "Export/TranscoderLogOutput.h"
#include "ExportCore/ExportApplication.h"
#include "ExportCore/PlainText.h"
#include "Kestra/Base/LeavableThread.h"
#include "Kestra/Proc/EngineLog.h"
#include "Kestra/Proc/LoadEngine.h"
#include "dialog/CommandLine.h"
#include "dialog/Models/Translations.h"
#include "dialog/Widgets/ExportWindow.h"
#include "process/SignalExitCode.h"
#include "process/SignalStop.h"
#include <QApplication>
#include <QIcon>
#include <QMessageBox>
#include <chrono>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <unistd.h>

namespace {

/// As of the command line: nothing could be begun. Where no window can be shown, too.
constexpr int EXIT_BAD_INPUT = 2;

/// What Qt ends the process with is that there is nowhere to show a window.
void onMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
    const QByteArray line = message.toUtf8().simplified();
    if (type == QtFatalMsg) {
        std::fprintf(stderr, "editor-export-dialog: no window can be shown: %s\n", line.constData());
        std::fprintf(stderr, "editor-export exports without one\n");
        std::fflush(stderr);
        _exit(EXIT_BAD_INPUT);
    }
    if (type != QtDebugMsg && type != QtInfoMsg)
        std::fprintf(stderr, "editor-export-dialog: %s\n", line.constData());
}

/// Failing writes are to be told as such, not to end the process with a half-written file behind it.
void turnSignalsIntoErrors() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

/// Has the codecs' libraries loaded while the window comes up. What goes wrong is told by the first who needs them.
class EngineLoading {
public:
    EngineLoading() {
        try {
            thread.Start("load-engine", &Kestra::Proc::LoadEngine, [](const std::exception_ptr&) {});
        } catch (const std::exception&) { // no thread is to be had
        }
    }
    ~EngineLoading() { thread.JoinOrLeave(std::chrono::steady_clock::now() + std::chrono::minutes(1)); }
    EngineLoading(const EngineLoading&) = delete;
    EngineLoading& operator=(const EngineLoading&) = delete;

private:
    Kestra::LeavableThread thread;
};

void tell(const QString& problem) {
    std::fprintf(stderr, "editor-export-dialog: %s\n", problem.toUtf8().simplified().constData());
}

int printText(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const Dialog::Translations translations(*QCoreApplication::instance());
    const QByteArray text = Dialog::CommandLine::text(QCoreApplication::arguments()).toLocal8Bit();
    if (std::fputs(text.constData(), stdout) >= 0 && std::fflush(stdout) == 0)
        return EXIT_SUCCESS;
    tell(QStringLiteral("cannot write to standard output"));
    return EXIT_FAILURE;
}

int run(ExportCore::ExportApplication<QApplication>& application) {
    const auto line = Dialog::CommandLine::of(QCoreApplication::arguments());
    if (!line.problem.isEmpty()) {
        tell(line.problem);
        return EXIT_BAD_INPUT;
    }
    const Process::SignalStop signalStop;
    const EngineLoading loading;
    Dialog::ExportWindow window(application.failures());
    QObject::connect(&signalStop, &Process::SignalStop::stopRequested, &window, &Dialog::ExportWindow::end);
    QObject::connect(&window, &Dialog::ExportWindow::ended, &application, &QCoreApplication::quit);
    window.show();
    if (!line.inputs.isEmpty())
        window.open(line.inputs);
    const int code = QApplication::exec();
    const int signal = Process::SignalStop::received();
    return signal == 0 ? code : Process::EXIT_SIGNAL_BASE + signal;
}

} // namespace

int main(int argc, char** argv) {
    turnSignalsIntoErrors();
    qInstallMessageHandler(&onMessage);
    QCoreApplication::setApplicationName(QStringLiteral("editor-export-dialog"));
    QCoreApplication::setApplicationVersion(QStringLiteral(EDITOREXPORT_VERSION));
    if (Dialog::CommandLine::asksForText(argc, argv))
        return printText(argc, argv);
    Kestra::Proc::SetEngineLogLevel(Kestra::Proc::LogLevel::Quiet);
    Export::setTranscoderLogOutput(Export::TranscoderLogOutput::None);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    ExportCore::ExportApplication<QApplication> application(argc, argv);
    // Qt takes the user's locale over for the whole process; what the engine writes and reads is in English.
    std::setlocale(LC_NUMERIC, "C");
    QGuiApplication::setDesktopFileName(QStringLiteral("editor-export-dialog"));
    QApplication::setWindowIcon(
        QIcon::fromTheme(QStringLiteral("editor-export"), QIcon(QStringLiteral(":/icons/editor-export.png"))));
    const Dialog::Translations translations(application);
    try {
        return run(application);
    } catch (const std::exception& error) {
        tell(QString::fromUtf8(error.what()));
        // Who comes from a desktop's menu reads no standard error.
        QMessageBox box(QMessageBox::Critical, QCoreApplication::translate("Dialog::ExportWindow", "Export"),
                        QString::fromStdString(ExportCore::PlainText::escaped(error.what())), QMessageBox::Close);
        box.setTextFormat(Qt::PlainText);
        box.exec();
        return EXIT_BAD_INPUT;
    }
}
