#include "Kestra/Conf/CodecID.h"
#include "Kestra/Conf/IFormatFile.h"
#include "Kestra/Conf/PixelFormat.h"
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
    EXPECT_EQ(named, 20);
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
    for (int number = 0; number <= 27; ++number) {
        const auto format = static_cast<PixelFormat>(number);
        const std::string name = PixelFormatToString(format);
        if (number >= 19 && number <= 21)
            EXPECT_EQ(name, "unknown") << number;
        else
            EXPECT_EQ(PixelFormatFromString(name), format) << name;
    }
    EXPECT_STREQ(PixelFormatToString(PixelFormat::YUV420P), "yuv420p");
    EXPECT_STREQ(PixelFormatToString(PixelFormat::Unknown), "unknown");
    EXPECT_EQ(PixelFormatFromString("yuv"), PixelFormat::Unknown);
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
