#include "ExportCore/PlainText.h"
#include "ExportCore/RequestCheck.h"
#include "ExportCore/TimeText.h"
#include "ExportCore/TimelineOpening.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/ISourceFactory.h"
#include "Types/Time.h"
#include "cli/ErrorOutput.h"
#include "cli/ExitCode.h"
#include "cli/JsonText.h"
#include "cli/ListCommands.h"
#include "cli/TimelineCommands.h"
#include <QJsonArray>
#include <cstdio>
#include <exception>

namespace Cli {
namespace {

using Kestra::Proc::AudioTrackInfo;
using Kestra::Proc::MediaInfo;
using Kestra::Proc::VideoTrackInfo;

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

qint64 milliseconds(std::int64_t time) {
    return Types::fromAvTime(time).milliseconds();
}

QJsonObject objectOf(const VideoTrackInfo& video) {
    return {{key("codec"), text(video.codec)},
            {key("width"), static_cast<int>(video.frame.width)},
            {key("height"), static_cast<int>(video.frame.height)},
            {key("pixelFormat"), text(video.pixelFormat)},
            {key("frameRate"), fractionText(video.frameRate)},
            {key("variableFrameRate"), video.variableFrameRate},
            {key("rotation"), video.rotation},
            {key("interlaced"), video.interlaced},
            {key("stillPicture"), video.stillPicture},
            {key("startMs"), milliseconds(video.start)},
            {key("durationMs"), milliseconds(video.duration)}};
}

QJsonObject objectOf(const AudioTrackInfo& audio) {
    return {{key("codec"), text(audio.codec)},
            {key("sampleRate"), audio.sampleRate},
            {key("channels"), audio.channels},
            {key("startMs"), milliseconds(audio.start)},
            {key("durationMs"), milliseconds(audio.duration)}};
}

QJsonObject objectOf(const std::string& path, const MediaInfo& info, const QStringList& damage,
                     const QStringList& notes) {
    QJsonObject object{{key("path"), text(path)},
                       {key("container"), text(info.container)},
                       {key("durationMs"), milliseconds(info.duration)}};
    if (info.video)
        object.insert(key("video"), objectOf(*info.video));
    if (info.audio)
        object.insert(key("audio"), objectOf(*info.audio));
    if (!damage.isEmpty())
        object.insert(key("damage"), QJsonArray::fromStringList(damage));
    if (!notes.isEmpty())
        object.insert(key("notes"), QJsonArray::fromStringList(notes));
    return object;
}

std::string lineOf(const std::string& path, const MediaInfo& info) {
    QString line = text(ExportCore::PlainText::escaped(path)) + key(": ") + text(info.container) + key(", ") +
                   text(ExportCore::TimeText::format(Types::fromAvTime(info.duration)));
    if (const auto& video = info.video)
        line += key(", ") + text(video->codec) + key(" %1x%2 ").arg(video->frame.width).arg(video->frame.height) +
                text(video->pixelFormat) + key(", ") + fractionText(video->frameRate) +
                key(video->variableFrameRate ? " fps (variable)" : " fps");
    if (const auto& audio = info.audio)
        line += key(", ") + text(audio->codec) + key(" %1 Hz, %2 ").arg(audio->sampleRate).arg(audio->channels) +
                key(audio->channels == 1 ? "channel" : "channels");
    return line.toStdString();
}

void describeMedia(const std::string& path, const Options& options, const std::atomic<bool>& interrupted,
                   QJsonArray& media) {
    const auto source = Kestra::Core::CoreManager::Instance().GetSourceFactory().OpenMedia(
        Kestra::ioPath(path), &interrupted, options.mediaLimits);
    QStringList damage, notes;
    for (const Kestra::Proc::DamageReport& report : source->TakeDamageReports())
        damage << text(report.what);
    for (const Kestra::Proc::SourceNote& note : source->TakeNotes())
        notes << text(note.what);
    if (options.json)
        return media.append(objectOf(path, source->GetInfo(), damage, notes));
    std::printf("%s\n", lineOf(path, source->GetInfo()).c_str());
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

} // namespace

int describeInputs(const Options& options, const std::atomic<bool>& interrupted) {
    bool isGood = true;
    QJsonArray media, timelines;
    for (const bool onlyLook : {true, false})
        for (const std::string& input : options.inputs)
            try {
                if (onlyLook && !ExportCore::TimelineOpening::isTimeline(input))
                    ExportCore::RequestCheck::inputs({text(input)});
                else if (!onlyLook && ExportCore::TimelineOpening::isTimeline(input))
                    isGood = describeTimelineInput(input, options, interrupted, timelines) && isGood;
                else if (!onlyLook)
                    describeMedia(input, options, interrupted, media);
            } catch (const std::exception& error) {
                ErrorOutput::refuse(error.what(), input);
                return EXIT_BAD_INPUT;
            }
    if (options.json)
        printJson(media, timelines);
    return isGood ? EXIT_DONE : EXIT_BAD_INPUT;
}

} // namespace Cli
