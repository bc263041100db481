// SPDX-License-Identifier: GPL-3.0-or-later
#include "sweep/ReferenceExport.h"

#include "support/FileHelpers.h"
#include "support/WaitUntil.h"
#include <algorithm>

namespace Sweep {
namespace {

constexpr char OLD[] = "old";

int entriesOf(const QString& folder) {
    return static_cast<int>(QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size());
}

std::string madeClip(const std::string& path, int frames) {
    TestMedia::FlashBeep flashBeep;
    flashBeep.width = 64;
    flashBeep.height = 36;
    flashBeep.rate = 5;
    flashBeep.frames = frames;
    flashBeep.period = 5;
    flashBeep.flashFrames = 1;
    flashBeep.videoCodec = "mpeg4";
    TestMedia::makeFlashBeep(path, flashBeep);
    return path;
}

std::string withThreeSounds(const std::string& clip, const std::string& path) {
    TestMedia::runFfmpeg({"-i", clip, "-map", "0", "-map", "0:a", "-map", "0:a", "-c", "copy", path});
    return path;
}

} // namespace

const std::vector<Reference>& references() {
    static const std::vector<Reference> all = {
        {"one pass with an outro", "mp4-mpeg4-720p", "demo", {"size=64x36", "frame-rate=5"}},
        {"two passes", "mp4-mpeg4-720p-2pass", "", {"size=64x36", "frame-rate=5"}, 2},
        {"sound alone", "flac", "", {}},
        {"sound in chunks",
         "m4a-aac",
         "",
         {"sample-rate=16000", "channels=mono", "audio-bitrate=48k"},
         1,
         false,
         true,
         {10 * 1024, 2}},
        {"half a first pass",
         "mp4-h264-1080p-2pass",
         "",
         {"size=128x128", "frame-rate=5", "first-pass=half"},
         2,
         true,
         true},
        {"three sounds", "mov-h264-1080p", "", {"size=64x36", "frame-rate=5"}, 1, false, true, {}, true},
    };
    return all;
}

std::string shortNameOf(int reference) {
    constexpr const char* names[] = {"OnePassWithOutro", "TwoPasses",      "SoundAlone",
                                     "SoundInChunks",    "HalfAFirstPass", "ThreeSounds"};
    return names[reference];
}

Place::Place()
    : clip(madeClip(media / "clip.mov", 10))
    , longClip(madeClip(media / "long.mov", 20))
    , soundsClip(withThreeSounds(clip, media / "sounds.mov"))
    , output(folder / "film") {
    restore();
}

void Place::restore() const {
    for (const QString& name : TestFiles::namesIn(folder / ""))
        QFile::remove(QString::fromStdString(folder / name.toStdString()));
    TestFiles::write(output, OLD);
}

ExportCore::ExportRequest Place::request(const Reference& reference) const {
    ExportCore::ExportRequest request;
    request.inputs << QString::fromStdString(reference.hasAllSounds ? soundsClip : reference.isLong ? longClip : clip);
    if (reference.hasAllSounds)
        request.tracks.sound = ExportCore::TrackOptions::Sound::All;
    request.presetId = reference.preset;
    request.brandingName = QString::fromUtf8(reference.branding);
    request.settings = reference.settings;
    request.outputPath = QString::fromStdString(output);
    request.overwrite = true;
    return request;
}

std::string Place::complaint() const {
    const QStringList names = TestFiles::namesIn(folder / "");
    if (names != QStringList(QStringLiteral("film")))
        return "the folder holds " + names.join(QStringLiteral(", ")).toStdString();
    return TestFiles::read(output) == OLD ? "" : "the file that stood there is another one";
}

Holdings Holdings::now() {
    return {entriesOf(QStringLiteral("/proc/self/fd")), entriesOf(QStringLiteral("/proc/self/task")),
            entriesOf(QDir::tempPath())};
}

bool Holdings::returnTo(const Holdings& before) {
    constexpr int patience = 30'000;
    return TestSupport::waitUntil(
        [&before] {
            const Holdings after = now();
            return after.descriptors <= before.descriptors && after.threads <= before.threads &&
                   after.temporaryFolders <= before.temporaryFolders;
        },
        patience);
}

std::ostream& operator<<(std::ostream& out, const Holdings& holdings) {
    return out << holdings.descriptors << " descriptors, " << holdings.threads << " threads, "
               << holdings.temporaryFolders << " temporary folders";
}

int countOr(int usual) {
    bool given = false;
    const int count = qEnvironmentVariableIntValue("SWEEP_COUNT", &given);
    return given ? count : usual;
}

bool isLongForm() {
    return qEnvironmentVariableIsSet("SWEEP_COUNT");
}

} // namespace Sweep
