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
#include <utility>

namespace ExportCore {

using Kestra::Proc::ProcessingError;
using Kestra::Proc::TranscodingError;

void ExportJob::stop() {
    if (ended || ownStop)
        return;
    ownStop = true;
    if (running && !concluding) {
        watchdog.expect(Watchdog::Wait::Stop);
        transcoder->stop();
        return;
    }
    if (endSoon(opening.get()) || endSoon(outputOpening.get()) || endSoon(check.get()))
        return;
    // A run that has not started cannot be stopped, only destroyed.
    concludeLater();
}

void ExportJob::fail(const std::exception_ptr& error) {
    if (ended)
        return;
    setFailure(error);
    if (!endSoon(opening.get()) && !endSoon(outputOpening.get()) && !endSoon(check.get()))
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

bool ExportJob::endSoon(BackgroundTask* task) {
    if (!task || !task->isRunning())
        return false;
    watchdog.expect(Watchdog::Wait::Interruption);
    if (transaction)
        transaction->forbid();
    task->interrupt();
    return true;
}

void ExportJob::setFailure(const std::exception_ptr& error) {
    if (!failure && !ownStop)
        failure = ProcessingError::MakeProcessingErrorFromException(error);
}

std::string ExportJob::whatStalled(Watchdog::Wait wait) const {
    const std::string limit = std::to_string(std::max<long long>(watchdog.limitOf(wait).count() / 1000, 1)) + " s";
    switch (wait) {
    case Watchdog::Wait::Start:
        return "The export did not start within " + limit;
    case Watchdog::Wait::Progress:
        return (check ? "Checking the finished file made no progress for " : "The export made no progress for ") +
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
    if (check)
        return "Reading the finished file and moving it to " + output + " does not come to an end";
    const std::string reads = hungReads();
    return reads.empty() && running ? "Encoding, or writing " + output + ", does not come back" : reads;
}

void ExportJob::onStalled(Watchdog::Wait wait) {
    const std::string hung = whatHangs();
    const ProcessingError error(TranscodingError::Stalled, whatStalled(wait) + (hung.empty() ? "" : ": " + hung));
    if (ownStop && !failure)
        stall = error;
    else if (!failure)
        failure = error;
    concluding = true;
    breakOff();
    if (check)
        check->interrupt();
    if (!undo())
        return concludeCommitted();
    finish(failure ? ExportOutcome::Status::Failed : ExportOutcome::Status::Stopped);
}

/// What hangs may come back: it must find nothing that it could go on with.
void ExportJob::breakOff() {
    if (!transcoder)
        return;
    transcoder->disconnect(this);
    if (!running) // cannot be stopped yet, only destroyed
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
    if (!ownStop || failure)
        outcome.warnings << QString::fromStdString(hung);
    else
        stall = ProcessingError(TranscodingError::Stalled, hung);
}

void ExportJob::concludeLater() {
    if (std::exchange(concluding, true))
        return;
    watchdog.disarm();
    // Not from inside a signal of the transcoder: it is destroyed there.
    QMetaObject::invokeMethod(this, &ExportJob::conclude, Qt::QueuedConnection);
}

void ExportJob::conclude() {
    if (ended || check)
        return;
    transcoder.reset();
    if (project) {
        collectDamage();
        collectNotes();
    }
    tellHungReads();
    if (!failure && !ownStop && checkFile())
        return;
    undo();
    finish(failure && refused ? ExportOutcome::Status::Refused
           : failure          ? ExportOutcome::Status::Failed
                              : ExportOutcome::Status::Stopped);
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
        if (missing && !failure && !ownStop)
            failure = ProcessingError(TranscodingError::SourceDamaged, sentence + wayOut(*missing));
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
    if (ended)
        return;
    if (!undo())
        return concludeCommitted();
    if (error)
        setFailure(error);
    finish(failure ? ExportOutcome::Status::Failed : ExportOutcome::Status::Stopped);
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
    if (ownStop && !failure && !stall)
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
    if (std::exchange(ended, true))
        return;
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
