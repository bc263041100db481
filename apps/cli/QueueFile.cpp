// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/QueueFile.h"

#include "ExportCore/NearNames.h"
#include "ExportCore/Refusal.h"
#include "ExportCore/TimelineOpening.h"
#include "Kestra/Conf/NumberedName.h"
#include "cli/CommandLine.h"
#include "cli/ErrorOutput.h"
#include "cli/FilesOfMedium.h"
#include "cli/JsonText.h"
#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>
#include <algorithm>
#include <map>
#include <sys/file.h>
#include <variant>

namespace Cli {
namespace {

using ExportCore::Refusal;

constexpr int VERSION = 1;

[[noreturn]] void refuse(const QString& path, const std::string& why,
                         Kestra::SourcePlace place = Kestra::SourcePlace::Here()) {
    Kestra::ThrowFrom(Refusal("Cannot run \"" + path.toStdString() + "\": " + why), place);
}

/// The object in a file; `version` is the member that says of what form it is.
QJsonObject objectIn(QFile& file, const char* version) {
    if (!file.isOpen() && !file.open(QIODevice::ReadOnly))
        refuse(file.fileName(), file.errorString().toStdString());
    QJsonParseError error{};
    const QByteArray bytes = file.readAll();
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError)
        refuse(file.fileName(), "line " + std::to_string(1 + bytes.left(error.offset).count('\n')) + ": " +
                                    error.errorString().toStdString());
    const QJsonValue form = document.object().value(key(version));
    if (form.toInt() != VERSION)
        refuse(file.fileName(), '"' + std::string(version) + "\" is not " + std::to_string(VERSION) +
                                    ", the form that this program reads");
    return document.object();
}

/// What concerns all of a queue is no job's.
bool isOfJobs(const std::string& option) {
    static const std::vector<std::string> others{"help", "progress", "log",     "quiet",  "verbose",
                                                 "each", "json",     "dry-run", "version"};
    return std::find(others.begin(), others.end(), option) == others.end();
}

/// Options of jobs by their long names, and whether they may be given more than once.
const std::map<std::string, bool>& members() {
    static const std::map<std::string, bool> found = [] {
        Options options;
        std::map<std::string, bool> names;
        for (const CommandText& command : CommandLine(options).table())
            if (command.words == std::vector<std::string>{"render"})
                for (const OptionText& option : command.options)
                    if (const std::string name = option.names.back().substr(2); isOfJobs(name))
                        names[name] = option.repeats;
        return names;
    }();
    return found;
}

[[noreturn]] void refuseMember(const std::string& name) {
    std::vector<std::string> names{"inputs"};
    for (const auto& [known, repeats] : members())
        names.push_back(known);
    KESTRA_THROW(Refusal("a job has no such member" + ExportCore::NearNames::question(name, names)));
}

std::string textOf(const QJsonValue& value) {
    if (value.isString())
        return value.toString().toStdString();
    if (value.isDouble())
        return QString::number(value.toDouble(), 'g', 15).toStdString();
    KESTRA_THROW(Refusal("a text or a number is expected"));
}

std::vector<std::string> textsOf(const QJsonValue& value) {
    std::vector<std::string> texts;
    if (!value.isArray())
        return {textOf(value)};
    const QJsonArray array = value.toArray();
    for (const QJsonValue& one : array)
        texts.push_back(textOf(one));
    return texts;
}

void addWords(const std::string& name, const QJsonValue& value, std::vector<std::string>& words) {
    const auto member = members().find(name);
    if (member == members().end())
        refuseMember(name);
    if (name == "output" && !value.isString())
        KESTRA_THROW(Refusal("a text is expected"));
    if (value.isArray() && !member->second)
        KESTRA_THROW(Refusal("one value is expected, no list"));
    if (value.isBool()) {
        if (value.toBool())
            words.push_back("--" + name);
        return;
    }
    const std::string option = "--" + name + '=';
    for (const std::string& text : textsOf(value))
        words.push_back(option + text);
}

std::vector<std::string> wordsOf(const QJsonObject& job) {
    std::vector<std::string> words, inputs;
    for (auto member = job.begin(); member != job.end(); ++member)
        try {
            if (member.key() == QLatin1String("inputs"))
                inputs = textsOf(member.value());
            else
                addWords(member.key().toStdString(), member.value(), words);
        } catch (const Refusal& refusal) {
            KESTRA_THROW(Refusal('"' + member.key().toStdString() + "\": " + refusal.what()));
        }
    if (inputs.empty() || !job.contains(key("output")))
        KESTRA_THROW(Refusal(inputs.empty() ? "\"inputs\" names no file" : "\"output\" is missing"));
    words.emplace_back("--"); // whatever follows is a name
    words.insert(words.end(), inputs.begin(), inputs.end());
    return words;
}

QueueFile::Job jobOf(const QJsonValue& value) {
    QueueFile::Job job;
    job.output = value.toObject().value(key("output")).toString().toStdString();
    job.digest =
        QString::fromLatin1(QCryptographicHash::hash(QJsonDocument(value.toObject()).toJson(QJsonDocument::Compact),
                                                     QCryptographicHash::Sha256)
                                .toHex());
    try {
        if (!value.isObject())
            KESTRA_THROW(Refusal("an object is expected"));
        job.options = Options::ofJob(wordsOf(value.toObject()));
    } catch (const Refusal& refusal) {
        job.fault = refusal.what();
    }
    return job;
}

/// The output, or the pictures that stand for it.
QFileInfoList filesOf(const QFileInfo& output) {
    if (output.isFile())
        return {output};
    if (output.isDir())
        return QDir(output.filePath()).entryInfoList({key("frame_*")}, QDir::Files);
    const auto name = Kestra::Conf::NumberedName::Parse(output.fileName().toStdString());
    QFileInfoList pictures;
    if (name)
        for (const QFileInfo& file : output.absoluteDir().entryInfoList(QDir::Files))
            if (name->NumberOf(file.fileName().toStdString()))
                pictures << file;
    return pictures;
}

/// What tells that an output is still the one that was made; empty where there is none.
QJsonObject factsOf(const std::string& output) {
    const QFileInfo told(QString::fromStdString(output));
    const QFileInfoList files = filesOf(told);
    qint64 size = 0;
    QDateTime modified;
    for (const QFileInfo& file : files) {
        size += file.size();
        modified = modified.isValid() ? std::max(modified, file.lastModified()) : file.lastModified();
    }
    if (files.isEmpty())
        return {};
    QJsonObject facts{{key("output"), told.absoluteFilePath()},
                      {key("sizeBytes"), size},
                      {key("modified"), modified.toUTC().toString(Qt::ISODateWithMs)}};
    if (!told.isFile())
        facts.insert(key("pictures"), files.size());
    return facts;
}

/// What tells that files are still those that were read; it says how many pictures of a sequence there are.
QJsonObject factsOfInput(const QString& path, const QFileInfoList& files) {
    qint64 size = 0;
    QDateTime modified;
    for (const QFileInfo& file : files) {
        size += file.size();
        modified = modified.isValid() ? std::max(modified, file.lastModified()) : file.lastModified();
    }
    return {{key("path"), path},
            {key("files"), files.size()},
            {key("sizeBytes"), size},
            {key("modified"), modified.toUTC().toString(Qt::ISODateWithMs)}};
}

QJsonObject factsOfMedium(const Timeline::MediaTarget& medium) {
    if (const auto* const file = std::get_if<Timeline::MediaFile>(&medium))
        return factsOfInput(QString::fromStdString(file->path.ToUtf8()), filesOfMedium(medium));
    const auto* const sequence = std::get_if<Timeline::ImageSequence>(&medium);
    return sequence ? factsOfInput(QString::fromStdString(sequence->folder.ToUtf8()) + key("/") +
                                       QString::fromStdString(sequence->prefix),
                                   filesOfMedium(medium))
                    : QJsonObject();
}

/// With the media of timelines.
QJsonArray factsOfInputs(const Options& options) {
    QJsonArray facts;
    for (const std::string& input : options.inputs) {
        const QFileInfo file(QString::fromStdString(input));
        const QFileInfo content(file.filePath() + key("/content.otio")); // of a timeline that is a folder
        facts.append(factsOfInput(file.absoluteFilePath(), {file.isDir() ? content : file}));
        for (const Timeline::MediaTarget& medium : ExportCore::TimelineOpening::mediaNamedIn(input, options.timelines))
            facts.append(factsOfMedium(medium));
    }
    return facts;
}

const char* const INPUTS = "inputs";

} // namespace

QueueFile::QueueFile(const std::string& path)
    : file(QString::fromStdString(path))
    , statePath(file.fileName() + QStringLiteral(".state")) {
    lock();
    readJobs();
    readState();
}

void QueueFile::lock() {
    if (!file.open(QIODevice::ReadOnly))
        refuse(file.fileName(), file.errorString().toStdString());
    if (::flock(file.handle(), LOCK_EX | LOCK_NB) != 0)
        refuse(file.fileName(), "another process is running it");
}

void QueueFile::readJobs() {
    const QJsonObject object = objectIn(file, "queue");
    for (auto member = object.begin(); member != object.end(); ++member)
        if (member.key() != QLatin1String("queue") && member.key() != QLatin1String("jobs"))
            refuse(file.fileName(),
                   '"' + member.key().toStdString() + "\" is no member of a queue, which has \"queue\" and \"jobs\"");
    const QJsonArray jobs = object.value(key("jobs")).toArray();
    if (jobs.isEmpty())
        refuse(file.fileName(), "\"jobs\" is no list of jobs");
    for (const QJsonValue& job : jobs)
        all.push_back(jobOf(job));
}

void QueueFile::readState() {
    QFile state(statePath);
    if (!state.exists())
        return;
    try {
        done = objectIn(state, "queueState").value(key("done")).toObject();
    } catch (const Refusal& refusal) {
        KESTRA_THROW(Refusal(refusal.what() + std::string("; without that file all jobs are begun anew")));
    }
}

bool QueueFile::isDone(const Job& job) const {
    QJsonObject facts = job.output.empty() ? QJsonObject() : factsOf(job.output);
    const QJsonObject kept = done.value(job.digest).toObject();
    if (facts.isEmpty() || kept.isEmpty())
        return false;
    facts.insert(key(INPUTS), factsOfInputs(job.options));
    return kept == facts;
}

bool QueueFile::isOutdated(const Job& job) const {
    QJsonObject kept = done.value(job.digest).toObject();
    if (kept.isEmpty() || kept.take(key(INPUTS)).toArray() == factsOfInputs(job.options))
        return false;
    return kept == factsOf(job.output);
}

void QueueFile::begin(const Job& job) {
    inputs = factsOfInputs(job.options);
}

bool QueueFile::keep(const Job& job) {
    QJsonObject facts = factsOf(job.output);
    facts.insert(key(INPUTS), inputs);
    done.insert(job.digest, facts);
    QSaveFile state(statePath);
    const QByteArray bytes = QJsonDocument(QJsonObject{{key("queueState"), VERSION}, {key("done"), done}}).toJson();
    if (state.open(QIODevice::WriteOnly) && state.write(bytes) == bytes.size() && state.commit())
        return true;
    ErrorOutput::fail("cannot keep what is done in \"" + statePath.toStdString() +
                      "\": " + state.errorString().toStdString());
    return false;
}

} // namespace Cli
