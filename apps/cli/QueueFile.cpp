// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/QueueFile.h"

#include "ExportCore/LeftoverSweep.h"
#include "ExportCore/NearNames.h"
#include "ExportCore/PathBytes.h"
#include "ExportCore/Refusal.h"
#include "ExportCore/TimelineOpening.h"
#include "cli/CommandLine.h"
#include "cli/ErrorOutput.h"
#include "cli/FileFacts.h"
#include "cli/FilePath.h"
#include "cli/FilesOfMedium.h"
#include "cli/JsonText.h"
#include "cli/PlacesInUse.h"
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>
#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <string_view>
#include <sys/file.h>
#include <variant>

namespace Cli {
namespace {

using ExportCore::Refusal;

constexpr int VERSION = 1;

[[noreturn]] void refuse(const std::string& name, const std::string& why,
                         Kestra::SourcePlace place = Kestra::SourcePlace::Here()) {
    Kestra::ThrowFrom(Refusal("Cannot run \"" + name + "\": " + why), place);
}

/// A pipe that nobody writes would be waited for.
void open(QFile& file, const std::string& name) {
    if (const std::string why = PlacesInUse::whyNoFile(file.fileName().toStdString()); !why.empty())
        refuse(name, why);
    if (!file.isOpen() && !file.open(QIODevice::ReadOnly))
        refuse(name, file.errorString().toStdString());
}

/// The object in a file that is called so; `version` is the member that says of what form it is.
QJsonObject objectIn(QFile& file, const std::string& name, const char* version) {
    open(file, name);
    QJsonParseError error{};
    QByteArray bytes = file.readAll();
    bytes.replace("\"\xef\xbb\xbf", "\"\\ufeff"); // which would be lost there, as at the start of a file
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError)
        refuse(name, "line " + std::to_string(1 + bytes.left(error.offset).count('\n')) + ": " +
                         error.errorString().toStdString());
    const QJsonValue form = document.object().value(key(version));
    if (form.toInt() != VERSION)
        refuse(name, '"' + std::string(version) + "\" is not " + std::to_string(VERSION) +
                         ", the form that this program reads");
    return document.object();
}

/// What concerns all of a queue is no job's.
bool isOfJobs(const std::string& option) {
    constexpr std::array<std::string_view, 9> others{"help", "progress", "log",     "quiet",  "verbose",
                                                     "each", "json",     "dry-run", "version"};
    return std::find(others.begin(), others.end(), option) == others.end();
}

/// Options of jobs by their long names, and whether they may be given more than once.
const std::map<std::string, bool>& members() {
    static const auto& found = *new std::map<std::string, bool>([] {
        Options options;
        std::map<std::string, bool> names;
        for (const CommandText& command : CommandLine(options).table())
            if (command.words == std::vector<std::string>{"render"})
                for (const OptionText& option : command.options)
                    if (const std::string name = option.names.back().substr(2); isOfJobs(name))
                        names[name] = option.repeats;
        return names;
    }());
    return found;
}

[[noreturn]] void refuseMember(const std::string& name) {
    std::vector<std::string> names{"inputs"};
    for (const auto& [known, repeats] : members())
        names.push_back(known);
    KESTRA_THROW(Refusal("a job has no such member" + ExportCore::NearNames::question(name, names)));
}

void requireBytesOf(const QString& text) {
    constexpr ushort BYTE_ORDER_MARK = 0xfeff;
    if (const std::string why = ExportCore::PathBytes::whyNone(text); !why.empty())
        KESTRA_THROW(Refusal(why));
    // It would be lost at the start of bytes, and the name another one.
    if (text.startsWith(QChar(BYTE_ORDER_MARK)))
        KESTRA_THROW(Refusal("it begins with a byte order mark; write ./ in front of a name that does"));
}

std::string textOf(const QJsonValue& value) {
    if (value.isString()) {
        requireBytesOf(value.toString());
        return value.toString().toStdString();
    }
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

/// What tells that an output is still the one that was made; empty where there is none.
QJsonObject factsOf(const QString& output, const FileFacts& files) {
    if (files.count == 0)
        return {};
    const QFileInfo told(output);
    QJsonObject facts = files.object();
    facts.insert(key("output"), told.absoluteFilePath());
    if (!told.isFile())
        facts.insert(key("pictures"), files.count);
    return facts;
}

QJsonObject factsOf(const std::string& output) {
    const QString path = filePath(output);
    return factsOf(path, FileFacts::ofOutput(path));
}

/// What tells that files are still those that were read; it says how many pictures of a sequence there are.
QJsonObject factsOfInput(const QString& path, const QFileInfoList& files) {
    QJsonObject facts = FileFacts::of(files).object();
    facts.insert(key("path"), path);
    facts.insert(key("files"), files.size());
    return facts;
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
        const QFileInfo file(filePath(input));
        const QFileInfo content(file.filePath() + key("/content.otio")); // of a timeline that is a folder
        facts.append(factsOfInput(file.absoluteFilePath(), {file.isDir() ? content : file}));
        for (const Timeline::MediaTarget& medium : ExportCore::TimelineOpening::mediaNamedIn(input, options.timelines))
            facts.append(factsOfMedium(medium));
    }
    return facts;
}

const char* const INPUTS = "inputs";
const char* const UNDER_WAY = "underWay";

/// Why it could not be written; nothing where it is.
std::optional<std::string> writeState(const QString& path, const QJsonObject& done, const QJsonObject& underWay) {
    QJsonObject all{{key("queueState"), VERSION}, {key("done"), done}};
    if (!underWay.isEmpty())
        all.insert(key(UNDER_WAY), underWay);
    QSaveFile state(path);
    const QByteArray bytes = QJsonDocument(all).toJson();
    if (state.open(QIODevice::WriteOnly) && state.write(bytes) == bytes.size() && state.commit())
        return std::nullopt;
    return state.errorString().toStdString();
}

/// How files can be told that are put elsewhere.
QJsonObject placingObject(const FileFacts& files) {
    QJsonObject facts = files.object();
    facts.insert(key("files"), files.count);
    facts.insert(key("identity"), QString::fromStdString(files.identity));
    return facts;
}

/// Whether what stands at the output is what was about to be put there, whoever put it.
bool isThatOne(const FileFacts& standing, const QJsonObject& made) {
    QJsonObject told = made;
    told.remove(key(INPUTS));
    return standing.count > 0 && told == placingObject(standing);
}

/// Pictures that were on their way into a folder, or out of it, arrive or come back.
void settle(const QFileInfo& output) {
    for (const QString& folder : {output.absolutePath(), output.absoluteFilePath()})
        ExportCore::LeftoverSweep::run(folder.toUtf8());
}

} // namespace

QueueFile::QueueFile(const std::string& path)
    : name(path)
    , file(QFileInfo(filePath(path)).absoluteFilePath())
    , statePath(file.fileName() + QStringLiteral(".state")) {
    lock();
    readJobs();
    readState();
}

void QueueFile::lock() {
    open(file, name);
    if (::flock(file.handle(), LOCK_EX | LOCK_NB) != 0)
        refuse(name, "another process is running it");
}

void QueueFile::readJobs() {
    const QJsonObject object = objectIn(file, name, "queue");
    for (auto member = object.begin(); member != object.end(); ++member)
        if (member.key() != QLatin1String("queue") && member.key() != QLatin1String("jobs"))
            refuse(name,
                   '"' + member.key().toStdString() + "\" is no member of a queue, which has \"queue\" and \"jobs\"");
    const QJsonArray jobs = object.value(key("jobs")).toArray();
    if (jobs.isEmpty())
        refuse(name, "\"jobs\" is no list of jobs");
    for (const QJsonValue& job : jobs)
        all.push_back(jobOf(job));
}

void QueueFile::readState() {
    QFile file(statePath);
    if (!file.exists())
        return;
    try {
        const QJsonObject state = objectIn(file, name + ".state", "queueState");
        done = state.value(key("done")).toObject();
        underWay = state.value(key(UNDER_WAY)).toObject();
    } catch (const Refusal& refusal) {
        KESTRA_THROW(Refusal(refusal.what() + std::string("; without that file all jobs are begun anew")));
    }
}

void QueueFile::takeOver() {
    for (const Job& job : all) {
        const QJsonObject made = underWay.value(job.digest).toObject();
        if (made.isEmpty() || !job.fault.empty())
            continue;
        const QString output = filePath(job.output);
        settle(QFileInfo(output));
        const FileFacts standing = FileFacts::ofOutput(output);
        if (!isThatOne(standing, made))
            continue;
        QJsonObject facts = factsOf(output, standing);
        facts.insert(key(INPUTS), made.value(key(INPUTS)));
        done.insert(job.digest, facts);
    }
    if (underWay.isEmpty())
        return;
    underWay = {};
    writeState(statePath, done, underWay); // as well as it can be
}

bool QueueFile::isDone(const Job& job) const {
    if (!job.fault.empty())
        return false;
    QJsonObject facts = factsOf(job.output);
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

std::function<void(const QString& made)> QueueFile::beforePlacing(const Job& job) const {
    return [path = statePath, done = done, digest = job.digest, inputs = inputs](const QString& made) {
        QJsonObject facts = placingObject(FileFacts::ofOutput(made));
        facts.insert(key(INPUTS), inputs);
        writeState(path, done, {{digest, facts}});
    };
}

bool QueueFile::keep(const Job& job) {
    QJsonObject facts = factsOf(job.output);
    facts.insert(key(INPUTS), inputs);
    done.insert(job.digest, facts);
    const auto why = writeState(statePath, done, {});
    if (why)
        ErrorOutput::fail("cannot keep what is done in \"" + statePath.toStdString() + "\": " + *why);
    return !why;
}

} // namespace Cli
