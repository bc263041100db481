// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/ClientAPI/BitrateLimits.h"
#include "Kestra/Conf/IFormatCodecAudio.h"
#include <gtest/gtest.h>

using namespace Kestra::Conf;
using namespace Kestra::ClientAPI;
using Kestra::Core::Property;

namespace {

boost::intrusive_ptr<IFormatCodecVideo> video(CodecID codec, std::uint32_t width, std::uint32_t height, int rate) {
    auto format = IFormatCodecVideo::Create();
    format->SetCodecID(codec);
    format->InitByFrameAspect(width, height, 0, 0);
    format->SetFrameRate(rate, 1);
    return format;
}

std::int64_t standard(CodecID codec, std::uint32_t width, std::uint32_t height, int rate) {
    return GetDefaultVideoBitrate(video(codec, width, height, rate));
}

Property audio(CodecID codec, int rate, std::uint32_t layout) {
    auto format = IFormatCodecAudio::Create();
    format->SetCodecID(codec);
    format->SetSampleRate(rate);
    format->SetChannelLayout(layout);
    return format->GetProperty();
}

} // namespace

TEST(BitrateLimits, TheReferenceFrameHasTheReferenceBitrate) {
    EXPECT_EQ(standard(CodecID::H264, 1920, 1080, 30), 8'000'000);
    EXPECT_EQ(standard(CodecID::ProRes, 1920, 1080, 30), 147'000'000);
    EXPECT_EQ(standard(CodecID::VP9, 1920, 1080, 30), 5'200'000);
    EXPECT_EQ(standard(CodecID::HEVC, 1920, 1080, 30), 5'000'000);
}

TEST(BitrateLimits, TheExamplesOfTheDocumentHold) {
    EXPECT_EQ(standard(CodecID::H264, 3840, 2160, 30), 22'627'417);
    EXPECT_EQ(standard(CodecID::H264, 1920, 1080, 60), 12'125'733);
    EXPECT_EQ(standard(CodecID::H264, 1280, 720, 30), 4'354'648);
}

TEST(BitrateLimits, IntraCodecsGrowAsPixelsAndFrames) {
    EXPECT_EQ(standard(CodecID::ProRes, 3840, 2160, 60), 8 * 147'000'000LL);
}

TEST(BitrateLimits, PredictingCodecsGrowLessThanPixelsAndFramesButDoGrow) {
    for (const CodecID codec :
         {CodecID::H264, CodecID::HEVC, CodecID::VP9, CodecID::AV1, CodecID::VP8, CodecID::MPEG4}) {
        const std::int64_t small = standard(codec, 1280, 720, 30);
        EXPECT_GT(standard(codec, 2560, 1440, 30), small);
        EXPECT_LT(standard(codec, 2560, 1440, 30), 4 * small);
        EXPECT_GT(standard(codec, 1280, 720, 60), small);
        EXPECT_LT(standard(codec, 1280, 720, 60), 2 * small);
    }
}

TEST(BitrateLimits, BetterCodecsNeedLess) {
    EXPECT_LT(standard(CodecID::AV1, 1920, 1080, 30), standard(CodecID::HEVC, 1920, 1080, 30));
    EXPECT_LT(standard(CodecID::HEVC, 1920, 1080, 30), standard(CodecID::H264, 1920, 1080, 30));
    EXPECT_LT(standard(CodecID::H264, 1920, 1080, 30), standard(CodecID::MPEG4, 1920, 1080, 30));
}

TEST(BitrateLimits, TheDefaultLiesBetweenMinimumAndMaximumOfEveryCodec) {
    for (int number = 1; number <= 11; ++number) {
        const auto format = video(static_cast<CodecID>(number), 1280, 720, 25);
        EXPECT_GT(GetMinVideoBitrate(format), 0) << number;
        EXPECT_LT(GetMinVideoBitrate(format), GetDefaultVideoBitrate(format)) << number;
        EXPECT_LT(GetDefaultVideoBitrate(format), GetMaxVideoBitrate(format)) << number;
    }
}

TEST(BitrateLimits, ExtremesStayWithinBounds) {
    EXPECT_EQ(standard(CodecID::H264, 2, 2, 1), 32'000);
    EXPECT_EQ(standard(CodecID::ProRes, 4294967295u, 4294967295u, 1000), 2'000'000'000);
}

TEST(BitrateLimits, AnOpenFrameRateCountsAsThirty) {
    const auto format = video(CodecID::H264, 1920, 1080, 30);
    format->SetFrameRate(0, 0);
    EXPECT_EQ(GetDefaultVideoBitrate(format), 8'000'000);
}

TEST(BitrateLimits, WithoutCodecOrSizeThereIsNoBitrate) {
    EXPECT_EQ(standard(CodecID::None, 1920, 1080, 30), 0);
    EXPECT_EQ(standard(CodecID::H264, 0, 1080, 30), 0);
    EXPECT_EQ(GetMaxVideoBitrate(nullptr), 0);
    EXPECT_EQ(GetMinBitrate(Property()), 0);
    EXPECT_EQ(GetMaxBitrate(audio(CodecID::H264, 48000, 3)), 0);
}

TEST(BitrateLimits, AudioRangesFollowChannelsAndRate) {
    EXPECT_EQ(GetMinBitrate(audio(CodecID::AAC, 48000, CHANNEL_LAYOUT_STEREO)), 32'000);
    EXPECT_EQ(GetMaxBitrate(audio(CodecID::AAC, 48000, CHANNEL_LAYOUT_STEREO)), 576'000);
    EXPECT_EQ(GetMaxBitrate(audio(CodecID::AAC, 24000, CHANNEL_LAYOUT_MONO)), 144'000);
    EXPECT_EQ(GetMaxBitrate(audio(CodecID::MP3, 44100, CHANNEL_LAYOUT_STEREO)), 320'000);
    EXPECT_EQ(GetMaxBitrate(audio(CodecID::Opus, 48000, CHANNEL_LAYOUT_5POINT1)), 510'000);
    EXPECT_EQ(GetMinBitrate(audio(CodecID::PCM_S16LE, 44100, CHANNEL_LAYOUT_STEREO)), 1'411'200);
    EXPECT_EQ(GetMaxBitrate(audio(CodecID::PCM_S16LE, 44100, CHANNEL_LAYOUT_STEREO)), 1'411'200);
}

TEST(BitrateLimits, OpenSoundCountsAsStereoAt48Kilohertz) {
    EXPECT_EQ(GetMaxBitrate(audio(CodecID::AAC, 0, 0)), 576'000);
    EXPECT_EQ(GetMaxBitrate(audio(CodecID::AAC, -1, 0)), 576'000);
}

TEST(BitrateLimits, AStatedAudioBitrateIsTheMaximumWithinTheCodecsRange) {
    Property tree = audio(CodecID::AAC, 48000, CHANNEL_LAYOUT_STEREO);
    tree.SetChild(IFormatCodec::TAG_BITRATE, std::int64_t{192'000});
    EXPECT_EQ(GetMaxBitrate(tree), 192'000);
    EXPECT_EQ(GetMinBitrate(tree), 32'000);
    tree.SetChild(IFormatCodec::TAG_BITRATE, std::int64_t{9'000'000});
    EXPECT_EQ(GetMaxBitrate(tree), 576'000);
    tree.SetChild(IFormatCodec::TAG_BITRATE, std::int64_t{1});
    EXPECT_EQ(GetMaxBitrate(tree), 32'000);
}

TEST(BitrateLimits, VorbisTakesLessAtLowSampleRates) {
    EXPECT_EQ(GetMaxBitrate(audio(CodecID::Vorbis, 11025, CHANNEL_LAYOUT_STEREO)), 88'000);
    EXPECT_EQ(GetMaxBitrate(audio(CodecID::Vorbis, 8000, CHANNEL_LAYOUT_MONO)), 32'000);
    EXPECT_EQ(GetMaxBitrate(audio(CodecID::Vorbis, 48000, CHANNEL_LAYOUT_STEREO)), 480'000);
}
