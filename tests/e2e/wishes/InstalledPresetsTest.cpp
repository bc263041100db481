// SPDX-License-Identifier: GPL-3.0-or-later
// Every preset that the program comes with, in each of its qualities: the file is what the preset says.
#include "EditorPreset/Preset.h"
#include "Kestra/ClientAPI/ContainerLimits.h"
#include "Kestra/Conf/SampleInfo.h"
#include "WishFixture.h"
#include "support/FileHelpers.h"
#include <cmath>

using Kestra::ClientAPI::ContainerLimits;
using Kestra::Conf::CodecID;
using TestMedia::ProbedMedia;
using TestPresets::text;

namespace {

std::string decoderOf(CodecID codec) {
    if (codec == CodecID::PCM)
        return "pcm_s16le"; // as the clip's
    return Kestra::Conf::CodecIDToString(codec);
}

/// Some of the presets each, side by side.
constexpr int SHARES = 4;

class InstalledPresets : public TestWishes::WishFixture, public ::testing::WithParamInterface<int> {
protected:
    InstalledPresets() {
        QFile file(text(INSTALLED_CATALOGUE));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        installed = QJsonDocument::fromJson(bytes).object();
        // Byte for byte, as it was checked when it was built: no export checks it again.
        write(cataloguePath(), bytes);
        EXPECT_TRUE(load(storage)) << storage.lastError();
    }
    ProbedMedia exportedAs(const Preset& preset, const std::string& quality) {
        const std::string extension = ContainerLimits::Extensions(preset.containerId(), preset.hasVideo()).front();
        const bool isSequence = ContainerLimits::IsSequence(preset.containerId());
        const std::string output = *media / (isSequence ? preset.id() + '/' : "preset." + extension);
        ExportCore::ExportRequest request = TestExport::requestOf(*media / "short.mkv", preset.id().c_str(), output);
        if (!quality.empty())
            request.quality = quality;
        request.overwrite = true;
        const ExportCore::ExportOutcome outcome = TestExport::run(request);
        EXPECT_EQ(outcome.status, ExportCore::ExportOutcome::Status::Done) << outcome.error.GetDescription();
        if (outcome.status != ExportCore::ExportOutcome::Status::Done)
            return {};
        return isSequence ? probeAll(output) : TestMedia::probe(output);
    }
    /// The first picture, with the frames of all.
    static ProbedMedia probeAll(const std::string& folder) {
        const QStringList names = TestFiles::namesIn(folder);
        ProbedMedia all = TestMedia::probe(folder + names.value(0).toStdString());
        for (int i = 1; i < names.size() && all.video; ++i) {
            const ProbedMedia next = TestMedia::probe(folder + names[i].toStdString());
            all.decodeErrors += next.decodeErrors;
            if (next.video && next.video->pixelFormat == all.video->pixelFormat)
                all.video->frames.insert(all.video->frames.end(), next.video->frames.begin(), next.video->frames.end());
        }
        return all;
    }

    QJsonObject installed;
    PresetStorage storage;
};

void expectPictures(const ProbedMedia& file, const Preset& preset) {
    ASSERT_EQ(file.video.has_value(), preset.hasVideo());
    if (!preset.hasVideo())
        return;
    EXPECT_EQ(file.video->codec, decoderOf(preset.videoCodec()));
    if (ContainerLimits::IsSequence(preset.containerId())) {
        const std::string format = preset.property()["video"]["pixelFormat"].GetString();
        EXPECT_EQ(file.video->pixelFormat, format);
    }
    const double rate = preset.frameRate() <= 0 ? 25 : boost::rational_cast<double>(preset.frameRate());
    EXPECT_EQ(file.video->frames.size(), static_cast<std::size_t>(std::llround(rate / 5))); // 0.2 s
    EXPECT_EQ(file.video->width, preset.hasFixedResolution() ? preset.width() : 256);
    EXPECT_EQ(file.video->height, preset.hasFixedResolution() ? preset.height() : 144);
}

void expectSound(const ProbedMedia& file, const Preset& preset) {
    ASSERT_EQ(file.audio.has_value(), preset.hasAudio());
    if (!preset.hasAudio())
        return;
    EXPECT_EQ(file.audio->codec, decoderOf(preset.audioCodec()));
    EXPECT_EQ(file.audio->sampleRate, 48000);
    EXPECT_EQ(file.audio->channels, preset.channelLayout() == Kestra::Conf::CHANNEL_LAYOUT_5POINT1 ? 6 : 2);
}

} // namespace

TEST_P(InstalledPresets, MakeTheFilesThatTheySay) {
    const QJsonArray presets = installed[text("presets")].toArray();
    ASSERT_GE(presets.size(), SHARES);
    for (int at = GetParam(); at < presets.size(); at += SHARES) {
        const Preset preset = storage.preset(presets[at].toObject()[text("id")].toString().toStdString());
        std::set<std::string> qualities = storage.qualityModifierTags(preset.id());
        qualities.insert(std::string());
        for (const std::string& quality : qualities) {
            SCOPED_TRACE(preset.id() + ' ' + quality);
            Preset modified = preset;
            modified.applyQualityModifier(storage.qualityModifierData(preset.id(), quality));
            const ProbedMedia file = exportedAs(preset, quality);
            EXPECT_EQ(file.decodeErrors, 0);
            expectPictures(file, modified);
            expectSound(file, modified);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Shares, InstalledPresets, ::testing::Range(0, SHARES));
