#include "cli/JsonText.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace Cli {
namespace {

using ExportCore::ExportFacts;
using ExportCore::ExportOutcome;

QString typeOf(ExportOutcome::Status status) {
    switch (status) {
    case ExportOutcome::Status::Done:
        return key("done");
    case ExportOutcome::Status::Refused:
        return key("refused");
    case ExportOutcome::Status::Failed:
        return key("failed");
    case ExportOutcome::Status::Stopped:
        break;
    }
    return key("stopped");
}

void addFacts(QJsonObject& object, const ExportFacts& facts) {
    object.insert(key("output"), facts.path);
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
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

QJsonObject outcomeObject(const ExportOutcome& outcome) {
    QJsonObject object{{key("type"), typeOf(outcome.status)}};
    if (outcome.status == ExportOutcome::Status::Done)
        addFacts(object, outcome.facts);
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
