// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorSettings/Settings.h"
#include "FileSystem/FS.h"
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>
#include <QtDebug>
#include <dlfcn.h>

namespace {

QString literal(const char* text) {
    return QString::fromLatin1(text);
}

QString configurationFolder() {
    return FS::joinPath(
        {QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation), literal("EditorExport")});
}

QString settingsFile() {
    return FS::joinPath({configurationFolder(), literal("settings")}, literal("ini"));
}

std::string read(const char* key) {
    const QSettings file(settingsFile(), QSettings::IniFormat);
    return file.value(literal(key)).toString().toStdString();
}

bool write(const char* key, const std::string& value) {
    QSettings file(settingsFile(), QSettings::IniFormat);
    file.setValue(literal(key), QString::fromStdString(value));
    file.sync();
    if (file.status() == QSettings::NoError)
        return true;
    qWarning("Cannot remember %s in %s: %s", key, qUtf8Printable(settingsFile()),
             file.status() == QSettings::AccessError ? "it cannot be written" : "it is no settings file");
    return false;
}

/// The folder that this library was loaded from, through symbolic links; empty when the loader cannot tell.
QString libraryFolder() {
    Dl_info info{};
    static const char ANCHOR = 0;
    if (dladdr(&ANCHOR, &info) == 0 || info.dli_fname == nullptr)
        return {};
    return QFileInfo(QFileInfo(QFile::decodeName(info.dli_fname)).canonicalFilePath()).absolutePath();
}

/// The first `relative` that exists below `folder` or one of the folders above it.
QString findUpwards(const QString& folder, const QString& relative) {
    QDir place(folder);
    do {
        QString candidate = place.filePath(relative);
        if (QFileInfo(candidate).isFile())
            return candidate;
    } while (place.cdUp());
    return {};
}

constexpr const char* INSTALLED_CATALOGUE = "share/editor-export/" EDITOREXPORT_SOVERSION "/presets/catalogue.json";
constexpr const char* SOURCE_TREE_CATALOGUE = "resources/presets/catalogue.json";
constexpr const char* KEY_GROUP = "export/lastUsedPresetGroup";
constexpr const char* KEY_ID = "export/lastUsedPresetId";

} // namespace

QString Settings::presetFilePath() {
    QString chosen = qEnvironmentVariable("EDITOR_EXPORT_PRESETS");
    if (!chosen.isEmpty())
        return chosen;
    const QString folder = libraryFolder();
    for (const char* const place : {INSTALLED_CATALOGUE, SOURCE_TREE_CATALOGUE}) {
        QString found = folder.isEmpty() ? QString() : findUpwards(folder, literal(place));
        if (!found.isEmpty())
            return found;
    }
    return QDir::cleanPath(FS::joinPath({folder, literal(".."), literal(INSTALLED_CATALOGUE)}));
}

QString Settings::userPresetFilePath() {
    return FS::joinPath({configurationFolder(), literal("presets")}, literal("json"));
}

std::string Settings::lastUsedPresetGroup() {
    return read(KEY_GROUP);
}

bool Settings::setLastUsedPresetGroup(const std::string& group) {
    return write(KEY_GROUP, group);
}

std::string Settings::lastUsedPresetId() {
    return read(KEY_ID);
}

bool Settings::setLastUsedPresetId(const std::string& id) {
    return write(KEY_ID, id);
}
