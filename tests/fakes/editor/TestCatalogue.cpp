// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/editor/TestCatalogue.h"

#include <QFile>
#include <QString>
#include <stdexcept>

namespace EditorFakes {

namespace {

constexpr const char* CATALOGUE = R"({
  "version": 1,
  "tags": [
    {"name": "test", "default": 0,
     "presets": ["av", "sound", "pictures", "fixed", "two-pass"]}
  ],
  "presets": [
    {"id": "av", "container": {"id": "mp4", "options": {"movflags": "+faststart"}},
     "video": {"codec": "h264", "width": 640, "height": 360, "maxWidth": 640, "maxHeight": 360,
               "frameRate": "source", "bitrateMode": "automatic"},
     "audio": {"codec": "aac", "bitrate": 160000, "sampleRate": 48000, "channelLayout": "stereo"}},
    {"id": "sound", "container": {"id": "m4a"},
     "audio": {"codec": "aac", "bitrate": 128000, "sampleRate": 48000, "channelLayout": "stereo"}},
    {"id": "pictures", "container": {"id": "mp4"},
     "video": {"codec": "h264", "width": 640, "height": 360, "maxWidth": 640, "maxHeight": 360,
               "bitrateMode": "automatic"}},
    {"id": "fixed", "container": {"id": "mp4"},
     "video": {"codec": "h264", "width": 320, "height": 180, "maxWidth": 320, "maxHeight": 180,
               "bitrateMode": "variable", "bitrate": 1200000,
               "options": {"tune": "film"}},
     "audio": {"codec": "aac", "bitrate": 96000, "sampleRate": 48000, "channelLayout": "stereo"}},
    {"id": "two-pass", "container": {"id": "mp4"},
     "video": {"codec": "h264", "width": 640, "height": 360, "maxWidth": 640, "maxHeight": 360,
               "bitrateMode": "automatic", "twoPass": true},
     "audio": {"codec": "aac", "bitrate": 160000, "sampleRate": 48000, "channelLayout": "stereo"}}
  ]
})";

} // namespace

TestCatalogue::TestCatalogue() {
    QFile file(folder.filePath(QStringLiteral("catalogue.json")));
    if (!folder.isValid() || !file.open(QIODevice::WriteOnly) || file.write(CATALOGUE) < 0)
        throw std::runtime_error("cannot write the test catalogue: " + file.errorString().toStdString());
    qputenv("EDITOR_EXPORT_PRESETS", QFile::encodeName(file.fileName()));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.path()));
}

TestCatalogue::~TestCatalogue() {
    qunsetenv("EDITOR_EXPORT_PRESETS");
    qunsetenv("XDG_CONFIG_HOME");
}

} // namespace EditorFakes
