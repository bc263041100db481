// SPDX-License-Identifier: GPL-3.0-or-later
// How descriptions are put together, and what is made of the limits.
#include "CallsFixture.h"
#include "Kestra/Conf/CreateDataHelper.h"
#include "Kestra/Conf/SampleInfo.h"
#include <stdexcept>

using Export::PresetProvider;
using Kestra::ClientAPI::BitrateRange;
using Kestra::Conf::IPreset;

class ParameterCallsTest : public CallsFixture {};

TEST_F(ParameterCallsTest, AVideoDescriptionIsFilledInOrderThenCompletedByCodecAndContainer) {
    const Media::Video source = video();
    const PresetProvider& provider = makeLoaded();
    script.helperLog.clear();
    const auto format = provider.formatCodec(&source, nullptr);
    const std::string filled = " width height aspectNumerator aspectDenominator codecId frameRate bitrate bitrateMode "
                               "quality";
    const std::string codecKey = IPreset::KEY_FILTER_VIDEO_CODEC;
    EXPECT_EQ(script.helperLog,
              (Log{"create " + codecKey + " h264", "apply h264:" + filled,
                   std::string("create ") + IPreset::KEY_FORMAT + " mp4", "apply mp4:" + filled + " h264"}));
    EXPECT_TRUE(format->GetProperty().ChildExists("h264"));
    EXPECT_TRUE(format->GetProperty().ChildExists("mp4"));
}

TEST_F(ParameterCallsTest, AnAudioDescriptionIsFilledInOrderThenCompletedByCodecAndContainer) {
    const Media::Audio source = audio();
    const PresetProvider& provider = makeLoaded();
    script.helperLog.clear();
    const auto format = provider.formatCodec(&source);
    // The preset's own data, of which the bitrate is taken, is completed before.
    ASSERT_EQ(script.helperLog.size(), 8u);
    Log calls(script.helperLog.begin() + 4, script.helperLog.end());
    EXPECT_EQ(calls[0], std::string("create ") + IPreset::KEY_FILTER_AUDIO_CODEC + " aac");
    EXPECT_EQ(calls[1], "apply aac: channelLayout sampleRate sampleFormat codecId bitrate");
    EXPECT_EQ(calls[2], std::string("create ") + IPreset::KEY_FORMAT + " mp4");
    EXPECT_EQ(calls[3], calls[1].replace(6, 3, "mp4") + " aac");
    EXPECT_TRUE(format->GetProperty().ChildExists("aac"));
    EXPECT_TRUE(format->GetProperty().ChildExists("mp4"));
}

TEST_F(ParameterCallsTest, EveryDescriptionIsANewOne) {
    const Media::Video source = video();
    const Media::Audio sound = audio();
    const PresetProvider& provider = makeLoaded();
    const auto format = provider.formatCodec(&source, nullptr);
    EXPECT_NE(format, provider.formatCodec(&source, nullptr));
    EXPECT_EQ(format->GetRefCount(), 1);
    const auto soundFormat = provider.formatCodec(&sound);
    EXPECT_NE(soundFormat, provider.formatCodec(&sound));
    EXPECT_EQ(soundFormat->GetRefCount(), 1);
}

TEST_F(ParameterCallsTest, WithoutASelectionThePresetIsTheStorages) {
    script.presetById[""] = preset("nobody", 77);
    const PresetProvider& provider = make();
    const Media::Audio sound = audio();
    EXPECT_EQ(provider.preset().videoBitrateBps(), 77);
    EXPECT_EQ(provider.formatCodec(&sound)->GetBitrate(), 96'000);
}

TEST_F(ParameterCallsTest, TheAutomaticBitrateIsTruncatedTowardsZero) {
    const Media::Video source = video();
    for (const char* const mode : {"automatic", "constant"}) {
        script.presetById["one"] = preset("one", 1, mode);
        Property modifier;
        modifier["video"].SetChild("multiplier", 0.75);
        script.presetById["one"].applyQualityModifier(modifier);
        const PresetProvider& provider = makeLoaded();
        script.standard = 5'000'000;
        EXPECT_EQ(provider.bitrate(&source), (BitrateRange{3'750'000, 3'750'000})) << mode;
        script.standard = 3;
        EXPECT_EQ(provider.bitrate(&source), (BitrateRange{2, 2})) << mode;
        EXPECT_EQ(provider.autoBitrate(&source, provider.preset()), (BitrateRange{2, 2})) << mode;
        script.standard = -3;
        EXPECT_EQ(provider.bitrate(&source), (BitrateRange{-2, -2})) << mode;
    }
}

TEST_F(ParameterCallsTest, RangesAreMinimumThenMaximum) {
    const Media::Video source = video();
    const Media::Audio sound = audio();
    script.presetById["one"] = preset("one", 1, "quality");
    script.minimum = 11;
    script.maximum = 22;
    const PresetProvider& provider = makeLoaded();
    EXPECT_EQ(provider.bitrate(&source).minimum, 11);
    EXPECT_EQ(provider.bitrate(&source).maximum, 22);
    EXPECT_EQ(provider.bitrate(&sound).minimum, 11);
    EXPECT_EQ(provider.bitrate(&sound).maximum, 22);
}

TEST_F(ParameterCallsTest, APresetThatTheStorageLostGivesNothing) {
    const Media::Video source = video();
    const Media::Audio sound = audio();
    PresetProvider& provider = makeLoaded();
    script.presetById.erase("one");
    script.standard = script.minimum = script.maximum = 99;
    EXPECT_FALSE(provider.isPresetExists());
    EXPECT_FALSE(provider.videoExists(&source));
    EXPECT_FALSE(provider.audioExists(&sound));
    EXPECT_EQ(provider.bitrate(&source), BitrateRange());
    EXPECT_EQ(provider.bitrate(&sound), BitrateRange());
    EXPECT_EQ(provider.autoBitrate(&source, provider.preset()), BitrateRange());
    EXPECT_EQ(provider.applyPreset(&source), source);
    EXPECT_EQ(provider.applyPreset(&sound), sound);
    script.log.clear();
    provider.updateResolutionPresetIfNeeded(&source);
    EXPECT_EQ(script.log, (Log{"isPresetExists one"}));
}

TEST_F(ParameterCallsTest, WhatACompletionThrowsPassesThrough) {
    const Media::Video source = video();
    const Media::Audio sound = audio();
    const PresetProvider& provider = makeLoaded();
    for (const char* const call : {"create", "apply"}) {
        script.throwing = call;
        EXPECT_THROW(provider.formatCodec(&source, nullptr), std::runtime_error);
        EXPECT_THROW(provider.formatCodec(&sound), std::runtime_error);
        EXPECT_THROW(provider.bitrate(&source), std::runtime_error);
        EXPECT_THROW(provider.bitrate(&sound), std::runtime_error);
        EXPECT_THROW(provider.applyPreset(&source), std::runtime_error);
        EXPECT_THROW(provider.applyPreset(&sound), std::runtime_error);
        EXPECT_THROW(provider.frameRate(&source), std::runtime_error);
        EXPECT_THROW(provider.sampleInfo(&sound), std::runtime_error);
    }
}
