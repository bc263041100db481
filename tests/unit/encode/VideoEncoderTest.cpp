// SPDX-License-Identifier: GPL-3.0-or-later
// Counts, times and settings of video encoders.
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Kestra/Proc/Interrupted.h"
#include "RatedEncoding.h"
#include <cstring>

using namespace Fakes;
using namespace EncodeTest;
using namespace Kestra;
using Conf::IFormatCodec;
using Conf::IFormatCodecVideo;
using Proc::TranscodingError;

TEST(VideoEncoder, MakesAsManyFramesAsDurationTimesRate) {
    for (const boost::rational<long long> rate :
         {boost::rational<long long>(24), boost::rational<long long>(30000, 1001), boost::rational<long long>(50),
          boost::rational<long long>(12)}) {
        VideoShape shape;
        shape.frames = 33; // of 25 a second
        auto description = Description("mpeg4");
        description.SetChild(IFormatCodecVideo::TAG_FRAME_RATE, rate);
        const auto encoder = VideoEncoder(MakeVideo(shape), description);
        const auto packets = ReadAll(*encoder);
        const std::int64_t expected = TimeToFrames(FramesToTime(33, 25), rate);
        EXPECT_EQ(static_cast<std::int64_t>(packets.size()), expected) << rate;
        EXPECT_EQ(encoder->GetDuration(), FramesToTime(expected, rate));
        EXPECT_EQ(encoder->GetPosition(), FramesToTime(expected, rate));
    }
}

TEST(VideoEncoder, EvensOutFramesOfVariableLength) {
    const ScratchFolder folder;
    VideoShape shape;
    shape.frames = 20;
    shape.timeOf = [](int index) { return (index * 10 + index % 3) * TIME_BASE / 100; };
    auto description = Description("h264");
    description.SetChild(IFormatCodecVideo::TAG_FRAME_RATE, boost::rational<long long>(30));
    WriteFile(folder.File("out.mp4"), "mp4", {VideoEncoder(MakeVideo(shape), description)});
    const DecodedFile file = Decode(folder.File("out.mp4"));
    const auto& pictures = file.Video().pictures;
    ASSERT_EQ(pictures.size(), 61U); // 2.02 s
    const std::int64_t step = pictures[1]->pts - pictures[0]->pts;
    for (std::size_t index = 0; index < pictures.size(); ++index)
        EXPECT_EQ(pictures[index]->pts, static_cast<std::int64_t>(index) * step);
    EXPECT_EQ(av_cmp_q(file.Video().frameRate, {30, 1}), 0);
}

TEST(VideoEncoder, TellsTheStreamWhatItWants) {
    const auto pictures = MakeVideo({});
    const auto encoder = VideoEncoder(pictures, Description("h264"));
    encoder->Prepare();
    EXPECT_GE(pictures->GetPreferences(), 1);
}

TEST(VideoEncoder, PutsKeyframesNoFartherApartThanOrdered) {
    VideoShape shape;
    shape.frames = 100;
    auto description = Description("h264");
    description.SetChild(IFormatCodecVideo::TAG_GOP_SECONDS, 0.4);
    std::int64_t last = 0;
    for (const auto& packet : ReadAll(*VideoEncoder(MakeVideo(shape), description))) {
        if (packet->IsKeyframe())
            last = packet->GetTime();
        EXPECT_LT(packet->GetTime() - last, FramesToTime(10, 25));
    }
}

TEST(VideoEncoder, RefusesAnUnknownOptionByName) {
    auto description = Description("h264");
    Options(description).SetChild("prest", std::string("fast"));
    const auto failure = Failure([&] { VideoEncoder(MakeVideo({}), description)->Prepare(); });
    EXPECT_EQ(failure.GetCode(), TranscodingError::CodecRefused);
    EXPECT_NE(failure.GetDescription().find("\"prest\""), std::string::npos) << failure.GetDescription();
    EXPECT_NE(failure.GetDescription().find("\"fast\""), std::string::npos) << failure.GetDescription();
}

TEST(VideoEncoder, RefusesAValueThatOnlyTheCodecKnowsToBeWrong) {
    auto description = Description("h264");
    Options(description).SetChild("preset", std::string("sluggish"));
    Options(description).SetChild("tune", std::string("film"));
    const auto failure = Failure([&] { VideoEncoder(MakeVideo({}), description)->Prepare(); });
    EXPECT_EQ(failure.GetCode(), TranscodingError::CodecRefused);
    EXPECT_NE(failure.GetDescription().find("\"preset\""), std::string::npos) << failure.GetDescription();
    EXPECT_NE(failure.GetDescription().find("\"sluggish\""), std::string::npos) << failure.GetDescription();
}

TEST(VideoEncoder, RefusesWhatItCannotDoByName) {
    const auto refusal = [](const char* tag, const Core::Property::Value& value) {
        auto description = Description("h264");
        description.SetChild(tag, value);
        return Failure([&] { VideoEncoder(MakeVideo({}), description)->Prepare(); });
    };
    const auto format = refusal(IFormatCodecVideo::TAG_PIXEL_FORMAT, std::string("yuva420p"));
    EXPECT_EQ(format.GetCode(), TranscodingError::CodecRefused);
    EXPECT_NE(format.GetDescription().find("yuva420p"), std::string::npos) << format.GetDescription();
    const auto mode = refusal(IFormatCodec::TAG_BITRATE_MODE, std::string("sometimes"));
    EXPECT_EQ(mode.GetCode(), TranscodingError::CodecRefused);
    EXPECT_NE(mode.GetDescription().find("sometimes"), std::string::npos) << mode.GetDescription();
    const auto profile = refusal(IFormatCodec::TAG_PROFILE, std::string("highest"));
    EXPECT_EQ(profile.GetCode(), TranscodingError::CodecRefused);
    EXPECT_NE(profile.GetDescription().find("highest"), std::string::npos) << profile.GetDescription();
}

TEST(CodecFactory, NamesACodecThatIsNone) {
    const auto failure = Failure([] { VideoEncoder(MakeVideo({}), Description("h265x")); });
    EXPECT_EQ(failure.GetCode(), TranscodingError::CodecNotFound);
    EXPECT_NE(failure.GetDescription().find("h265x"), std::string::npos);
    EXPECT_EQ(Failure([] { VideoEncoder(MakeVideo({}), Description("aac")); }).GetCode(),
              TranscodingError::CodecNotFound);
    EXPECT_EQ(Failure([] { AudioEncoder(MakeAudio({}), Description("h264")); }).GetCode(),
              TranscodingError::CodecNotFound);
    EXPECT_THROW(VideoEncoder(nullptr, Description("h264")), std::invalid_argument);
}

TEST(VideoEncoder, LeavesTheMarkOfTheOptionTreeToItself) {
    auto description = Description("h264");
    Options(description).SetChild(IFormatCodecVideo::TAG_APPROVED_VBR_MODE_ONLY, true);
    description.SetChild(IFormatCodec::TAG_BITRATE, std::int64_t{500000});
    description.SetChild(IFormatCodec::TAG_BITRATE_MODE, std::string("vbr"));
    EXPECT_EQ(ReadAll(*VideoEncoder(MakeVideo({}), description)).size(), 25U);
}

TEST(RateControl, MeetsTheBitrate) {
    for (const char* codec : {"h264", "vp9", "mpeg4"})
        for (const char* mode : {"vbr", "cbr", "abr"}) {
            const auto packets = ReadAll(*VideoEncoder(MakeVideo(Noise(100)), Rated(codec, mode, 150000)));
            EXPECT_NEAR(BitsPerSecond(packets, 4), 150000, 45000) << codec << ' ' << mode;
        }
}

TEST(RateControl, SpendsMoreOnMoreQuality) {
    const auto bytes = [](const char* codec, double quality) {
        auto description = Description(codec);
        description.SetChild(IFormatCodec::TAG_BITRATE_MODE, std::string("quality"));
        description.SetChild(IFormatCodec::TAG_QUALITY, quality);
        return BitsPerSecond(ReadAll(*VideoEncoder(MakeVideo(Noise(10)), description)), 0.4);
    };
    EXPECT_GT(bytes("h264", 18), 1.5 * bytes("h264", 32));
    EXPECT_GT(bytes("hevc", 18), 1.5 * bytes("hevc", 32));
    EXPECT_GT(bytes("vp9", 20), 1.5 * bytes("vp9", 50));
    EXPECT_GT(bytes("mpeg4", 3), 1.5 * bytes("mpeg4", 12));
}

TEST(VideoEncoder, StartsAfreshAfterReset) {
    const auto encoder = VideoEncoder(MakeVideo({}), Description("h264"));
    encoder->Prepare();
    EXPECT_TRUE(encoder->ReadRaw());
    encoder->Reset();
    EXPECT_EQ(encoder->GetPosition(), 0);
    const auto packets = ReadAll(*encoder);
    EXPECT_EQ(packets.size(), 25U);
    EXPECT_FALSE(encoder->ReadRaw());
}

TEST(VideoEncoder, IsInterruptedUntilReset) {
    VideoShape shape;
    shape.frames = 1000;
    const auto encoder = VideoEncoder(MakeVideo(shape), Description("mpeg4"));
    encoder->Prepare();
    EXPECT_TRUE(encoder->ReadRaw());
    encoder->Interrupt();
    EXPECT_THROW(encoder->ReadRaw(), Proc::Interrupted);
    encoder->Reset();
    EXPECT_TRUE(encoder->ReadRaw());
}

TEST(VideoEncoder, IsNotFlushedWhereItsSourceIsInterrupted) {
    boost::intrusive_ptr<Proc::IStreamVideo> source;
    VideoShape shape;
    shape.frames = 1000;
    shape.paint = [&source](AVFrame& frame, int index) {
        for (int plane = 0; plane < 3; ++plane)
            std::memset(frame.data[plane], 60 + index,
                        static_cast<std::size_t>(frame.linesize[plane] * (plane ? frame.height / 2 : frame.height)));
        if (index == 5)
            source->Interrupt();
    };
    source = MakeVideo(shape);
    const auto encoder = VideoEncoder(source, Description("h264"));
    int packets = 0;
    const auto readAll = [&] {
        while (encoder->ReadRaw())
            ++packets;
    };
    EXPECT_THROW(readAll(), Proc::Interrupted);
    EXPECT_EQ(packets, 0) << "six pictures are still in the encoder";
}

// Its stream has nothing to wait for, and it takes many pictures before there is a packet.
TEST(VideoEncoder, IsInterruptedThoughItsSourceCannotBe) {
    const auto format = IFormatCodecVideo::Create();
    format->InitByFrameAspect(64, 36, 16, 9);
    format->SetFrameRate(25);
    const auto black = Core::CoreManager::Instance().GetFilterFactory().CreateBlack(format, 40 * TIME_BASE);
    const auto encoder = VideoEncoder(black, Description("h264"));
    encoder->Prepare();
    encoder->Interrupt();
    EXPECT_THROW(encoder->ReadRaw(), Proc::Interrupted);
}

TEST(VideoEncoder, KeepsFieldsOfInterlacedPictures) {
    const ScratchFolder folder;
    VideoShape shape;
    shape.width = 720;
    shape.height = 576;
    shape.frames = 6;
    shape.paint = [](AVFrame& frame, int index) {
        for (int plane = 0; plane < 3; ++plane)
            for (int at = 0; at < frame.linesize[plane] * (plane ? 288 : 576); ++at)
                frame.data[plane][at] = static_cast<std::uint8_t>(plane ? 128 : 60 + index * 10);
        frame.interlaced_frame = 1;
        frame.top_field_first = 1;
    };
    auto description = Description("h264");
    description.SetChild(IFormatCodecVideo::TAG_INTERLACED, true);
    WriteFile(folder.File("out.mp4"), "mp4", {VideoEncoder(MakeVideo(shape), description)});
    const DecodedFile file = Decode(folder.File("out.mp4"));
    EXPECT_EQ(file.Video().pictures.at(0)->interlaced_frame, 1);
    EXPECT_EQ(file.Video().pictures.at(0)->top_field_first, 1);
}
