// How a run ends: stop, failure, stall; the check of the file and its way to its place.
#include "ExportCore/ExportJob.h"

#include "EditorProject/EditorProject.h"
#include "Export/PresetProvider.h"
#include "Export/Transcoder.h"
#include "ExportCore/FileCheckTask.h"
#include "ExportCore/InputOpening.h"
#include "ExportCore/NamedPath.h"
#include "ExportCore/OutputOpening.h"
#include "ExportCore/OutputTransaction.h"
#include "ExportCore/PlainText.h"
#include "ExportCore/RequestCheck.h"
#include "ExportCore/TimeText.h"
#include "Kestra/Base/LeavableThread.h"
#include "Kestra/Base/Time.h"
#include "Kestra/Proc/ProcException.h"
#include "Types/Time.h"
#include <QVariant>
#include <algorithm>
#include <initializer_list>
#include <utility>

namespace ExportCore {

using Kestra::Proc::ProcessingError;
using Kestra::Proc::TranscodingError;

void ExportJob::stop() {
    if (state == JobState::Ended || verdict)
        return;
    verdict = ExportOutcome::Status::Stopped;
    if (state == JobState::Running) {
        enter(JobState::Ending);
        watchdog.expect(Watchdog::Wait::Stop);
        transcoder->stop();
        return;
    }
    // A run that has not started cannot be stopped, only destroyed.
    if (!interruptTask())
        concludeLater();
}

void ExportJob::fail(const std::exception_ptr& error) {
    if (state == JobState::Ended)
        return;
    setFailure(error);
    if (!interruptTask())
        concludeLater();
}

namespace {

/// The run, or the part of one, that the object belongs to; null where that cannot be told.
const QObject* partWith(const QObject* object) {
    const auto isKnown = [](const QObject* part) {
        return qobject_cast<const ExportJob*>(part) || qobject_cast<const Export::Transcoder*>(part) ||
               qobject_cast<const EditorProject*>(part) || qobject_cast<const BackgroundTask*>(part);
    };
    while (object && !isKnown(object)) {
        const QVariant owner = object->property("owner");
        object = owner.isValid() ? owner.value<QObject*>() : object->parent();
    }
    return object;
}

} // namespace

bool ExportJob::isPart(const QObject* object) const {
    return object == this || object == transcoder.get() || object == project.get() || object == opening.get() ||
           object == outputOpening.get() || object == check.get();
}

void ExportJob::failInEventLoop(const std::exception_ptr& error, QObject* receiver) {
    const QObject* part = partWith(receiver);
    if (part && !isPart(part))
        return;
    if (part)
        return fail(error);
    const auto told = ProcessingError::MakeProcessingErrorFromException(error);
    fail(std::make_exception_ptr(Kestra::Proc::ProcException(
        told.GetCode(), told.GetDescription() + " (whichever export this comes from, each that runs is ended)")));
}

bool ExportJob::interruptTask() {
    for (BackgroundTask* task : std::initializer_list<BackgroundTask*>{opening.get(), outputOpening.get(), check.get()})
        if (task && task->isRunning()) {
            watchdog.expect(Watchdog::Wait::Interruption);
            if (transaction)
                transaction->forbid();
            task->interrupt();
            return true;
        }
    return false;
}

void ExportJob::setFailure(const std::exception_ptr& error) {
    setFailure(ProcessingError::MakeProcessingErrorFromException(error), ExportOutcome::Status::Failed);
}

// After a stop, whatever fails on the way out concerns nobody.
void ExportJob::setFailure(const ProcessingError& error, ExportOutcome::Status status) {
    if (verdict)
        return;
    verdict = status;
    failure = error;
}

bool ExportJob::engineRuns() const {
    return transcoder && state != JobState::Starting;
}

std::string ExportJob::whatStalled(Watchdog::Wait wait) const {
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

std::string ExportJob::hungReads() const {
    if (opening && opening->isRunning())
        return opening->step() + " does not come to an end";
    std::string paths;
    if (project)
        for (const Kestra::ioPath& path : project->pathsBeingRead())
            paths += (paths.empty() ? "Reading \"" : ", \"") + path.ToUtf8() + '"';
    return paths.empty() ? paths : paths + " does not come back";
}

std::string ExportJob::whatHangs() const {
    const std::string output = '"' + request.outputPath.toStdString() + '"';
    if (outputOpening && outputOpening->isRunning())
        return "Making a file beside " + output + " does not come to an end";
    if (state == JobState::Checking)
        return "Reading the finished file and moving it to " + output + " does not come to an end";
    const std::string reads = hungReads();
    return reads.empty() && engineRuns() ? "Encoding, or writing " + output + ", does not come back" : reads;
}

void ExportJob::onStalled(Watchdog::Wait wait) {
    const std::string hung = whatHangs();
    const ProcessingError error(TranscodingError::Stalled, whatStalled(wait) + (hung.empty() ? "" : ": " + hung));
    if (verdict == ExportOutcome::Status::Stopped)
        stall = error;
    else
        setFailure(error, ExportOutcome::Status::Failed);
    const bool started = engineRuns();
    enter(JobState::BrokenOff);
    breakOff(started);
    if (check)
        check->interrupt();
    if (!undo())
        return concludeCommitted();
    finish(*verdict);
}

/// What hangs may come back: it must find nothing that it could go on with.
void ExportJob::breakOff(bool started) {
    if (!transcoder)
        return;
    transcoder->disconnect(this);
    if (!started) // cannot be stopped yet, only destroyed
        return transcoder.reset();
    // Its destruction leaves what hangs only after some seconds: nobody has to wait for them to hear of the end.
    transcoder->stop();
    QMetaObject::invokeMethod(
        this, [this] { transcoder.reset(); }, Qt::QueuedConnection);
}

void ExportJob::tellHungReads() {
    const std::string hung = hungReads();
    if (hung.empty())
        return;
    if (verdict != ExportOutcome::Status::Stopped)
        outcome.warnings << QString::fromStdString(hung);
    else
        stall = ProcessingError(TranscodingError::Stalled, hung);
}

void ExportJob::concludeLater() {
    if (!mayFollow(state, JobState::Concluding)) // it is on its way, or behind
        return;
    enter(JobState::Concluding);
    watchdog.disarm();
    // Not from inside a signal of the transcoder: it is destroyed there. By what is made beforehand: the run may have
    // failed for want of memory.
    conclusion.start(0);
}

void ExportJob::conclude() {
    if (state != JobState::Concluding)
        return;
    transcoder.reset();
    if (project) {
        collectDamage();
        collectNotes();
    }
    tellHungReads();
    if (!verdict && checkFile())
        return;
    undo();
    finish(*verdict);
}

std::optional<KTime> ExportJob::missingFrom(const Kestra::Proc::DamageReport& report) const {
    if (!report.incomplete)
        return {};
    // Who asks for a part that lies before what is missing misses nothing.
    const KTime start = request.in.value_or(KTime(0));
    for (const Project::Clip& clip : project->clips()) {
        const KTime end = Types::fromAvTime(clip.start + std::min(report.time, clip.duration));
        if (clip.path == report.path && start < Types::fromAvTime(clip.start + clip.duration) &&
            (!request.out || *request.out > end))
            return end;
    }
    return {};
}

std::string ExportJob::wayOut(KTime missing) const {
    if (missing <= request.in.value_or(KTime(0)))
        return {};
    return "; what comes before can be exported with --out " + TimeText::format(missing);
}

void ExportJob::collectDamage() {
    for (const Kestra::Proc::DamageReport& report : project->takeDamageReports()) {
        const std::string sentence = '"' + report.path.ToUtf8() + "\" is damaged at " +
                                     TimeText::format(Types::fromAvTime(report.time)) + ": " + report.what;
        const std::optional<KTime> missing = missingFrom(report);
        if (missing && !verdict)
            setFailure(ProcessingError(TranscodingError::SourceDamaged, sentence + wayOut(*missing)),
                       ExportOutcome::Status::Failed);
        else
            outcome.warnings << QString::fromStdString(sentence);
    }
}

void ExportJob::collectNotes() {
    const auto& clips = project->clips();
    const auto none = [&clips](const auto& has) { return std::none_of(clips.begin(), clips.end(), has); };
    if (expected.hasVideo && none([](const Project::Clip& clip) { return clip.info.video.has_value(); }))
        outcome.notes << tr("None of the inputs has a picture: what is shown is black");
    if (expected.hasAudio && !expected.hasVideo &&
        none([](const Project::Clip& clip) { return clip.info.audio.has_value(); }))
        outcome.notes << tr("None of the inputs has sound: what is heard is silence");
    for (const Kestra::Proc::SourceNote& note : project->takeNotes())
        outcome.notes << QString::fromStdString('"' + note.path.ToUtf8() + "\": " + note.what);
}

bool ExportJob::checkFile() {
    enter(JobState::Checking);
    folderSynced = std::make_shared<std::atomic<bool>>(false);
    const auto last = [transaction = transaction, synced = folderSynced, output = request.outputPath.toUtf8(),
                       inputs = request.inputs] {
        transaction->sync();
        if (RequestCheck::isInput(output, inputs))
            KESTRA_THROW(Kestra::Proc::ProcException(TranscodingError::OutputNotWritable,
                                                     "The output has become one of the inputs meanwhile"));
        *synced = transaction->commit();
    };
    check = std::make_unique<FileCheckTask>(Kestra::ioPath(unfinishedPath.toStdString()), expected, last);
    connect(check.get(), &FileCheckTask::finished, this, &ExportJob::onChecked);
    follow(*check, Watchdog::Wait::Progress);
    try {
        check->start();
        return true;
    } catch (...) { // no thread is to be had
        setFailure(std::current_exception());
        return false;
    }
}

void ExportJob::onChecked(const std::exception_ptr& error) {
    if (state != JobState::Checking)
        return;
    if (!undo())
        return concludeCommitted();
    if (error)
        setFailure(error);
    finish(verdict.value_or(ExportOutcome::Status::Stopped));
}

/// A file that stands at its place is done, whatever was wished or failed after that.
void ExportJob::concludeCommitted() {
    failure.reset();
    stall.reset();
    if (!*folderSynced)
        outcome.warnings << tr("The folder of the finished file could not be brought to the disk");
    collectFacts();
    finish(ExportOutcome::Status::Done);
}

bool ExportJob::undo() {
    if (!transaction)
        return true;
    constexpr std::chrono::seconds patience{2};
    const auto committed = std::make_shared<std::atomic<bool>>(false);
    const std::weak_ptr<OutputTransaction> left = transaction;
    // Not on this thread: a folder that does not answer would keep it.
    const bool ended = Kestra::LeavableThread::Call(
        "remove-output",
        [held = std::exchange(transaction, nullptr), committed]() mutable {
            held->rollback();
            *committed = held->isCommitted();
            held.reset();
        },
        patience);
    if (const auto hanging = ended ? nullptr : left.lock())
        hanging->leave();
    if (!ended && !*committed)
        tellLeftover();
    return !*committed;
}

void ExportJob::tellLeftover() {
    const std::string name = unfinishedPath.mid(unfinishedPath.lastIndexOf('/') + 1).toStdString();
    const std::string left = "The folder of \"" + request.outputPath.toStdString() +
                             "\" does not answer: an unfinished file may be left there, " + name;
    if (verdict == ExportOutcome::Status::Stopped && !stall)
        stall = ProcessingError(TranscodingError::Stalled, left);
    else
        outcome.warnings << QString::fromStdString(left);
}

void ExportJob::collectFacts() {
    const Kestra::Proc::CheckedFile& file = check->result();
    ExportFacts& facts = outcome.facts;
    facts.path = request.outputPath;
    facts.sizeBytes = file.size;
    const std::int64_t length = std::max(expected.videoDuration, expected.audioDuration);
    facts.durationMs = Types::fromAvTime(length).milliseconds();
    for (const Kestra::Proc::CheckedStream& stream : file.streams) {
        if (stream.kind == Kestra::Proc::CheckedStream::Kind::Video) {
            facts.frames = stream.packets;
            facts.width = static_cast<int>(stream.frame.width);
            facts.height = static_cast<int>(stream.frame.height);
            facts.videoCodec = stream.codec;
        } else if (stream.kind == Kestra::Proc::CheckedStream::Kind::Audio) {
            facts.audioCodec = stream.codec;
            facts.sampleRate = stream.sampleRate;
            facts.channels = stream.channels;
        }
    }
    facts.elapsedMs = clock.elapsed();
    if (facts.elapsedMs > 0)
        facts.speed = static_cast<double>(facts.durationMs) / static_cast<double>(facts.elapsedMs);
}

QString ExportJob::inUsersWords(const std::string& sentence) const {
    // The engine knows the private file only; the user knows the output only.
    QString text = QString::fromStdString(sentence);
    if (!unfinishedPath.isEmpty())
        text.replace(QString::fromUtf8(unfinishedPath), request.outputPath);
    return text.trimmed();
}

void ExportJob::finish(ExportOutcome::Status status) {
    enter(JobState::Ended);
    watchdog.disarm();
    outcome.status = status;
    if (const auto& reason = failure ? failure : stall) {
        const QString words = inUsersWords(reason->GetDescription());
        outcome.errorPath = NamedPath::in(words, request);
        outcome.error = ProcessingError(reason->GetCode(), PlainText::escaped(words.toStdString()));
    }
    for (const QString& sentence : outcome.warnings + outcome.notes)
        if (const QString path = NamedPath::in(sentence, request); !path.isEmpty())
            outcome.paths.insert(sentence, path);
    Q_EMIT finished(outcome);
}

} // namespace ExportCore
