// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/ClientAPI/BitrateLimits.h"
#include "ProviderFixture.h"
#include <QSize>

using Export::BitrateMode;
using Export::PresetProvider;
using Kestra::ClientAPI::BitrateRange;
using Kestra::Conf::CodecID;
using Kestra::Conf::FrameInfo;
using Kestra::Conf::IFormatCodec;
using Kestra::Conf::IFormatCodecVideo;
using TestPresets::text;

namespace {

using Rate = boost::rational<long long>;

std::int64_t truncated(double number) {
    return static_cast<std::int64_t>(number);
}

} // namespace

class StreamParametersTest : public ProviderFixture {};

TEST_F(StreamParametersTest, StreamsExistWhenTheProjectAndThePresetHaveThem) {
    const Media::Video source = video(1920, 1080);
    const Media::Audio sound = audio(3, 48000, 8);
    const PresetProvider& empty = make();
    EXPECT_FALSE(empty.videoExists(&source));
    EXPECT_FALSE(empty.audioExists(&sound));

    const PresetProvider& provider = makeSelected("sound");
    EXPECT_FALSE(provider.videoExists(&source));
    EXPECT_FALSE(provider.videoExists(nullptr));
    EXPECT_TRUE(provider.audioExists(&sound));
    EXPECT_FALSE(provider.audioExists(nullptr));
    EXPECT_TRUE(makeSelected("large").videoExists(&source));
}

TEST_F(StreamParametersTest, TheVideoDescriptionHoldsThePreset) {
    const Media::Video source = video(1280, 720, 50);
    const auto format = makeSelected("small").formatCodec(&source, nullptr);
    EXPECT_EQ(format->GetCodecID(), CodecID::H264);
    EXPECT_EQ(format->GetFrameInfo(), (FrameInfo{640, 360, 16, 9}));
    EXPECT_EQ(format->GetFrameRate(), Rate(25));
    EXPECT_EQ(format->GetBitrate(), 900'000);
    EXPECT_EQ(format->GetBitrateMode(), "vbr");
    EXPECT_EQ(format->GetQuality(), 0.0);
    EXPECT_EQ(format->GetPixelFormat(), Kestra::Conf::PixelFormat::YUV420P);
    EXPECT_EQ(format->GetProperty()[IFormatCodec::TAG_CODEC_OPTIONS_ENCODE]["flags"].GetString(), "+global_header");
    EXPECT_EQ(format->GetRefCount(), 1);
}

TEST_F(StreamParametersTest, AGivenPresetTakesThePlaceOfTheSelectedOne) {
    const Media::Video source = video(1280, 720, 50);
    const PresetProvider& provider = makeSelected("large");
    PresetStorage storage;
    ASSERT_TRUE(load(storage));
    const Preset small = storage.preset("small");
    EXPECT_EQ(provider.formatCodec(&source, &small)->GetBitrate(), 900'000);
    EXPECT_EQ(provider.frameInfo(&source, &small), (FrameInfo{640, 360, 16, 9}));
    EXPECT_EQ(provider.frameInfo(&source, nullptr), (FrameInfo{1920, 1080, 16, 9}));
}

TEST_F(StreamParametersTest, TheMarkOfTheSourcesRateYieldsTheSourcesRate) {
    const Media::Video source = video(1280, 720, 30000, 1001);
    const PresetProvider& provider = makeSelected("large");
    EXPECT_EQ(provider.formatCodec(&source, nullptr)->GetFrameRate(), Rate(30000, 1001));
    EXPECT_EQ(provider.frameRate(&source), Rate(30000, 1001));
    const Media::Video applied = provider.applyPreset(&source);
    EXPECT_EQ(applied.frameRateNumerator, 30000u);
    EXPECT_EQ(applied.frameRateDenominator, 1001u);
}

TEST_F(StreamParametersTest, ThePresetsOwnRateWins) {
    const Media::Video source = video(1280, 720, 60000, 1001);
    const PresetProvider& provider = makeSelected("small");
    EXPECT_EQ(provider.frameRate(&source), Rate(25));
    EXPECT_EQ(provider.applyPreset(&source).frameRateNumerator, 25u);
    EXPECT_EQ(provider.applyPreset(&source).frameRateDenominator, 1u);
}

TEST_F(StreamParametersTest, ASourceOfUnknownRateStaysUnknown) {
    const Media::Video source = video(1280, 720, 0, 0);
    EXPECT_EQ(makeSelected("large").frameRate(&source), Rate(0));
}

TEST_F(StreamParametersTest, TheAudioDescriptionTakesOnlyTheSampleFormatFromTheSource) {
    const Media::Audio source = audio(Kestra::Conf::CHANNEL_LAYOUT_5POINT1, 96000, Kestra::Conf::SAMPLE_FORMAT_S32);
    const auto set = makeSelected("small").formatCodec(&source);
    EXPECT_EQ(set->GetChannelLayout(), std::uint32_t{Kestra::Conf::CHANNEL_LAYOUT_MONO});
    EXPECT_EQ(set->GetSampleRate(), 44100);
    EXPECT_EQ(set->GetSampleFormat(), Kestra::Conf::SAMPLE_FORMAT_S32);
    EXPECT_EQ(set->GetBitrate(), 96'000);
    EXPECT_EQ(set->GetCodecID(), CodecID::AAC);
    const auto open = makeSelected("sound").formatCodec(&source);
    EXPECT_EQ(open->GetChannelLayout(), 0u);
    EXPECT_EQ(open->GetSampleRate(), 0);
    EXPECT_EQ(open->GetBitrate(), 0);
}

TEST_F(StreamParametersTest, AnUnknownSampleFormatStaysUnknown) {
    const Media::Audio source = audio(3, 48000, 77);
    EXPECT_EQ(makeSelected("small").formatCodec(&source)->GetSampleFormat(), -1);
    EXPECT_EQ(provider->applyPreset(&source).sampleFormat, -1);
}

TEST_F(StreamParametersTest, TheSampleInfoIsThatOfTheDescription) {
    const Media::Audio source = audio(Kestra::Conf::CHANNEL_LAYOUT_5POINT1, 96000, Kestra::Conf::SAMPLE_FORMAT_FLTP);
    const Kestra::Conf::SampleInfo info = makeSelected("small").sampleInfo(&source);
    EXPECT_EQ(info.GetLayoutRecord()->channels, 1);
    EXPECT_EQ(info.GetRate(), 44100);
    EXPECT_EQ(info.GetFormatRecord()->format, Kestra::Conf::SAMPLE_FORMAT_FLTP);
}

TEST_F(StreamParametersTest, ApplyingAPresetRewritesTheVideoRecord) {
    Media::Video source = video(1440, 1080);
    source.aspectNumerator = 32;
    source.aspectDenominator = 18;
    source.exported = true;
    const Media::Video applied = makeSelected("small").applyPreset(&source);
    EXPECT_EQ(applied.width, 640u);
    EXPECT_EQ(applied.height, 360u);
    EXPECT_EQ(applied.aspectNumerator, 16u);
    EXPECT_EQ(applied.aspectDenominator, 9u);
    EXPECT_TRUE(applied.exported);
}

TEST_F(StreamParametersTest, ApplyingAPresetRewritesTheAudioRecord) {
    const Media::Audio source = audio(Kestra::Conf::CHANNEL_LAYOUT_5POINT1, 96000, Kestra::Conf::SAMPLE_FORMAT_S16);
    const Media::Audio applied = makeSelected("large").applyPreset(&source);
    EXPECT_EQ(applied.channelLayout, std::uint32_t{Kestra::Conf::CHANNEL_LAYOUT_STEREO});
    EXPECT_EQ(applied.sampleRate, 48000);
    EXPECT_EQ(applied.sampleFormat, Kestra::Conf::SAMPLE_FORMAT_S16);
}

TEST_F(StreamParametersTest, WhatThePresetLeavesOpenIsOpenInTheAudioRecord) {
    const Media::Audio source = audio(Kestra::Conf::CHANNEL_LAYOUT_5POINT1, 96000, Kestra::Conf::SAMPLE_FORMAT_S32);
    const PresetProvider& provider = makeSelected("sound");
    EXPECT_EQ(provider.applyPreset(&source), audio(0, 0, Kestra::Conf::SAMPLE_FORMAT_S32));
    EXPECT_EQ(provider.sampleInfo(&source).GetRate(), 0);
    EXPECT_EQ(provider.sampleInfo(&source).GetLayoutRecord()->channels, 0);
}

TEST_F(StreamParametersTest, EverythingFollowsTheEditsOfTheSelectedPreset) {
    const Media::Video source = video(1280, 720, 50);
    const Media::Audio sound = audio(3, 48000, 8);
    PresetProvider& provider = makeSelected("small");
    Preset edited = provider.preset();
    edited.setWidth(320);
    edited.setHeight(180);
    edited.setVideoBitrateBps(700'000);
    edited.setVideoQuality(23);
    edited.setAudioBitrateBps(64'000);
    edited.setSampleRate(32'000);
    ASSERT_TRUE(provider.updatePreset(&source, edited));
    const auto pictures = provider.formatCodec(&source, nullptr);
    EXPECT_EQ(pictures->GetFrameInfo(), (FrameInfo{320, 180, 16, 9}));
    EXPECT_EQ(pictures->GetQuality(), 23.0);
    EXPECT_EQ(provider.frameInfo(&source, nullptr), pictures->GetFrameInfo());
    EXPECT_EQ(provider.bitrate(&source), (BitrateRange{700'000, 700'000}));
    EXPECT_EQ(provider.applyPreset(&source).width, 320u);
    EXPECT_EQ(provider.bitrate(&sound).maximum, 64'000);
    EXPECT_EQ(provider.applyPreset(&sound).sampleRate, 32'000);
}

TEST_F(StreamParametersTest, WithoutAStreamOrAPresetRecordsStayNeutralOrUnchanged) {
    const Media::Video source = video(1921, 1081, 24);
    const Media::Audio sound = audio(3, 22050, 1);
    EXPECT_EQ(make().applyPreset(&source), source);
    EXPECT_EQ(provider->applyPreset(&sound), sound);
    EXPECT_EQ(makeSelected("sound").applyPreset(&source), source);
    EXPECT_EQ(provider->applyPreset(static_cast<const Media::Video*>(nullptr)), Media::Video());
    EXPECT_EQ(provider->applyPreset(static_cast<const Media::Audio*>(nullptr)), Media::Audio());
}

TEST_F(StreamParametersTest, WithoutAStreamOrAPresetThereIsNoBitrateRange) {
    const Media::Video source = video(1920, 1080);
    const Media::Audio sound = audio(3, 48000, 8);
    EXPECT_EQ(make().bitrate(&source), BitrateRange());
    EXPECT_EQ(provider->bitrate(&sound), BitrateRange());
    EXPECT_EQ(makeSelected("sound").bitrate(&source), BitrateRange());
    EXPECT_EQ(provider->bitrate(static_cast<const Media::Video*>(nullptr)), BitrateRange());
    EXPECT_EQ(provider->bitrate(static_cast<const Media::Audio*>(nullptr)), BitrateRange());
    EXPECT_EQ(provider->autoBitrate(&source, provider->preset()), BitrateRange());
}

TEST_F(StreamParametersTest, TheAudioRangeComesFromTheDescription) {
    const Media::Audio sound = audio(3, 48000, 8);
    EXPECT_EQ(makeSelected("large").bitrate(&sound), (BitrateRange{32'000, 192'000}));
}

TEST_F(StreamParametersTest, ModeTwoIsThePresetsOwnBitrate) {
    const Media::Video source = video(1920, 1080);
    EXPECT_EQ(makeSelected("small").bitrate(&source), (BitrateRange{900'000, 900'000}));
}

TEST_F(StreamParametersTest, ModeThreeIsTheCodecsFullRange) {
    const Media::Video source = video(1920, 1080);
    const PresetProvider& provider = makeSelected("large", "/presets/1/video/bitrateMode", text("quality"));
    ASSERT_EQ(static_cast<int>(provider.preset().videoBitrateMode()), 3);
    EXPECT_EQ(provider.bitrate(&source), (BitrateRange{800'000, 48'000'000}));
}

TEST_F(StreamParametersTest, OtherModesAreTheDefaultTimesTheMultiplierTruncated) {
    const Media::Video source = video(1920, 1080, 60);
    const auto standard = static_cast<double>(12'125'733);
    for (const char* const mode : {"automatic", "constant"}) {
        const PresetProvider& provider = makeSelected("large", "/presets/1/video/bitrateMode", text(mode));
        const std::int64_t expected = truncated(standard * 0.75);
        EXPECT_EQ(provider.bitrate(&source), (BitrateRange{expected, expected})) << mode;
    }
    EXPECT_EQ(truncated(standard * 0.75), 9'094'299);
    const PresetProvider& provider = makeSelected("large", "/presets/1/video/multiplier", 0.7500001);
    // 9094300.96..., and not the next whole number.
    EXPECT_EQ(provider.bitrate(&source).minimum, 9'094'300);
}

TEST_F(StreamParametersTest, TheAutomaticBitrateIsThatOfThePresetAskedForInEveryMode) {
    const Media::Video source = video(1920, 1080, 25);
    const PresetProvider& provider = makeSelected("large");
    Preset asked = provider.modifiedPreset("high");
    asked.setWidth(640);
    asked.setHeight(360);
    asked.setVideoBitrateMode(BitrateMode::Variable);
    asked.setVideoBitrateBps(1);
    const auto format = provider.formatCodec(&source, &asked);
    const std::int64_t expected =
        truncated(static_cast<double>(Kestra::ClientAPI::GetDefaultVideoBitrate(format)) * 1.5);
    EXPECT_EQ(provider.autoBitrate(&source, asked), (BitrateRange{expected, expected}));
    EXPECT_EQ(provider.autoBitrate(nullptr, asked), BitrateRange());
}

TEST_F(StreamParametersTest, ASourceAboveTheLimitsIsScaledIntoThemAndMadeEven) {
    const Media::Video source = video(1921, 1081);
    PresetProvider& provider = makeSelected("large");
    Preset edited = provider.preset();
    edited.setWidth(2);
    edited.setHeight(2);
    ASSERT_TRUE(provider.updatePreset(&source, edited));
    log.clear();
    provider.updateResolutionPresetIfNeeded(&source);
    QSize expected(1921, 1081);
    expected.scale(QSize(1920, 1080), Qt::KeepAspectRatio);
    EXPECT_EQ(provider.preset().width(), expected.width() & ~1);
    EXPECT_EQ(provider.preset().height(), expected.height() & ~1);
    EXPECT_EQ(provider.preset().height(), 1080);
    EXPECT_EQ(log, (Log{"preset 1"}));
}

TEST_F(StreamParametersTest, AnUprightSourceIsScaledByItsHeight) {
    const Media::Video source = video(1080, 1920);
    PresetProvider& provider = makeSelected("large");
    provider.updateResolutionPresetIfNeeded(&source);
    EXPECT_EQ(provider.preset().width(), 606);
    EXPECT_EQ(provider.preset().height(), 1080);
}

TEST_F(StreamParametersTest, ASmallSourceKeepsItsSizeMadeEven) {
    const Media::Video source = video(721, 481);
    PresetProvider& provider = makeSelected("large");
    provider.updateResolutionPresetIfNeeded(&source);
    EXPECT_EQ(provider.preset().width(), 720);
    EXPECT_EQ(provider.preset().height(), 480);
    EXPECT_EQ(log, (Log{"preset 1"}));
    log.clear();
    provider.updateResolutionPresetIfNeeded(&source);
    EXPECT_EQ(log, (Log{}));
    const Media::Video applied = provider.applyPreset(&source);
    EXPECT_EQ(applied.width, 720u);
    EXPECT_EQ(applied.height, 480u);
}

TEST_F(StreamParametersTest, AFixedResolutionIsNeverChanged) {
    const Media::Video source = video(640, 480);
    PresetProvider& provider = makeSelected("large", "/presets/1/video/fixedResolution", true);
    provider.updateResolutionPresetIfNeeded(&source);
    EXPECT_EQ(provider.preset().width(), 1920);
    EXPECT_EQ(provider.applyPreset(&source).width, 1920u);
    EXPECT_EQ(log, (Log{}));
}

TEST_F(StreamParametersTest, WithoutVideoNoSizeIsChanged) {
    const Media::Video source = video(640, 480);
    make().updateResolutionPresetIfNeeded(&source);
    makeSelected("sound").updateResolutionPresetIfNeeded(&source);
    provider->updateResolutionPresetIfNeeded(nullptr);
    makeSelected("large").updateResolutionPresetIfNeeded(nullptr);
    EXPECT_EQ(log, (Log{}));
}

TEST_F(StreamParametersTest, ASourceOfOnePixelStillGivesAFrame) {
    const Media::Video source = video(1, 1);
    PresetProvider& provider = makeSelected("large");
    provider.updateResolutionPresetIfNeeded(&source);
    const Media::Video applied = provider.applyPreset(&source);
    EXPECT_EQ(applied.width, 2u);
    EXPECT_EQ(applied.height, 2u);
}

TEST_F(StreamParametersTest, ASideThatVanishesIsTheSourcesOwn) {
    const Media::Video source = video(1, 480);
    PresetProvider& provider = makeSelected("large");
    provider.updateResolutionPresetIfNeeded(&source);
    EXPECT_EQ(provider.preset().width(), 0);
    EXPECT_EQ(provider.preset().height(), 480);
}

TEST_F(StreamParametersTest, AbsurdSidesOfASourceNeverBecomeNegative) {
    for (const auto& [width, height] : {std::pair{4294967295U, 4294967295U}, std::pair{3000000000U, 2U},
                                        std::pair{2U, 4294967294U}, std::pair{2147483648U, 2147483647U}}) {
        const Media::Video source = video(width, height);
        PresetProvider& provider = makeSelected("large");
        provider.updateResolutionPresetIfNeeded(&source);
        EXPECT_GE(provider.preset().width(), 0) << width << "x" << height;
        EXPECT_GE(provider.preset().height(), 0) << width << "x" << height;
        EXPECT_LE(provider.preset().width(), 1920) << width << "x" << height;
        EXPECT_LE(provider.preset().height(), 1080) << width << "x" << height;
    }
}

TEST_F(StreamParametersTest, APassedPresetIsCompletedByItsOwnContainer) {
    const Media::Video source = video(640, 480);
    const PresetProvider& provider = makeSelected("large");
    Kestra::Core::Property tree;
    tree["container"].SetChild("id", std::string("mp3"));
    tree["video"].SetChild("codec", std::string("h264"));
    const Preset passed(tree);
    const char* const options = Kestra::Conf::IFormatCodec::TAG_CODEC_OPTIONS_ENCODE;
    const auto own = provider.formatCodec(&source, nullptr);
    EXPECT_EQ(own->GetProperty()[options]["flags"].GetString(), "+global_header");
    EXPECT_FALSE(provider.formatCodec(&source, &passed)->GetProperty().ChildExists(options));
}

TEST_F(StreamParametersTest, UpdatingAnotherPresetChangesNothing) {
    PresetProvider& provider = makeSelected("large");
    PresetStorage storage;
    ASSERT_TRUE(load(storage));
    EXPECT_FALSE(provider.updatePreset(nullptr, storage.preset("small")));
    // The same settings under another id are another preset.
    EXPECT_FALSE(provider.updatePreset(nullptr, storage.preset("twin")));
    EXPECT_EQ(provider.preset().id(), "large");
    EXPECT_EQ(log, (Log{}));
}

TEST_F(StreamParametersTest, UpdatingWithAnEqualPresetSucceedsWithoutASignal) {
    PresetProvider& provider = makeSelected("large");
    EXPECT_TRUE(provider.updatePreset(nullptr, provider.preset()));
    EXPECT_EQ(log, (Log{}));
}

TEST_F(StreamParametersTest, UpdatingReplacesThePresetAndSignalsTheRow) {
    PresetProvider& provider = makeSelected("large");
    Preset edited = provider.preset();
    edited.setAudioBitrateBps(64'000);
    EXPECT_TRUE(provider.updatePreset(nullptr, edited));
    EXPECT_EQ(log, (Log{"preset 1"}));
    EXPECT_EQ(provider.preset().audioBitrateBps(), 64'000);
    EXPECT_EQ(provider.originalPreset().audioBitrateBps(), 192'000);
}

TEST_F(StreamParametersTest, AnUpdateIsToldWhenThePresetIsInPlace) {
    PresetProvider& provider = makeSelected("large");
    std::int64_t seen = 0;
    QObject::connect(&provider, &PresetProvider::presetChanged, [&] { seen = provider.preset().audioBitrateBps(); });
    Preset edited = provider.preset();
    edited.setAudioBitrateBps(64'000);
    ASSERT_TRUE(provider.updatePreset(nullptr, edited));
    EXPECT_EQ(seen, 64'000);
    EXPECT_EQ(provider.modelIndexForCurrentPreset().row(), 1);
}

TEST_F(StreamParametersTest, TheAutomaticBitrateAsksTheSelectedPresetForVideo) {
    const Media::Video source = video(640, 360, 25);
    PresetStorage storage;
    ASSERT_TRUE(load(storage));
    EXPECT_EQ(makeSelected("sound").autoBitrate(&source, storage.preset("large")), BitrateRange());
}

TEST_F(StreamParametersTest, LimitsAreThoseOfTheSelectedPreset) {
    const Media::Video source = video(4000, 3000);
    PresetProvider& provider = makeSelected("small");
    provider.updateResolutionPresetIfNeeded(&source);
    EXPECT_EQ(provider.preset().width(), 480);
    EXPECT_EQ(provider.preset().height(), 360);
    const Media::Video wide = video(1280, 100);
    provider.updateResolutionPresetIfNeeded(&wide);
    EXPECT_EQ(provider.preset().width(), 640);
    EXPECT_EQ(provider.preset().height(), 50);
}
