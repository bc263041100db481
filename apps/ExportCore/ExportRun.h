// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::ExportRun: what an export job does, from the request to the checked file at its place.
#pragma once

#include "EditorProject/StreamLengths.h"
#include "ExportCore/CutPoints.h"
#include "ExportCore/EngineRelease.h"
#include "ExportCore/ExpectedFile.h"
#include "ExportCore/ExportOutcome.h"
#include "ExportCore/ExportProgress.h"
#include "ExportCore/ExportRequest.h"
#include "ExportCore/FileGrowth.h"
#include "ExportCore/JobState.h"
#include "ExportCore/OutputRemoval.h"
#include "ExportCore/PresetEdit.h"
#include "ExportCore/RunForecast.h"
#include "ExportCore/SequenceName.h"
#include "ExportCore/Watchdog.h"
#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <array>
#include <atomic>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

class EditorProject;
class Preset;

namespace Export {
class PresetProvider;
class Transcoder;
} // namespace Export

namespace Kestra::Proc {
class PictureBox;
struct DamageReport;
} // namespace Kestra::Proc

namespace ExportCore {

class BackgroundTask;
class FileCheckTask;
class IOutputTransaction;
class InputOpening;
class LoudnessTask;
class OutputOpening;

/// What ExportJob keeps to itself; its contract is that one's. Owned by the job, on its thread.
class ExportRun : public QObject {
    Q_OBJECT
public:
    /// The job is borrowed for as long as it owns this.
    ExportRun(ExportRequest request, const QObject& job);
    ~ExportRun() override;

    std::shared_ptr<Kestra::Proc::PictureBox> watchPictures();
    void callBeforePlacing(std::function<void(const QString& made)> call) { beforePlacing = std::move(call); }
    void start();
    void stop();
    void fail(const std::exception_ptr& error);
    void failInEventLoop(const std::exception_ptr& error, const QObject* receiver);

Q_SIGNALS:
    void started();
    void progressChanged(const ExportCore::ExportProgress& progress);
    void finished(const ExportCore::ExportOutcome& outcome);

private:
    /// The one way from state to state.
    void enter(JobState next);
    void attempt(const std::function<void()>& step);
    /// What comes behind a task that has ended, unless it has failed or the run is to end.
    void goOn(const std::exception_ptr& error, const std::function<void()>& step);
    void prepare();
    void openInputs();
    void onOpened(const std::exception_ptr& error);
    void showTimeline();
    void follow(BackgroundTask& task, Watchdog::Wait wait);
    /// In the order in which they run; null where there is none yet.
    std::array<BackgroundTask*, 4> tasks() const;
    /// Asks the task that runs to come to its end; false when none does.
    bool interruptTask();
    bool isTaskRunning() const;
    bool engineRuns() const;
    bool isPart(const QObject* object) const;
    void tryToSelectPreset();
    void selectPreset();
    std::string choosePreset();
    void cutInputs();
    void editPreset();
    void measureSound();
    void onMeasured(const std::exception_ptr& error);
    void changeLoudness();
    void beginOutput();
    void onOutputMade(const std::exception_ptr& error);
    void beginTranscoding();
    qint64 forecastPictures() const;
    /// Of what is written: the private file, or the pattern in the private folder.
    QByteArray writtenPath() const;
    void noteProgramme();
    void promise(const Kestra::Conf::ProgrammeInfo& programme, const std::string& container);
    void connectTranscoder();
    void expect();
    Project::StreamLengths lengthsOf(const Media::Video* video, const Media::Audio* audio) const;
    void expectOutro();
    void countFrames();
    void expectPictures();
    Types::Range snappedExportRange() const;

    void plan();
    std::vector<ExportPlan::Stream> plannedStreams() const;
    double pictureScale() const;
    void addPlannedExtras(ExportPlan& plan) const;
    void requireRoom();
    double partRead() const;
    void noteGrowth(qint64 bytes);
    void concludeTrial(qint64 exportMs);
    void concludeWholeTrial();
    void onTrialEnded();

    void onStarted();
    void onProgress(int percent, KTime remaining);
    void endRunning(ExportOutcome::Status status);
    void onFailed(const Kestra::Proc::ProcessingError& error);
    void onStalled(Watchdog::Wait wait);
    void breakOff();
    std::string whatStalled(Watchdog::Wait wait) const;
    std::string hungReads() const;
    std::string whatHangs() const;
    void tellHungReads();

    void setFailure(const std::exception_ptr& error);
    void setFailure(Kestra::Proc::ProcessingError error, ExportOutcome::Status status);
    void collectDamage();
    void collectNotes();
    /// Where in the composition begins what is missing, when the request asks for it.
    std::optional<KTime> missingFrom(const Kestra::Proc::DamageReport& report) const;
    /// How a request that misses something from then on could ask for what is there.
    std::string wayOut(KTime missing) const;
    void concludeLater();
    /// Begins with the engine: what it has left behind is asked for when it is at its end.
    void conclude();
    void onEngineEnded();
    void awaitReads();
    void goOnFromEngine();
    /// What is to be said of the run besides its verdict. Nothing of it runs any more.
    void gather();
    /// False when it could not begin, which is the run's failure.
    bool checkFile();
    void onChecked(const std::exception_ptr& error);
    /// Of the output. Its file may stand at its place all the same.
    void letGo();
    /// Once nothing is left, or was left: the destruction waits for nobody then.
    void endWhenLetGo();
    /// Nothing can change the end any more.
    bool isOver() const { return state == JobState::LettingGo || state == JobState::Ended; }
    void tellLeftover();
    void concludeCommitted();
    QString inUsersWords(const std::string& sentence) const;
    void finish(ExportOutcome::Status status);
    void tellReason();
    void namePaths();

    const ExportRequest request;
    const QObject& job;
    std::function<void(const QString& made)> beforePlacing;
    std::string presetRefusal; ///< why none could be selected
    PresetEdit presetEdit;
    CutPoints cut;
    Types::Range streamRange;
    std::unique_ptr<EditorProject> project;
    const std::shared_ptr<Kestra::Proc::PictureBox> pictureBox;
    std::unique_ptr<Export::PresetProvider> provider;
    std::unique_ptr<InputOpening> opening;
    std::unique_ptr<LoudnessTask> loudnessTask;
    std::unique_ptr<OutputOpening> outputOpening;
    std::shared_ptr<IOutputTransaction> transaction; ///< the check's too
    QByteArray unfinishedPath;                       ///< empty while there is none
    std::optional<SequenceName> sequence;            ///< where each picture is a file of its own
    /// The check's too. What is told of a finished file is known before it is moved to its place: from then on nothing
    /// may fail.
    struct Finished {
        ExportFacts facts;
        std::atomic<bool> factsKnown{false};
        std::atomic<bool> folderSynced{false};
    };
    std::shared_ptr<Finished> finishedFile;
    std::unique_ptr<Export::Transcoder> transcoder;
    EngineRelease engineRelease;
    std::unique_ptr<FileCheckTask> check;
    OutputRemoval removal;
    QTimer taskPatience; ///< with one that hangs
    Watchdog watchdog;
    QTimer conclusion;
    QTimer reads; ///< that go on behind the engine's end
    QElapsedTimer sinceEngine;
    QTimer trial; ///< of a run that is not to be made: how long it is tried
    QElapsedTimer clock;
    ExpectedFile expected;
    std::optional<RunForecast> forecast;
    std::optional<FileGrowth> growth;
    qint64 startedAt = 0; ///< by the clock
    /// When the file had just grown, and for what part of the pass.
    struct Written {
        qint64 bytes = 0;
        double part = 0;
    } written;
    ExportOutcome outcome;
    JobState state = JobState::Made;
    /// What ends the run before its file is done, the first cause; none while all is well.
    std::optional<ExportOutcome::Status> verdict;
    std::optional<Kestra::Proc::ProcessingError> failure; ///< of a run that is refused or has failed
    std::optional<Kestra::Proc::ProcessingError> stall;   ///< of a run that was stopped
};

} // namespace ExportCore
