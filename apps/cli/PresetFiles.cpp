// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/PresetFiles.h"

#include "EditorSettings/Settings.h"
#include "ExportCore/NameList.h"
#include "ExportCore/PlainText.h"
#include "ExportCore/PresetCatalogue.h"
#include "ExportCore/Refusal.h"
#include "cli/ExitCode.h"
#include "cli/FilePath.h"
#include "cli/JsonText.h"
#include "cli/PlacesInUse.h"
#include "cli/PresetDiff.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>
#include <algorithm>
#include <cstdio>
#include <sys/mman.h>

namespace Cli {
namespace {

using ExportCore::PresetCatalogue;
using ExportCore::Refusal;

constexpr int VERSION = 1;

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

QJsonObject readObject(const QString& path) {
    QFile file(path);
    const std::string name = '"' + path.toStdString() + '"';
    if (const std::string why = PlacesInUse::whyNoFile(path.toStdString()); !why.empty())
        KESTRA_THROW(Refusal("Cannot read " + name + ": " + why));
    if (!file.open(QIODevice::ReadOnly))
        KESTRA_THROW(Refusal("Cannot read " + name + ": " + file.errorString().toStdString()));
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError || !document.isObject())
        KESTRA_THROW(Refusal("Cannot read " + name + ": " +
                             (document.isArray() ? "an object is expected" : error.errorString().toStdString())));
    return document.object();
}

QString idOf(const QJsonValue& preset) {
    return preset.toObject().value(key("id")).toString();
}

int placeOf(const QJsonArray& presets, const QString& id) {
    const auto found =
        std::find_if(presets.begin(), presets.end(), [&](const QJsonValue& one) { return idOf(one) == id; });
    return found == presets.end() ? -1 : static_cast<int>(found - presets.begin());
}

QJsonObject ownFile() {
    const QString path = Settings::userPresetFilePath();
    return QFileInfo::exists(path) ? readObject(path) : QJsonObject{{key("version"), VERSION}};
}

/// As it is written where it counts: the user's own go before the installed ones.
QJsonObject sourceOf(const std::string& id, const PresetCatalogue& catalogue) {
    catalogue.preset(id); // refuses what is none
    std::vector<QJsonObject> files{readObject(Settings::presetFilePath())};
    if (catalogue.warning().empty())
        files.insert(files.begin(), ownFile());
    for (const QJsonObject& file : files) {
        const QJsonArray presets = file.value(key("presets")).toArray();
        if (const int place = placeOf(presets, text(id)); place >= 0)
            return presets.at(place).toObject();
    }
    KESTRA_THROW(Refusal("The preset \"" + id + "\" is gone from its file"));
}

QByteArray bytesOf(const QJsonObject& object) {
    return QJsonDocument(object).toJson();
}

void writeFile(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        KESTRA_THROW(Refusal("Cannot write \"" + path.toStdString() + "\": " + file.errorString().toStdString()));
}

int exportPresets(const Options& options) {
    const PresetCatalogue catalogue;
    QJsonArray presets;
    for (const std::string& id : options.inputs)
        presets.append(sourceOf(id, catalogue));
    const QByteArray bytes = bytesOf({{key("version"), VERSION}, {key("presets"), presets}});
    if (options.output.empty() || options.output == "-") {
        std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
        return EXIT_DONE;
    }
    if (const std::string why = PlacesInUse::whyNoFile(options.output); !why.empty())
        KESTRA_THROW(Refusal("Cannot write \"" + options.output + "\": " + why));
    if (QFileInfo::exists(filePath(options.output)) && !options.overwrite)
        KESTRA_THROW(Refusal("Cannot write \"" + options.output + "\": it exists already (--overwrite replaces it)"));
    writeFile(filePath(options.output), bytes);
    return EXIT_DONE;
}

/// Throws Refusal with file, place and reason.
void requireRight(const std::string& path, const PresetCatalogue& catalogue) {
    if (const std::string fault = catalogue.faultOf(path); !fault.empty())
        KESTRA_THROW(Refusal(fault));
}

void addPresets(const QJsonObject& file, bool replaces, const PresetCatalogue& catalogue, QJsonObject& own) {
    QJsonArray presets = own.value(key("presets")).toArray();
    const QJsonArray added = file.value(key("presets")).toArray();
    for (const QJsonValue& preset : added) {
        const std::string id = idOf(preset).toStdString();
        const std::vector<std::string>& known = catalogue.ids();
        const int place = placeOf(presets, idOf(preset));
        if (!replaces && (place >= 0 || std::find(known.begin(), known.end(), id) != known.end()))
            KESTRA_THROW(
                Refusal("There is a preset \"" + id +
                        "\" already; give the file's another id (--overwrite puts it in the place of that one)"));
        if (place >= 0)
            presets.replace(place, preset);
        else
            presets.append(preset);
    }
    own.insert(key("presets"), presets);
}

void addTags(const QJsonObject& file, bool replaces, const PresetCatalogue& catalogue, QJsonObject& own) {
    const std::vector<std::string> known = catalogue.tags();
    QJsonArray tags = own.value(key("tags")).toArray();
    const QJsonArray added = file.value(key("tags")).toArray();
    for (const QJsonValue& tag : added) {
        const std::string name = tag.toObject().value(key("name")).toString().toStdString();
        if (!replaces && std::find(known.begin(), known.end(), name) != known.end())
            KESTRA_THROW(Refusal("There is a tag \"" + name +
                                 "\" already; give the file's another name (--overwrite puts it in the place of that "
                                 "one, with its default)"));
        const auto same = std::find_if(tags.begin(), tags.end(), [&](const QJsonValue& one) {
            return one.toObject().value(key("name")) == tag.toObject().value(key("name"));
        });
        if (same == tags.end())
            tags.append(tag);
        else
            *same = tag;
    }
    if (!tags.isEmpty())
        own.insert(key("tags"), tags);
}

/// What is going to be one's own presets, those that were there before included. Nothing is left of the trial, however
/// it ends.
void requireWholeRight(const QByteArray& bytes, const QString& path, const PresetCatalogue& catalogue) {
    QFile trial;
    const int memory = ::memfd_create("presets", MFD_CLOEXEC);
    if (memory < 0 || !trial.open(memory, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle) ||
        trial.write(bytes) != bytes.size() || !trial.flush())
        KESTRA_THROW(Refusal("Cannot check the presets: no room for them in memory"));
    const std::string name = "/proc/self/fd/" + std::to_string(memory);
    std::string fault = catalogue.faultOf(name);
    if (const std::size_t at = fault.find(name); at != std::string::npos)
        fault.replace(at, name.size(), path.toStdString());
    if (!fault.empty())
        KESTRA_THROW(Refusal("With these your own presets would not be right: " + fault));
}

/// All of it or nothing; what comes out is as right as what went in.
int importPresets(const Options& options) {
    const PresetCatalogue catalogue;
    QJsonObject own = ownFile();
    for (const std::string& path : options.inputs) {
        requireRight(path, catalogue);
        const QJsonObject file = readObject(filePath(path));
        addPresets(file, options.overwrite, catalogue, own);
        addTags(file, options.overwrite, catalogue, own);
    }
    const QString path = Settings::userPresetFilePath();
    const QString folder = QFileInfo(path).absolutePath();
    if (!QDir().mkpath(folder))
        KESTRA_THROW(Refusal("Cannot make the folder \"" + folder.toStdString() + '"'));
    const QByteArray bytes = bytesOf(own);
    requireWholeRight(bytes, path, catalogue);
    writeFile(path, bytes);
    std::printf("%s\n", ExportCore::PlainText::escaped(path.toStdString()).c_str());
    return EXIT_DONE;
}

int validatePresets(const Options& options) {
    const PresetCatalogue catalogue;
    bool isGood = true;
    for (const std::string& path : options.inputs)
        if (const std::string fault = catalogue.faultOf(path); !fault.empty()) {
            std::printf("%s\n", ExportCore::PlainText::escaped(fault).c_str());
            isGood = false;
        }
    return isGood ? EXIT_DONE : EXIT_BAD_INPUT;
}

/// An id, or a file that holds one preset.
QJsonObject oneOf(const std::string& name, const PresetCatalogue& catalogue) {
    const std::vector<std::string>& ids = catalogue.ids();
    if (std::find(ids.begin(), ids.end(), name) != ids.end() || !QFileInfo::exists(filePath(name)))
        return sourceOf(name, catalogue);
    requireRight(name, catalogue);
    const QJsonArray presets = readObject(filePath(name)).value(key("presets")).toArray();
    if (presets.size() != 1)
        KESTRA_THROW(Refusal('"' + name + "\" holds " + std::to_string(presets.size()) +
                             " presets; one is compared (presets export ID writes one alone)"));
    return presets.first().toObject();
}

/// Throws one Refusal of all that are none.
std::vector<QJsonObject> allOf(const std::vector<std::string>& names, const PresetCatalogue& catalogue) {
    std::vector<QJsonObject> presets;
    std::string faults;
    for (const std::string& name : names)
        try {
            presets.push_back(oneOf(name, catalogue));
        } catch (const Refusal& refusal) {
            faults += (faults.empty() ? "" : "; ") + std::string(refusal.what());
        }
    if (!faults.empty())
        KESTRA_THROW(Refusal(faults));
    return presets;
}

int diffPresets(const Options& options) {
    if (options.inputs.size() != 2)
        KESTRA_THROW(Refusal("Two presets are compared; " + std::to_string(options.inputs.size()) + " were given"));
    const PresetCatalogue catalogue;
    const std::vector<QJsonObject> both = allOf(options.inputs, catalogue);
    const std::vector<std::string> lines = presetDifferences(both[0], both[1]);
    for (const std::string& line : lines)
        std::printf("%s\n", line.c_str());
    return lines.empty() ? EXIT_DONE : EXIT_EXPORT_FAILED;
}

} // namespace

int handlePresetFiles(const Options& options) {
    switch (options.presetAction) {
    case Options::PresetAction::Export:
        return exportPresets(options);
    case Options::PresetAction::Import:
        return importPresets(options);
    case Options::PresetAction::Validate:
        return validatePresets(options);
    case Options::PresetAction::Diff:
        break;
    }
    return diffPresets(options);
}

} // namespace Cli
