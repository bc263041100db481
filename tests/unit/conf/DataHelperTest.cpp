// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/CreateDataHelper.h"
#include "Kestra/Conf/IFormatCodecAudio.h"
#include "Kestra/Conf/IFormatCodecVideo.h"
#include <gtest/gtest.h>
#include <stdexcept>

using namespace Kestra::Conf;
using Kestra::Core::Property;

TEST(DataHelper, VideoCodecsFixAPixelFormatThatPlayersShow) {
    Property tree;
    CreateDataHelper(IPreset::KEY_FILTER_VIDEO_CODEC, CodecID::H264)->Apply(tree);
    EXPECT_EQ(tree[IFormatCodecVideo::TAG_PIXEL_FORMAT].GetString(), "yuv420p");
    EXPECT_EQ(tree[IFormatCodecVideo::TAG_GOP_SECONDS].GetDouble(), 5.0);
}

TEST(DataHelper, KeyframesLieAsFarApartAsTheCodecAllowsForSeeking) {
    for (const auto& [codec, seconds] : {std::pair{CodecID::HEVC, 5.0}, std::pair{CodecID::VP9, 5.0},
                                         std::pair{CodecID::MPEG4, 0.5}, std::pair{CodecID::MPEG2, 0.5}}) {
        Property tree;
        CreateDataHelper(IPreset::KEY_FILTER_VIDEO_CODEC, codec)->Apply(tree);
        EXPECT_EQ(tree[IFormatCodecVideo::TAG_GOP_SECONDS].GetDouble(), seconds) << CodecIDToString(codec);
    }
}

TEST(DataHelper, WhatThePresetHasSetStays) {
    Property tree;
    tree.SetChild(IFormatCodecVideo::TAG_PIXEL_FORMAT, std::string("yuv422p"));
    tree[IFormatCodec::TAG_CODEC_OPTIONS_ENCODE].SetChild("flags", std::string("+cgop"));
    const Property before = tree;
    CreateDataHelper(IPreset::KEY_FILTER_VIDEO_CODEC, CodecID::ProRes)->Apply(tree);
    CreateDataHelper(IPreset::KEY_FORMAT, "mp4")->Apply(tree);
    EXPECT_EQ(tree, before);
}

TEST(DataHelper, ContainersWithHeadersOfTheirOwnAskForGlobalHeaders) {
    for (const char* const container : {"mp4", "mov", "m4a", "mkv", "webm"}) {
        Property tree;
        CreateDataHelper(IPreset::KEY_FORMAT, container)->Apply(tree);
        EXPECT_EQ(tree[IFormatCodec::TAG_CODEC_OPTIONS_ENCODE]["flags"].GetString(), "+global_header") << container;
    }
    Property tree;
    CreateDataHelper(IPreset::KEY_FORMAT, "wav")->Apply(tree);
    EXPECT_TRUE(tree.GetChildren().empty());
}

TEST(DataHelper, OpusRunsAtItsOwnRateUnlessThePresetSaysOtherwise) {
    const auto helper = CreateDataHelper(IPreset::KEY_FILTER_AUDIO_CODEC, CodecID::Opus);
    Property open;
    helper->Apply(open);
    EXPECT_EQ(open[IFormatCodecAudio::TAG_SAMPLE_RATE].GetInt64(), 48000);
    Property zero;
    zero.SetChild(IFormatCodecAudio::TAG_SAMPLE_RATE, std::int64_t{0});
    helper->Apply(zero);
    EXPECT_EQ(zero[IFormatCodecAudio::TAG_SAMPLE_RATE].GetInt64(), 48000);
    Property set;
    set.SetChild(IFormatCodecAudio::TAG_SAMPLE_RATE, std::int64_t{24000});
    helper->Apply(set);
    EXPECT_EQ(set[IFormatCodecAudio::TAG_SAMPLE_RATE].GetInt64(), 24000);
}

TEST(DataHelper, ACodecWithoutFixedSettingsAddsNothing) {
    Property tree;
    CreateDataHelper(IPreset::KEY_FILTER_AUDIO_CODEC, CodecID::AAC)->Apply(tree);
    CreateDataHelper(IPreset::KEY_FILTER_VIDEO_CODEC, CodecID::None)->Apply(tree);
    CreateDataHelper(IPreset::KEY_FORMAT, "")->Apply(tree);
    EXPECT_TRUE(tree.GetChildren().empty());
}

TEST(DataHelper, AWrongKeyIsRefused) {
    EXPECT_THROW(CreateDataHelper(IPreset::KEY_FORMAT, CodecID::H264), std::invalid_argument);
    EXPECT_THROW(CreateDataHelper(IPreset::KEY_FILTER_VIDEO_CODEC, "mp4"), std::invalid_argument);
}
