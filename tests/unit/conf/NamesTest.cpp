// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/CodecID.h"
#include "Kestra/Conf/IFormatFile.h"
#include "Kestra/Conf/PixelFormat.h"
#include "Kestra/Conf/PixelLoss.h"
#include <gtest/gtest.h>

using namespace Kestra::Conf;

TEST(CodecID, EveryNumberOfTheEnumerationHasANameThatLeadsBack) {
    int named = 0;
    for (int number = 1; number <= 200; ++number) {
        const auto id = static_cast<CodecID>(number);
        const std::string name = CodecIDToString(id);
        if (name == "none")
            continue;
        ++named;
        EXPECT_EQ(CodecIDFromString(name), id) << name;
    }
    EXPECT_EQ(named, 24);
    EXPECT_STREQ(CodecIDToString(CodecID::PCM_S16LE), "pcm_s16le");
}

TEST(CodecID, ANameThatIsNoneIsNone) {
    EXPECT_EQ(CodecIDFromString(""), CodecID::None);
    EXPECT_EQ(CodecIDFromString("none"), CodecID::None);
    EXPECT_EQ(CodecIDFromString("H264"), CodecID::None);
    EXPECT_STREQ(CodecIDToString(static_cast<CodecID>(77)), "none");
}

TEST(CodecID, VideoCodecsAreToldFromAudioCodecs) {
    EXPECT_TRUE(IsVideoCodec(CodecID::H264));
    EXPECT_TRUE(IsVideoCodec(CodecID::MJPEG));
    EXPECT_FALSE(IsVideoCodec(CodecID::None));
    EXPECT_FALSE(IsVideoCodec(CodecID::AAC));
    EXPECT_FALSE(IsVideoCodec(CodecID::ALAC));
}

TEST(PixelFormat, NamesLeadBack) {
    for (const PixelFormatRecord& record : PixelFormatRecord::All()) {
        EXPECT_STREQ(PixelFormatToString(record.Format()), record.name);
        EXPECT_EQ(PixelFormatFromString(record.name), record.Format()) << record.name;
    }
    for (const int number : {-1, 19, 20, 21, 99, 1000000})
        EXPECT_STREQ(PixelFormatToString(static_cast<PixelFormat>(number)), "unknown") << number;
    EXPECT_EQ(PixelFormatFromString(PixelFormatToString(PixelFormat::Other)), PixelFormat::Other);
    EXPECT_STREQ(PixelFormatToString(PixelFormat::YUV420P), "yuv420p");
    EXPECT_STREQ(PixelFormatToString(PixelFormat::Unknown), "unknown");
    EXPECT_EQ(PixelFormatFromString("yuv"), PixelFormat::Unknown);
}

TEST(PixelFormat, TheNumbersOfTheTableStay) {
    const std::vector<std::pair<int, const char*>> known{
        {1, "yuv420p"},      {2, "yuv422p"},      {3, "yuv444p"},   {4, "nv12"},          {5, "yuvj420p"},
        {6, "yuv420p10le"},  {7, "yuv422p10le"},  {9, "p010le"},    {8, "yuv444p10le"},   {10, "yuv420p12le"},
        {11, "yuv422p12le"}, {12, "yuv444p12le"}, {13, "gray"},     {14, "gray10le"},     {15, "rgb24"},
        {16, "bgr24"},       {17, "gbrp"},        {18, "gbrp10le"}, {22, "yuva420p"},     {23, "yuva422p"},
        {24, "yuva444p"},    {25, "bgra"},        {26, "rgba"},     {27, "yuva444p10le"}, {100, "yuyv422"}};
    for (const auto& [number, name] : known)
        EXPECT_STREQ(PixelFormatToString(static_cast<PixelFormat>(number)), name);
}

TEST(PixelFormat, NamesMayLeaveOutTheOrderOfBytes) {
    EXPECT_EQ(PixelFormatFromString("yuv420p10"), PixelFormat::YUV420P10);
    EXPECT_EQ(PixelFormatFromString("p010"), PixelFormat::P010);
    EXPECT_EQ(PixelFormatFromString("gray8"), PixelFormat::GRAY8);
    EXPECT_STREQ(PixelFormatToString(PixelFormatFromString("gray8a")), "ya8");
}

TEST(PixelLoss, TellsWhatIsLostInWords) {
    const auto loss = [](const char* from, const char* to) {
        return LossInWords(*PixelFormatRecord::Find(PixelFormatFromString(from)),
                           *PixelFormatRecord::Find(PixelFormatFromString(to)));
    };
    EXPECT_EQ(loss("yuv420p", "yuv444p10"), "");
    EXPECT_EQ(loss("yuv420p", "yuv420p"), "");
    EXPECT_EQ(loss("rgb24", "yuv444p"), "");
    EXPECT_EQ(loss("yuv422p10", "yuv420p"), "10 bits became 8, colour of 4:2:2 became 4:2:0");
    EXPECT_EQ(loss("bgra", "bgr0"), "transparency was left out, over black");
    EXPECT_EQ(loss("pal8", "bgr0"), "");
    EXPECT_EQ(loss("gbrpf32", "gbrp16"), "floating point became 16");
    EXPECT_EQ(loss("yuv444p", "gray"), "colour became gray");
    EXPECT_EQ(loss("bayer_rggb8", "rgb24"), "the sensor's mosaic became pixels");
}

TEST(PixelFormat, TwentyFiveHasAlpha) {
    EXPECT_TRUE(HasAlpha(static_cast<PixelFormat>(25)));
    EXPECT_TRUE(HasAlpha(PixelFormat::YUVA420P));
    EXPECT_FALSE(HasAlpha(PixelFormat::YUV420P));
    EXPECT_FALSE(HasAlpha(PixelFormat::Unknown));
}

TEST(IFormatFile, KnowsItsContainerOnceATreeIsSet) {
    const auto format = IFormatFile::Create();
    EXPECT_EQ(format->GetContainerID(), "");
    Kestra::Core::Property tree;
    tree.SetChild(IFormatFile::TAG_CONTAINER_ID, std::string("mkv"));
    format->SetProperty(tree);
    EXPECT_EQ(format->GetContainerID(), "mkv");
    EXPECT_EQ(format->GetProperty(), tree);
}
