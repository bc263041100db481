// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/IProgressDisplay.h"

#include "Kestra/Proc/TranscodingError.h"
#include "cli/ErrorOutput.h"
#include "cli/JsonText.h"
#include "cli/ProgressText.h"
#include "cli/Terminal.h"
#include <QElapsedTimer>
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

/// One line that is written again and again. The width of the terminal may change at any time.
class Bar : public IProgressDisplay {
public:
    void started() override { show(ExportProgress()); }
    void progress(const ExportProgress& progress) override { show(progress); }
    void ended(const ExportOutcome&) override { ErrorOutput::showStatus({}); }

private:
    static void show(const ExportProgress& progress) {
        constexpr int usual = 80;
        // The last column stays free.
        ErrorOutput::showStatus(progressBar(progress, Terminal::columns(STDERR_FILENO).value_or(usual) - 1));
    }
};

class PlainLines : public IProgressDisplay {
public:
    void started() override { sinceLast.start(); }
    void progress(const ExportProgress& progress) override {
        constexpr qint64 interval = 5000;
        if (sinceLast.isValid() && sinceLast.elapsed() < interval)
            return;
        sinceLast.start();
        ErrorOutput::line(progressText(progress));
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
                           {key("pass"), progress.pass},
                           {key("passes"), progress.passes},
                           {key("elapsedMs"), progress.elapsedMs},
                           {key("speed"), progress.speed},
                           {key("framesPerSecond"), progress.framesPerSecond}};
        // Unknown is null, so that nobody computes with -1.
        object.insert(key("bytes"), progress.bytes < 0 ? QJsonValue() : QJsonValue(progress.bytes));
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
