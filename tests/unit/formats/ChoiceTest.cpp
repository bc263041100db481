// SPDX-License-Identifier: GPL-3.0-or-later
// What an encoder is given when nobody says which pixel format it is to have.
#include "Kestra/Conf/PixelLoss.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Encode/VideoDriver.h"
#include "Kestra/FF/Encode/VideoEncoderChoice.h"
#include "Kestra/Proc/ProcException.h"
#include <functional>
#include <gtest/gtest.h>

extern "C" {
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

using namespace Kestra;

namespace {

FF::EncoderInput choice(const char* encoder, const char* source, std::uint32_t width = 64, std::uint32_t height = 48,
                        Conf::CodecID codec = Conf::CodecID::None) {
    const auto description = Conf::IFormatCodecVideo::Create();
    description->SetCodecID(codec);
    const auto stream = Conf::IFormatCodecVideo::Create();
    stream->InitByFrameAspect(width, height, 0, 0);
    stream->SetPixelFormat(Conf::PixelFormatFromString(source));
    return FF::ChooseInput(*description, *stream, *avcodec_find_encoder_by_name(encoder));
}

std::string chosen(const char* encoder, const char* source) {
    return av_get_pix_fmt_name(choice(encoder, source).format);
}

std::string refusal(const std::function<void()>& action) {
    try {
        action();
    } catch (const Proc::ProcException& error) {
        return error.what();
    }
    return "nothing was refused";
}

} // namespace

TEST(EncoderInputFormat, LosesLeastOfWhatTheCodecTakes) {
    EXPECT_EQ(chosen("ffv1", "yuv420p10le"), "yuv420p10le");
    EXPECT_EQ(chosen("ffv1", "nv12"), "yuv420p");
    EXPECT_EQ(chosen("ffv1", "p010le"), "yuv420p10le");
    EXPECT_EQ(chosen("ffv1", "uyvy422"), "yuv422p");
    EXPECT_EQ(chosen("ffv1", "rgb24"), "bgr0");
    EXPECT_EQ(chosen("ffv1", "gbrp"), "bgr0");
    EXPECT_EQ(chosen("ffv1", "argb"), "bgra");
    EXPECT_EQ(chosen("ffv1", "rgb48be"), "gbrp16le");
    EXPECT_EQ(chosen("ffv1", "gray14le"), "gray16le");
    EXPECT_EQ(chosen("ffv1", "yuva422p12le"), "yuva422p16le");
    EXPECT_EQ(chosen("ffv1", "yuvj422p"), "yuv422p");
    EXPECT_EQ(chosen("prores_ks", "yuv420p"), "yuv422p10le");
    EXPECT_EQ(chosen("prores_ks", "yuv444p12le"), "yuv444p10le");
    EXPECT_EQ(chosen("prores_ks", "bgra"), "yuva444p10le");
    EXPECT_EQ(chosen("dnxhd", "yuv420p10le"), "yuv422p10le");
}

TEST(EncoderInputFormat, NeverHasFewerBitsOrLessColourThanTheCodecCould) {
    for (const Conf::PixelFormatRecord& from : Conf::PixelFormatRecord::All()) {
        if (from.kind == Conf::PixelKind::Hardware || sws_isSupportedInput(FF::ToAv(from.Format())) == 0)
            continue;
        const auto& to = *Conf::PixelFormatRecord::Find(FF::FromAv(choice("ffv1", from.name).format));
        const auto loss = Conf::PixelLoss::Between(from, to);
        EXPECT_FALSE(loss.colour || loss.alpha) << from.name << " became " << to.name;
        EXPECT_LE(loss.chroma, 0) << from.name << " became " << to.name;
        EXPECT_LE(to.bits >= 16 ? 0 : loss.bits, 0) << from.name << " became " << to.name;
    }
}

TEST(EncoderInputFormat, IsRefusedByNameWhereNothingCanBeMadeOfIt) {
    EXPECT_NE(refusal([] { choice("ffv1", "vaapi"); }).find("\"vaapi\""), std::string::npos);
    EXPECT_NE(refusal([] { choice("ffv1", "other"); }).find("\"other\""), std::string::npos);
    EXPECT_NE(refusal([] { choice("ffv1", "y210be"); }).find("\"y210be\""), std::string::npos);
}

TEST(EncoderInputFormat, TooSmallForTheCodecIsRefusedWithTheSmallestSize) {
    const std::string words = refusal([] { choice("libx265", "yuv420p", 64, 8, Conf::CodecID::HEVC); });
    EXPECT_NE(words.find("64x8"), std::string::npos) << words;
    EXPECT_NE(words.find("16x16"), std::string::npos) << words;
    EXPECT_EQ(choice("libx265", "yuv420p", 16, 16, Conf::CodecID::HEVC).width, 16);
}

TEST(EncoderInputFormat, TooNarrowForItsLengthIsRefusedWithItsSize) {
    const std::string words = refusal([] { choice("libx265", "yuv420p", 8192, 16, Conf::CodecID::HEVC); });
    EXPECT_NE(words.find("so short beside one so long"), std::string::npos) << words;
    EXPECT_NE(words.find("8192x16"), std::string::npos) << words;
    EXPECT_EQ(choice("libx265", "yuv420p", 8192, 32, Conf::CodecID::HEVC).width, 8192);
    EXPECT_EQ(choice("libx264", "yuv420p", 8192, 16, Conf::CodecID::H264).width, 8192);
}

TEST(EncoderInputFormat, OddSidesStayWhereTheCodecHasNoGrid) {
    EXPECT_EQ(choice("ffv1", "yuv420p", 161, 121).width, 161);
    EXPECT_EQ(choice("ffv1", "yuv420p", 161, 121).height, 121);
    EXPECT_EQ(choice("libx264", "yuv420p", 161, 121).width, 160);
}

TEST(EncoderAdvice, TellsWhichSizesAndRatesDnxhdTakes) {
    const std::string words =
        FF::VideoDriver::Of(*avcodec_find_encoder_by_name("dnxhd")).Advise(choice("dnxhd", "yuv422p", 640, 360));
    EXPECT_NE(words.find("640x360"), std::string::npos) << words;
    EXPECT_NE(words.find("1280x720 at 60"), std::string::npos) << words;
    EXPECT_NE(words.find("dnxhr_hq"), std::string::npos) << words;
    EXPECT_EQ(FF::VideoDriver::Of(*avcodec_find_encoder_by_name("ffv1")).Advise(FF::EncoderInput()), "");
}

TEST(EncoderInputColour, IsOneThatTheCodecHasANameFor) {
    struct {
        const char* encoder;
        Conf::ColourInfo source, encoded;
    } const cases[] = {
        {"libx264", {AVCOL_PRI_EBU3213, 1, 1, 1}, {1, 1, 1, 1}},
        {"libx265", {AVCOL_PRI_EBU3213, 1, 1, 1}, {1, 1, 1, 1}},
        {"libvpx-vp9", {1, 1, AVCOL_SPC_YCGCO, 1}, {1, 1, 6, 1}},
        {"libvpx-vp9", {9, 1, AVCOL_SPC_ICTCP, 1}, {9, 1, 9, 1}},
        {"libx264", {1, 1, AVCOL_SPC_YCGCO, 1}, {1, 1, AVCOL_SPC_YCGCO, 1}},
        {"ffv1", {AVCOL_PRI_EBU3213, 1, AVCOL_SPC_ICTCP, 1}, {AVCOL_PRI_EBU3213, 1, AVCOL_SPC_ICTCP, 1}},
    };
    for (const auto& each : cases) {
        const auto stream = Conf::IFormatCodecVideo::Create();
        stream->InitByFrameAspect(64, 48, 0, 0);
        stream->SetPixelFormat(Conf::PixelFormatFromString("yuv420p"));
        stream->SetColour(each.source);
        const auto picture =
            FF::ChooseInput(*Conf::IFormatCodecVideo::Create(), *stream, *avcodec_find_encoder_by_name(each.encoder));
        EXPECT_EQ(picture.colour, each.encoded)
            << each.encoder << " " << each.source.primaries << " " << each.source.matrix << ": "
            << picture.colour.primaries << " " << picture.colour.transfer << " " << picture.colour.matrix;
    }
}
