// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Report.h"

#include "ExportCore/Refusal.h"
#include "ExportCore/TimeText.h"
#include "cli/ErrorOutput.h"
#include "cli/ExitCode.h"
#include "cli/FilePath.h"
#include "cli/JsonText.h"
#include "cli/PlacesInUse.h"
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>
#include <QTemporaryFile>
#include <cerrno>
#include <cstring>
#include <sys/stat.h>

namespace Cli {
namespace {

using ExportCore::ExportOutcome;

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

QJsonArray arrayOf(const std::vector<std::string>& texts) {
    QJsonArray array;
    for (const std::string& one : texts)
        array.append(text(one));
    return array;
}

/// "00:01:30.000" or "120f".
QJsonValue pointOf(const std::optional<ExportCore::TimePoint>& point) {
    if (!point)
        return {};
    return text(point->frames ? std::to_string(*point->frames) + 'f' : ExportCore::TimeText::format(point->time));
}

/// As "--audio" takes it, but for the inputs' own choice.
std::string soundOf(const ExportCore::TrackOptions& tracks) {
    using Sound = ExportCore::TrackOptions::Sound;
    switch (tracks.sound) {
    case Sound::Main:
        return "main";
    case Sound::All:
        return "all";
    case Sound::None:
        return "none";
    case Sound::Chosen:
        break;
    }
    return tracks.choice.sound ? std::to_string(*tracks.choice.sound) : tracks.choice.soundLanguage;
}

QJsonValue textOrNull(const std::string& utf8) {
    return utf8.empty() ? QJsonValue() : QJsonValue(text(utf8));
}

QJsonObject timelineObject(const ExportCore::TimelineOptions& timelines) {
    const bool isBlack = timelines.missing == ExportCore::TimelineOptions::Missing::Black;
    return {{key("mediaRoot"), textOrNull(timelines.mediaRoot)},
            {key("name"), textOrNull(timelines.timeline)},
            {key("lenient"), timelines.lenient},
            {key("missing"), key(isBlack ? "black" : "refused")},
            {key("pitch"), key(timelines.sound.pitch == Kestra::Proc::Pitch::Moved ? "moved" : "kept")},
            {key("limiter"), timelines.sound.ceiling.has_value()}};
}

QJsonObject requestObject(const Options& options) {
    return {{key("arguments"), arrayOf(options.words)},
            {key("inputs"), arrayOf(options.inputs)},
            {key("output"), text(options.output)},
            {key("preset"), options.preset.empty() ? QJsonValue() : QJsonValue(text(options.preset))},
            {key("quality"), options.quality ? QJsonValue(text(*options.quality)) : QJsonValue()},
            {key("settings"), arrayOf(options.settings)},
            {key("in"), pointOf(options.in)},
            {key("out"), pointOf(options.out)},
            {key("duration"), pointOf(options.duration)},
            {key("loudness"), options.loudness ? QJsonValue(*options.loudness) : QJsonValue()},
            {key("audio"), text(soundOf(options.tracks))},
            {key("video"), options.tracks.picture},
            {key("metadata"), options.tracks.metadata},
            {key("subtitles"), options.tracks.subtitles},
            {key("timeline"), timelineObject(options.timelines)},
            {key("limits"), QJsonObject{{key("pictureBytes"), static_cast<qint64>(options.mediaLimits.pictureBytes)},
                                        {key("tracks"), options.mediaLimits.tracks}}},
            {key("branding"), options.branding.empty() ? QJsonValue() : QJsonValue(text(options.branding))},
            {key("overwrite"), options.overwrite},
            {key("dryRun"), options.dryRun}};
}

QJsonObject fileObject(const ExportCore::ExportFacts& facts) {
    QJsonObject file{{key("path"), facts.path},
                     {key("sizeBytes"), facts.sizeBytes},
                     {key("durationMs"), facts.durationMs},
                     {key("streams"), streamsOf(facts)},
                     {key("chapters"), facts.chapters}};
    if (!facts.firstPicture.isEmpty())
        file.insert(key("pictures"), picturesObject(facts));
    return file;
}

QJsonObject resultObject(const QJsonObject& outcome, int exitCode) {
    QJsonObject result{{key("status"), outcome.value(key("type"))}, {key("exitCode"), exitCode}};
    for (const char* member : {"error", "code", "message", "path"})
        if (outcome.contains(key(member)))
            result.insert(key(member), outcome.value(key(member)));
    return result;
}

/// By trial: hours of an export go before the report is written.
std::string whyNotIn(const QString& folder) {
    QTemporaryFile trial(folder + key("/.editor-export-XXXXXX"));
    return trial.open() ? std::string() : trial.errorString().toStdString();
}

} // namespace

Report::Report(const Options& options)
    : options(options)
    , started(QDateTime::currentDateTimeUtc()) {
    if (options.report.empty())
        return;
    const QByteArray path = QByteArray::fromStdString(options.report);
    const QFileInfo file(filePath(options.report));
    const std::string name = '"' + options.report + '"';
    if (const std::string use = PlacesInUse::useBy(options, options.report); !use.empty())
        KESTRA_THROW(ExportCore::Refusal("Cannot write the report " + name + ": it is " + use));
    if (const std::string why = PlacesInUse::whyNoFile(options.report); !why.empty())
        KESTRA_THROW(ExportCore::Refusal("Cannot write the report " + name + ": " + why));
    struct stat state = {};
    if (::lstat(path.constData(), &state) != 0 && errno != ENOENT)
        KESTRA_THROW(ExportCore::Refusal("Cannot write the report " + name + ": " + std::strerror(errno)));
    if (!file.absoluteDir().exists())
        KESTRA_THROW(
            ExportCore::Refusal("Cannot write the report " + name + ": its folder does not exist; make it first"));
    if (const std::string why = whyNotIn(file.absolutePath()); !why.empty())
        KESTRA_THROW(ExportCore::Refusal("Cannot write the report " + name + ": in its folder: " + why));
    if (file.exists() && !options.overwrite)
        KESTRA_THROW(ExportCore::Refusal("Cannot write the report " + name +
                                         ": it exists already (--overwrite replaces it, and the output)"));
}

QJsonObject Report::object(const ExportOutcome& outcome, int exitCode) const {
    const QDateTime ended = QDateTime::currentDateTimeUtc();
    const QJsonObject told = outcomeObject(outcome);
    QJsonObject report{{key("report"), VERSION},
                       {key("program"), key("editor-export " EDITOREXPORT_VERSION)},
                       {key("request"), requestObject(options)},
                       {key("plan"), outcome.plan ? QJsonValue(planObject(*outcome.plan)) : QJsonValue()},
                       {key("file"), outcome.status == ExportOutcome::Status::Done
                                         ? QJsonValue(fileObject(outcome.facts))
                                         : QJsonValue()},
                       {key("result"), resultObject(told, exitCode)},
                       {key("warnings"), told.value(key("warnings")).toArray()},
                       {key("notes"), told.value(key("notes")).toArray()},
                       {key("times"), QJsonObject{{key("started"), started.toString(Qt::ISODateWithMs)},
                                                  {key("ended"), ended.toString(Qt::ISODateWithMs)},
                                                  {key("elapsedMs"), started.msecsTo(ended)}}}};
    return report;
}

int Report::write(const ExportOutcome& outcome, int exitCode) const {
    if (options.report.empty())
        return exitCode;
    QSaveFile file(filePath(options.report));
    const QByteArray bytes = jsonBytes(object(outcome, exitCode), QJsonDocument::Indented);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return exitCode;
    ErrorOutput::fail("cannot write the report \"" + options.report + "\": " + file.errorString().toStdString());
    return exitCode == EXIT_DONE ? EXIT_EXPORT_FAILED : exitCode;
}

} // namespace Cli
