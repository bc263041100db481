// SPDX-License-Identifier: GPL-3.0-or-later
// A private configuration folder and catalogue files for the tests of presets.
#pragma once

#include "EditorPreset/PresetStorage.h"
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <string>

namespace TestPresets {

inline QString text(const char* latin1) {
    return QString::fromLatin1(latin1);
}

/// JSON with single quotes, so that it can be read in a source.
inline QJsonObject object(QByteArray json) {
    json.replace('\'', '"');
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << json.toStdString();
    return document.object();
}

/// Two tags; in "video" the second preset is the default.
inline QJsonObject smallCatalogue() {
    return object(R"({
        'version': 1,
        'tags': [
            {'name': 'video', 'default': 1, 'presets': ['small', 'large', 'twin']},
            {'name': 'audio', 'default': 0, 'presets': ['sound']}
        ],
        'presets': [
            {'id': 'small', 'container': {'id': 'mp4'},
             'video': {'codec': 'h264', 'width': 640, 'height': 360, 'maxWidth': 640, 'maxHeight': 360,
                       'frameRate': '25', 'bitrateMode': 'variable', 'bitrate': 900000},
             'audio': {'codec': 'aac', 'bitrate': 96000, 'sampleRate': 44100, 'channelLayout': 'mono'}},
            {'id': 'large', 'title': 'Large pictures', 'container': {'id': 'mp4', 'options': {'movflags': '+faststart'}},
             'video': {'codec': 'h264', 'width': 1920, 'height': 1080, 'maxWidth': 1920, 'maxHeight': 1080,
                       'frameRate': 'source', 'bitrateMode': 'automatic', 'multiplier': 0.75, 'quality': 21},
             'audio': {'codec': 'aac', 'bitrate': 192000, 'sampleRate': 48000, 'channelLayout': 'stereo'},
             'qualityModifiers': {'high': {'video': {'multiplier': 1.5}}, 'low': {'video': {'multiplier': 0.25}}}},
            {'id': 'twin', 'title': 'The same under another name',
             'container': {'id': 'mp4', 'options': {'movflags': '+faststart'}},
             'video': {'codec': 'h264', 'width': 1920, 'height': 1080, 'maxWidth': 1920, 'maxHeight': 1080,
                       'frameRate': 'source', 'bitrateMode': 'automatic', 'multiplier': 0.75, 'quality': 21},
             'audio': {'codec': 'aac', 'bitrate': 192000, 'sampleRate': 48000, 'channelLayout': 'stereo'}},
            {'id': 'sound', 'container': {'id': 'flac'},
             'audio': {'codec': 'flac', 'sampleRate': 0, 'channelLayout': 'source'}}
        ]
    })");
}

/// The document with the place of a JSON pointer set to `value`; an undefined value takes the place away.
inline QJsonValue edited(const QJsonValue& document, const QStringList& steps, const QJsonValue& value) {
    if (steps.isEmpty())
        return value;
    const QStringList rest = steps.mid(1);
    if (document.isArray()) {
        QJsonArray array = document.toArray();
        const int index = steps.first().toInt();
        const QJsonValue inner = edited(array.at(index), rest, value);
        if (inner.isUndefined())
            array.removeAt(index);
        else if (index < array.size())
            array.replace(index, inner);
        else
            array.append(inner);
        return array;
    }
    QJsonObject map = document.toObject();
    map.insert(steps.first(), edited(map.value(steps.first()), rest, value));
    return map;
}

inline QJsonObject edited(const QJsonObject& document, const char* pointer, const QJsonValue& value) {
    return edited(QJsonValue(document), text(pointer).split(QLatin1Char('/')).mid(1), value).toObject();
}

/// Keeps the user's configuration out of the tests, and theirs out of the user's.
class CatalogueFixture : public ::testing::Test {
protected:
    CatalogueFixture()
        : folder()
        , previous(qgetenv("XDG_CONFIG_HOME")) {
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.filePath(text("config"))));
        qputenv("EDITOR_EXPORT_PRESETS", QFile::encodeName(cataloguePath()));
    }
    ~CatalogueFixture() override {
        qputenv("XDG_CONFIG_HOME", previous);
        qunsetenv("EDITOR_EXPORT_PRESETS");
    }

    QString cataloguePath() const { return folder.filePath(text("catalogue.json")); }

    static void write(const QString& path, const QByteArray& bytes) {
        QDir().mkpath(QFileInfo(path).absolutePath());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    void writeCatalogue(const QJsonObject& catalogue) { write(cataloguePath(), QJsonDocument(catalogue).toJson()); }

    bool load(PresetStorage& storage) const {
        return storage.loadPresets(Kestra::ioPath(cataloguePath().toStdString()));
    }

    QTemporaryDir folder;

private:
    QByteArray previous;
};

} // namespace TestPresets
