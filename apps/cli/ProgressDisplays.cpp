#include "cli/IProgressDisplay.h"

#include "Kestra/Proc/TranscodingError.h"
#include "cli/ErrorOutput.h"
#include "cli/JsonText.h"
#include "cli/ProgressText.h"
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <string>
#include <sys/ioctl.h>
#include <unistd.h>

namespace Cli {

IProgressDisplay::~IProgressDisplay() = default;

namespace {

using ExportCore::ExportOutcome;
using ExportCore::ExportProgress;

class NoProgress : public IProgressDisplay {
public:
    void started() override {}
    void progress(const ExportProgress&) override {}
    void ended(const ExportOutcome&) override {}
};

/// It may change at any time.
int terminalColumns() {
    constexpr int usual = 80;
    winsize size = {};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
}

/// One line that is written again and again.
class Bar : public IProgressDisplay {
public:
    void started() override { show(ExportProgress()); }
    void progress(const ExportProgress& progress) override { show(progress); }
    void ended(const ExportOutcome&) override {
        if (shown > 0)
            std::fprintf(stderr, "\r%*s\r", std::min(static_cast<int>(shown), terminalColumns() - 1), "");
    }

private:
    void show(const ExportProgress& progress) {
        // The last column stays free: a terminal that is written to its edge may go on to the next line.
        const int columns = terminalColumns() - 1;
        std::string line = progressBar(progress, columns);
        const std::size_t length = line.size();
        // Blanks over what is left of a longer line before.
        const std::size_t covered = std::min(shown, static_cast<std::size_t>(std::max(columns, 0)));
        if (length < covered)
            line.append(covered - length, ' ');
        shown = length;
        std::fprintf(stderr, "\r%s", line.c_str());
        std::fflush(stderr);
    }

    std::size_t shown = 0;
};

class PlainLines : public IProgressDisplay {
public:
    void started() override { sinceLast.start(); }
    void progress(const ExportProgress& progress) override {
        constexpr qint64 interval = 5000;
        if (sinceLast.isValid() && sinceLast.elapsed() < interval)
            return;
        sinceLast.start();
        std::fprintf(stderr, "%s\n", progressText(progress).c_str());
    }
    void ended(const ExportOutcome&) override {}

private:
    QElapsedTimer sinceLast;
};

class JsonLines : public IProgressDisplay {
public:
    void started() override { print(QJsonObject{{key("type"), key("started")}}); }
    void progress(const ExportProgress& progress) override {
        QJsonObject object{{key("type"), key("progress")},
                           {key("percent"), progress.percent},
                           {key("elapsedMs"), progress.elapsedMs},
                           {key("speed"), progress.speed}};
        // Unknown is null, so that nobody computes with -1.
        object.insert(key("remainingMs"), progress.remainingMs < 0 ? QJsonValue() : QJsonValue(progress.remainingMs));
        print(object);
    }
    void ended(const ExportOutcome& outcome) override { print(outcomeObject(outcome)); }

private:
    static void print(const QJsonObject& object) { ErrorOutput::print(object); }
};

} // namespace

std::unique_ptr<IProgressDisplay> IProgressDisplay::create(ProgressStyle style) {
    if (style == ProgressStyle::Automatic)
        style = isatty(STDERR_FILENO) ? ProgressStyle::Bar : ProgressStyle::Plain;
    switch (style) {
    case ProgressStyle::Bar:
        return std::make_unique<Bar>();
    case ProgressStyle::Json:
        return std::make_unique<JsonLines>();
    case ProgressStyle::None:
        return std::make_unique<NoProgress>();
    default:
        return std::make_unique<PlainLines>();
    }
}

} // namespace Cli
