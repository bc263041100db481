// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/InputOpening.h"

#include "ExportCore/AllSounds.h"
#include "ExportCore/FindingText.h"
#include "ExportCore/InputProgramme.h"
#include "ExportCore/NameList.h"
#include "ExportCore/Refusal.h"
#include "ExportCore/RequestCheck.h"
#include "ExportCore/SquarePixels.h"
#include "Kestra/Proc/ProcException.h"
#include "Kestra/Proc/ProcessingError.h"
#include <algorithm>

namespace ExportCore {

using Kestra::Proc::ProcessingError;
using Kestra::Proc::TranscodingError;

InputOpening::InputOpening(const ExportRequest& request, const Preset& preset, QObject* parent)
    : InputOpening(std::make_shared<Opened>(), request, preset, parent) {}

InputOpening::InputOpening(const ExportRequest& request, QObject* parent)
    : InputOpening(std::make_shared<Opened>(), request, std::nullopt, parent) {}

InputOpening::InputOpening(const ExportRequest& request, const std::string& refusal, QObject* parent)
    : InputOpening(std::make_shared<Opened>(), request, refusal, parent) {}

InputOpening::InputOpening(const std::shared_ptr<Opened>& opened, const ExportRequest& request,
                           const std::string& refusal, QObject* parent)
    : BackgroundTask(
          "open-inputs",
          [=](const std::atomic<bool>& interrupted) { lookWhatElseIsWrong(*opened, request, refusal, interrupted); },
          parent)
    , request(request)
    , opened(opened) {}

InputOpening::InputOpening(const std::shared_ptr<Opened>& opened, const ExportRequest& request,
                           const std::optional<Preset>& preset, QObject* parent)
    : BackgroundTask(
          "open-inputs", [=](const std::atomic<bool>& interrupted) { open(*opened, request, preset, interrupted); },
          parent)
    , request(request)
    , opened(opened) {}

std::string InputOpening::step() const {
    const int at = opened->at;
    return at < request.inputs.size() ? "Opening \"" + request.inputs[at].toStdString() + '"'
                                      : "Looking at \"" + request.outputPath.toStdString() + '"';
}

namespace {

bool isUnfit(const ProcessingError& error) {
    return error.GetCode() == TranscodingError::SourceNotFound || error.GetCode() == TranscodingError::SourceUnreadable;
}

/// Of files that can be read and are no timelines; nothing where all of them are media.
std::optional<Refusal> whyNoMedia(const std::vector<Kestra::ioPath>& files, const ExportRequest& request,
                                  const std::atomic<bool>& interrupted) {
    try {
        if (!files.empty())
            Render::Sequence::ofFiles(
                files, &interrupted, request.mediaLimits, [](std::size_t) {}, request.tracks.choice);
        return std::nullopt;
    } catch (...) {
        const auto error = ProcessingError::MakeProcessingErrorFromException(std::current_exception());
        return isUnfit(error) ? std::optional<Refusal>(Refusal(error.GetDescription(), error.GetCode())) : std::nullopt;
    }
}

/// All that they say; of the kind of the first one.
Refusal oneOf(const std::vector<Refusal>& refusals) {
    std::vector<std::string> sentences;
    sentences.reserve(refusals.size());
    for (const Refusal& refusal : refusals)
        sentences.emplace_back(refusal.what());
    return Refusal(NameList::joined(sentences, "; ", "; "), refusals.front().code());
}

} // namespace

/// What is wrong with any of them is told at once.
std::vector<Kestra::ioPath> InputOpening::requireInputs(Opened& opened, const ExportRequest& request,
                                                        const std::atomic<bool>& interrupted) {
    std::vector<Kestra::ioPath> paths;
    std::vector<Refusal> refusals;
    std::vector<Kestra::ioPath> others;
    for (const QString& input : request.inputs) {
        opened.at = static_cast<int>(paths.size());
        try {
            RequestCheck::inputs(QStringList(input));
            if (!TimelineOpening::isTimeline(input.toStdString()))
                others.emplace_back(input.toStdString());
        } catch (const Refusal& refusal) {
            refusals.push_back(refusal);
        }
        paths.emplace_back(input.toStdString());
    }
    opened.at = static_cast<int>(paths.size());
    if (!refusals.empty()) {
        if (const auto more = whyNoMedia(others, request, interrupted))
            refusals.push_back(*more);
        KESTRA_THROW(oneOf(refusals));
    }
    RequestCheck::inputs(request.inputs); // their number
    return paths;
}

void InputOpening::lookWhatElseIsWrong(Opened& opened, const ExportRequest& request, const std::string& refusal,
                                       const std::atomic<bool>& interrupted) {
    std::vector<Refusal> all{Refusal(refusal)};
    try {
        const std::vector<Kestra::ioPath> paths = requireInputs(opened, request, interrupted);
        const bool isTimeline = TimelineOpening::isTimeline(paths.front().ToUtf8());
        if (const auto more = isTimeline ? std::nullopt : whyNoMedia(paths, request, interrupted))
            all.push_back(*more);
    } catch (const Refusal& inputs) {
        all.push_back(inputs);
    }
    KESTRA_THROW(oneOf(all));
}

void InputOpening::open(Opened& opened, const ExportRequest& request, const std::optional<Preset>& preset,
                        const std::atomic<bool>& interrupted) {
    opened.marks = FileMark::of(request.inputs);
    const std::vector<Kestra::ioPath> paths = requireInputs(opened, request, interrupted);
    if (preset)
        RequestCheck::outputIsFit(request, *preset);
    try {
        if (TimelineOpening::isTimeline(paths.front().ToUtf8()))
            openTimeline(opened, request, preset, interrupted);
        else
            openFiles(opened, paths, request, preset, interrupted);
        opened.sequence.squarePixels = preset && SquarePixels::areNeeded(*preset);
    } catch (...) {
        const auto error = ProcessingError::MakeProcessingErrorFromException(std::current_exception());
        if (isUnfit(error))
            KESTRA_THROW(Refusal(error.GetDescription(), error.GetCode()));
        throw;
    }
}

namespace {

InputProgramme::File fileOf(const Preset& preset) {
    return {preset.containerId(), preset.hasVideo(), preset.hasAudio()};
}

} // namespace

void InputOpening::openFiles(Opened& opened, const std::vector<Kestra::ioPath>& paths, const ExportRequest& request,
                             const std::optional<Preset>& preset, const std::atomic<bool>& interrupted) {
    const auto next = [&opened](std::size_t index) { opened.at = static_cast<int>(index); };
    opened.sequence = Render::Sequence::ofFiles(paths, &interrupted, request.mediaLimits, next, request.tracks.choice);
    opened.at = 0;
    if (!preset)
        return;
    if (request.tracks.sound == TrackOptions::Sound::All && preset->hasAudio())
        opened.sequence =
            AllSounds::of(opened.sequence, paths, preset->containerId(), interrupted, request.mediaLimits);
    InputProgramme told = InputProgramme::of(opened.sequence, paths, request.tracks, fileOf(*preset), interrupted);
    opened.sequence.programme = std::make_shared<Kestra::Conf::ProgrammeInfo>(std::move(told.programme));
    opened.notes.insert(opened.notes.end(), told.notes.begin(), told.notes.end());
}

namespace {

const char* const PLACE_OF_MISSING =
    "what is missing is black, or what lies on lower tracks where there is something, and silent";

/// All that stands in the way, as far as a line holds it.
Refusal refusalOf(const std::string& path, const TimelineOpening& timeline) {
    constexpr std::size_t MOST = 5;
    std::vector<std::string> reasons;
    for (const Timeline::Finding& finding : timeline.reading.findings)
        if (finding.kind != Timeline::Finding::Kind::Warning)
            reasons.push_back(textOf(finding));
    std::string text = "Cannot export \"" + path + '"';
    for (std::size_t i = 0; i < std::min(MOST, reasons.size()); ++i)
        text += (i == 0 ? ": " : "; ") + reasons[i];
    if (reasons.size() > MOST)
        text += "; and " + std::to_string(reasons.size() - MOST) + " more (validate tells them all)";
    const bool onlyMissing = timeline.reading.document && !timeline.reading.has(Timeline::Finding::Kind::Error);
    return onlyMissing ? Refusal(text + ". With --missing black " + PLACE_OF_MISSING, Refusal::Code::SourceNotFound)
                       : Refusal(text, Refusal::Code::SourceUnreadable);
}

} // namespace

void InputOpening::openTimeline(Opened& opened, const ExportRequest& request, const std::optional<Preset>& preset,
                                const std::atomic<bool>& interrupted) {
    opened.at = 0;
    const std::string path = request.inputs.front().toStdString();
    if (request.tracks.sound == TrackOptions::Sound::Chosen)
        KESTRA_THROW(Refusal("No sound track can be chosen of \"" + path +
                             "\": a timeline names its sound itself; --audio none leaves it out"));
    const TimelineOpening timeline = TimelineOpening::read(path, request.timelines, request.mediaLimits, &interrupted);
    if (!timeline.isFit())
        KESTRA_THROW(refusalOf(path, timeline));
    RequestCheck::outputIsNoneOf(timeline.reading.named, request, preset);
    opened.sequence = timeline.sequence(&interrupted);
    if (request.tracks.sound == TrackOptions::Sound::All)
        AllSounds::requireOneEach(opened.sequence);
    if (preset)
        InputProgramme::noteLeftOut(opened.sequence, request.tracks, fileOf(*preset));
    if (!request.tracks.metadata)
        opened.sequence.programme = std::make_shared<Kestra::Conf::ProgrammeInfo>();
    for (const Timeline::Finding& finding : timeline.reading.findings)
        opened.warnings.push_back('"' + path + "\": " + textOf(finding));
    if (timeline.reading.has(Timeline::Finding::Kind::MissingMedia))
        opened.warnings.push_back('"' + path + "\": " + PLACE_OF_MISSING);
}

} // namespace ExportCore
