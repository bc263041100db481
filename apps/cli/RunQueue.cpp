// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/Refusal.h"
#include "Kestra/Proc/LargestAllocation.h"
#include "cli/ErrorOutput.h"
#include "cli/ExitCode.h"
#include "cli/FilePath.h"
#include "cli/JobTally.h"
#include "cli/PlacesInUse.h"
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
    Options options = job.options;
    options.progress = queue.progress;
    options.quiet = queue.quiet;
    options.verbose = queue.verbose;
    return options;
}

/// Of all jobs of a queue.
PlacesInUse placesOf(const QueueFile& queue) {
    std::vector<Options> exports;
    for (const QueueFile::Job& job : queue.jobs())
        exports.push_back(job.options);
    return PlacesInUse(std::move(exports));
}

void requireFilesOfItsOwn(const QueueFile& queue, PlacesInUse& places, const std::string& queuePath,
                          std::size_t index) {
    const Options& job = queue.jobs()[index].options;
    const std::string number = "Job " + std::to_string(index + 1);
    for (const std::string* const path : {&job.output, &job.report})
        if (PlacesInUse::isOfQueue(queuePath, *path))
            KESTRA_THROW(
                ExportCore::Refusal(number + " writes the queue's own file \"" + *path + "\"; give it another name"));
    if (const std::size_t other = places.readerOf(job.report); other != 0)
        KESTRA_THROW(ExportCore::Refusal(number + " writes its report to what job " + std::to_string(other) +
                                         " reads; give it another name"));
    if (const std::size_t other = places.writerBefore(index); other != 0)
        KESTRA_THROW(ExportCore::Refusal(number + " writes a file that job " + std::to_string(other) +
                                         " writes, too; give it another name"));
}

JobRunner::Ended runOne(QueueFile& queue, PlacesInUse& places, std::size_t index, const Options& all,
                        JobRunner& runner) {
    const QueueFile::Job& job = queue.jobs()[index];
    try {
        requireFilesOfItsOwn(queue, places, all.queueFile, index);
        const Options options = optionsOf(job, all);
        if (queue.isOutdated(job))
            ErrorOutput::tell("note", "\"" + job.output + "\" is of before its inputs were changed");
        queue.begin(job);
        Kestra::Proc::SetLargestAllocation(options.mediaLimits);
        return runner.run(options, queue.beforePlacing(job));
    } catch (const ExportCore::Refusal& refusal) {
        ErrorOutput::refuse(refusal.what());
        return {EXIT_BAD_INPUT, {}};
    }
}

bool isWhole(const JobRunner::Ended& ended) {
    return ended.outcome.status == ExportCore::ExportOutcome::Status::Done;
}

/// As the folder of the queue has it.
std::string absolute(const QDir& folder, const std::string& name) {
    return name.empty() ? name : folder.absoluteFilePath(filePath(name)).toStdString();
}

} // namespace

std::vector<Options> exportsOfQueue(const std::string& path) {
    const QueueFile queue(path);
    const QDir folder = QFileInfo(filePath(path)).absoluteDir();
    std::vector<Options> exports;
    for (const QueueFile::Job& job : queue.jobs()) {
        Options options = job.options;
        for (std::string& input : options.inputs)
            input = absolute(folder, input);
        for (std::string* const name : {&options.output, &options.report, &options.timelines.mediaRoot})
            *name = absolute(folder, *name);
        exports.push_back(std::move(options));
    }
    return exports;
}

int runQueue(const Options& options, JobRunner& runner) {
    const QString path = QFileInfo(filePath(options.queueFile)).absoluteFilePath();
    QueueFile queue(options.queueFile);
    Options all = options;
    all.queueFile = path.toStdString();
    // The jobs' names count from where they stand.
    QDir::setCurrent(QFileInfo(path).absolutePath());
    queue.takeOver();
    PlacesInUse places = placesOf(queue);
    JobTally tally(queue.jobs().size());
    bool isKept = true;
    for (std::size_t index = 0; index < queue.jobs().size() && !JobRunner::isStopped(); ++index) {
        const QueueFile::Job& job = queue.jobs()[index];
        if (queue.isDone(job)) {
            tally.skip(index, job.output);
            continue;
        }
        tally.begin(index, job.output);
        const JobRunner::Ended ended = runOne(queue, places, index, all, runner);
        // Done is what stands there, even where its report could not be written.
        isKept = (!isWhole(ended) || queue.keep(job)) && isKept;
        tally.end(index, job.output, ended.code);
    }
    if (JobRunner::isStopped())
        tally.stop(Process::SignalStop::received());
    if (options.progress != ProgressStyle::Json)
        ErrorOutput::keep(tally.summary());
    if (!options.quiet && options.progress != ProgressStyle::Json)
        std::printf("%s\n", tally.summary().c_str());
    return tally.exitCode() == EXIT_DONE && !isKept ? EXIT_EXPORT_FAILED : tally.exitCode();
}

} // namespace Cli
