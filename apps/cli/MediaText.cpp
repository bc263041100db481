// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/MediaText.h"

#include "ExportCore/PlainText.h"
#include "ExportCore/TimeText.h"
#include "Types/Time.h"
#include "cli/JsonText.h"
#include <QJsonArray>

namespace Cli {
namespace {

using ExportCore::PlainText;
using ExportCore::TimeText;
using Kestra::Conf::ProgrammeInfo;
using Kestra::Proc::AudioTrackInfo;
using Kestra::Proc::ListedTrack;
using Kestra::Proc::MediaInfo;
using Kestra::Proc::VideoTrackInfo;
using Kind = Kestra::Proc::ListedTrack::Kind;

/// Of a tag that a line shows.
constexpr int LONGEST_SHOWN = 200;

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

qint64 milliseconds(std::int64_t time) {
    return Types::fromAvTime(time).milliseconds();
}

std::string timeText(std::int64_t time) {
    return TimeText::format(Types::fromAvTime(time));
}

/// In programs' words and in people's.
std::pair<const char*, const char*> namesOf(Kind kind) {
    switch (kind) {
    case Kind::Picture:
        return {"video", "picture"};
    case Kind::Sound:
        return {"audio", "sound"};
    case Kind::Subtitles:
        return {"subtitles", "subtitles"};
    case Kind::Cover:
        return {"cover", "attached picture"};
    case Kind::Chapters:
        return {"chapters", "names of chapters"};
    case Kind::Attachment:
        return {"attachment", "attachment"};
    case Kind::TimeCode:
        return {"timecode", "time code"};
    case Kind::Data:
        break;
    }
    return {"data", "data"};
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

QJsonObject objectOf(const ListedTrack& track, const MediaInfo& info) {
    QJsonObject object{{key("index"), track.index},
                       {key("kind"), key(namesOf(track.kind).first)},
                       {key("codec"), text(track.codec)},
                       {key("default"), track.isDefault},
                       {key("forced"), track.forced}};
    if (!track.language.empty())
        object.insert(key("language"), text(track.language));
    if (!track.title.empty())
        object.insert(key("title"), text(track.title));
    if (track.kind == Kind::Picture || track.kind == Kind::Cover) {
        object.insert(key("width"), static_cast<int>(track.frame.width));
        object.insert(key("height"), static_cast<int>(track.frame.height));
    }
    if (track.kind == Kind::Picture)
        object.insert(key("frameRate"), fractionText(track.frameRate));
    if (track.kind == Kind::Sound) {
        object.insert(key("sampleRate"), track.sampleRate);
        object.insert(key("channels"), track.channels);
        object.insert(key("channelLayout"), text(track.channelLayout));
    }
    if (track.kind == Kind::Subtitles)
        object.insert(key("text"), track.isText);
    const bool isMain =
        (info.video && info.video->index == track.index) || (info.audio && info.audio->index == track.index);
    object.insert(key("main"), isMain);
    return object;
}

void addProgramme(const ProgrammeInfo& programme, QJsonObject& object) {
    QJsonArray chapters;
    for (const ProgrammeInfo::Chapter& chapter : programme.chapters)
        chapters.append(QJsonObject{{key("startMs"), milliseconds(chapter.start)},
                                    {key("endMs"), milliseconds(chapter.end)},
                                    {key("title"), text(chapter.title)}});
    QJsonObject tags;
    if (!programme.title.empty())
        tags.insert(key("title"), text(programme.title));
    for (const auto& [name, value] : programme.tags)
        tags.insert(text(name), text(value));
    if (!chapters.isEmpty())
        object.insert(key("chapters"), chapters);
    if (!tags.isEmpty())
        object.insert(key("tags"), tags);
}

std::string headLine(const std::string& path, const MediaInfo& info) {
    QString line =
        text(PlainText::escaped(path)) + key(": ") + text(info.container) + key(", ") + text(timeText(info.duration));
    if (const auto& video = info.video)
        line += key(", ") + text(video->codec) + key(" %1x%2 ").arg(video->frame.width).arg(video->frame.height) +
                text(video->pixelFormat) + key(", ") + fractionText(video->frameRate) +
                key(video->variableFrameRate ? " fps (variable)" : " fps");
    if (const auto& audio = info.audio)
        line += key(", ") + text(audio->codec) + key(" %1 Hz, %2 ").arg(audio->sampleRate).arg(audio->channels) +
                key(audio->channels == 1 ? "channel" : "channels");
    return line.toStdString() + '\n';
}

std::string shapeOf(const ListedTrack& track) {
    std::string shape;
    if (track.kind == Kind::Picture || track.kind == Kind::Cover)
        shape = ' ' + std::to_string(track.frame.width) + 'x' + std::to_string(track.frame.height);
    if (track.kind == Kind::Picture && track.frameRate > 0)
        shape += ", " + fractionText(track.frameRate).toStdString() + " fps";
    if (track.kind == Kind::Sound)
        shape = ' ' + std::to_string(track.sampleRate) + " Hz, " + track.channelLayout;
    return shape;
}

/// What was found out of the main tracks goes before what the file claims.
ListedTrack known(ListedTrack track, const MediaInfo& info) {
    if (info.video && info.video->index == track.index)
        track.frameRate = info.video->frameRate;
    return track;
}

std::string lineOf(const ListedTrack& track) {
    std::string line = "  track " + std::to_string(track.index) + ": " + namesOf(track.kind).second + ", " +
                       track.codec + shapeOf(track);
    if (!track.language.empty())
        line += ", " + track.language;
    if (!track.title.empty())
        line += ", \"" + track.title + '"';
    line += track.isDefault ? ", default" : "";
    line += track.forced ? ", forced" : "";
    return PlainText::escaped(line) + '\n';
}

std::string tagLine(const std::string& name, const std::string& value) {
    const QString whole = text(value);
    const QString shown = whole.size() > LONGEST_SHOWN ? whole.left(LONGEST_SHOWN) + key("...") : whole;
    return PlainText::escaped("  " + name + ": " + shown.toStdString()) + '\n';
}

} // namespace

std::string mediaText(const std::string& path, const MediaInfo& info) {
    std::string lines = headLine(path, info);
    for (const ListedTrack& track : info.contents.tracks)
        lines += lineOf(known(track, info));
    const ProgrammeInfo& programme = info.contents.programme;
    if (!programme.title.empty())
        lines += tagLine("title", programme.title);
    for (const auto& [name, value] : programme.tags)
        lines += tagLine(name, value);
    int number = 0;
    for (const ProgrammeInfo::Chapter& chapter : programme.chapters)
        lines += PlainText::escaped("  chapter " + std::to_string(++number) + ": " + timeText(chapter.start) + " to " +
                                    timeText(chapter.end) +
                                    (chapter.title.empty() ? std::string() : ", \"" + chapter.title + '"')) +
                 '\n';
    return lines;
}

QJsonObject mediaObject(const std::string& path, const MediaInfo& info) {
    QJsonObject object{{key("path"), text(path)},
                       {key("container"), text(info.container)},
                       {key("durationMs"), milliseconds(info.duration)}};
    if (info.video)
        object.insert(key("video"), objectOf(*info.video));
    if (info.audio)
        object.insert(key("audio"), objectOf(*info.audio));
    QJsonArray tracks;
    for (const ListedTrack& track : info.contents.tracks)
        tracks.append(objectOf(known(track, info), info));
    object.insert(key("tracks"), tracks);
    addProgramme(info.contents.programme, object);
    return object;
}

} // namespace Cli
