// SPDX-License-Identifier: GPL-3.0-or-later
// Encoders that see the pictures twice.
#include "Kestra/Proc/Interrupted.h"
#include "Passes.h"
#include <filesystem>
#include <fstream>

using namespace Fakes;
using namespace EncodeTest;
using namespace Kestra;
using Conf::IFormatCodec;
using Conf::IFormatCodecVideo;
using Proc::TranscodingError;

namespace {

/// Pictures that differ in what they demand: a second of almost nothing, then one of noise, and so on.
VideoShape Uneven(int frames) {
    VideoShape shape = Noise(frames);
    shape.paint = [noise = shape.paint](AVFrame& frame, int index) {
        noise(frame, index);
        if (index / 25 % 2 == 1)
            return;
        for (int plane = 0; plane < 3; ++plane)
            for (int at = 0; at < frame.linesize[plane] * (plane ? 32 : 64); ++at)
                frame.data[plane][at] = static_cast<std::uint8_t>(plane ? 128 : 60 + at / 997 % 100 + index % 3);
    };
    return shape;
}

void Overwrite(const std::string& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

class TwoPasses : public testing::TestWithParam<const char*> {};
class TwoPassFiles : public testing::TestWithParam<const char*> {};

} // namespace

TEST(TwoPass, SettingsSurviveTheWayThroughAProperty) {
    Proc::SettingsTwoPassEncoding settings;
    settings.SetLogFile("/somewhere/a log");
    settings.firstPass = true;
    const auto encoder = VideoEncoder(MakeVideo({}), Description("h264"));
    encoder->Initialize(Proc::IEncoder::Settings2Property(settings));
    const Core::Property given = encoder->GetSettings();
    const Core::Property& tree = given[IFormatCodec::TAG_TWO_PASS];
    EXPECT_EQ(tree[IFormatCodec::TAG_TWO_PASS_LOG_FILE].GetString(), "/somewhere/a log");
    EXPECT_TRUE(tree[IFormatCodec::TAG_TWO_PASS_FIRST].GetBool());
    EXPECT_EQ(given[IFormatCodec::TAG_CODEC_ID].GetString(), "h264");
}

TEST(TwoPass, SettingsComeTooLateAfterPrepare) {
    const auto encoder = VideoEncoder(MakeVideo({}), Description("h264"));
    encoder->Prepare();
    EXPECT_EQ(Failure([&] { encoder->Initialize(Proc::IEncoder::Settings2Property({})); }).GetCode(),
              TranscodingError::NotSupported);
}

TEST(TwoPass, IsAnEmptyFirstPassForACodecWithoutPasses) {
    Passes passes("ffv1");
    passes.log = passes.folder.File("nowhere/pass.log");
    EXPECT_EQ(passes.Run(true).size(), 0U);
    EXPECT_EQ(passes.Run(false).size(), 12U);
}

TEST_P(TwoPasses, HitTheBitrateOverALogWithAColonInItsName) {
    const Passes passes(GetParam(), Noise(75));
    const auto run = [&](bool first) {
        const auto encoder = passes.Make(first);
        auto packets = ReadAll(*encoder);
        EXPECT_EQ(encoder->GetPosition(), FramesToTime(75, 25)) << "first pass: " << first;
        return packets;
    };
    EXPECT_EQ(run(true).size(), 75U);
    EXPECT_FALSE(Content(passes.log).empty()) << "no statistics were written";
    const auto packets = run(false);
    EXPECT_EQ(packets.size(), 75U);
    EXPECT_NEAR(BitsPerSecond(packets, 3), 125000, 20000);
}

TEST_P(TwoPasses, HitTheBitrateOfPicturesThatDemandUnequally) {
    Passes passes(GetParam(), Uneven(150));
    passes.bitrate = 110000;
    passes.Run(true);
    const auto packets = passes.Run(false);
    EXPECT_EQ(packets.size(), 150U);
    EXPECT_NEAR(BitsPerSecond(packets, 6), 110000, 11000);
}

TEST_P(TwoPasses, MakeOrRefuseWithItsNameABitrateThatNobodyCanMeet) {
    for (const std::int64_t bitrate : {std::int64_t{1000}, std::int64_t{50'000'000}}) {
        Passes passes(GetParam());
        passes.bitrate = bitrate;
        passes.Run(true);
        const auto failure = passes.Second();
        if (failure.GetCode() == TranscodingError::None)
            continue;
        EXPECT_EQ(failure.GetCode(), TranscodingError::CodecRefused);
        EXPECT_NE(failure.GetDescription().find(std::to_string(bitrate) + " bit/s"), std::string::npos)
            << failure.GetDescription();
    }
}

TEST_P(TwoPassFiles, SpreadOverOnePictureToo) {
    for (const int frames : {1, 2}) {
        const Passes passes(GetParam(), Noise(frames));
        passes.Run(true);
        EXPECT_EQ(passes.Run(false).size(), static_cast<std::size_t>(frames));
    }
}

TEST_P(TwoPasses, KeepToEveryBitrateMode) {
    for (const char* mode : {"cbr", "abr"}) {
        Passes passes(GetParam(), Noise(75));
        passes.mode = mode;
        passes.Run(true);
        EXPECT_NEAR(BitsPerSecond(passes.Run(false), 3), 125000, 22500) << mode;
    }
}

TEST_P(TwoPassFiles, LeaveFilesNextToTheLogOnly) {
    const Passes passes(GetParam());
    passes.Run(true);
    const auto files = passes.Files();
    for (const std::string& file : files)
        EXPECT_EQ(file.find("pass:1 of 2.log"), 0U) << file;
    passes.Run(false);
    EXPECT_EQ(passes.Files(), files) << "the second pass only reads";
}

TEST_P(TwoPassFiles, RunTheFirstAgainOverTheSameLog) {
    const Passes passes(GetParam());
    passes.Run(true);
    passes.Run(true);
    EXPECT_EQ(passes.Run(false).size(), 12U);
}

TEST_P(TwoPassFiles, NameALogThatIsMissing) {
    Passes passes(GetParam());
    passes.log = passes.folder.File("nowhere/pass.log");
    const auto failure = Failure([&] { passes.Make(false)->Prepare(); });
    EXPECT_EQ(failure.GetCode(), TranscodingError::SourceUnreadable);
    EXPECT_NE(failure.GetDescription().find(passes.log), std::string::npos) << failure.GetDescription();
}

TEST_P(TwoPassFiles, NameADirectoryThatIsMissing) {
    Passes passes(GetParam());
    passes.log = passes.folder.File("nowhere/pass.log");
    const auto failure = Failure([&] { passes.Make(true)->Prepare(); });
    EXPECT_EQ(failure.GetCode(), TranscodingError::OutputNotWritable);
    EXPECT_NE(failure.GetDescription().find(passes.log), std::string::npos) << failure.GetDescription();
}

TEST_P(TwoPassFiles, NameEveryFileThatIsDamagedOrMissing) {
    const Passes passes(GetParam());
    passes.Run(true);
    for (const std::string& name : passes.Files()) {
        const std::string path = passes.folder.File(name);
        const std::string whole = Content(path);
        ASSERT_FALSE(whole.empty()) << name;
        std::string flipped = whole;
        flipped[whole.size() / 2] = static_cast<char>(flipped[whole.size() / 2] ^ 1);
        for (const std::string& damaged :
             {std::string(), whole.substr(0, whole.size() / 2), whole.substr(0, whole.size() - 1), flipped,
              whole + "1 1 *x\n", std::string(whole.size(), '\xff')}) {
            Overwrite(path, damaged);
            const auto failure = passes.Second();
            EXPECT_NE(failure.GetCode(), TranscodingError::None) << name << " of " << damaged.size() << " bytes";
            EXPECT_NE(failure.GetDescription().find(passes.log), std::string::npos) << failure.GetDescription();
        }
        std::filesystem::remove(path);
        const auto failure = passes.Second();
        EXPECT_EQ(failure.GetCode(), TranscodingError::SourceUnreadable) << name;
        EXPECT_NE(failure.GetDescription().find(path), std::string::npos) << failure.GetDescription();
        Overwrite(path, whole);
    }
    EXPECT_EQ(passes.Run(false).size(), 12U) << "nothing but the damage was in the way";
}

TEST_P(TwoPassFiles, AreNoPlanForMorePicturesThanStandInThem) {
    const Passes passes(GetParam());
    passes.Run(true);
    const std::string manifest = passes.log + ".manifest";
    std::string lines = Content(manifest);
    Overwrite(manifest, lines.replace(0, lines.find('\n'), "pictures 9000000000000000000"));
    const auto failure = passes.Second();
    // Those that read their statistics themselves count for themselves too.
    if (failure.GetCode() == TranscodingError::None)
        return;
    EXPECT_EQ(failure.GetCode(), TranscodingError::SourceDamaged) << failure.GetDescription();
    EXPECT_NE(failure.GetDescription().find(passes.log), std::string::npos) << failure.GetDescription();
}

TEST_P(TwoPassFiles, RefuseTheLogOfAFirstPassThatDidNotEnd) {
    const Passes passes(GetParam());
    passes.Run(true);
    {
        const auto encoder = passes.Make(true);
        encoder->Prepare();
        EXPECT_TRUE(encoder->ReadRaw());
        encoder->Interrupt();
        EXPECT_THROW(encoder->ReadRaw(), Kestra::Proc::Interrupted);
    }
    EXPECT_EQ(passes.Second().GetCode(), TranscodingError::SourceUnreadable) << "an earlier pass counted";
}

TEST_P(TwoPassFiles, RefuseMorePicturesThanTheFirstHad) {
    const Passes shorter(GetParam(), Noise(20));
    shorter.Run(true);
    Passes longer(GetParam(), Noise(40));
    longer.log = shorter.log;
    const auto failure = longer.Second();
    EXPECT_EQ(failure.GetCode(), TranscodingError::EncodeFailed);
    EXPECT_NE(failure.GetDescription().find("more than the 20 pictures"), std::string::npos)
        << failure.GetDescription();
}

TEST_P(TwoPassFiles, TellOfADiskThatIsFull) {
    const Passes passes(GetParam(), Noise(60));
    const auto failure = passes.FirstWithRoomFor(100);
    EXPECT_EQ(failure.GetCode(), TranscodingError::DiskFull);
    EXPECT_NE(failure.GetDescription().find(passes.log), std::string::npos) << failure.GetDescription();
    EXPECT_NE(failure.GetDescription().find("File too large"), std::string::npos) << failure.GetDescription();
    EXPECT_NE(passes.Second().GetCode(), TranscodingError::None) << "there is no second pass over half a log";
}

// A short log is written when the encoder closes, and the encoder does not look whether all of it arrives.
TEST(TwoPass, TellsOfADiskThatIsFullAtTheEnd) {
    for (const char* codec : {"h264", "hevc"}) {
        const Passes whole(codec);
        whole.Run(true);
        const Passes passes(codec);
        const auto failure = passes.FirstWithRoomFor(Content(whole.log).size() - 200);
        EXPECT_EQ(failure.GetCode(), TranscodingError::OutputNotWritable);
        EXPECT_NE(failure.GetDescription().find(passes.log), std::string::npos) << failure.GetDescription();
        EXPECT_NE(failure.GetDescription().find(" of 12 pictures"), std::string::npos) << failure.GetDescription();
        EXPECT_NE(passes.Second().GetCode(), TranscodingError::None) << codec;
    }
}

TEST(TwoPass, OfAV1HitsTheBitrateOfPicturesThatMove) {
    VideoShape shape = Noise(50);
    shape.paint = [noise = shape.paint](AVFrame& frame, int index) {
        noise(frame, index);
        for (int plane = 0; plane < 3; ++plane)
            for (int at = 0; at < frame.linesize[plane] * (plane ? 32 : 64); ++at) {
                const int across = at % frame.linesize[plane] + index, down = at / frame.linesize[plane];
                frame.data[plane][at] =
                    static_cast<std::uint8_t>(60 + across / 3 + down / 2 + frame.data[plane][at] % 4);
            }
    };
    Passes passes("av1", shape);
    passes.bitrate = 200000;
    EXPECT_EQ(passes.Run(true).size(), 50U);
    EXPECT_NEAR(BitsPerSecond(passes.Run(false), 2), 200000, 50000);
}

// The encoder of AV1 takes seconds for each of the others.
INSTANTIATE_TEST_SUITE_P(Encoders, TwoPasses, testing::Values("h264", "hevc", "vp9", "vp8", "mpeg4", "mpeg2", "mjpeg"));
INSTANTIATE_TEST_SUITE_P(Encoders, TwoPassFiles,
                         testing::Values("h264", "hevc", "vp9", "vp8", "mpeg4", "mpeg2", "mjpeg", "av1"));
