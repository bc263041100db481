// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/ExportRun.h"

#include "EditorProject/EditorProject.h"
#include "Export/PresetProvider.h"
#include "Export/Transcoder.h"
#include "ExportCore/FileCheckTask.h"
#include "ExportCore/FrameSnap.h"
#include "ExportCore/IOutputTransaction.h"
#include "ExportCore/InputOpening.h"
#include "ExportCore/Losses.h"
#include "ExportCore/LoudnessGain.h"
#include "ExportCore/LoudnessTask.h"
#include "ExportCore/OutputOpening.h"
#include "ExportCore/OutroPictures.h"
#include "ExportCore/PresetCatalogue.h"
#include "ExportCore/PresetChoice.h"
#include "ExportCore/PresetSelection.h"
#include "ExportCore/Refusal.h"
#include "ExportCore/RequestCheck.h"
#include "ExportCore/TimeText.h"
#include "ExportCore/TimelineOpening.h"
#include "Kestra/Base/Time.h"
#include "Kestra/ClientAPI/ContainerLimits.h"
#include "Kestra/Proc/Filters/PictureTap.h"
#include "Kestra/Proc/ProcException.h"
#include "Types/Time.h"
#include <algorithm>
#include <cassert>
#include <limits>
#include <utility>

namespace ExportCore {

using Kestra::Proc::ProcessingError;
using Kestra::Proc::TranscodingError;

ExportRun::ExportRun(ExportRequest request, const QObject& job)
    : request(std::move(request))
    , job(job)
    , pictureBox(std::make_shared<Kestra::Proc::PictureBox>())
    , engineRelease(this)
    , removal(this)
    , taskPatience(this)
    , watchdog(this->request.limits, this)
    , conclusion(this)
    , reads(this)
    , trial(this) {
    connect(&engineRelease, &EngineRelease::ended, this, &ExportRun::onEngineEnded);
    connect(&removal, &OutputRemoval::ended, this, &ExportRun::endWhenLetGo);
    taskPatience.setSingleShot(true);
    taskPatience.setTimerType(Qt::PreciseTimer);
    connect(&taskPatience, &QTimer::timeout, this, &ExportRun::endWhenLetGo);
    connect(&watchdog, &Watchdog::stalled, this, &ExportRun::onStalled);
    conclusion.setSingleShot(true);
    connect(&conclusion, &QTimer::timeout, this, &ExportRun::conclude);
    reads.setSingleShot(true);
    connect(&reads, &QTimer::timeout, this, &ExportRun::awaitReads);
    trial.setSingleShot(true);
    connect(&trial, &QTimer::timeout, this, &ExportRun::onTrialEnded);
}

ExportRun::~ExportRun() {
    disconnect(&engineRelease, nullptr, this, nullptr);
    disconnect(&removal, nullptr, this, nullptr);
    // What hangs is waited for at the same time.
    for (BackgroundTask* const task : tasks())
        if (task)
            task->interrupt();
    if (transcoder) // before the provider that it borrows
        engineRelease.start(std::move(transcoder));
    check.reset();
    opening.reset();
    loudnessTask.reset();
    outputOpening.reset();
    engineRelease.finishHere(); // before the private file that its threads write
    if (transaction)
        removal.start(std::move(transaction)); // whose own end is waited for
}

std::shared_ptr<Kestra::Proc::PictureBox> ExportRun::watchPictures() {
    return pictureBox;
}

void ExportRun::start() {
    clock.start();
    QMetaObject::invokeMethod(this, &ExportRun::prepare, Qt::QueuedConnection);
}

void ExportRun::enter(JobState next) {
    assert(mayFollow(state, next));
    state = next;
}

// A stop may come in the middle of a step, from what the step calls: what follows looks for a verdict.
void ExportRun::attempt(const std::function<void()>& step) {
    try {
        step();
    } catch (const Refusal& refusal) {
        setFailure(ProcessingError(refusal.code(), refusal.what()), ExportOutcome::Status::Refused);
    } catch (...) { // its kind is read from it, whatever it is
        setFailure(std::current_exception());
    }
    if (verdict)
        concludeLater();
}

void ExportRun::prepare() {
    if (state != JobState::Made)
        return;
    attempt([this] {
        RequestCheck::ranges(request);
        RequestCheck::outputIsNamed(request);
        OutroPictures::require(request.brandingName);
        tryToSelectPreset();
        openInputs();
    });
}

void ExportRun::openInputs() {
    if (verdict)
        return;
    enter(JobState::OpeningInputs);
    if (presetRefusal.empty())
        opening = std::make_unique<InputOpening>(request, provider->preset());
    else
        opening = std::make_unique<InputOpening>(request, presetRefusal);
    connect(opening.get(), &InputOpening::finished, this, &ExportRun::onOpened);
    follow(*opening, Watchdog::Wait::Start);
    opening->start();
}

void ExportRun::follow(BackgroundTask& task, Watchdog::Wait wait) {
    watchdog.expect(wait);
    connect(&task, &BackgroundTask::alive, this, [this, wait] {
        if (!verdict)
            watchdog.expect(wait);
    });
    connect(&task, &BackgroundTask::finished, this, &ExportRun::endWhenLetGo);
}

void ExportRun::goOn(const std::exception_ptr& error, const std::function<void()>& step) {
    // A task that was interrupted fails, but that is not why the run ends.
    if (verdict)
        return concludeLater();
    attempt([&error, &step] {
        if (error)
            std::rethrow_exception(error);
        step();
    });
}

void ExportRun::onOpened(const std::exception_ptr& error) {
    if (state != JobState::OpeningInputs)
        return;
    goOn(error, [this] {
        showTimeline();
        editPreset();
        measureSound();
    });
}

/// What is wrong with it is told with what is wrong with the inputs.
void ExportRun::tryToSelectPreset() {
    try {
        selectPreset();
    } catch (const Refusal& refusal) {
        presetRefusal = refusal.what();
    }
}

void ExportRun::selectPreset() {
    provider = PresetSelection::makeProvider();
    if (const std::string warning = provider->catalogueWarning(); !warning.empty())
        outcome.warnings << QString::fromStdString(warning);
    PresetSelection::select(*provider, choosePreset());
    sequence = SequenceName::of(request.outputPath, provider->preset());
    presetEdit = RequestCheck::presetEdit(request, *provider);
    presetEdit.dropMedia(*provider);
    presetEdit.settings.requireFit(provider->preset());
}

/// The catalogue is read once more only where the request names no preset itself.
std::string ExportRun::choosePreset() {
    const auto tags = provider->tags();
    if (!request.presetId.empty() && std::find(tags.begin(), tags.end(), request.presetId) == tags.end())
        return request.presetId;
    const PresetChoice choice = PresetChoice::of(request.presetId, request.outputPath, PresetCatalogue());
    if (!choice.reason.empty())
        outcome.notes
            << tr("The preset is %1, %2").arg(QString::fromStdString(choice.id), QString::fromStdString(choice.reason));
    return choice.id;
}

void ExportRun::showTimeline() {
    project = std::make_unique<EditorProject>();
    connect(project.get(), &EditorProject::streamFailed, this, &ExportRun::fail);
    project->tapPictures(pictureBox);
    project->show(opening->sequence());
    for (const std::string& warning : opening->warnings())
        outcome.warnings << QString::fromStdString(warning);
    for (const std::string& note : opening->notes())
        outcome.notes << QString::fromStdString(note);
    cutInputs();
    // What is not exported decides nothing of the file: size, rate, layout, depth.
    if (streamRange != Types::Range())
        project->describe(streamRange);
    collectDamage();
}

void ExportRun::cutInputs() {
    const Media::Video& video = project->video();
    const KTime length = project->duration();
    cut = CutPoints::of(request,
                        project->hasPictures() ? TimePoint::Rate({video.frameRateNumerator, video.frameRateDenominator})
                                               : std::nullopt,
                        length);
    streamRange = RequestCheck::streamRange(request, cut, length, OutroPictures::length(request.brandingName));
    if (cut.out && *cut.out > length)
        outcome.notes << tr("The inputs end before the out point, at %1: so does the file")
                             .arg(QString::fromStdString(TimeText::format(length)));
}

void ExportRun::editPreset() {
    if (verdict)
        return;
    presetEdit.apply(*provider, project->video(), project->audio());
    Losses::tell(outcome, *project, opening->sequence(), streamRange, request, *provider);
}

void ExportRun::measureSound() {
    if (verdict)
        return;
    if (!request.loudness)
        return beginOutput();
    if (!provider->preset().hasAudio() || !project->hasSound()) {
        outcome.notes << tr("There is no sound whose loudness could be changed");
        return beginOutput();
    }
    enter(JobState::Measuring);
    loudnessTask =
        std::make_unique<LoudnessTask>(project->soundOf(streamRange, provider->applyPreset(&project->audio())));
    connect(loudnessTask.get(), &LoudnessTask::finished, this, &ExportRun::onMeasured);
    follow(*loudnessTask, Watchdog::Wait::Progress);
    loudnessTask->start();
}

void ExportRun::onMeasured(const std::exception_ptr& error) {
    if (state != JobState::Measuring)
        return;
    goOn(error, [this] {
        changeLoudness();
        beginOutput();
    });
}

/// Each track of sound has its own.
void ExportRun::changeLoudness() {
    const auto& heard = loudnessTask->loudness();
    Render::Sequence sequence = opening->sequence();
    bool changes = false;
    for (std::size_t track = 0; track < heard.size(); ++track) {
        const std::string what = heard.size() > 1 ? "Sound track " + std::to_string(track + 1) : "The sound";
        const LoudnessGain gain = LoudnessGain::to(*request.loudness, heard[track], what);
        outcome.notes << QString::fromStdString(gain.note);
        if (!heard[track].integrated)
            continue;
        Render::SoundOptions& sound = track == 0 ? sequence.sound : sequence.furtherSounds.at(track - 1).sound;
        double& ceiling = sound.ceiling.emplace(sound.ceiling.value_or(1));
        ceiling = std::min(ceiling, LoudnessGain::CEILING);
        sound.gain = gain.factor;
        changes = true;
    }
    if (!changes)
        return;
    project->show(std::move(sequence));
    if (streamRange != Types::Range())
        project->describe(streamRange);
}

void ExportRun::beginOutput() {
    if (verdict)
        return;
    enter(JobState::MakingOutput);
    if (sequence)
        sequence->widenFor(forecastPictures());
    outputOpening =
        std::make_unique<OutputOpening>(request, QByteArray::fromStdString(provider->preset().containerId()), sequence);
    connect(outputOpening.get(), &OutputOpening::finished, this, &ExportRun::onOutputMade);
    follow(*outputOpening, Watchdog::Wait::Start);
    outputOpening->start();
}

/// Before there is a transcoder to tell.
qint64 ExportRun::forecastPictures() const {
    const KTime length = streamRange == Types::Range() ? project->duration() : streamRange.end - streamRange.start;
    return OutputEstimate::of(*provider, &project->video(), nullptr,
                              length + OutroPictures::length(request.brandingName))
        .frames;
}

QByteArray ExportRun::writtenPath() const {
    return sequence ? unfinishedPath + '/' + QByteArray::fromStdString(sequence->name.ToPattern()) : unfinishedPath;
}

void ExportRun::onOutputMade(const std::exception_ptr& error) {
    if (state != JobState::MakingOutput)
        return;
    transaction = outputOpening->take();
    goOn(error, [this] {
        unfinishedPath = transaction->privatePath();
        beginTranscoding();
    });
}

void ExportRun::beginTranscoding() {
    enter(JobState::Starting);
    Export::Transcoder::Data data;
    data.composition = project->composition();
    data.streamRange = streamRange;
    data.exportRange = snappedExportRange();
    data.outputPath = QString::fromUtf8(writtenPath());
    data.brandingName = request.brandingName;
    data.presetProvider = provider.get();
    transcoder = std::make_unique<Export::Transcoder>(nullptr);
    connectTranscoder();
    watchdog.expect(Watchdog::Wait::Start);
    QString error;
    if (!transcoder->initialize(data, error))
        KESTRA_THROW(Kestra::Proc::ProcException(TranscodingError::InvalidArgument, error.toStdString()));
    expect();
    noteProgramme();
    plan();
}

/// What the container has no place for.
void ExportRun::noteProgramme() {
    using Kestra::ClientAPI::ContainerLimits;
    using Kestra::ClientAPI::ProgrammeField;
    const Kestra::Conf::ProgrammeInfo programme = project->programme(streamRange);
    const std::string container = provider->preset().containerId();
    const auto note = [&](bool has, ProgrammeField field, const QString& what) {
        if (has && !ContainerLimits::Holds(container, field))
            outcome.notes << what + tr(" left out: the file has no place for it");
    };
    const bool isTimeline = TimelineOpening::isTimeline(request.inputs.first().toStdString());
    note(!programme.title.empty(), ProgrammeField::Title,
         isTimeline ? tr("The timeline's name is") : tr("The title is"));
    note(!programme.chapters.empty(), ProgrammeField::Chapters,
         isTimeline ? tr("Each of the timeline's markers is") : tr("Each chapter is"));
    note(programme.timecode.has_value(), ProgrammeField::TimeCode,
         isTimeline ? tr("The timeline's time code is") : tr("The time code is"));
    const auto all = opening->sequence().programme;
    if (all && programme.subtitles.size() < all->subtitles.size())
        outcome.notes << tr("Subtitles that show nothing in the range are left out");
    promise(programme, container);
}

void ExportRun::promise(const Kestra::Conf::ProgrammeInfo& programme, const std::string& container) {
    const Types::Range window = snappedExportRange();
    const bool isCut = window != Types::Range();
    const std::int64_t none = std::numeric_limits<std::int64_t>::max();
    PromisedProgramme& promised = expected.programme;
    promised.container = container;
    promised.programme = isCut ? programme.Part(Types::toAvTime(window.start), Types::toAvTime(window.end)) : programme;
    promised.addLeadingChapter();
    promised.length =
        std::min(expected.hasVideo ? expected.videoDuration : none, expected.hasAudio ? expected.audioDuration : none);
    // Times are told to the millisecond, and a range begins with a whole picture.
    promised.tolerance = 2 * Kestra::TICKS_PER_MILLISECOND;
    if (expected.frames > 0)
        promised.tolerance += expected.videoDuration / expected.frames;
}

void ExportRun::connectTranscoder() {
    using Export::Transcoder;
    connect(transcoder.get(), &Transcoder::started, this, &ExportRun::onStarted);
    connect(transcoder.get(), &Transcoder::progressChanged, this, &ExportRun::onProgress);
    connect(transcoder.get(), &Transcoder::failed, this, &ExportRun::onFailed);
    connect(transcoder.get(), &Transcoder::stopped, this, &ExportRun::concludeLater);
}

Types::Range ExportRun::snappedExportRange() const {
    const Media::Video& video = project->video();
    if (request.exportRange == Types::Range() || !provider->videoExists(&video))
        return request.exportRange;
    return FrameSnap::range(request.exportRange, provider->frameRate(&video));
}

void ExportRun::onFailed(const ProcessingError& error) {
    setFailure(error, ExportOutcome::Status::Failed);
}

} // namespace ExportCore
