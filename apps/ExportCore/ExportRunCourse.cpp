// SPDX-License-Identifier: GPL-3.0-or-later
// How a run goes: what it is going to make, what it tells on its way, and how it is only tried.
#include "EditorProject/EditorProject.h"
#include "Export/PresetProvider.h"
#include "Export/Transcoder.h"
#include "ExportCore/ExportRun.h"
#include "ExportCore/InputOpening.h"
#include "ExportCore/OutputOpening.h"
#include "ExportCore/OutroPictures.h"
#include "ExportCore/Passes.h"
#include "ExportCore/Refusal.h"
#include "ExportCore/SizeText.h"
#include "Kestra/Base/Time.h"
#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/ClientAPI/ContainerLimits.h"
#include "Kestra/Conf/Codec.h"
#include "Kestra/Conf/Container.h"
#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/Conf/ProgrammeInfo.h"
#include "Kestra/Conf/SampleInfo.h"
#include "Kestra/Proc/Filters/PictureTap.h"
#include "Kestra/Proc/ProcException.h"
#include "Types/Time.h"
#include <algorithm>
#include <boost/rational.hpp>

namespace ExportCore {

using Kestra::Proc::TranscodingError;

namespace {

/// Long enough for the engine to tell how long it will take.
constexpr int TRIAL_MILLISECONDS = 2500;

ExportPlan::Stream pictureOf(const Export::PresetProvider& provider, const Media::Video& source,
                             const Media::Video& made) {
    const Preset preset = provider.preset();
    const bool hasBitrate = Kestra::ClientAPI::CodecLimits::HasBitrate(preset.videoCodec());
    const bool byQuality = preset.videoBitrateMode() == Export::BitrateMode::Quality;
    ExportPlan::Stream stream;
    stream.codec = Kestra::Conf::CodecIDToString(preset.videoCodec());
    stream.profile = preset.videoProfile();
    stream.bitrateBps = hasBitrate && !byQuality ? provider.bitrate(&source).maximum : 0;
    // Where there is no loss a number on the scale is effort.
    const bool hasScale = Kestra::ClientAPI::CodecLimits::VideoQuality(preset.videoCodec()).Exists();
    stream.quality = byQuality && (hasBitrate || (hasScale && stream.profile.empty())) ? preset.videoQuality() : 0;
    stream.width = static_cast<int>(made.width);
    stream.height = static_cast<int>(made.height);
    stream.frameRate = provider.frameRate(&source);
    return stream;
}

ExportPlan::Stream soundOf(const Export::PresetProvider& provider, const Media::Audio& source) {
    const Preset preset = provider.preset();
    const Kestra::Conf::AudioCodec* const codec = Kestra::Conf::Codec::FindAudio(preset.audioCodec());
    const std::uint32_t layout = preset.channelLayout() != 0 ? preset.channelLayout() : source.channelLayout;
    ExportPlan::Stream stream;
    stream.kind = ExportPlan::Stream::Kind::Audio;
    stream.codec = Kestra::Conf::CodecIDToString(preset.audioCodec());
    stream.bitrateBps = codec && !codec->lossless ? provider.bitrate(&source).maximum : 0;
    stream.sampleRate = preset.sampleRate() > 0 ? static_cast<int>(preset.sampleRate()) : source.sampleRate;
    stream.channels = Kestra::Conf::CountChannels(layout);
    return stream;
}

void name(ExportPlan::Stream& stream, const Kestra::Conf::ProgrammeInfo::TrackName& name) {
    stream.language = name.language;
    stream.title = name.title;
    stream.isDefault = name.isDefault;
}

using StreamKind = ExportPlan::Stream::Kind;

/// Of each kind the first, unless one is told to be it: what players begin with.
void markDefaults(std::vector<ExportPlan::Stream>& streams, const std::vector<StreamKind>& kinds) {
    for (const StreamKind kind : kinds) {
        const auto isOfKind = [kind](const ExportPlan::Stream& stream) { return stream.kind == kind; };
        const auto isMarked = [&](const ExportPlan::Stream& stream) { return isOfKind(stream) && stream.isDefault; };
        const auto first = std::find_if(streams.begin(), streams.end(), isOfKind);
        if (first != streams.end() && std::none_of(streams.begin(), streams.end(), isMarked))
            first->isDefault = true;
    }
}

ExportPlan::Stream subtitlesOf(const Kestra::Conf::Subtitles& subtitles, const Kestra::Conf::Container& container) {
    ExportPlan::Stream stream;
    stream.kind = ExportPlan::Stream::Kind::Subtitles;
    stream.codec = subtitles.styled && container.styledSubtitles ? container.styledSubtitles : container.subtitles;
    stream.language = subtitles.language;
    stream.title = subtitles.title;
    stream.isDefault = subtitles.isDefault;
    stream.forced = subtitles.forced;
    return stream;
}

ExportPlan::Stream coverOf(const Kestra::Conf::ProgrammeInfo::Cover& cover) {
    ExportPlan::Stream stream;
    stream.kind = ExportPlan::Stream::Kind::Cover;
    stream.codec = cover.mimeType == "image/png" ? "png" : "mjpeg";
    stream.width = cover.width;
    stream.height = cover.height;
    return stream;
}

} // namespace

void ExportRun::expect() {
    const Media::Video* video = transcoder->videoNeeded() ? &transcoder->videoPreset() : nullptr;
    const Media::Audio* audio = transcoder->audioNeeded() ? &transcoder->audioPreset() : nullptr;
    const Project::StreamLengths lengths = lengthsOf(video, audio);
    expected.hasVideo = video != nullptr;
    expected.hasAudio = audio != nullptr;
    expected.furtherSounds = audio ? static_cast<int>(opening->sequence().furtherSounds.size()) : 0;
    expected.frames = lengths.videoFrames;
    expected.videoDuration = lengths.videoDuration;
    expected.audioDuration = lengths.audioDuration;
    expectOutro();
    expectPictures();
    const Types::Range window = snappedExportRange();
    if (window == Types::Range())
        return;
    const std::int64_t start = Types::toAvTime(window.start), end = Types::toAvTime(window.end);
    expected.videoDuration = std::min(end, expected.videoDuration) - start;
    expected.audioDuration = std::min(end, expected.audioDuration) - start;
    countFrames();
}

void ExportRun::expectPictures() {
    expected.expectAnimation(provider->preset(), transcoder->videoPreset().width, transcoder->videoPreset().height);
    if (!sequence)
        return;
    const Kestra::Core::Property order = provider->preset().videoEncoderData();
    const char* const tag = Kestra::Conf::IFormatCodecVideo::TAG_PIXEL_FORMAT;
    const std::string format = order.ChildExists(tag) ? order[tag].GetString() : std::string();
    const Media::Video& made = transcoder->videoPreset();
    expected.pictures = ExpectedFile::Pictures{sequence->name, made.width, made.height, format};
    expected.pictures->fitTo(provider->preset().videoCodec());
}

Project::StreamLengths ExportRun::lengthsOf(const Media::Video* video, const Media::Audio* audio) const {
    try {
        return project->expectedLengths(streamRange, video, audio);
    } catch (const Kestra::Proc::ProcException& error) {
        // Only with the preset is it known how long a frame is; a range that holds none is refused all the same.
        KESTRA_THROW(Refusal(error.what()));
    }
}

void ExportRun::expectOutro() {
    const std::int64_t outro = Types::toAvTime(OutroPictures::length(request.brandingName));
    if (outro == 0)
        return;
    expected.videoDuration += expected.hasVideo ? outro : 0;
    expected.audioDuration += expected.hasAudio ? outro : 0;
    countFrames();
}

void ExportRun::countFrames() {
    if (expected.hasVideo)
        expected.frames = Kestra::TimeToFrames(expected.videoDuration, provider->frameRate(&project->video()));
}

/// After expect() and noteProgramme().
void ExportRun::plan() {
    const std::int64_t length = std::max(expected.videoDuration, expected.audioDuration);
    ExportPlan& plan = outcome.plan.emplace();
    plan.path = request.outputPath;
    plan.preset = provider->preset().id();
    plan.container = provider->preset().containerId();
    plan.streams = plannedStreams();
    const Passes passes = Passes::of(provider->preset(), expected.hasVideo, pictureScale());
    plan.passes = passes.count;
    addPlannedExtras(plan);
    plan.estimate = OutputEstimate::of(*provider, expected.hasVideo ? &project->video() : nullptr,
                                       expected.hasAudio ? &project->audio() : nullptr, Types::fromAvTime(length),
                                       1 + expected.furtherSounds);
    plan.estimate.frames = expected.frames;
    plan.freeBytes = outputOpening->freeBytes();
    forecast.emplace(RunForecast::Run{passes.count, expected.frames, passes.laterCosts});
    if (sequence)
        growth.emplace(SequenceName{unfinishedPath, sequence->name});
    else
        growth.emplace(unfinishedPath);
    if (request.dryRun && plan.estimate.exact)
        requireRoom();
}

/// Pixels that are encoded for each one that is read.
double ExportRun::pictureScale() const {
    const auto pixels = [](const Media::Video& video, double rate) { return rate * video.width * video.height; };
    const Media::Video& read = project->video();
    const double rateRead = static_cast<double>(read.frameRateNumerator) / std::max(read.frameRateDenominator, 1U);
    const double allRead = pixels(read, rateRead);
    return allRead > 0
               ? pixels(transcoder->videoPreset(), boost::rational_cast<double>(provider->frameRate(&read))) / allRead
               : 1;
}

std::vector<ExportPlan::Stream> ExportRun::plannedStreams() const {
    using Kestra::ClientAPI::ContainerLimits;
    using Kestra::ClientAPI::ProgrammeField;
    std::vector<ExportPlan::Stream> streams;
    if (expected.hasVideo)
        streams.push_back(pictureOf(*provider, project->video(), transcoder->videoPreset()));
    const Kestra::Conf::ProgrammeInfo& programme = expected.programme.programme;
    if (expected.hasVideo)
        name(streams.back(), programme.picture);
    for (int track = 0; expected.hasAudio && track <= expected.furtherSounds; ++track) {
        streams.push_back(soundOf(*provider, project->audio()));
        const auto further = static_cast<std::size_t>(track) - 1;
        if (track == 0)
            name(streams.back(), programme.sound);
        else if (further < programme.furtherSounds.size())
            name(streams.back(), programme.furtherSounds[further]);
    }
    // Such files tell it of each track.
    if (ContainerLimits::Holds(provider->preset().containerId(), ProgrammeField::FurtherSounds))
        markDefaults(streams, {StreamKind::Video, StreamKind::Audio});
    return streams;
}

/// What the file has beside pictures and sound.
void ExportRun::addPlannedExtras(ExportPlan& plan) const {
    using Kestra::ClientAPI::ContainerLimits;
    using Kestra::ClientAPI::ProgrammeField;
    const Kestra::Conf::ProgrammeInfo& programme = expected.programme.programme;
    const Kestra::Conf::Container* const container = Kestra::Conf::Container::Find(plan.container);
    for (const Kestra::Conf::Subtitles& track : programme.subtitles)
        if (!ContainerLimits::SubtitlesIn(plan.container, track).cues.empty())
            plan.streams.push_back(subtitlesOf(track, *container));
    if (container && container->family == Kestra::Conf::Container::Family::Mov)
        markDefaults(plan.streams, {StreamKind::Subtitles});
    const bool hasCover = !programme.cover.bytes.empty() && !expected.hasVideo;
    if (hasCover && ContainerLimits::Holds(plan.container, ProgrammeField::Cover))
        plan.streams.push_back(coverOf(programme.cover));
    if (ContainerLimits::Holds(plan.container, ProgrammeField::Chapters))
        plan.chapters = static_cast<int>(programme.chapters.size());
}

/// An estimate that material may undershoot stands in nobody's way.
void ExportRun::requireRoom() {
    const ExportPlan& plan = *outcome.plan;
    if (!plan.freeBytes || plan.estimate.sizeBytes <= *plan.freeBytes)
        return;
    const OutputEstimate& estimate = plan.estimate;
    const std::string text = std::string("The file will take ") +
                             (estimate.exact   ? ""
                              : estimate.rough ? "roughly "
                                               : "about ") +
                             SizeText::format(estimate.sizeBytes) + ", but beside \"" +
                             request.outputPath.toStdString() + "\" only " + SizeText::format(*plan.freeBytes) +
                             " are free";
    if (estimate.exact)
        KESTRA_THROW(Kestra::Proc::ProcException(TranscodingError::DiskFull, text));
    outcome.warnings << QString::fromStdString(text);
}

void ExportRun::onStarted() {
    if (state == JobState::Ending) // a later pass
        return watchdog.expect(Watchdog::Wait::Stop);
    if (state != JobState::Starting && state != JobState::Running)
        return;
    watchdog.expect(Watchdog::Wait::Progress);
    forecast->beginPass(clock.elapsed());
    if (state == JobState::Running)
        return;
    enter(JobState::Running);
    startedAt = clock.elapsed();
    if (request.dryRun)
        trial.start(TRIAL_MILLISECONDS);
    Q_EMIT started();
}

void ExportRun::onProgress(int percent, KTime remaining) {
    if (state != JobState::Running)
        return;
    watchdog.expect(Watchdog::Wait::Progress);
    ExportProgress progress;
    progress.percent = percent;
    progress.elapsedMs = clock.elapsed();
    forecast->advance({percent, remaining < KTime(0) ? -1 : remaining.milliseconds(), partRead()}, progress.elapsedMs);
    progress.pass = forecast->pass();
    progress.passes = outcome.plan->passes;
    progress.remainingMs = forecast->remaining(progress.elapsedMs);
    progress.framesPerSecond = forecast->framesPerSecond();
    progress.bytes = growth->bytes();
    noteGrowth(progress.bytes);
    const std::int64_t length = std::max(expected.videoDuration, expected.audioDuration);
    if (progress.elapsedMs > 0)
        progress.speed = static_cast<double>(length) / Kestra::TICKS_PER_MILLISECOND * percent / 100.0 /
                         static_cast<double>(progress.elapsedMs);
    Q_EMIT progressChanged(progress);
}

/// Of the pictures, in the pass that runs; -1 without any.
double ExportRun::partRead() const {
    return RunForecast::partRead(pictureBox->Reached(), Types::toAvTime(snappedExportRange().start),
                                 expected.hasVideo ? expected.videoDuration : 0);
}

/// A look at the file's size tells what had been written when it had just grown.
void ExportRun::noteGrowth(qint64 bytes) {
    if (bytes <= written.bytes)
        return;
    written = {bytes, forecast->part()};
}

void ExportRun::concludeTrial(qint64 exportMs) {
    outcome.plan->exportMs = exportMs;
    if (outcome.plan->passes == 1)
        outcome.plan->estimate.learn(written.bytes, written.part);
    if (!outcome.plan->estimate.exact)
        requireRoom();
}

/// It came to its end while it was tried, so there was room for it.
void ExportRun::concludeWholeTrial() {
    outcome.plan->exportMs = clock.elapsed() - startedAt;
    outcome.plan->estimate.know(growth->bytesNow());
}

void ExportRun::onTrialEnded() {
    if (state != JobState::Running || verdict)
        return;
    const qint64 remaining = forecast->remaining(clock.elapsed());
    concludeTrial(remaining < 0 ? -1 : clock.elapsed() - startedAt + remaining);
    endRunning(ExportOutcome::Status::Planned);
}

void ExportRun::endRunning(ExportOutcome::Status status) {
    verdict = status;
    enter(JobState::Ending);
    watchdog.expect(Watchdog::Wait::Stop);
    transcoder->stop();
}

} // namespace ExportCore
