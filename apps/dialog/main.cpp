// editor-export-dialog: exports from a window.
#include "Export/TranscoderLogOutput.h"
#include "ExportCore/ExportApplication.h"
#include "Kestra/Base/LeavableThread.h"
#include "Kestra/Proc/EngineLog.h"
#include "Kestra/Proc/LoadEngine.h"
#include "dialog/Models/Translations.h"
#include "dialog/Widgets/ExportWindow.h"
#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <chrono>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <exception>
#include <unistd.h>

namespace {

constexpr int EXIT_NO_WINDOW = 2;

/// What Qt ends the process with is that there is nowhere to show a window.
void onMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
    const QByteArray line = message.toUtf8().simplified();
    if (type == QtFatalMsg) {
        std::fprintf(stderr, "editor-export-dialog: no window can be shown: %s\n", line.constData());
        std::fprintf(stderr, "editor-export exports without one\n");
        std::fflush(stderr);
        _exit(EXIT_NO_WINDOW);
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

QStringList readCommandLine(const QCoreApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QCoreApplication::translate("main", "Exports media files, or a timeline, from a window."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(
        QStringLiteral("input"),
        QCoreApplication::translate("main", "Media files, one after the other, or one timeline."),
        QStringLiteral("[input...]"));
    parser.process(application);
    return parser.positionalArguments();
}

int run(ExportCore::ExportApplication<QApplication>& application) {
    const QStringList files = readCommandLine(application);
    const EngineLoading loading;
    Dialog::ExportWindow window(application.failures());
    window.show();
    if (!files.isEmpty())
        window.open(files);
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    turnSignalsIntoErrors();
    qInstallMessageHandler(&onMessage);
    Kestra::Proc::SetEngineLogLevel(Kestra::Proc::LogLevel::Quiet);
    Export::setTranscoderLogOutput(Export::TranscoderLogOutput::None);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    ExportCore::ExportApplication<QApplication> application(argc, argv);
    // Qt takes the user's locale over for the whole process; what the engine writes and reads is in English.
    std::setlocale(LC_NUMERIC, "C");
    QCoreApplication::setApplicationName(QStringLiteral("editor-export-dialog"));
    QCoreApplication::setApplicationVersion(QStringLiteral(EDITOREXPORT_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("editor-export-dialog"));
    QApplication::setWindowIcon(
        QIcon::fromTheme(QStringLiteral("editor-export"), QIcon(QStringLiteral(":/icons/editor-export.png"))));
    const Dialog::Translations translations(application);
    try {
        return run(application);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "editor-export-dialog: %s\n", error.what());
        return EXIT_NO_WINDOW;
    }
}
