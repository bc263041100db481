// SPDX-License-Identifier: GPL-3.0-or-later
// Media that real people have, where a folder of them is at hand.
#include "Exported.h"
#include "support/CatalogueFixture.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/MediaProbe.h"
#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

using ExportCore::ExportOutcome;

namespace {

const QSet<QString> AUDIO_ONLY{QStringLiteral("36_opus-5.1.mka")};
/// Claims far more than it holds.
const QSet<QString> DAMAGED{QStringLiteral("40_fixture2.mkv")};

QStringList files() {
    QStringList names =
        TestFiles::namesIn(EDITOREXPORT_REAL_MEDIA).filter(QRegularExpression(QStringLiteral("^\\d+_")));
    return names;
}

/// By presets like those that people have, but for small pictures and an encoder that does not look long for the best
/// way.
class RealMedia : public TestPresets::CatalogueFixture {
protected:
    RealMedia() {
        writeCatalogue(TestPresets::object(R"({'version': 1,
            'tags': [{'name': 'all', 'default': 0, 'presets': ['film', 'sound']}],
            'presets': [
                {'id': 'film', 'container': {'id': 'mp4', 'options': {'movflags': '+faststart'}},
                 'video': {'codec': 'h264', 'width': 480, 'height': 270, 'maxWidth': 480, 'maxHeight': 270,
                           'frameRate': 'source', 'bitrateMode': 'automatic', 'profile': 'high',
                           'options': {'preset': 'superfast'}},
                 'audio': {'codec': 'aac', 'bitrate': 192000, 'sampleRate': 48000, 'channelLayout': 'stereo'}},
                {'id': 'sound', 'container': {'id': 'm4a', 'options': {'movflags': '+faststart'}},
                 'audio': {'codec': 'aac', 'bitrate': 256000, 'sampleRate': 48000, 'channelLayout': 'stereo'}}]})"));
    }
};

TEST_F(RealMedia, EveryFileExportsRightAndTheDamagedOneIsToldAsSuch) {
    if (files().isEmpty())
        GTEST_SKIP() << "no folder " << EDITOREXPORT_REAL_MEDIA;
    const TestMedia::Folder place;
    for (const QString& name : files()) {
        SCOPED_TRACE(name.toStdString());
        const bool audioOnly = AUDIO_ONLY.contains(name);
        const std::string output = place / name.toStdString() + (audioOnly ? ".m4a" : ".mp4");
        const ExportOutcome outcome = TestExport::run(TestExport::requestOf(
            std::string(EDITOREXPORT_REAL_MEDIA) + "/" + name.toStdString(), audioOnly ? "sound" : "film", output));
        if (DAMAGED.contains(name)) {
            EXPECT_EQ(outcome.status, ExportOutcome::Status::Failed);
            EXPECT_EQ(outcome.error.GetCode(), Kestra::Proc::TranscodingError::SourceDamaged);
            EXPECT_FALSE(QFile::exists(QString::fromStdString(output)));
            continue;
        }
        ASSERT_EQ(outcome.status, ExportOutcome::Status::Done) << outcome.error.GetDescription();
        const TestMedia::ProbedMedia media = TestMedia::probe(output);
        EXPECT_EQ(media.decodeErrors, 0);
        EXPECT_EQ(media.video.has_value(), !audioOnly);
        ASSERT_TRUE(media.audio);
        EXPECT_EQ(media.audio->gaps, 0);
        EXPECT_NEAR(media.duration, static_cast<double>(outcome.facts.durationMs) / 1000, 0.05);
        if (media.video) {
            EXPECT_EQ(static_cast<qint64>(media.video->frames.size()), outcome.facts.frames);
        }
    }
}

} // namespace
