// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/Refusal.h"
#include "ExportCore/RequestCheck.h"
#include "ExportCore/TimelineOpening.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/ISourceFactory.h"
#include "Kestra/Proc/ProcessingError.h"
#include "Kestra/Proc/RateNote.h"
#include "cli/ErrorOutput.h"
#include "cli/ExitCode.h"
#include "cli/JsonText.h"
#include "cli/ListCommands.h"
#include "cli/MediaText.h"
#include "cli/Terminal.h"
#include "cli/TimelineCommands.h"
#include "cli/Wrapping.h"
#include <QJsonArray>
#include <cstdio>
#include <exception>

namespace Cli {
namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

QJsonObject objectOf(const std::string& path, const Kestra::Proc::MediaInfo& info, const QStringList& damage,
                     const QStringList& notes) {
    QJsonObject object = mediaObject(path, info);
    if (!damage.isEmpty())
        object.insert(key("damage"), QJsonArray::fromStringList(damage));
    if (!notes.isEmpty())
        object.insert(key("notes"), QJsonArray::fromStringList(notes));
    return object;
}

void describeMedia(const std::string& path, const Options& options, const std::atomic<bool>& interrupted,
                   QJsonArray& media) {
    const auto source = Kestra::Core::CoreManager::Instance().GetSourceFactory().OpenMedia(
        Kestra::ioPath(path), &interrupted, options.mediaLimits);
    QStringList damage, notes;
    for (const Kestra::Proc::DamageReport& report : source->TakeDamageReports())
        damage << text(report.what);
    if (const auto& video = source->GetInfo().video; video && video->variableFrameRate)
        notes << text(Kestra::Proc::RateNote(*video, video->frameRate));
    for (const Kestra::Proc::SourceNote& note : source->TakeNotes())
        notes << text(note.what);
    if (options.json)
        return media.append(objectOf(path, source->GetInfo(), damage, notes));
    constexpr std::size_t HANG = 4;
    std::fputs(Wrapping::fitted(mediaText(path, source->GetInfo()), Terminal::outputColumns(), HANG).c_str(), stdout);
    for (const QString& what : damage)
        ErrorOutput::tell("warning", '"' + path + "\": " + what.toStdString());
    for (const QString& what : notes)
        ErrorOutput::tell("note", '"' + path + "\": " + what.toStdString());
}

bool describeTimelineInput(const std::string& path, const Options& options, const std::atomic<bool>& interrupted,
                           QJsonArray& timelines) {
    QJsonObject timeline;
    const bool isGood = describeTimeline(path, options, interrupted, options.json ? &timeline : nullptr);
    timelines.append(timeline);
    return isGood;
}

void printJson(const QJsonArray& media, const QJsonArray& timelines) {
    QJsonObject object{{key("media"), media}};
    if (!timelines.isEmpty())
        object.insert(key("timelines"), timelines);
    std::printf("%s\n", jsonLine(object).c_str());
}

/// Runs it for each input, whatever becomes of those before. False when one was refused, which is told.
template <class Step>
bool forEach(const Options& options, const std::atomic<bool>& interrupted, const Step& step) {
    bool isGood = true;
    for (const std::string& input : options.inputs)
        try {
            if (interrupted)
                return isGood;
            step(input);
        } catch (const ExportCore::Refusal& refusal) {
            ErrorOutput::refuse(refusal.what(), input, refusal.code());
            isGood = false;
        } catch (...) { // its kind is read from it, whatever it is
            const auto error =
                Kestra::Proc::ProcessingError::MakeProcessingErrorFromException(std::current_exception());
            ErrorOutput::refuse(error.GetDescription(), input, error.GetCode());
            isGood = false;
        }
    return isGood;
}

} // namespace

int describeInputs(const Options& options, const std::atomic<bool>& interrupted) {
    using ExportCore::TimelineOpening;
    const auto look = [](const std::string& input) {
        if (!TimelineOpening::isTimeline(input))
            ExportCore::RequestCheck::inputs({text(input)});
    };
    if (!forEach(options, interrupted, look))
        return EXIT_BAD_INPUT;
    if (const std::string note = options.noteWithoutEffect(); !note.empty())
        ErrorOutput::tell("note", note);
    bool areRight = true;
    QJsonArray media, timelines;
    const bool isWhole = forEach(options, interrupted, [&](const std::string& input) {
        if (TimelineOpening::isTimeline(input))
            areRight = describeTimelineInput(input, options, interrupted, timelines) && areRight;
        else
            describeMedia(input, options, interrupted, media);
    });
    if (options.json && isWhole)
        printJson(media, timelines);
    return isWhole && areRight ? EXIT_DONE : EXIT_BAD_INPUT;
}

} // namespace Cli
