// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/PresetEdit.h"
#include "Export/PresetProvider.h"
#include "ExportCore/Refusal.h"
#include "ExportCore/RequestCheck.h"
#include "Kestra/Conf/SampleInfo.h"
#include <functional>
#include <gmock/gmock.h>

using ExportCore::ExportRequest;
using ExportCore::PresetEdit;
using ExportCore::PresetSettings;
using ExportCore::Refusal;
using ExportCore::RequestCheck;
using ::testing::HasSubstr;

namespace {

std::string refusalOf(const std::function<void()>& action) {
    try {
        action();
        return {};
    } catch (const Refusal& refusal) {
        return refusal.what();
    }
}

class PresetEditTest : public ::testing::Test {
protected:
    PresetEditTest() {
        video.width = 1280;
        video.height = 720;
        video.frameRateNumerator = 25;
        video.frameRateDenominator = 1;
        video.aspectNumerator = 16;
        video.aspectDenominator = 9;
        audio.channelLayout = Kestra::Conf::CHANNEL_LAYOUT_STEREO;
        audio.sampleRate = 48000;
        audio.sampleFormat = Kestra::Conf::SAMPLE_FORMAT_FLTP;
    }
    void select(const char* tag, const char* id) {
        provider.selectTag(tag);
        provider.selectPreset(std::string(id));
        ASSERT_EQ(provider.preset().id(), id);
    }
    Preset apply(const std::vector<std::string>& settings, const char* modifier = "") {
        PresetEdit{modifier, PresetSettings::parse(settings)}.apply(provider, video, audio);
        return provider.preset();
    }
    std::string refusal(const std::vector<std::string>& settings) {
        return refusalOf([&] { apply(settings); });
    }

    Export::PresetProvider provider{nullptr};
    Media::Video video;
    Media::Audio audio;
};

TEST_F(PresetEditTest, NothingAskedForFitsTheSizeAlone) {
    select("mp4", "mp4-h264-1080p");
    const Preset preset = apply({});
    EXPECT_EQ(preset.width(), 1280);
    EXPECT_FALSE(provider.customPresetExists());
    EXPECT_EQ(provider.findQualityModifier(&video), "medium");
}

TEST_F(PresetEditTest, LimitsTurnWithAPictureThatStands) {
    select("mp4", "mp4-h264-1080p");
    video.width = 1080;
    video.height = 1920;
    video.aspectNumerator = 9;
    video.aspectDenominator = 16;
    EXPECT_EQ(apply({}).width(), 1080);
    EXPECT_EQ(provider.preset().height(), 1920);
    video.width = 2160;
    video.height = 3840;
    EXPECT_EQ(apply({}, "high").width(), 1080);
    EXPECT_EQ(provider.preset().height(), 1920);
    EXPECT_EQ(provider.findQualityModifier(&video), "high");
}

TEST_F(PresetEditTest, ASizeMayStandWhereThePresetTakesItLying) {
    select("mp4", "mp4-h264-1080p");
    const Preset preset = apply({"size=1080x1920"});
    EXPECT_EQ(preset.width(), 1080);
    EXPECT_EQ(preset.height(), 1920);
    PresetSettings::parse({"height=1920"}).requireFit(preset);
    EXPECT_THAT(refusalOf([&] { PresetSettings::parse({"size=1200x1200"}).requireFit(preset); }),
                HasSubstr("is for pictures up to"));
    EXPECT_THAT(refusalOf([&] { PresetSettings::parse({"height=1922"}).requireFit(preset); }),
                HasSubstr("is for pictures up to"));
}

TEST_F(PresetEditTest, OneSideAloneIsHeldAgainstTheLimitsWithTheOtherThatFollows) {
    select("mp4", "mp4-h264-720p");
    video.width = 960;
    video.aspectNumerator = 4;
    video.aspectDenominator = 3;
    EXPECT_THAT(refusal({"height=722"}), HasSubstr("is for pictures up to 1280x720"));
    EXPECT_EQ(apply({"height=720"}).width(), 960);
}

TEST_F(PresetEditTest, AFixedSizeDoesNotTurn) {
    select("mp4", "mp4-h264-vertical");
    EXPECT_EQ(apply({}).width(), 1080);
    EXPECT_EQ(provider.preset().height(), 1920);
    EXPECT_TRUE(provider.preset().hasFixedResolution());
}

TEST_F(PresetEditTest, AModifierIsFoundAgain) {
    select("mp4", "mp4-h264-1080p");
    EXPECT_EQ(apply({}, "low").videoBitrateMultiplier(), 0.5);
    EXPECT_EQ(provider.findQualityModifier(&video), "low");
    EXPECT_FALSE(provider.customPresetExists());
}

TEST_F(PresetEditTest, SettingsCountMoreThanTheModifierAndAreSaved) {
    select("mp4", "mp4-h264-1080p");
    const Preset preset = apply({"audio-bitrate=96k"}, "high");
    EXPECT_EQ(preset.videoBitrateMultiplier(), 1.6);
    EXPECT_EQ(preset.audioBitrateBps(), 96'000);
    EXPECT_EQ(preset.width(), 1280);
    ASSERT_TRUE(provider.customPresetExists());
    EXPECT_TRUE(provider.customPreset().equalsTo(preset));
    EXPECT_EQ(provider.originalPreset().audioBitrateBps(), 192'000);
}

TEST_F(PresetEditTest, ASizeIsKeptExactly) {
    select("mp4", "mp4-h264-1080p");
    apply({"size=800x800"});
    provider.updateResolutionPresetIfNeeded(&video);
    const Media::Video applied = provider.applyPreset(&video);
    EXPECT_EQ(applied.width, 800u);
    EXPECT_EQ(applied.height, 800u);
}

TEST_F(PresetEditTest, OneSideBringsTheOtherOfTheSourcesShape) {
    select("mp4", "mp4-h264-1080p");
    EXPECT_EQ(apply({"width=640"}).height(), 360);
    EXPECT_EQ(apply({"height=480"}).width(), 854);
    video.aspectNumerator = 4;
    video.aspectDenominator = 3;
    EXPECT_EQ(apply({"height=480"}).width(), 640);
    video.aspectNumerator = 0;
    EXPECT_EQ(apply({"width=1920"}).height(), 1080);
}

TEST_F(PresetEditTest, AnotherSideOutsideTheLimitsIsRefused) {
    select("mp4", "mp4-h264-1080p");
    video.aspectNumerator = 9;
    video.aspectDenominator = 16;
    EXPECT_EQ(apply({"width=1000"}).height(), 1778) << "as one that stands";
    EXPECT_EQ(refusal({"width=1100"}), "Cannot set width: the height of the source's shape would be 1956, and the "
                                       "preset \"mp4-h264-1080p\" is for pictures up to 1920x1080; "
                                       "\"mp4-h264-1440p\" takes up to 2560x1440");
    select("mp4", "mp4-hevc-1080p");
    EXPECT_THAT(refusal({"height=16"}), HasSubstr("10x16 is too small for hevc, which takes no side below 16"));
}

TEST_F(PresetEditTest, ABitrateOrAQualityBringsItsMode) {
    select("mp4", "mp4-h264-1080p");
    const Preset byBitrate = apply({"bitrate=2M"});
    EXPECT_EQ(byBitrate.videoBitrateMode(), Export::BitrateMode::Variable);
    EXPECT_EQ(provider.bitrate(&video).maximum, 2'000'000);
    const Preset byQuality = apply({"quality=30"});
    EXPECT_EQ(byQuality.videoBitrateMode(), Export::BitrateMode::Quality);
    EXPECT_EQ(byQuality.videoQuality(), 30.0);
}

TEST_F(PresetEditTest, ABitrateOutsideTheCodecsRangeIsRefused) {
    select("mp4", "mp4-h264-1080p");
    EXPECT_EQ(refusal({"bitrate=100"}), "Cannot set bitrate to 100: h264 at 1280x720 takes 390341 to 23420470 bit/s");
    EXPECT_THAT(refusal({"bitrate=100M"}), HasSubstr("to 100000000"));
    // The size counts that comes out.
    EXPECT_EQ(refusal({"bitrate=30M", "size=1920x1080"}), "");
    EXPECT_THAT(refusal({"bitrate=10M", "size=320x180"}), HasSubstr("h264 at 320x180"));
}

TEST_F(PresetEditTest, AnAudioBitrateOutsideTheCodecsRangeIsRefused) {
    select("mp4", "mp4-h264-1080p");
    EXPECT_EQ(refusal({"audio-bitrate=31999"}),
              "Cannot set audio-bitrate to 31999: aac at 48000 Hz takes 32000 to 576000 bit/s");
    EXPECT_EQ(refusal({"audio-bitrate=576k"}), "");
    // One channel takes half of it.
    EXPECT_THAT(refusal({"audio-bitrate=300k", "channels=mono"}), HasSubstr("16000 to 288000"));
    select("audio", "mp3");
    EXPECT_THAT(refusal({"audio-bitrate=200k"}), HasSubstr("160000, 192000, 224000"));
    EXPECT_THAT(refusal({"audio-bitrate=320k", "sample-rate=22050"}), HasSubstr("mp3 at 22050 Hz"));
}

TEST_F(PresetEditTest, TheRequestsQualityMustBeOneOfThePresets) {
    select("mp4", "mp4-h264-source");
    ExportRequest request;
    EXPECT_EQ(RequestCheck::presetEdit(request, provider).modifier, "");
    request.quality = "best";
    EXPECT_EQ(RequestCheck::presetEdit(request, provider).modifier, "best");
    request.quality = "bset";
    EXPECT_EQ(
        refusalOf([&] { RequestCheck::presetEdit(request, provider); }),
        "The preset \"mp4-h264-source\" has no quality \"bset\"; did you mean best? It has best, high, medium, low");
    request.quality = "";
    EXPECT_EQ(refusalOf([&] { RequestCheck::presetEdit(request, provider); }),
              "The preset \"mp4-h264-source\" has no quality \"\"; it has best, high, medium, low");
    request.quality = "20";
    EXPECT_THAT(refusalOf([&] { RequestCheck::presetEdit(request, provider); }),
                HasSubstr("it has best, high, medium, low (a number on the codec's scale: --set quality=20)"));
    select("audio", "flac");
    request.quality = "high";
    EXPECT_THAT(refusalOf([&] { RequestCheck::presetEdit(request, provider); }),
                HasSubstr("The preset \"flac\" has no qualities to choose from, so none is \"high\"; leave the quality "
                          "out; presets that have some: m4a-aac, mp3 or opus"));
}

TEST_F(PresetEditTest, TheRequestsSettingsMustReadAndFit) {
    select("audio", "mp3");
    ExportRequest request;
    request.settings = {"channels=mono"};
    EXPECT_EQ(RequestCheck::presetEdit(request, provider).settings.channelLayout,
              std::uint32_t{Kestra::Conf::CHANNEL_LAYOUT_MONO});
    request.settings = {"size=2x2"};
    EXPECT_THAT(refusalOf([&] { RequestCheck::presetEdit(request, provider); }), HasSubstr("has no picture"));
    request.settings = {"sise=2x2"};
    EXPECT_THAT(refusalOf([&] { RequestCheck::presetEdit(request, provider); }), HasSubstr("did you mean size"));
}

TEST_F(PresetEditTest, SoundThatThePresetLacksIsRefusedWithThePresetThatHasIt) {
    select("mp4", "mp4-h264-1080p-silent");
    const auto refusedTo = [this](const std::function<void(ExportRequest&)>& wish) {
        ExportRequest request;
        wish(request);
        return refusalOf([&] { RequestCheck::presetEdit(request, provider); });
    };
    const std::string other = "; \"mp4-h264-1080p\" has sound";
    EXPECT_THAT(refusedTo([](ExportRequest& request) { request.tracks.chooseSound("2"); }), HasSubstr(other));
    EXPECT_THAT(refusedTo([](ExportRequest& request) { request.loudness = -14; }), HasSubstr(other));
    EXPECT_THAT(refusedTo([](ExportRequest& request) { request.settings = {"channels=mono"}; }), HasSubstr(other));
    PresetEdit edit;
    edit.withoutVideo = true;
    EXPECT_THAT(refusalOf([&] { edit.dropMedia(provider); }), HasSubstr("the picture is not wanted" + other));
}

} // namespace
