// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorPreset/Preset.h"
#include "Kestra/Base/Exception.h"
#include "Kestra/Conf/IFormatCodecAudio.h"
#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/Conf/IFormatFile.h"
#include "Kestra/Conf/SampleInfo.h"
#include "support/CatalogueFixture.h"
#include <functional>
#include <utility>
#include <vector>

using Export::BitrateMode;
using Kestra::Conf::CodecID;
using Kestra::Conf::IFormatCodec;
using Kestra::Conf::IFormatCodecAudio;
using Kestra::Conf::IFormatCodecVideo;
using Kestra::Conf::IFormatFile;
using Kestra::Core::Property;

class PresetTest : public TestPresets::CatalogueFixture {
protected:
    PresetTest() {
        writeCatalogue(TestPresets::smallCatalogue());
        EXPECT_TRUE(load(storage)) << storage.lastError();
    }
    Preset preset(const char* id) const { return storage.preset(id); }

    PresetStorage storage;
};

TEST_F(PresetTest, ADefaultConstructedPresetIsNeutral) {
    const Preset none;
    EXPECT_EQ(none.id(), "");
    EXPECT_EQ(none.title(), "");
    EXPECT_EQ(none.containerId(), "");
    EXPECT_FALSE(none.hasVideo());
    EXPECT_FALSE(none.hasAudio());
    EXPECT_EQ(none.width(), 0);
    EXPECT_EQ(none.videoBitrateBps(), 0);
    EXPECT_EQ(none.audioBitrateBps(), 0);
    EXPECT_EQ(none.videoBitrateMultiplier(), 1.0);
    EXPECT_EQ(none.frameRate(), Preset::Rational(0));
    EXPECT_FALSE(none.isVideoTwoPassEncodingEnabled());
    EXPECT_TRUE(none.equalsTo(Preset()));
}

TEST_F(PresetTest, ReadsWhatTheCatalogueSays) {
    const Preset large = preset("large");
    EXPECT_EQ(large.id(), "large");
    EXPECT_EQ(large.title(), "Large pictures");
    EXPECT_EQ(large.containerId(), "mp4");
    EXPECT_EQ(large.videoCodec(), CodecID::H264);
    EXPECT_EQ(large.audioCodec(), CodecID::AAC);
    EXPECT_EQ(large.width(), 1920);
    EXPECT_EQ(large.maxHeight(), 1080);
    EXPECT_EQ(large.videoBitrateMode(), BitrateMode::Automatic);
    EXPECT_EQ(large.videoBitrateMultiplier(), 0.75);
    EXPECT_EQ(large.videoQuality(), 21.0);
    EXPECT_EQ(large.sampleRate(), 48000u);
    EXPECT_EQ(large.channelLayout(), std::uint32_t{Kestra::Conf::CHANNEL_LAYOUT_STEREO});
    EXPECT_EQ(preset("small").title(), "small");
    EXPECT_EQ(preset("small").frameRate(), Preset::Rational(25));
    EXPECT_EQ(preset("sound").channelLayout(), 0u);
}

TEST_F(PresetTest, TheModesHaveTheirFixedNumbers) {
    EXPECT_EQ(static_cast<int>(BitrateMode::Constant), 0);
    EXPECT_EQ(static_cast<int>(BitrateMode::Automatic), 1);
    EXPECT_EQ(static_cast<int>(BitrateMode::Variable), 2);
    EXPECT_EQ(static_cast<int>(BitrateMode::Quality), 3);
    EXPECT_EQ(Preset::modeToString(BitrateMode::Constant), "cbr");
    EXPECT_EQ(Preset::modeToString(BitrateMode::Automatic), "abr");
    EXPECT_EQ(Preset::modeToString(BitrateMode::Variable), "vbr");
    EXPECT_EQ(Preset::modeToString(BitrateMode::Quality), "quality");
}

TEST_F(PresetTest, EveryModeThatIsSetIsReadBack) {
    Preset large = preset("large");
    for (const BitrateMode mode :
         {BitrateMode::Constant, BitrateMode::Automatic, BitrateMode::Variable, BitrateMode::Quality}) {
        large.setVideoBitrateMode(mode);
        EXPECT_EQ(large.videoBitrateMode(), mode);
    }
}

TEST_F(PresetTest, SettersOfAMissingStreamDoNotMakeOne) {
    Preset sound = preset("sound");
    sound.setVideoBitrateBps(1000);
    sound.setVideoBitrateMode(BitrateMode::Variable);
    sound.setWidth(640);
    EXPECT_FALSE(sound.hasVideo());
    EXPECT_TRUE(sound.equalsTo(preset("sound")));
}

TEST_F(PresetTest, WhatIsSetIsReadBack) {
    Preset large = preset("large");
    large.setFrameRate(Preset::Rational(30000, 1001));
    large.setVideoQuality(22.5);
    large.setFixedResolution(true);
    large.setSampleRate(32000);
    EXPECT_EQ(large.frameRate(), Preset::Rational(30000, 1001));
    EXPECT_EQ(large.videoQuality(), 22.5);
    EXPECT_TRUE(large.hasFixedResolution());
    EXPECT_EQ(large.sampleRate(), 32000u);
    for (const std::uint32_t layout : {Kestra::Conf::CHANNEL_LAYOUT_MONO, Kestra::Conf::CHANNEL_LAYOUT_5POINT1,
                                       Kestra::Conf::CHANNEL_LAYOUT_UNKNOWN}) {
        large.setChannelLayout(layout);
        EXPECT_EQ(large.channelLayout(), layout);
    }
    Preset none;
    none.setFrameRate(25);
    none.setChannelLayout(Kestra::Conf::CHANNEL_LAYOUT_MONO);
    none.setFixedResolution(true);
    EXPECT_TRUE(none.equalsTo(Preset()));
    EXPECT_FALSE(none.hasVideo() || none.hasAudio());
}

TEST_F(PresetTest, AFixedResolutionIsFilled) {
    for (const char* const mode : {"fitInside", "keepSize"}) {
        Property modifier;
        modifier["video"].SetChild("resize", std::string(mode));
        Preset large = preset("large");
        large.applyQualityModifier(modifier);
        large.setFixedResolution(true);
        EXPECT_EQ(large.resizerSettings().aspectMode, Kestra::Proc::AspectMode::Letterbox) << mode;
    }
    Property modifier;
    modifier["video"].SetChild("resize", std::string("crop"));
    Preset large = preset("large");
    large.applyQualityModifier(modifier);
    large.setFixedResolution(true);
    EXPECT_EQ(large.resizerSettings().aspectMode, Kestra::Proc::AspectMode::Crop);
}

TEST_F(PresetTest, ZeroOpensAValueAgain) {
    Preset large = preset("large");
    large.setVideoBitrateBps(5'000'000'000);
    EXPECT_EQ(large.videoBitrateBps(), 5'000'000'000);
    large.setVideoBitrateBps(0);
    EXPECT_TRUE(large.equalsTo(preset("large")));
}

TEST_F(PresetTest, CopiesAreIndependent) {
    const Preset original = preset("large");
    Preset copy = original;
    copy.setWidth(640);
    EXPECT_EQ(original.width(), 1920);
}

TEST_F(PresetTest, TheResizerFitsInsideTheSizeAndLetterboxesAFixedOne) {
    const auto free = preset("large").resizerSettings();
    EXPECT_EQ(free.aspectMode, Kestra::Proc::AspectMode::FitInside);
    EXPECT_EQ(free.target.width, 1920u);
    EXPECT_EQ(free.target.height, 1080u);
    EXPECT_EQ(free.target.aspectNumerator, 0u);

    writeCatalogue(TestPresets::edited(TestPresets::smallCatalogue(), "/presets/1/video/fixedResolution", true));
    ASSERT_TRUE(load(storage)) << storage.lastError();
    EXPECT_TRUE(preset("large").hasFixedResolution());
    EXPECT_EQ(preset("large").resizerSettings().aspectMode, Kestra::Proc::AspectMode::Letterbox);

    writeCatalogue(
        TestPresets::edited(TestPresets::smallCatalogue(), "/presets/1/video/resize", TestPresets::text("crop")));
    ASSERT_TRUE(load(storage)) << storage.lastError();
    EXPECT_EQ(preset("large").resizerSettings().aspectMode, Kestra::Proc::AspectMode::Crop);
}

TEST_F(PresetTest, MuxerDataNamesContainerAndOptions) {
    const Property data = preset("large").muxerData();
    EXPECT_EQ(data[IFormatFile::TAG_CONTAINER_ID].GetString(), "mp4");
    EXPECT_EQ(data[IFormatFile::TAG_MUXER_OPTIONS]["movflags"].GetString(), "+faststart");
    EXPECT_FALSE(preset("small").muxerData().ChildExists(IFormatFile::TAG_MUXER_OPTIONS));
}

TEST_F(PresetTest, VideoEncoderDataSaysNothingOfSizeAndFrameRate) {
    const Property data = preset("small").videoEncoderData();
    EXPECT_EQ(data[IFormatCodec::TAG_CODEC_ID].GetString(), "h264");
    EXPECT_EQ(data[IFormatCodec::TAG_BITRATE].GetInt64(), 900'000);
    EXPECT_EQ(data[IFormatCodec::TAG_BITRATE_MODE].GetString(), "vbr");
    EXPECT_EQ(data[IFormatCodecVideo::TAG_PIXEL_FORMAT].GetString(), "yuv420p");
    for (const char* const tag : {IFormatCodecVideo::TAG_WIDTH, IFormatCodecVideo::TAG_HEIGHT,
                                  IFormatCodecVideo::TAG_ASPECT_NUMERATOR, IFormatCodecVideo::TAG_FRAME_RATE})
        EXPECT_FALSE(data.ChildExists(tag)) << tag;
}

TEST_F(PresetTest, TheQualityGoesToTheEncoderOnlyInItsMode) {
    Preset large = preset("large");
    EXPECT_FALSE(large.videoEncoderData().ChildExists(IFormatCodec::TAG_QUALITY));
    large.setVideoBitrateMode(BitrateMode::Quality);
    EXPECT_EQ(large.videoEncoderData()[IFormatCodec::TAG_QUALITY].GetDouble(), 21.0);
}

TEST_F(PresetTest, EncoderOptionsTravelAsText) {
    const QJsonObject options = TestPresets::object("{'bf': 2, 'aq-strength': 0.8, 'mbtree': true, 'tune': 'film'}");
    writeCatalogue(TestPresets::edited(TestPresets::smallCatalogue(), "/presets/1/video/options", options));
    ASSERT_TRUE(load(storage)) << storage.lastError();
    const Property data = preset("large").videoEncoderData();
    const Property& encode = data[IFormatCodec::TAG_CODEC_OPTIONS_ENCODE];
    EXPECT_EQ(encode["bf"].GetString(), "2");
    EXPECT_EQ(encode["aq-strength"].GetString(), "0.8");
    EXPECT_EQ(encode["mbtree"].GetString(), "1");
    EXPECT_EQ(encode["tune"].GetString(), "film");
    EXPECT_EQ(encode["flags"].GetString(), "+global_header");
}

TEST_F(PresetTest, AudioEncoderDataLeavesOpenWhatThePresetLeavesOpen) {
    const Property set = preset("small").audioEncoderData();
    EXPECT_EQ(set[IFormatCodec::TAG_BITRATE].GetInt64(), 96'000);
    EXPECT_EQ(set[IFormatCodecAudio::TAG_SAMPLE_RATE].GetInt64(), 44100);
    EXPECT_EQ(set[IFormatCodecAudio::TAG_CHANNEL_LAYOUT].GetInt64(), Kestra::Conf::CHANNEL_LAYOUT_MONO);
    const Property open = preset("sound").audioEncoderData();
    EXPECT_FALSE(open.ChildExists(IFormatCodecAudio::TAG_SAMPLE_RATE));
    EXPECT_FALSE(open.ChildExists(IFormatCodecAudio::TAG_CHANNEL_LAYOUT));
}

TEST_F(PresetTest, ALosslessCodecIsNeverGivenABitrate) {
    Preset sound = preset("sound");
    sound.setAudioBitrateBps(2'304'000);
    EXPECT_EQ(sound.audioEncoderData()[IFormatCodec::TAG_BITRATE].GetInt64(), 0);
    Preset small = preset("small");
    small.setAudioBitrateBps(128'000);
    EXPECT_EQ(small.audioEncoderData()[IFormatCodec::TAG_BITRATE].GetInt64(), 128'000);
}

TEST_F(PresetTest, EqualityIsThatOfTheSettingsNotOfTheName) {
    EXPECT_TRUE(preset("large").equalsTo(preset("twin")));
    EXPECT_FALSE(preset("large").equalsTo(preset("small")));
    EXPECT_FALSE(preset("large").equalsTo(preset("sound")));
}

TEST_F(PresetTest, EveryEditMakesAPresetUnequal) {
    const Preset large = preset("large");
    const std::vector<std::function<void(Preset&)>> edits = {
        [](Preset& edited) { edited.setWidth(1918); },
        [](Preset& edited) { edited.setHeight(1078); },
        [](Preset& edited) { edited.setVideoBitrateBps(1); },
        [](Preset& edited) { edited.setAudioBitrateBps(1); },
        [](Preset& edited) { edited.setVideoBitrateMode(BitrateMode::Constant); },
        [](Preset& edited) { edited.setFixedResolution(true); },
        [](Preset& edited) { edited.setFrameRate(24); },
        [](Preset& edited) { edited.setVideoQuality(22); },
        [](Preset& edited) { edited.setSampleRate(32000); },
        [](Preset& edited) { edited.setChannelLayout(Kestra::Conf::CHANNEL_LAYOUT_MONO); },
    };
    for (std::size_t index = 0; index < edits.size(); ++index) {
        Preset edited = large;
        edits[index](edited);
        EXPECT_FALSE(edited.equalsTo(large)) << index;
        EXPECT_FALSE(large.equalsTo(edited)) << index;
    }
}

TEST_F(PresetTest, EveryValueOfThePictureMakesAPresetUnequal) {
    const std::vector<std::pair<const char*, Property::Value>> values = {
        {"resize", std::string("crop")},
        {"interpolation", std::string("lanczos")},
        {"maxWidth", std::int64_t{1280}},
        {"maxHeight", std::int64_t{720}},
        {"multiplier", 2.0},
        {"twoPass", true},
        {"gopSeconds", 1.0},
    };
    for (const auto& [tag, value] : values) {
        Property modifier;
        modifier["video"].SetChild(tag, value);
        Preset edited = preset("small");
        edited.applyQualityModifier(modifier);
        EXPECT_FALSE(edited.equalsTo(preset("small"))) << tag;
    }
}

TEST_F(PresetTest, TwoPassesCountForTheFileOnlyWhereTheModeTakesThem) {
    Property modifier;
    modifier["video"].SetChild("twoPass", true);
    Preset once = preset("large");
    Preset twice = once;
    twice.applyQualityModifier(modifier);
    EXPECT_FALSE(twice.affectsAs(once));
    once.setVideoBitrateMode(BitrateMode::Quality);
    twice.setVideoBitrateMode(BitrateMode::Quality);
    EXPECT_TRUE(twice.affectsAs(once));
    EXPECT_FALSE(twice.equalsTo(once));
}

TEST_F(PresetTest, TheSizeOfAFirstPassIsToldWhereItIsHalf) {
    const char* const tag = Kestra::Conf::IFormatCodecVideo::TAG_FIRST_PASS;
    Preset edited = preset("large");
    edited.setHalfFirstPass(true);
    EXPECT_EQ(edited.videoEncoderData()[tag].GetString(), "half");
    EXPECT_FALSE(edited.equalsTo(preset("large")));
    edited.setHalfFirstPass(false);
    EXPECT_FALSE(edited.videoEncoderData().ChildExists(tag));
    EXPECT_TRUE(edited.affectsAs(preset("large")));
}

TEST_F(PresetTest, AudioEncoderDataHasTheOptionsOfThePresetAndOfItsContainer) {
    const QJsonObject options = TestPresets::object("{'cutoff': 18000}");
    writeCatalogue(TestPresets::edited(TestPresets::smallCatalogue(), "/presets/1/audio/options", options));
    ASSERT_TRUE(load(storage)) << storage.lastError();
    const Property data = preset("large").audioEncoderData();
    EXPECT_EQ(data[IFormatCodec::TAG_CODEC_OPTIONS_ENCODE]["cutoff"].GetString(), "18000");
    EXPECT_EQ(data[IFormatCodec::TAG_CODEC_OPTIONS_ENCODE]["flags"].GetString(), "+global_header");
}

TEST_F(PresetTest, AffectsAsLooksPastWhatTheModeLeavesUnused) {
    const Preset large = preset("large");
    Preset edited = large;
    edited.setVideoBitrateBps(3'000'000);
    EXPECT_TRUE(edited.affectsAs(large));
    EXPECT_FALSE(edited.equalsTo(large));

    Preset variable = large;
    variable.setVideoBitrateMode(BitrateMode::Variable);
    edited.setVideoBitrateMode(BitrateMode::Variable);
    EXPECT_FALSE(edited.affectsAs(variable));
    variable.setVideoBitrateBps(3'000'000);
    EXPECT_TRUE(edited.affectsAs(variable));
}

TEST_F(PresetTest, AffectsAsSeesSizeAndSound) {
    const Preset large = preset("large");
    Preset edited = large;
    edited.setHeight(720);
    EXPECT_FALSE(edited.affectsAs(large));
    edited = large;
    edited.setAudioBitrateBps(64'000);
    EXPECT_FALSE(edited.affectsAs(large));
}

TEST_F(PresetTest, AModifierTakesOverItsValuesAndKeepsTheId) {
    Preset large = preset("large");
    Property modifier;
    modifier.SetChild("id", std::string("other"));
    modifier["video"].SetChild("multiplier", 2.0);
    modifier["audio"].SetChild("bitrate", std::int64_t{64'000});
    EXPECT_TRUE(large.applyQualityModifier(modifier));
    EXPECT_EQ(large.id(), "large");
    EXPECT_EQ(large.videoBitrateMultiplier(), 2.0);
    EXPECT_EQ(large.audioBitrateBps(), 64'000);
    EXPECT_EQ(large.width(), 1920);
    EXPECT_FALSE(large.applyQualityModifier(modifier));
    EXPECT_FALSE(large.applyQualityModifier(Property()));
}

TEST_F(PresetTest, AModifierGivesNoIdToANamelessPreset) {
    Preset nameless;
    Property modifier;
    modifier.SetChild("id", std::string("other"));
    EXPECT_FALSE(nameless.applyQualityModifier(modifier));
    EXPECT_EQ(nameless.id(), "");
}

TEST_F(PresetTest, WithoutALimitEveryFrameInUseIsMeant) {
    Property tree;
    tree["video"].SetChild("codec", std::string("h264"));
    EXPECT_EQ(Preset(tree).maxWidth(), 16384);
    EXPECT_EQ(Preset(tree).maxHeight(), 16384);
}

TEST_F(PresetTest, AFixedResolutionMakesAPresetUnequalThoughTheFileIsTheSame) {
    Property letterbox;
    letterbox["video"].SetChild("resize", std::string("letterbox"));
    Preset free = preset("large");
    free.applyQualityModifier(letterbox);
    Preset fixed = free;
    fixed.setFixedResolution(true);
    EXPECT_TRUE(fixed.affectsAs(free));
    EXPECT_FALSE(fixed.equalsTo(free));
}

TEST_F(PresetTest, MuxerOptionsMakeAPresetUnequal) {
    Property options;
    options["container"]["options"].SetChild("movflags", std::string("+frag_keyframe"));
    Preset edited = preset("large");
    edited.applyQualityModifier(options);
    EXPECT_FALSE(edited.affectsAs(preset("large")));
    EXPECT_FALSE(edited.equalsTo(preset("large")));
}

TEST_F(PresetTest, NumericOptionsKeepTheirDigits) {
    const QJsonObject options = TestPresets::object("{'qcomp': 0.123456789012, 'b': 1234567890}");
    writeCatalogue(TestPresets::edited(TestPresets::smallCatalogue(), "/presets/1/video/options", options));
    ASSERT_TRUE(load(storage)) << storage.lastError();
    const Property data = preset("large").videoEncoderData();
    const Property& encode = data[IFormatCodec::TAG_CODEC_OPTIONS_ENCODE];
    EXPECT_EQ(encode["qcomp"].GetString(), "0.123456789012");
    EXPECT_EQ(encode["b"].GetString(), "1234567890");
}

TEST_F(PresetTest, EveryCodecWithoutLossIsGivenNoBitrate) {
    for (const char* const codec : {"flac", "alac", "pcm_s16le", "pcm_s24le"}) {
        Property tree;
        tree["audio"].SetChild("codec", std::string(codec));
        tree["audio"].SetChild("bitrate", std::int64_t{1'000'000});
        EXPECT_EQ(Preset(tree).audioEncoderData()[IFormatCodec::TAG_BITRATE].GetInt64(), 0) << codec;
    }
}

TEST_F(PresetTest, TheLayoutOfEightSpeakersIsReadAndSet) {
    Property tree;
    tree["audio"].SetChild("codec", std::string("aac"));
    tree["audio"].SetChild("channelLayout", std::string("7.1"));
    const Preset named(tree);
    EXPECT_EQ(named.channelLayout(), std::uint32_t{Kestra::Conf::CHANNEL_LAYOUT_7POINT1});
    Preset set = preset("large");
    set.setChannelLayout(Kestra::Conf::CHANNEL_LAYOUT_7POINT1);
    EXPECT_EQ(set.property()["audio"]["channelLayout"].GetString(), "7.1");
}

TEST_F(PresetTest, TheFormattedInfoNamesIdAndSettings) {
    const std::string info = preset("large").formattedPresetInfo();
    EXPECT_NE(info.find("id = large\n"), std::string::npos) << info;
    EXPECT_NE(info.find("video/codec = h264\n"), std::string::npos) << info;
    EXPECT_NE(info.find("video/multiplier = 0.75\n"), std::string::npos) << info;
}
