#include "ExportCore/Refusal.h"
#include "cli/ErrorOutput.h"
#include "cli/ExitCode.h"
#include "cli/JobTally.h"
#include "cli/QueueFile.h"
#include "cli/SeveralJobs.h"
#include <QDir>
#include <QFileInfo>
#include <cstdio>

namespace Cli {
namespace {

/// What concerns all jobs is said once.
Options optionsOf(const QueueFile::Job& job, const Options& queue) {
    if (!job.fault.empty())
        KESTRA_THROW(ExportCore::Refusal(job.fault));
    Options options = Options::ofJob(job.words);
    options.progress = queue.progress;
    options.quiet = queue.quiet;
    options.verbose = queue.verbose;
    return options;
}

int runOne(const QueueFile::Job& job, const Options& queue, JobRunner& runner) {
    try {
        return runner.run(optionsOf(job, queue)).code;
    } catch (const ExportCore::Refusal& refusal) {
        ErrorOutput::refuse(refusal.what());
        return EXIT_BAD_INPUT;
    }
}

} // namespace

int runQueue(const Options& options, JobRunner& runner) {
    const QString path = QFileInfo(QString::fromStdString(options.queueFile)).absoluteFilePath();
    QueueFile queue(path.toStdString());
    // The jobs' names count from where they stand.
    QDir::setCurrent(QFileInfo(path).absolutePath());
    JobTally tally(queue.jobs().size());
    bool isKept = true;
    for (std::size_t index = 0; index < queue.jobs().size() && !JobRunner::isStopped(); ++index) {
        const QueueFile::Job& job = queue.jobs()[index];
        if (queue.isDone(job)) {
            tally.skip(index, job.output);
            continue;
        }
        tally.begin(index, job.output);
        const int code = runOne(job, options, runner);
        tally.end(index, job.output, code);
        isKept = (code != EXIT_DONE || queue.keep(job)) && isKept;
    }
    if (!options.quiet && options.progress != ProgressStyle::Json)
        std::printf("%s\n", tally.summary().c_str());
    return tally.exitCode() == EXIT_DONE && !isKept ? EXIT_EXPORT_FAILED : tally.exitCode();
}

} // namespace Cli
