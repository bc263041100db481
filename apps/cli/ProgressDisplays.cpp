#include "cli/IProgressDisplay.h"

#include "Kestra/Proc/TranscodingError.h"
#include "cli/ErrorOutput.h"
#include "cli/JsonText.h"
#include "cli/ProgressText.h"
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <string>
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

/// One line that is written again and again.
class Bar : public IProgressDisplay {
public:
    void started() override { show(ExportProgress()); }
    void progress(const ExportProgress& progress) override { show(progress); }
    void ended(const ExportOutcome&) override {
        if (shown > 0)
            std::fprintf(stderr, "\r%*s\r", static_cast<int>(shown), "");
    }

private:
    void show(const ExportProgress& progress) {
        constexpr int width = 30;
        const int full = std::clamp(progress.percent, 0, 100) * width / 100;
        std::string line =
            "[" + std::string(full, '#') + std::string(width - full, '-') + "] " + progressText(progress);
        const std::size_t length = line.size();
        // Blanks over what is left of a longer line before.
        if (length < shown)
            line.append(shown - length, ' ');
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
