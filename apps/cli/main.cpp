// SPDX-License-Identifier: GPL-3.0-or-later
// editor-export: exports from the command line.
#include "Export/TranscoderLogOutput.h"
#include "ExportCore/ExportApplication.h"
#include "Kestra/Base/LeavableThread.h"
#include "Kestra/Proc/EngineLog.h"
#include "Kestra/Proc/LargestAllocation.h"
#include "Kestra/Proc/LoadEngine.h"
#include "cli/Descriptors.h"
#include "cli/ErrorCapture.h"
#include "cli/ErrorOutput.h"
#include "cli/ExitCode.h"
#include "cli/ListCommands.h"
#include "cli/LogFile.h"
#include "cli/Options.h"
#include "cli/PresetFiles.h"
#include "cli/RenderCommand.h"
#include "cli/TimelineCommands.h"
#include "cli/VersionCommand.h"
#include "process/SignalStop.h"
#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <chrono>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <exception>
#include <iostream>
#include <malloc.h>
#include <memory>
#include <string>

namespace {

/// What looks at media is ended by a signal with all that it has unpacked.
template <class Command>
int runInterruptibly(const Command& command, const Cli::Options& options) {
    const Process::SignalFlag signal;
    int code = Cli::EXIT_BAD_INPUT;
    try {
        code = command(options, signal.isSet());
    } catch (const std::exception& error) {
        Cli::ErrorOutput::refuse(error.what());
    }
    return signal.isSet() ? Cli::EXIT_SIGNAL_BASE + Process::SignalStop::received() : code;
}

int run(const Cli::Options& options, ExportCore::EventLoopFailures& failures) {
    switch (options.command) {
    case Cli::Options::Command::Presets:
        return Cli::listPresets(options);
    case Cli::Options::Command::PresetFiles:
        return Cli::handlePresetFiles(options);
    case Cli::Options::Command::Describe:
        return Cli::describePresets(options);
    case Cli::Options::Command::Version:
        return Cli::printVersions();
    case Cli::Options::Command::Queue:
        return Cli::runQueueFile(options, failures);
    case Cli::Options::Command::Info:
        return runInterruptibly(Cli::describeInputs, options);
    case Cli::Options::Command::Validate:
        return runInterruptibly(Cli::validateTimelines, options);
    case Cli::Options::Command::Render:
        break;
    }
    return Cli::render(options, failures);
}

/// Failing writes are to be told as such, not to end the process with a half-written file behind it.
void turnSignalsIntoErrors() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

/// By default every thread has a heap of its own and keeps what is freed there. Pictures come from pools, so little is
/// allocated, and one heap for all is as fast and some megabytes smaller.
void keepMemorySmall() {
    mallopt(M_ARENA_MAX, 1);
}

/// What was printed must have arrived: a full disk shows only now.
int withOutputChecked(int code) {
    const bool written = std::cout.flush().good() && std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
    if (!written)
        Cli::ErrorOutput::fail("cannot write to standard output");
    return written || code != Cli::EXIT_DONE ? code : Cli::EXIT_EXPORT_FAILED;
}

/// Whatever a library has to say goes the way of everything else, so that each line is of the kind that was asked for.
void speakThroughOneMouth() {
    Kestra::Proc::SetEngineLogReceiver(&Cli::ErrorOutput::log);
    Export::setTranscoderLogReceiver(&Cli::ErrorOutput::log);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& message) {
        Cli::ErrorOutput::log(message.toStdString());
    });
}

/// SVT-AV1 writes past everybody's callbacks, as its variable of the environment says.
void silenceWhoSpeaksPastIt(const Cli::Options& options) {
    if (options.progress == Cli::ProgressStyle::Json)
        qputenv("SVT_LOG", "-1");
}

/// Qt takes the user's locale over for the whole process, but sentences here are in English, numbers included.
void keepNumbersEnglish() {
    std::setlocale(LC_NUMERIC, "C");
}

template <class Application>
int runIn(ExportCore::ExportApplication<Application>& application, const Cli::Options& options) {
    keepNumbersEnglish();
    return withOutputChecked(run(options, application.failures()));
}

/// Has the codecs' libraries loaded while the program starts. Waits for it at the end: a process does not end well
/// while libraries come in. What goes wrong is told by the first who needs them.
class EngineLoading {
public:
    explicit EngineLoading(Cli::Options::Command command) {
        using Command = Cli::Options::Command;
        if (command == Command::Presets || command == Command::PresetFiles || command == Command::Describe)
            return;
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

/// What is written past everybody is caught while the result exists.
std::unique_ptr<Cli::ErrorCapture> tellWhatIsAskedFor(const Cli::Options& options) {
    const bool logs = options.verbose || !options.log.empty();
    if (options.quiet)
        Cli::ErrorOutput::beQuiet();
    if (!options.verbose && !options.log.empty())
        Cli::ErrorOutput::keepLogsOut();
    speakThroughOneMouth();
    silenceWhoSpeaksPastIt(options);
    Kestra::Proc::SetEngineLogLevel(logs ? Kestra::Proc::LogLevel::Verbose : Kestra::Proc::LogLevel::Quiet);
    Export::setTranscoderLogOutput(logs ? Export::TranscoderLogOutput::StandardError
                                        : Export::TranscoderLogOutput::None);
    return options.progress == Cli::ProgressStyle::Json ? std::make_unique<Cli::ErrorCapture>() : nullptr;
}

/// Before anything that would abort for want of them.
bool hasDescriptors() {
    if (Cli::canOpen(Cli::NEEDED_DESCRIPTORS))
        return true;
    Cli::ErrorOutput::fail("too few files may be open at a time: " + std::to_string(Cli::NEEDED_DESCRIPTORS) +
                           " more are needed (see ulimit -n and what the program was started with)");
    return false;
}

/// An outro's picture is one of the user interface's, which takes time to start; other runs do without.
int runWithWhatItNeeds(int argc, char** argv, const Cli::Options& options) {
    // The jobs of a queue may have one each.
    if (options.branding.empty() && options.command != Cli::Options::Command::Queue) {
        ExportCore::ExportApplication<QCoreApplication> application(argc, argv);
        return runIn(application, options);
    }
    // No window is shown, so there need be no display, whatever the environment says; nor does it concern anybody when
    // the environment lacks what desktop sessions have, which Qt warns of as it starts.
    qputenv("QT_QPA_PLATFORM", "minimal");
    // Where the session has no folder, Qt makes one that stays behind.
    const QTemporaryDir session;
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(session.path()));
    Process::SignalStop::setSessionFolder(QFile::encodeName(session.path()));
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
    ExportCore::ExportApplication<QGuiApplication> application(argc, argv);
    QLoggingCategory::setFilterRules(QString());
    return runIn(application, options);
}

} // namespace

int main(int argc, char** argv) {
    Cli::keepStandardOnesFree();
    keepMemorySmall();
    turnSignalsIntoErrors();
    int exitCode = Cli::EXIT_DONE;
    const auto options = Cli::Options::read(argc, argv, exitCode);
    if (!options)
        return withOutputChecked(exitCode);
    Kestra::Proc::SetLargestAllocation(options->mediaLimits);
    if (!hasDescriptors())
        return Cli::EXIT_EXPORT_FAILED;
    try {
        Cli::keepLog(*options);
        const auto capture = tellWhatIsAskedFor(*options);
        const EngineLoading loading(options->command);
        return runWithWhatItNeeds(argc, argv, *options);
    } catch (const std::exception& error) {
        Cli::ErrorOutput::refuse(error.what());
        return Cli::EXIT_BAD_INPUT;
    }
}
