// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Base/Exception.h"
#include "Kestra/Conf/IFormatCodecAudio.h"
#include "Kestra/Conf/IFormatCodecVideo.h"
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>

using namespace Kestra::Conf;
using Kestra::Core::Property;

TEST(IFormatCodecVideo, AFreshDescriptionAnswersNeutralValues) {
    const auto format = IFormatCodecVideo::Create();
    EXPECT_EQ(format->GetCodecID(), CodecID::None);
    EXPECT_EQ(format->GetBitrate(), 0);
    EXPECT_EQ(format->GetBitrateMode(), "");
    EXPECT_EQ(format->GetQuality(), 0.0);
    EXPECT_EQ(format->GetFrameInfo(), FrameInfo());
    EXPECT_EQ(format->GetFrameRate(), IFormatCodecVideo::Rational(0, 1));
    EXPECT_EQ(format->GetPixelFormat(), PixelFormat::Unknown);
    EXPECT_EQ(format->GetColour(), ColourInfo());
    EXPECT_TRUE(format->GetProperty().GetChildren().empty());
}

TEST(IFormatCodecVideo, SettersAndTreeAreTwoViewsOfOneThing) {
    const auto format = IFormatCodecVideo::Create();
    format->SetCodecID(CodecID::HEVC);
    format->SetBitrate(5'000'000'000);
    format->SetQuality(21.5);
    format->InitByFrameAspect(1920, 1080, 16, 9);
    format->SetFrameRate(30000, 1001);
    format->SetPixelFormat(PixelFormat::YUV420P10);
    const Property& tree = format->GetProperty();
    EXPECT_EQ(tree[IFormatCodec::TAG_CODEC_ID].GetString(), "hevc");
    EXPECT_EQ(tree[IFormatCodec::TAG_BITRATE].GetInt64(), 5'000'000'000);
    EXPECT_EQ(tree[IFormatCodecVideo::TAG_FRAME_RATE].GetRational(), Property::Rational(30000, 1001));

    const auto other = IFormatCodecVideo::Create();
    other->SetProperty(tree);
    EXPECT_EQ(other->GetFrameInfo(), (FrameInfo{1920, 1080, 16, 9}));
    EXPECT_EQ(other->GetPixelFormat(), PixelFormat::YUV420P10);
    EXPECT_EQ(other->GetQuality(), 21.5);
}

TEST(IFormatCodecVideo, NeutralValuesTakeTheNodeAway) {
    const auto format = IFormatCodecVideo::Create();
    format->SetBitrate(1000);
    format->SetBitrate(0);
    format->SetFrameRate(25, 1);
    format->SetFrameRate(25, 0);
    format->SetFrameRate(25, 1);
    format->SetFrameRate(std::numeric_limits<std::int64_t>::min(), -1);
    format->SetBitrateMode("vbr");
    format->SetBitrateMode("");
    EXPECT_TRUE(format->GetProperty().GetChildren().empty()) << format->GetProperty().ToString();
}

TEST(IFormatCodecVideo, ColourKeepsWhatIsKnownOfIt) {
    const auto format = IFormatCodecVideo::Create();
    ColourInfo colour;
    colour.matrix = 1;
    colour.range = 1;
    format->SetColour(colour);
    EXPECT_EQ(format->GetColour(), colour);
    EXPECT_FALSE(format->GetProperty().ChildExists(IFormatCodecVideo::TAG_COLOUR_PRIMARIES));
}

TEST(IFormatCodecVideo, ASizeThatDoesNotFitIsRefusedByName) {
    const auto format = IFormatCodecVideo::Create();
    Property tree;
    tree.SetChild(IFormatCodecVideo::TAG_WIDTH, std::int64_t{-2});
    format->SetProperty(tree);
    EXPECT_THROW(format->GetFrameInfo(), Kestra::Exception);
}

TEST(IFormatCodecAudio, OpenValuesHaveNoNode) {
    const auto format = IFormatCodecAudio::Create();
    EXPECT_EQ(format->GetSampleRate(), -1);
    EXPECT_EQ(format->GetChannelLayout(), 0u);
    EXPECT_EQ(format->GetSampleFormat(), SAMPLE_FORMAT_UNKNOWN);
    format->SetSampleRate(-1);
    format->SetChannelLayout(0);
    format->SetSampleFormat(-1);
    EXPECT_TRUE(format->GetProperty().GetChildren().empty());
}

TEST(IFormatCodecAudio, KeepsWhatIsSet) {
    const auto format = IFormatCodecAudio::Create();
    format->SetSampleRate(0);
    format->SetChannelLayout(CHANNEL_LAYOUT_7POINT1);
    format->SetSampleFormat(SAMPLE_FORMAT_S16);
    EXPECT_EQ(format->GetSampleRate(), 0);
    EXPECT_EQ(format->GetChannelLayout(), std::uint32_t{CHANNEL_LAYOUT_7POINT1});
    EXPECT_EQ(format->GetSampleFormat(), SAMPLE_FORMAT_S16);
}

TEST(IFormatCodec, LivesByItsReferences) {
    auto format = IFormatCodecVideo::Create();
    EXPECT_EQ(format->GetRefCount(), 1);
    const boost::intrusive_ptr<IFormatCodec> base = format;
    EXPECT_EQ(base->GetRefCount(), 2);
}
