// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/JsonText.h"

#include "Types/Time.h"

namespace Cli {
namespace {

using ExportCore::ExportFacts;
using ExportCore::ExportOutcome;
using ExportCore::ExportPlan;

/// What a terminal obeys, or turns lines around with. It stands inside of strings alone.
bool mayDoHarm(QChar letter) {
    const ushort code = letter.unicode();
    return (code >= 0x7F && code <= 0x9F) || code == 0x61C || code == 0x200E || code == 0x200F ||
           (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

QString typeOf(ExportOutcome::Status status) {
    switch (status) {
    case ExportOutcome::Status::Done:
        return key("done");
    case ExportOutcome::Status::Refused:
        return key("refused");
    case ExportOutcome::Status::Failed:
        return key("failed");
    case ExportOutcome::Status::Planned:
        return key("planned");
    case ExportOutcome::Status::Stopped:
        break;
    }
    return key("stopped");
}

void addFacts(QJsonObject& object, const ExportFacts& facts) {
    object.insert(key("output"), facts.path);
    if (!facts.firstPicture.isEmpty())
        object.insert(key("pictures"), picturesObject(facts));
    object.insert(key("sizeBytes"), facts.sizeBytes);
    object.insert(key("durationMs"), facts.durationMs);
    object.insert(key("elapsedMs"), facts.elapsedMs);
    object.insert(key("speed"), facts.speed);
    if (!facts.videoCodec.empty())
        object.insert(key("video"), QJsonObject{{key("codec"), QString::fromStdString(facts.videoCodec)},
                                                {key("width"), facts.width},
                                                {key("height"), facts.height},
                                                {key("frames"), facts.frames}});
    if (!facts.audioCodec.empty())
        object.insert(key("audio"), QJsonObject{{key("codec"), QString::fromStdString(facts.audioCodec)},
                                                {key("sampleRate"), facts.sampleRate},
                                                {key("channels"), facts.channels}});
    object.insert(key("streams"), streamsOf(facts));
    object.insert(key("chapters"), facts.chapters);
}

template <class Kind>
QString nameOf(Kind kind) {
    switch (kind) {
    case Kind::Video:
        return key("video");
    case Kind::Audio:
        return key("audio");
    case Kind::Subtitles:
        return key("subtitles");
    case Kind::Cover:
        return key("cover");
    default:
        return key("other");
    }
}

/// Of a stream that is planned, or was found.
template <class Stream>
void addName(QJsonObject& object, const Stream& stream) {
    if (!stream.language.empty())
        object.insert(key("language"), QString::fromStdString(stream.language));
    if (!stream.title.empty())
        object.insert(key("title"), QString::fromStdString(stream.title));
    if (stream.kind == Stream::Kind::Audio || stream.kind == Stream::Kind::Subtitles)
        object.insert(key("default"), stream.isDefault);
    if (stream.kind == Stream::Kind::Subtitles)
        object.insert(key("forced"), stream.forced);
}

QJsonObject objectOf(const ExportPlan::Stream& stream, qint64 frames) {
    using Kind = ExportPlan::Stream::Kind;
    QJsonObject object{{key("kind"), nameOf(stream.kind)}, {key("codec"), QString::fromStdString(stream.codec)}};
    if (stream.kind == Kind::Video || stream.kind == Kind::Cover) {
        object.insert(key("width"), stream.width);
        object.insert(key("height"), stream.height);
    }
    if (stream.kind == Kind::Video) {
        object.insert(key("frameRate"), fractionText(stream.frameRate));
        object.insert(key("frames"), frames);
    } else if (stream.kind == Kind::Audio) {
        object.insert(key("sampleRate"), stream.sampleRate);
        object.insert(key("channels"), stream.channels);
    }
    addName(object, stream);
    if (!stream.profile.empty())
        object.insert(key("profile"), QString::fromStdString(stream.profile));
    if (stream.bitrateBps > 0)
        object.insert(key("bitrate"), stream.bitrateBps);
    if (stream.quality > 0)
        object.insert(key("quality"), stream.quality);
    return object;
}

QJsonObject objectOf(const Kestra::Proc::CheckedStream& stream) {
    using Kind = Kestra::Proc::CheckedStream::Kind;
    const auto milliseconds = [](std::int64_t time) { return Types::fromAvTime(time).milliseconds(); };
    QJsonObject object{{key("kind"), nameOf(stream.kind)},
                       {key("codec"), QString::fromStdString(stream.codec)},
                       {key("packets"), static_cast<qint64>(stream.packets)},
                       {key("startMs"), milliseconds(stream.start)},
                       {key("endMs"), milliseconds(stream.end)}};
    if (stream.kind == Kind::Video) {
        object.insert(key("width"), static_cast<int>(stream.frame.width));
        object.insert(key("height"), static_cast<int>(stream.frame.height));
    } else if (stream.kind == Kind::Audio) {
        object.insert(key("sampleRate"), stream.sampleRate);
        object.insert(key("channels"), stream.channels);
    }
    addName(object, stream);
    return object;
}

QJsonValue knownOr(qint64 value) {
    return value < 0 ? QJsonValue() : QJsonValue(value);
}

QJsonArray remarks(const QStringList& sentences, const QHash<QString, QString>& paths) {
    QJsonArray array;
    for (const QString& sentence : sentences) {
        QJsonObject remark{{key("message"), sentence}};
        if (paths.contains(sentence))
            remark.insert(key("path"), paths[sentence]);
        array.append(remark);
    }
    return array;
}

} // namespace

QString fractionText(const boost::rational<long long>& value) {
    const QString numerator = QString::number(value.numerator());
    return value.denominator() == 1 ? numerator : numerator + key("/") + QString::number(value.denominator());
}

std::string jsonLine(const QJsonObject& object) {
    return jsonBytes(object, QJsonDocument::Compact).toStdString();
}

QByteArray jsonBytes(const QJsonObject& object, QJsonDocument::JsonFormat format) {
    const QString text = QString::fromUtf8(QJsonDocument(object).toJson(format));
    QString safe;
    safe.reserve(text.size());
    for (const QChar letter : text)
        if (mayDoHarm(letter))
            safe += QStringLiteral("\\u%1").arg(letter.unicode(), 4, 16, QLatin1Char('0'));
        else
            safe += letter;
    return safe.toUtf8();
}

QJsonObject planObject(const ExportPlan& plan) {
    QJsonArray streams;
    for (const ExportPlan::Stream& stream : plan.streams)
        streams.append(objectOf(stream, plan.estimate.frames));
    return {{key("output"), plan.path},
            {key("preset"), QString::fromStdString(plan.preset)},
            {key("container"), QString::fromStdString(plan.container)},
            {key("passes"), plan.passes},
            {key("streams"), streams},
            {key("chapters"), plan.chapters},
            {key("durationMs"), plan.estimate.duration.milliseconds()},
            {key("sizeBytes"), plan.estimate.sizeBytes},
            {key("sizeIsRough"), plan.estimate.rough},
            {key("freeBytes"), knownOr(plan.freeBytes.value_or(-1))},
            {key("exportMs"), knownOr(plan.exportMs)}};
}

QJsonObject picturesObject(const ExportFacts& facts) {
    return {{key("first"), facts.firstPicture}, {key("last"), facts.lastPicture}, {key("count"), facts.frames}};
}

QJsonArray streamsOf(const ExportFacts& facts) {
    QJsonArray streams;
    for (const Kestra::Proc::CheckedStream& stream : facts.streams)
        streams.append(objectOf(stream));
    return streams;
}

QJsonObject outcomeObject(const ExportOutcome& outcome) {
    QJsonObject object{{key("type"), typeOf(outcome.status)}};
    if (outcome.status == ExportOutcome::Status::Done)
        addFacts(object, outcome.facts);
    if (outcome.status == ExportOutcome::Status::Planned)
        object.insert(key("plan"), planObject(*outcome.plan));
    // A run that was stopped has one when something in it hung.
    if (!outcome.error.GetDescription().empty()) {
        object.insert(key("error"), QString::fromUtf8(Kestra::Proc::TranscodingErrorToString(outcome.error.GetCode())));
        object.insert(key("code"), static_cast<int>(outcome.error.GetCode()));
        object.insert(key("message"), QString::fromStdString(outcome.error.GetDescription()));
        if (!outcome.errorPath.isEmpty())
            object.insert(key("path"), outcome.errorPath);
    }
    if (!outcome.warnings.isEmpty())
        object.insert(key("warnings"), remarks(outcome.warnings, outcome.paths));
    if (!outcome.notes.isEmpty())
        object.insert(key("notes"), remarks(outcome.notes, outcome.paths));
    return object;
}

} // namespace Cli
