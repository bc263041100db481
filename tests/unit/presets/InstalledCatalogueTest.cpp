// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/ClientAPI/ContainerLimits.h"
#include "Kestra/Conf/IFormatCodec.h"
#include "Kestra/Conf/IFormatFile.h"
#include "Kestra/Conf/PixelFormat.h"
#include "support/CatalogueFixture.h"
#include <QMap>
#include <QSize>
#include <algorithm>
#include <set>
#include <vector>

using TestPresets::edited;
using TestPresets::text;

namespace {

QJsonObject readJson(const char* path) {
    QFile file(text(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    return QJsonDocument::fromJson(file.readAll()).object();
}

QStringList enumeration(const char* definition, const char* property) {
    QJsonValue values = readJson(CATALOGUE_SCHEMA);
    for (const char* const step : {"definitions", definition, "properties", property, "enum"})
        values = values.toObject().value(text(step));
    QStringList names;
    for (const auto& value : values.toArray())
        names.append(value.toString());
    EXPECT_FALSE(names.isEmpty()) << definition << "/" << property;
    return names;
}

} // namespace

class InstalledCatalogueTest : public TestPresets::CatalogueFixture {
protected:
    InstalledCatalogueTest() {
        writeCatalogue(readJson(INSTALLED_CATALOGUE)); // in other bytes, so that every check is made
        EXPECT_TRUE(load(storage)) << storage.lastError();
    }
    std::deque<Preset> everyPreset() const {
        std::deque<Preset> all;
        for (const auto& preset : readJson(INSTALLED_CATALOGUE)[text("presets")].toArray())
            all.push_back(storage.preset(preset.toObject()[text("id")].toString().toStdString()));
        return all;
    }
    Preset modified(const Preset& preset, const std::string& modifier) const {
        Preset result = preset;
        result.applyQualityModifier(storage.qualityModifierData(preset.id(), modifier));
        return result;
    }
    /// A number that grows with the bits that the preset's picture takes.
    static double cost(const Preset& preset) {
        static const std::vector<std::string> formats{"yuv420p", "yuv422p10", "yuv444p10"};
        static const std::vector<std::string> depths{"rgb24", "rgba", "rgb48be", "rgba64be"};
        static const std::vector<std::string> profiles{"proxy",  "lt",       "standard", "hq",       "4444",
                                                       "4444xq", "dnxhr_lb", "dnxhr_sq", "dnxhr_hq", "dnxhr_hqx"};
        const auto rank = [&preset](const std::vector<std::string>& names, const char* tag) {
            const std::string name = preset.property()["video"][tag].GetString();
            const auto found = std::find(names.begin(), names.end(), name);
            EXPECT_NE(found, names.end()) << preset.id() << ": " << name;
            return static_cast<double>(found - names.begin());
        };
        if (preset.videoCodec() == Kestra::Conf::CodecID::FFV1)
            return rank(formats, "pixelFormat");
        if (preset.videoCodec() == Kestra::Conf::CodecID::PNG)
            return rank(depths, "pixelFormat");
        if (preset.videoCodec() == Kestra::Conf::CodecID::ProRes ||
            preset.videoCodec() == Kestra::Conf::CodecID::DNxHD) {
            const Kestra::Core::Property& video = preset.property()["video"];
            const bool lessAlpha = video.ChildExists("options") && video["options"].ChildExists("alpha_bits");
            return rank(profiles, "profile") - (lessAlpha ? 0.5 : 0);
        }
        if (preset.videoCodec() == Kestra::Conf::CodecID::WebP) // whose scale rises
            return preset.videoProfile() == "lossless" ? 101 : preset.videoQuality();
        if (preset.videoCodec() == Kestra::Conf::CodecID::GIF)
            return boost::rational_cast<double>(preset.frameRate());
        const bool byQuality = preset.videoBitrateMode() == Export::BitrateMode::Quality;
        const bool byBitrate = preset.videoBitrateMode() == Export::BitrateMode::Variable;
        return byQuality   ? -preset.videoQuality()
               : byBitrate ? static_cast<double>(preset.videoBitrateBps())
                           : preset.videoBitrateMultiplier();
    }
    PresetStorage storage;
};

TEST_F(InstalledCatalogueTest, IsTheSameWithoutItsChecks) {
    PresetStorage unchecked;
    ASSERT_TRUE(unchecked.loadPresets(Kestra::ioPath(INSTALLED_CATALOGUE))) << unchecked.lastError();
    EXPECT_EQ(unchecked.tags(), storage.tags());
    for (const Preset& preset : everyPreset()) {
        EXPECT_EQ(unchecked.preset(preset.id()).property().ToString(), preset.property().ToString());
        const std::set<std::string> qualities = storage.qualityModifierTags(preset.id());
        EXPECT_EQ(unchecked.qualityModifierTags(preset.id()), qualities);
        for (const std::string& quality : qualities)
            EXPECT_EQ(unchecked.qualityModifierData(preset.id(), quality).ToString(),
                      storage.qualityModifierData(preset.id(), quality).ToString());
    }
}

/// One byte is enough to have everything checked.
TEST_F(InstalledCatalogueTest, IsCheckedOnceItIsAnother) {
    writeCatalogue(
        edited(readJson(INSTALLED_CATALOGUE), "/presets/0/video/options", TestPresets::object("{'nonsense': '1'}")));
    PresetStorage other;
    EXPECT_FALSE(load(other));
    EXPECT_NE(other.lastError().find("nonsense"), std::string::npos) << other.lastError();
}

TEST_F(InstalledCatalogueTest, HoldsWhatPeopleExportTo) {
    for (const char* const id : {"mp4-h264-2160p",
                                 "mp4-h264-1440p",
                                 "mp4-h264-1080p",
                                 "mp4-h264-720p",
                                 "mp4-h264-480p",
                                 "mp4-h264-source",
                                 "mp4-hevc-1080p",
                                 "mp4-mpeg4-720p",
                                 "webm-vp9-2160p",
                                 "webm-vp9-1080p",
                                 "webm-vp9-720p",
                                 "mp4-h264-1080p-60fps",
                                 "mp4-h264-vertical",
                                 "mp4-h264-square",
                                 "mp4-h264-1080p-silent",
                                 "mov-h264-1080p",
                                 "mkv-h264-1080p",
                                 "mp4-hevc-1080p-10bit",
                                 "mkv-hevc-1080p-10bit",
                                 "mp4-av1-1080p",
                                 "webm-av1-1080p",
                                 "webm-vp9-1080p-silent",
                                 "webm-vp9-1080p-alpha",
                                 "gif-gif-480p",
                                 "mov-dnxhd-1080p",
                                 "mov-prores-1080p-4444",
                                 "mov-prores-1080p-silent",
                                 "mkv-hevc-2160p",
                                 "mkv-hevc-1080p",
                                 "mkv-ffv1-flac",
                                 "mov-prores-2160p",
                                 "mov-prores-1080p",
                                 "m4a-aac",
                                 "mp3",
                                 "flac",
                                 "wav",
                                 "opus",
                                 "ogg-vorbis",
                                 "m4a-alac",
                                 "ac3",
                                 "webp-webp-720p",
                                 "webp-webp-480p",
                                 "png-sequence",
                                 "png-sequence-alpha",
                                 "jpeg-sequence"})
        EXPECT_TRUE(storage.isPresetExists(id)) << id;
    for (const char* const id : {"mp4-h264-1080p-2pass", "mp4-h264-1080p-6mbps-2pass", "mp4-h264-1080p-constant-2pass",
                                 "mp4-hevc-1080p-2pass", "mp4-mpeg4-720p-2pass", "webm-vp9-1080p-2pass"})
        EXPECT_TRUE(storage.isPresetExists(id)) << id;
    EXPECT_GE(storage.tags().size(), 5u);
}

TEST_F(InstalledCatalogueTest, TheIdTellsContainerCodecAndSize) {
    const QMap<QString, QSize> named{{text("vertical"), {1080, 1920}}, {text("square"), {1080, 1080}}};
    for (const Preset& preset : everyPreset()) {
        if (Kestra::ClientAPI::ContainerLimits::IsSequence(preset.containerId())) { // of one codec, in any size
            EXPECT_EQ(preset.id().find(preset.containerId()), 0U) << preset.id();
            EXPECT_EQ(preset.width(), 0) << preset.id();
            continue;
        }
        const QStringList parts = QString::fromStdString(preset.id()).split(QLatin1Char('-'));
        const auto codec = preset.hasVideo() ? preset.videoCodec() : preset.audioCodec();
        const QString size = parts.value(2);
        const int lines = size.endsWith(QLatin1Char('p')) ? size.chopped(1).toInt() : 0;
        EXPECT_EQ(parts.at(0).toStdString(), preset.containerId());
        EXPECT_EQ(parts.value(1, text(Kestra::Conf::CodecIDToString(codec))),
                  text(Kestra::Conf::CodecIDToString(codec)));
        const QSize frame = named.value(size, QSize(2 * qRound(lines * 8 / 9.0), lines));
        EXPECT_EQ(preset.height(), frame.height()) << preset.id();
        EXPECT_EQ(preset.width(), frame.width()) << preset.id();
        EXPECT_EQ(preset.hasFixedResolution(), named.contains(size)) << preset.id();
        if (!frame.isEmpty()) {
            EXPECT_EQ(preset.maxHeight(), preset.height()) << preset.id();
            EXPECT_EQ(preset.maxWidth(), preset.width()) << preset.id();
        }
    }
}

TEST_F(InstalledCatalogueTest, EveryPresetStandsUnderATag) {
    std::set<std::string> tagged;
    for (const std::string& tag : storage.tags())
        for (const Preset& preset : storage.presets(tag))
            tagged.insert(preset.id());
    for (const Preset& preset : everyPreset())
        EXPECT_TRUE(tagged.count(preset.id())) << preset.id();
}

TEST_F(InstalledCatalogueTest, EveryPresetHasATitleAndCompleteData) {
    for (const Preset& preset : everyPreset()) {
        EXPECT_NE(preset.title(), preset.id());
        EXPECT_EQ(preset.muxerData()[Kestra::Conf::IFormatFile::TAG_CONTAINER_ID].GetString(), preset.containerId());
        if (preset.hasVideo()) {
            EXPECT_NE(preset.videoEncoderData()[Kestra::Conf::IFormatCodec::TAG_CODEC_ID].GetString(), "none");
        }
        if (preset.hasAudio()) {
            EXPECT_NE(preset.audioEncoderData()[Kestra::Conf::IFormatCodec::TAG_CODEC_ID].GetString(), "none");
        }
    }
}

TEST_F(InstalledCatalogueTest, NoTwoPresetsAreTheSame) {
    const std::deque<Preset> all = everyPreset();
    for (std::size_t first = 0; first < all.size(); ++first)
        for (std::size_t second = first + 1; second < all.size(); ++second)
            EXPECT_FALSE(all[first].equalsTo(all[second])) << all[first].id() << " and " << all[second].id();
}

TEST_F(InstalledCatalogueTest, EveryVideoPresetComesInThreeQualitiesAtLeastButPng) {
    for (const Preset& preset : everyPreset()) {
        const std::set<std::string> names = storage.qualityModifierTags(preset.id());
        if (!preset.hasVideo())
            continue;
        for (const char* const name : {"high", "medium"})
            EXPECT_EQ(names.count(name), 1u) << preset.id() << " has no " << name;
        EXPECT_GT(cost(modified(preset, "high")), cost(modified(preset, "medium"))) << preset.id();
        // Without loss there are the two depths, and nothing to save in them.
        const bool isPng = preset.videoCodec() == Kestra::Conf::CodecID::PNG;
        EXPECT_EQ(names.count("low"), isPng ? 0u : 1u) << preset.id();
        if (isPng)
            continue;
        EXPECT_GT(cost(modified(preset, "medium")), cost(modified(preset, "low"))) << preset.id();
    }
}

TEST_F(InstalledCatalogueTest, QualitiesOfAPresetGiveDifferentFilesOfOneKind) {
    for (const Preset& preset : everyPreset()) {
        const std::set<std::string> names = storage.qualityModifierTags(preset.id());
        for (const std::string& name : names) {
            const Preset one = modified(preset, name);
            EXPECT_EQ(one.muxerData(), preset.muxerData()) << preset.id() << " " << name;
            EXPECT_EQ(one.videoCodec(), preset.videoCodec()) << preset.id() << " " << name;
            EXPECT_EQ(one.width(), preset.width()) << preset.id() << " " << name;
            EXPECT_EQ(one.videoBitrateMode(), preset.videoBitrateMode()) << preset.id() << " " << name;
            EXPECT_EQ(one.isVideoTwoPassEncodingEnabled(), preset.isVideoTwoPassEncodingEnabled()) << preset.id();
            for (const std::string& other : names)
                EXPECT_EQ(one.affectsAs(modified(preset, other)), name == other) << name << " and " << other;
        }
    }
}

TEST_F(InstalledCatalogueTest, APresetAsItIsCorrespondsToOneOfItsQualities) {
    for (const Preset& preset : everyPreset()) {
        const std::set<std::string> names = storage.qualityModifierTags(preset.id());
        const auto same = std::count_if(names.begin(), names.end(), [&](const std::string& name) {
            return modified(preset, name).affectsAs(preset);
        });
        // Without loss there is nothing in between: its qualities are formats, and on its own it keeps the source's.
        const bool ownFormat = preset.videoCodec() == Kestra::Conf::CodecID::FFV1;
        EXPECT_EQ(same, names.empty() || ownFormat ? 0 : 1) << preset.id();
    }
}

TEST_F(InstalledCatalogueTest, TheIdTellsWhetherAPresetRunsTwoPasses) {
    for (const Preset& preset : everyPreset()) {
        const bool runsTwo =
            preset.isVideoTwoPassEncodingEnabled() && preset.videoBitrateMode() != Export::BitrateMode::Quality;
        const std::string& id = preset.id();
        const bool saysTwo = id.size() > 6 && id.compare(id.size() - 6, 6, "-2pass") == 0;
        EXPECT_EQ(runsTwo, saysTwo) << id;
    }
}

TEST_F(InstalledCatalogueTest, TwoPassesAreEnabledInPresetsOfEveryBitrateMode) {
    std::set<Export::BitrateMode> modes;
    for (const Preset& preset : everyPreset())
        if (preset.isVideoTwoPassEncodingEnabled())
            modes.insert(preset.videoBitrateMode());
    using Mode = Export::BitrateMode;
    EXPECT_EQ(modes, (std::set<Mode>{Mode::Constant, Mode::Automatic, Mode::Variable, Mode::Quality}));
}

TEST_F(InstalledCatalogueTest, FilesForTheWebStartFast) {
    for (const Preset& preset : everyPreset()) {
        if (preset.containerId() == "mp4" || preset.containerId() == "mov") {
            const auto data = preset.muxerData();
            EXPECT_EQ(data[Kestra::Conf::IFormatFile::TAG_MUXER_OPTIONS]["movflags"].GetString(), "+faststart");
        }
    }
}

TEST_F(InstalledCatalogueTest, TheSchemaNamesOnlyWhatTheEngineKnows) {
    for (const QString& name : enumeration("video", "codec"))
        EXPECT_TRUE(Kestra::Conf::IsVideoCodec(Kestra::Conf::CodecIDFromString(name.toStdString())))
            << name.toStdString();
    for (const QString& name : enumeration("audio", "codec")) {
        const auto codec = Kestra::Conf::CodecIDFromString(name.toStdString());
        EXPECT_NE(codec, Kestra::Conf::CodecID::None) << name.toStdString();
        EXPECT_FALSE(Kestra::Conf::IsVideoCodec(codec)) << name.toStdString();
    }
    for (const QString& name : enumeration("video", "pixelFormat"))
        EXPECT_NE(Kestra::Conf::PixelFormatFromString(name.toStdString()), Kestra::Conf::PixelFormat::Unknown)
            << name.toStdString();
}

TEST_F(InstalledCatalogueTest, EveryNameOfTheSchemaIsUnderstood) {
    using TestPresets::edited;
    // A bitrate that suits one layout does not suit another.
    const QJsonObject base =
        edited(TestPresets::smallCatalogue(), "/presets/0/audio/bitrate", QJsonValue(QJsonValue::Undefined));
    std::set<int> layouts;
    for (const QString& name : enumeration("audio", "channelLayout")) {
        writeCatalogue(edited(base, "/presets/0/audio/channelLayout", name));
        ASSERT_TRUE(load(storage)) << storage.lastError();
        layouts.insert(static_cast<int>(storage.preset("small").channelLayout()));
    }
    EXPECT_EQ(layouts.size(), static_cast<std::size_t>(enumeration("audio", "channelLayout").size()));
    std::set<int> modes;
    for (const QString& name : enumeration("video", "resize")) {
        writeCatalogue(edited(base, "/presets/0/video/resize", name));
        ASSERT_TRUE(load(storage)) << storage.lastError();
        modes.insert(static_cast<int>(storage.preset("small").resizerSettings().aspectMode));
    }
    EXPECT_EQ(modes.size(), 5u);
    std::set<int> interpolations;
    for (const QString& name : enumeration("video", "interpolation")) {
        writeCatalogue(edited(base, "/presets/0/video/interpolation", name));
        ASSERT_TRUE(load(storage)) << storage.lastError();
        interpolations.insert(static_cast<int>(storage.preset("small").resizerSettings().interpolation));
    }
    EXPECT_EQ(interpolations.size(), 4u);
}
