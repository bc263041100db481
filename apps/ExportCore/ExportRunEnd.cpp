// SPDX-License-Identifier: GPL-3.0-or-later
// How a run ends: stop, failure, stall; the check of the file and its way to its place.
#include "ExportCore/ExportRun.h"

#include "EditorProject/EditorProject.h"
#include "Export/PresetProvider.h"
#include "Export/Transcoder.h"
#include "ExportCore/DamageText.h"
#include "ExportCore/ExportJob.h"
#include "ExportCore/FileCheckTask.h"
#include "ExportCore/FoundFacts.h"
#include "ExportCore/IOutputTransaction.h"
#include "ExportCore/InputOpening.h"
#include "ExportCore/LoudnessTask.h"
#include "ExportCore/NamedPath.h"
#include "ExportCore/OutputOpening.h"
#include "ExportCore/PlainText.h"
#include "ExportCore/RequestCheck.h"
#include "ExportCore/TimeText.h"
#include "Kestra/Base/Time.h"
#include "Kestra/Proc/ProcException.h"
#include "Types/Time.h"
#include <QVariant>
#include <algorithm>
#include <chrono>
#include <new>
#include <utility>

namespace ExportCore {

using Kestra::Proc::ProcessingError;
using Kestra::Proc::TranscodingError;

void ExportRun::stop() {
    if (isOver() || verdict)
        return;
    if (state == JobState::Running)
        return endRunning(ExportOutcome::Status::Stopped);
    verdict = ExportOutcome::Status::Stopped;
    // A run that has not started cannot be stopped, only destroyed.
    if (!interruptTask())
        concludeLater();
}

void ExportRun::fail(const std::exception_ptr& error) {
    if (isOver())
        return;
    setFailure(error);
    if (!interruptTask())
        concludeLater();
}

namespace {

/// The run, or the part of one, that the object belongs to; null where that cannot be told.
const QObject* partWith(const QObject* object) {
    const auto isKnown = [](const QObject* part) {
        return qobject_cast<const ExportJob*>(part) || qobject_cast<const ExportRun*>(part) ||
               qobject_cast<const Export::Transcoder*>(part) || qobject_cast<const EditorProject*>(part) ||
               qobject_cast<const BackgroundTask*>(part);
    };
    while (object && !isKnown(object)) {
        const QVariant owner = object->property("owner");
        object = owner.isValid() ? owner.value<QObject*>() : object->parent();
    }
    return object;
}

// How an export ends for want of memory takes none itself: texts of up to 15 bytes stand in the string.
const char* const WITHOUT_MEMORY = "out of memory";
const char* const WITHOUT_WORDS = "It has stalled";

constexpr std::chrono::seconds TASK_PATIENCE{2}; // as long as a task's destruction waits

ProcessingError errorOf(const std::exception_ptr& error) {
    try {
        return ProcessingError::MakeProcessingErrorFromException(error);
    } catch (const std::bad_alloc&) {
        return ProcessingError(TranscodingError::OutOfMemory, WITHOUT_MEMORY);
    }
}

/// In words that say so.
std::exception_ptr ofAnyExport(const std::exception_ptr& error) {
    try {
        const auto told = ProcessingError::MakeProcessingErrorFromException(error);
        return std::make_exception_ptr(Kestra::Proc::ProcException(
            told.GetCode(), told.GetDescription() + " (whichever export this comes from, each that runs is ended)"));
    } catch (const std::bad_alloc&) {
        return error;
    }
}

/// Leaves out what there is no memory for.
template <class Telling>
bool tellIfMemoryAllows(const Telling& telling) {
    try {
        telling();
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace

bool ExportRun::isPart(const QObject* object) const {
    return object == this || object == &job || object == transcoder.get() || object == project.get() ||
           object == opening.get() || object == loudnessTask.get() || object == outputOpening.get() ||
           object == check.get() || engineRelease.isWorker(object) || removal.isWorker(object);
}

void ExportRun::failInEventLoop(const std::exception_ptr& error, const QObject* receiver) {
    const QObject* part = partWith(receiver);
    if (part && !isPart(part))
        return;
    fail(part ? error : ofAnyExport(error));
}

std::array<BackgroundTask*, 4> ExportRun::tasks() const {
    return {opening.get(), loudnessTask.get(), outputOpening.get(), check.get()};
}

bool ExportRun::isTaskRunning() const {
    const auto all = tasks();
    return std::any_of(all.begin(), all.end(), [](const BackgroundTask* task) { return task && task->isRunning(); });
}

bool ExportRun::interruptTask() {
    for (BackgroundTask* task : tasks())
        if (task && task->isRunning()) {
            watchdog.expect(Watchdog::Wait::Interruption);
            if (transaction)
                transaction->forbid();
            task->interrupt();
            return true;
        }
    return false;
}

void ExportRun::setFailure(const std::exception_ptr& error) {
    setFailure(errorOf(error), ExportOutcome::Status::Failed);
}

// After a stop, whatever fails on the way out concerns nobody.
void ExportRun::setFailure(ProcessingError error, ExportOutcome::Status status) {
    if (verdict)
        return;
    verdict = status;
    failure = std::move(error);
}

bool ExportRun::engineRuns() const {
    return transcoder && state != JobState::Starting;
}

std::string ExportRun::whatStalled(Watchdog::Wait wait) const {
    const std::string limit = std::to_string(std::max<long long>(watchdog.limitOf(wait).count() / 1000, 1)) + " s";
    switch (wait) {
    case Watchdog::Wait::Start:
        return "The export did not start within " + limit;
    case Watchdog::Wait::Progress:
        return (state == JobState::Checking ? "Checking the finished file made no progress for "
                                            : "The export made no progress for ") +
               limit;
    default:
        return "The export did not stop within " + limit;
    }
}

std::string ExportRun::hungReads() const {
    if (opening && opening->isRunning())
        return opening->step() + " does not come to an end";
    std::string paths;
    if (project)
        for (const Kestra::ioPath& path : project->pathsBeingRead())
            paths += (paths.empty() ? "Reading \"" : ", \"") + path.ToUtf8() + '"';
    return paths.empty() ? paths : paths + " does not come back";
}

std::string ExportRun::whatHangs() const {
    const std::string output = '"' + request.outputPath.toStdString() + '"';
    if (outputOpening && outputOpening->isRunning())
        return "Making a file beside " + output + " does not come to an end";
    if (state == JobState::Checking)
        return "Reading the finished file and moving it to " + output + " does not come to an end";
    const std::string reads = hungReads();
    return reads.empty() && engineRuns() ? "Encoding, or writing " + output + ", does not come back" : reads;
}

void ExportRun::onStalled(Watchdog::Wait wait) {
    ProcessingError error(TranscodingError::Stalled, WITHOUT_WORDS);
    tellIfMemoryAllows([&] {
        const std::string hung = whatHangs();
        error = ProcessingError(error.GetCode(), whatStalled(wait) + (hung.empty() ? "" : ": " + hung));
    });
    if (verdict == ExportOutcome::Status::Stopped || verdict == ExportOutcome::Status::Planned)
        stall = std::move(error);
    else
        setFailure(std::move(error), ExportOutcome::Status::Failed);
    enter(JobState::BrokenOff);
    breakOff();
    letGo();
}

/// What hangs may come back: it must find nothing that it could go on with.
void ExportRun::breakOff() {
    if (transcoder) {
        transcoder->disconnect(this);
        engineRelease.start(std::move(transcoder));
    }
    for (BackgroundTask* task : tasks())
        if (task)
            task->interrupt();
    if (isTaskRunning())
        taskPatience.start(TASK_PATIENCE);
}

void ExportRun::tellHungReads() {
    const std::string hung = hungReads();
    if (hung.empty())
        return;
    if (verdict != ExportOutcome::Status::Stopped && verdict != ExportOutcome::Status::Planned)
        outcome.warnings << QString::fromStdString(hung);
    else
        stall = ProcessingError(TranscodingError::Stalled, hung);
}

void ExportRun::concludeLater() {
    if (!mayFollow(state, JobState::Concluding)) // it is on its way, or behind
        return;
    enter(JobState::Concluding);
    watchdog.disarm();
    // Not from inside a signal of the transcoder: it is destroyed there. By what is made beforehand: the run may have
    // failed for want of memory.
    conclusion.start(0);
}

void ExportRun::conclude() {
    if (state == JobState::Concluding)
        engineRelease.start(std::move(transcoder));
}

void ExportRun::onEngineEnded() {
    if (state != JobState::Concluding)
        return endWhenLetGo();
    sinceEngine.start();
    awaitReads();
}

/// What was interrupted comes out of its reads in a moment, unless it hangs there.
void ExportRun::awaitReads() {
    constexpr int INTERVAL = 10;
    constexpr qint64 PATIENCE = 1000;
    if (state != JobState::Concluding)
        return;
    bool isRead = false;
    tellIfMemoryAllows([&] { isRead = project && !project->pathsBeingRead().empty(); });
    if (isRead && sinceEngine.elapsed() < PATIENCE)
        return reads.start(INTERVAL);
    goOnFromEngine();
}

void ExportRun::goOnFromEngine() {
    try {
        gather();
    } catch (...) { // nobody else ends this run: nothing is waited for any more
        setFailure(std::current_exception());
    }
    if (!verdict && request.dryRun) {
        concludeWholeTrial();
        verdict = ExportOutcome::Status::Planned;
    }
    if (!verdict && checkFile())
        return;
    letGo();
}

void ExportRun::gather() {
    if (project) {
        collectDamage();
        collectNotes();
    }
    tellHungReads();
}

std::optional<KTime> ExportRun::missingFrom(const Kestra::Proc::DamageReport& report) const {
    if (!report.incomplete)
        return {};
    // Who asks for a part that lies before what is missing misses nothing.
    const KTime start = cut.in.value_or(KTime(0));
    const KTime end = cut.out.value_or(project->duration() + KTime(1));
    const std::optional<KTime> place = project->placeOf(report.path, report.time, start, end);
    return place && *place < end ? place : std::nullopt;
}

std::string ExportRun::wayOut(KTime missing) const {
    if (missing <= cut.in.value_or(KTime(0)))
        return {};
    return "; what comes before can be exported with --out " + TimeText::format(missing);
}

void ExportRun::collectDamage() {
    for (const Kestra::Proc::DamageReport& report : project->takeDamageReports()) {
        const std::string sentence = damageText(report);
        const std::optional<KTime> missing = missingFrom(report);
        if (missing && !verdict)
            setFailure(ProcessingError(TranscodingError::SourceDamaged, sentence + wayOut(*missing)),
                       ExportOutcome::Status::Failed);
        else
            outcome.warnings << QString::fromStdString(sentence);
    }
}

void ExportRun::collectNotes() {
    if (expected.hasVideo && !project->hasPictures())
        outcome.notes << tr("None of the inputs has a picture: what is shown is black");
    if (expected.hasAudio && !project->hasSound())
        outcome.notes << tr("None of the inputs has sound: what is heard is silence");
    for (const Kestra::Proc::SourceNote& note : project->takeNotes())
        outcome.notes << QString::fromStdString(note.path.IsEmpty() ? note.what
                                                                    : '"' + note.path.ToUtf8() + "\": " + note.what);
}

bool ExportRun::checkFile() {
    enter(JobState::Checking);
    try {
        finishedFile = std::make_shared<Finished>();
        const auto last = [transaction = transaction, finished = finishedFile, request = request, sequence = sequence,
                           expected = expected, call = beforePlacing,
                           made = QString::fromUtf8(writtenPath())](const Kestra::Proc::CheckedFile& file) {
            finished->facts = FoundFacts::of(file, expected, request.outputPath);
            if (sequence)
                FoundFacts::namePictures(finished->facts, *sequence);
            finished->factsKnown = true;
            transaction->sync();
            if (RequestCheck::replacesInput(request, sequence))
                KESTRA_THROW(Kestra::Proc::ProcException(TranscodingError::OutputNotWritable,
                                                         "The output has become one of the inputs meanwhile"));
            if (call)
                call(made);
            finished->folderSynced = transaction->commit();
        };
        check = std::make_unique<FileCheckTask>(Kestra::ioPath(unfinishedPath.toStdString()), expected, last);
        connect(check.get(), &FileCheckTask::finished, this, &ExportRun::onChecked);
        follow(*check, Watchdog::Wait::Progress);
        check->start();
        return true;
    } catch (...) { // no thread is to be had, or no memory
        setFailure(std::current_exception());
        return false;
    }
}

void ExportRun::onChecked(const std::exception_ptr& error) {
    if (state != JobState::Checking)
        return;
    if (error)
        setFailure(error);
    letGo();
}

/// A file that stands at its place is done, whatever was wished or failed after that.
void ExportRun::concludeCommitted() {
    failure.reset();
    stall.reset();
    if (!finishedFile->folderSynced)
        outcome.warnings << tr("The folder of the finished file could not be brought to the disk");
    if (finishedFile->factsKnown)
        outcome.facts = std::move(finishedFile->facts); // without taking memory
    ExportFacts& facts = outcome.facts;
    facts.elapsedMs = clock.elapsed();
    if (facts.elapsedMs > 0)
        facts.speed = static_cast<double>(facts.durationMs) / static_cast<double>(facts.elapsedMs);
    finish(ExportOutcome::Status::Done);
}

/// Not on this thread: a folder that does not answer would keep it.
void ExportRun::letGo() {
    enter(JobState::LettingGo);
    watchdog.disarm();
    if (transaction)
        removal.start(std::move(transaction));
    endWhenLetGo();
}

void ExportRun::endWhenLetGo() {
    const bool waits = removal.isRunning() || engineRelease.isRunning() || (isTaskRunning() && taskPatience.isActive());
    if (state != JobState::LettingGo || waits)
        return;
    if (removal.isCommitted())
        return concludeCommitted();
    if (removal.isHanging())
        tellIfMemoryAllows([this] { tellLeftover(); });
    finish(verdict.value_or(ExportOutcome::Status::Stopped));
}

void ExportRun::tellLeftover() {
    const std::string name = unfinishedPath.mid(unfinishedPath.lastIndexOf('/') + 1).toStdString();
    const std::string left = "The folder of \"" + request.outputPath.toStdString() +
                             "\" does not answer: an unfinished file may be left there, " + name;
    if (verdict == ExportOutcome::Status::Stopped && !stall)
        stall = ProcessingError(TranscodingError::Stalled, left);
    else
        outcome.warnings << QString::fromStdString(left);
}

QString ExportRun::inUsersWords(const std::string& sentence) const {
    // The engine knows the private file or folder only; the user knows the output only.
    QString text = QString::fromStdString(sentence);
    if (!unfinishedPath.isEmpty())
        text.replace(QString::fromUtf8(unfinishedPath),
                     sequence ? QString::fromUtf8(sequence->folder) : request.outputPath);
    return text.trimmed();
}

void ExportRun::finish(ExportOutcome::Status status) {
    enter(JobState::Ended);
    watchdog.disarm();
    outcome.status = status;
    tellReason();
    if (!tellIfMemoryAllows([this] { namePaths(); }))
        outcome.paths.clear();
    Q_EMIT finished(outcome);
}

void ExportRun::tellReason() {
    auto& reason = failure ? failure : stall;
    if (!reason)
        return;
    const bool told = tellIfMemoryAllows([this, &reason] {
        const QString words = inUsersWords(reason->GetDescription());
        outcome.errorPath = NamedPath::in(words, request);
        if (sequence && words.contains(QLatin1Char('"') + QString::fromUtf8(sequence->folder) + QLatin1Char('/')))
            outcome.errorPath = request.outputPath; // one of its pictures
        outcome.error = ProcessingError(reason->GetCode(), PlainText::escaped(words.toStdString()));
    });
    if (!told)
        outcome.error = std::move(*reason);
}

void ExportRun::namePaths() {
    for (const QString& sentence : outcome.warnings + outcome.notes)
        if (const QString path = NamedPath::in(sentence, request); !path.isEmpty())
            outcome.paths.insert(sentence, path);
}

} // namespace ExportCore
