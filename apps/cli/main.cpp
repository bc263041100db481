// editor-export: exports from the command line.
#include "Export/TranscoderLogOutput.h"
#include "ExportCore/ExportApplication.h"
#include "Kestra/Core/Log.h"
#include "cli/ExitCode.h"
#include "cli/ListCommands.h"
#include "cli/Options.h"
#include "cli/RenderCommand.h"
#include <QCoreApplication>
#include <QGuiApplication>
#include <csignal>
#include <cstdio>
#include <exception>

namespace {

int run(const Cli::Options& options, ExportCore::EventLoopFailures& failures) {
    switch (options.command) {
    case Cli::Options::Command::Presets:
        return Cli::listPresets(options);
    case Cli::Options::Command::Info:
        return Cli::describeInputs(options);
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

/// What was printed must have arrived: a full disk shows only now.
int withOutputChecked(int code) {
    const bool written = std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
    if (!written)
        std::fprintf(stderr, "editor-export: cannot write to standard output\n");
    return written || code != Cli::EXIT_DONE ? code : Cli::EXIT_EXPORT_FAILED;
}

/// `Application` is what the event loop runs in.
template <class Application>
int runIn(int argc, char** argv, const Cli::Options& options) {
    ExportCore::ExportApplication<Application> application(argc, argv);
    return withOutputChecked(run(options, application.failures()));
}

/// An outro's picture is one of the user interface's, which takes time to start; other runs do without.
int runWithWhatItNeeds(int argc, char** argv, const Cli::Options& options) {
    if (options.branding.empty())
        return runIn<QCoreApplication>(argc, argv, options);
    // No window is shown, so there need be no display, whatever the environment says.
    qputenv("QT_QPA_PLATFORM", "minimal");
    return runIn<QGuiApplication>(argc, argv, options);
}

} // namespace

int main(int argc, char** argv) {
    turnSignalsIntoErrors();
    int exitCode = Cli::EXIT_DONE;
    const auto options = Cli::Options::read(argc, argv, exitCode);
    if (!options)
        return exitCode;
    Kestra::Core::SetEngineLogLevel(options->verbose ? Kestra::Core::LogLevel::Verbose : Kestra::Core::LogLevel::Quiet);
    Export::setTranscoderLogOutput(options->verbose ? Export::TranscoderLogOutput::StandardError
                                                    : Export::TranscoderLogOutput::None);
    try {
        return runWithWhatItNeeds(argc, argv, *options);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "editor-export: %s\n", error.what());
        return Cli::EXIT_BAD_INPUT;
    }
}
