// Every preset that the program comes with, in each of its qualities: the file is what the preset says.
#include "EditorPreset/Preset.h"
#include "Kestra/ClientAPI/ContainerLimits.h"
#include "Kestra/Conf/SampleInfo.h"
#include "WishFixture.h"
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

class InstalledPresets : public TestWishes::WishFixture {
protected:
    InstalledPresets() {
        QFile file(text(INSTALLED_CATALOGUE));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        installed = QJsonDocument::fromJson(file.readAll()).object();
        writeCatalogue(installed);
        EXPECT_TRUE(load(storage)) << storage.lastError();
    }
    ProbedMedia exportedAs(const Preset& preset, const std::string& quality) {
        const std::string extension = ContainerLimits::Extensions(preset.containerId(), preset.hasVideo()).front();
        const std::string output = *media / ("preset." + extension);
        ExportCore::ExportRequest request = TestExport::requestOf(*media / "short.mkv", preset.id().c_str(), output);
        if (!quality.empty())
            request.quality = quality;
        request.overwrite = true;
        const ExportCore::ExportOutcome outcome = TestExport::run(request);
        EXPECT_EQ(outcome.status, ExportCore::ExportOutcome::Status::Done) << outcome.error.GetDescription();
        return outcome.status == ExportCore::ExportOutcome::Status::Done ? TestMedia::probe(output) : ProbedMedia{};
    }

    QJsonObject installed;
    PresetStorage storage;
};

void expectPictures(const ProbedMedia& file, const Preset& preset) {
    ASSERT_EQ(file.video.has_value(), preset.hasVideo());
    if (!preset.hasVideo())
        return;
    EXPECT_EQ(file.video->codec, decoderOf(preset.videoCodec()));
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

TEST_F(InstalledPresets, MakeTheFilesThatTheySay) {
    for (const QJsonValue& value : installed[text("presets")].toArray()) {
        const Preset preset = storage.preset(value.toObject()[text("id")].toString().toStdString());
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
