// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of pictures on their way into a codec.
#include "EncodeFixture.h"
#include <array>
#include <cmath>
#include <cstdlib>

using namespace Fakes;
using namespace EncodeTest;

namespace {

struct RGB {
    int r, g, b;
};

constexpr std::array<RGB, 8> BARS{{{191, 191, 191},
                                   {191, 191, 0},
                                   {0, 191, 191},
                                   {0, 191, 0},
                                   {191, 0, 191},
                                   {191, 0, 0},
                                   {0, 0, 191},
                                   {16, 16, 16}}};

/// 128 x 64 of eight bars, blue-green-red-alpha.
void PaintBars(AVFrame& frame, int alpha) {
    for (int y = 0; y < frame.height; ++y)
        for (int x = 0; x < frame.width; ++x) {
            const RGB& bar = BARS[static_cast<std::size_t>(x * 8 / frame.width)];
            std::uint8_t* pixel = frame.data[0] + y * frame.linesize[0] + x * 4;
            pixel[0] = static_cast<std::uint8_t>(bar.b);
            pixel[1] = static_cast<std::uint8_t>(bar.g);
            pixel[2] = static_cast<std::uint8_t>(bar.r);
            pixel[3] = static_cast<std::uint8_t>(alpha);
        }
}

VideoShape Bars(int width, int height, int alpha = 255) {
    VideoShape shape;
    shape.width = width;
    shape.height = height;
    shape.format = AV_PIX_FMT_BGRA;
    shape.frames = 2;
    shape.paint = [alpha](AVFrame& frame, int) { PaintBars(frame, alpha); };
    return shape;
}

/// Limited-range 8 bit code values by the definition of the matrix.
std::array<int, 3> CodeValues(const RGB& colour, double kr, double kb) {
    const double r = colour.r / 255.0;
    const double g = colour.g / 255.0;
    const double b = colour.b / 255.0;
    const double y = kr * r + (1 - kr - kb) * g + kb * b;
    return {static_cast<int>(std::lround(16 + 219 * y)),
            static_cast<int>(std::lround(128 + 224 * (b - y) / (2 * (1 - kb)))),
            static_cast<int>(std::lround(128 + 224 * (r - y) / (2 * (1 - kr))))};
}

/// Whether the bars are within two code values of what the matrix makes of them; else which is not.
testing::AssertionResult ShowsBars(const AVFrame& frame, double kr, double kb) {
    constexpr int tolerance = 2;
    for (std::size_t bar = 0; bar < BARS.size(); ++bar) {
        const auto expected = CodeValues(BARS[bar], kr, kb);
        const int x = (static_cast<int>(bar) * 2 + 1) * frame.width / 16;
        const int y = frame.height / 2;
        const std::array<int, 3> found{frame.data[0][y * frame.linesize[0] + x],
                                       frame.data[1][y / 2 * frame.linesize[1] + x / 2],
                                       frame.data[2][y / 2 * frame.linesize[2] + x / 2]};
        for (std::size_t plane = 0; plane < 3; ++plane)
            if (std::abs(found[plane] - expected[plane]) > tolerance)
                return testing::AssertionFailure() << "bar " << bar << ", plane " << plane << ": " << found[plane]
                                                   << " instead of " << expected[plane];
    }
    return testing::AssertionSuccess();
}

VideoShape Flat(AVPixelFormat format, std::array<int, 4> values) {
    VideoShape shape;
    shape.format = format;
    shape.frames = 1;
    shape.paint = [values](AVFrame& frame, int) {
        for (int plane = 0; plane < 4 && frame.data[plane]; ++plane)
            for (int y = 0; y < (plane == 1 || plane == 2 ? frame.height / 2 : frame.height); ++y)
                for (int x = 0; x < frame.linesize[plane]; ++x)
                    frame.data[plane][y * frame.linesize[plane] + x] =
                        static_cast<std::uint8_t>(values[static_cast<std::size_t>(plane)]);
    };
    return shape;
}

} // namespace

TEST(Pictures, KeepColourBarsInHighDefinitionByBt709) {
    const DecodedFile file = Lossless(Bars(1280, 720));
    EXPECT_TRUE(ShowsBars(*file.Video().pictures.at(0), 0.2126, 0.0722));
    EXPECT_EQ(file.Video().parameters->color_space, AVCOL_SPC_BT709);
}

TEST(Pictures, KeepColourBarsInStandardDefinitionByBt601) {
    const DecodedFile file = Lossless(Bars(720, 576));
    EXPECT_TRUE(ShowsBars(*file.Video().pictures.at(0), 0.299, 0.114));
    EXPECT_EQ(file.Video().parameters->color_space, AVCOL_SPC_BT470BG);
}

TEST(Pictures, KeepColourBarsInH264WithoutLoss) {
    const ScratchFolder folder;
    auto description = Description("h264");
    description.SetChild(Kestra::Conf::IFormatCodecVideo::TAG_PIXEL_FORMAT, std::string("yuv420p"));
    Options(description).SetChild("qp", std::int64_t{0});
    WriteFile(folder.File("out.mp4"), "mp4", {VideoEncoder(MakeVideo(Bars(1280, 720)), description)});
    EXPECT_TRUE(ShowsBars(*Decode(folder.File("out.mp4")).Video().pictures.at(0), 0.2126, 0.0722));
}

TEST(Pictures, GetPalettesOfTheirOwnInGif) {
    const ScratchFolder folder;
    VideoShape shape = Bars(128, 64);
    shape.frames = 3;
    // The second picture has none of the first one's colours, the third has nothing but holes.
    shape.paint = [](AVFrame& frame, int index) {
        PaintBars(frame, index == 2 ? 0 : 255);
        if (index == 1)
            for (int at = 0; at < frame.height * frame.linesize[0]; ++at)
                frame.data[0][at] = static_cast<std::uint8_t>(at % 4 == 3 ? 255 : frame.data[0][at] / 2 + 10);
    };
    WriteFile(folder.File("out.gif"), "gif", {VideoEncoder(MakeVideo(shape), Description("gif"))});
    const DecodedFile file = Decode(folder.File("out.gif"));
    ASSERT_EQ(file.Video().pictures.size(), 3U);
    EXPECT_EQ(file.Video().pictures[2]->pts, 8); // hundredths of a second
    EXPECT_NEAR(file.seconds, 0.12, 1e-9);
    for (int index = 0; index < 2; ++index) {
        const AVFrame& frame = *file.Video().pictures[static_cast<std::size_t>(index)];
        ASSERT_EQ(frame.format, AV_PIX_FMT_BGRA);
        for (int x = 0; x < 128; ++x) {
            const RGB& bar = BARS[static_cast<std::size_t>(x / 16)];
            const std::uint8_t* pixel = frame.data[0] + 32 * frame.linesize[0] + x * 4;
            ASSERT_NEAR(pixel[2], index == 0 ? bar.r : bar.r / 2 + 10, 2) << x;
            ASSERT_NEAR(pixel[1], index == 0 ? bar.g : bar.g / 2 + 10, 2) << x;
            ASSERT_NEAR(pixel[0], index == 0 ? bar.b : bar.b / 2 + 10, 2) << x;
        }
    }
}

TEST(Pictures, OfOtherPrimariesBecomeSrgbInGif) {
    const auto shown = [](const Kestra::Conf::ColourInfo& colour) {
        const ScratchFolder folder;
        VideoShape shape = Bars(64, 48);
        shape.colour = colour;
        shape.frames = 1;
        shape.paint = [](AVFrame& frame, int) {
            for (int at = 0; at < frame.height * frame.linesize[0]; ++at)
                frame.data[0][at] = std::array<std::uint8_t, 4>{40, 40, 180, 255}[static_cast<std::size_t>(at % 4)];
        };
        WriteFile(folder.File("out.gif"), "gif", {VideoEncoder(MakeVideo(shape), Description("gif"))});
        const DecodedFile file = Decode(folder.File("out.gif"));
        const std::uint8_t* pixel = file.Video().pictures.at(0)->data[0];
        return RGB{pixel[2], pixel[1], pixel[0]};
    };
    // What the primaries' matrices make of the red in linear light.
    const RGB displayP3 = shown({AVCOL_PRI_SMPTE432, AVCOL_TRC_IEC61966_2_1, AVCOL_SPC_RGB, AVCOL_RANGE_JPEG});
    EXPECT_NEAR(displayP3.r, 195, 3);
    EXPECT_NEAR(displayP3.g, 0, 3);
    EXPECT_NEAR(displayP3.b, 25, 6);
    const RGB same = shown({AVCOL_PRI_BT709, AVCOL_TRC_IEC61966_2_1, AVCOL_SPC_RGB, AVCOL_RANGE_JPEG});
    EXPECT_NEAR(same.r, 180, 1);
    EXPECT_NEAR(same.g, 40, 1);
    EXPECT_NEAR(same.b, 40, 1);
}

TEST(Pictures, OfOneMatrixPassUnchanged) {
    auto shape = Flat(AV_PIX_FMT_YUV420P, {77, 99, 188, 0});
    const DecodedFile file = Lossless(shape);
    const AVFrame& frame = *file.Video().pictures.at(0);
    EXPECT_EQ(frame.data[0][0], 77);
    EXPECT_EQ(frame.data[1][0], 99);
    EXPECT_EQ(frame.data[2][0], 188);
}

TEST(Pictures, OfFullRangeBecomeLimited) {
    auto shape = Flat(AV_PIX_FMT_YUVJ420P, {255, 128, 128, 0});
    const DecodedFile file = Lossless(shape);
    EXPECT_NEAR(file.Video().pictures.at(0)->data[0][0], 235, 1);
    EXPECT_NE(file.Video().parameters->color_range, AVCOL_RANGE_JPEG);
    auto black = Flat(AV_PIX_FMT_YUVJ420P, {0, 128, 128, 0});
    EXPECT_NEAR(Lossless(black).Video().pictures.at(0)->data[0][0], 16, 1);
}

TEST(Pictures, WithAlphaLieOverBlack) {
    const DecodedFile file = Lossless(Bars(1280, 720, 0));
    const AVFrame& frame = *file.Video().pictures.at(0);
    EXPECT_NEAR(frame.data[0][100], 16, 1);
    EXPECT_NEAR(frame.data[1][50], 128, 1);
    const DecodedFile half = Lossless(Bars(1280, 720, 128));
    // Half of a white of 191: 95.9 of 255.
    EXPECT_NEAR(half.Video().pictures.at(0)->data[0][10], 16 + 219 * 95.9 / 255, 1.5);
}

TEST(Pictures, WithPlanarAlphaLieOverBlack) {
    auto shape = Flat(AV_PIX_FMT_YUVA420P, {235, 200, 60, 0});
    const DecodedFile clear = Lossless(shape);
    EXPECT_EQ(clear.Video().pictures.at(0)->data[0][0], 16);
    EXPECT_EQ(clear.Video().pictures.at(0)->data[1][0], 128);
    const DecodedFile opaque = Lossless(Flat(AV_PIX_FMT_YUVA420P, {235, 200, 60, 255}));
    EXPECT_EQ(opaque.Video().pictures.at(0)->data[0][0], 235);
    EXPECT_EQ(opaque.Video().pictures.at(0)->data[1][0], 200);
    EXPECT_EQ(opaque.Video().pictures.at(0)->data[2][0], 60);
}

TEST(Pictures, OfTenBitsAreDitheredToEight) {
    VideoShape shape;
    shape.width = 64;
    shape.height = 64;
    shape.frames = 1;
    shape.format = AV_PIX_FMT_YUV420P10;
    shape.paint = [](AVFrame& frame, int) {
        for (int plane = 0; plane < 3; ++plane)
            for (int y = 0; y < (plane ? 32 : 64); ++y)
                for (int x = 0; x < (plane ? 32 : 64); ++x)
                    reinterpret_cast<std::uint16_t*>(frame.data[plane] + y * frame.linesize[plane])[x] =
                        plane ? 512 : 402;
    };
    const DecodedFile file = Lossless(shape);
    const AVFrame& frame = *file.Video().pictures.at(0);
    double sum = 0;
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            sum += frame.data[0][y * frame.linesize[0] + x];
    // 402 of 1023 is 100.5 of 255: neither 100 nor 101 everywhere.
    EXPECT_NEAR(sum / 4096, 100.5, 0.2);
}

TEST(Pictures, OfOddSidesGetEvenOnesAndNeverNone) {
    for (const auto& [width, height, expectedWidth, expectedHeight] :
         {std::array<int, 4>{161, 121, 160, 120}, std::array<int, 4>{1, 1, 2, 2}}) {
        const ScratchFolder folder;
        VideoShape shape;
        shape.width = width;
        shape.height = height;
        WriteFile(folder.File("out.mp4"), "mp4", {VideoEncoder(MakeVideo(shape), Description("h264"))});
        const DecodedFile file = Decode(folder.File("out.mp4"));
        EXPECT_EQ(file.Video().parameters->width, expectedWidth);
        EXPECT_EQ(file.Video().parameters->height, expectedHeight);
        EXPECT_EQ(file.Video().pictures.size(), 25U);
    }
}

TEST(Pictures, KeepTheShapeOfTheirPixels) {
    const ScratchFolder folder;
    VideoShape shape;
    shape.width = 720;
    shape.height = 576;
    shape.frames = 2;
    shape.aspect = {16, 9};
    WriteFile(folder.File("out.mp4"), "mp4", {VideoEncoder(MakeVideo(shape), Description("h264"))});
    const AVRational sample = Decode(folder.File("out.mp4")).Video().parameters->sample_aspect_ratio;
    EXPECT_EQ(sample.num, 64);
    EXPECT_EQ(sample.den, 45);
}

namespace {

struct Tagged {
    const char* codec;
    const char* container;
};

void PrintTo(const Tagged& tagged, std::ostream* out) {
    *out << tagged.codec << ' ' << tagged.container;
}

class ColourTags : public testing::TestWithParam<Tagged> {};

} // namespace

TEST_P(ColourTags, OfTheStreamReachTheFile) {
    const ScratchFolder folder;
    const std::string path = folder.File("out");
    VideoShape shape;
    shape.width = 128;
    shape.height = 128;
    shape.frames = 3;
    shape.format = AV_PIX_FMT_YUV420P10;
    shape.colour = {AVCOL_PRI_BT2020, AVCOL_TRC_BT2020_10, AVCOL_SPC_BT2020_NCL, AVCOL_RANGE_MPEG};
    WriteFile(path, GetParam().container, {VideoEncoder(MakeVideo(shape), Description(GetParam().codec))});
    const DecodedFile file = Decode(path);
    const AVCodecParameters& parameters = *file.Video().parameters;
    EXPECT_EQ(parameters.color_primaries, AVCOL_PRI_BT2020);
    EXPECT_EQ(parameters.color_trc, AVCOL_TRC_BT2020_10);
    EXPECT_EQ(parameters.color_space, AVCOL_SPC_BT2020_NCL);
    EXPECT_NE(parameters.color_range, AVCOL_RANGE_JPEG);
}

TEST_P(ColourTags, AreChosenWhereTheStreamHasNone) {
    const ScratchFolder folder;
    const std::string path = folder.File("out");
    VideoShape shape;
    shape.width = 1280;
    shape.height = 720;
    shape.frames = 2;
    WriteFile(path, GetParam().container, {VideoEncoder(MakeVideo(shape), Description(GetParam().codec))});
    const DecodedFile file = Decode(path);
    const AVCodecParameters& parameters = *file.Video().parameters;
    EXPECT_EQ(parameters.color_primaries, AVCOL_PRI_BT709);
    EXPECT_EQ(parameters.color_trc, AVCOL_TRC_BT709);
    EXPECT_EQ(parameters.color_space, AVCOL_SPC_BT709);
}

INSTANTIATE_TEST_SUITE_P(Encoders, ColourTags,
                         testing::Values(Tagged{"h264", "mp4"}, Tagged{"hevc", "mp4"}, Tagged{"vp9", "webm"},
                                         Tagged{"prores", "mov"}, Tagged{"ffv1", "mkv"}, Tagged{"av1", "mp4"},
                                         Tagged{"mpeg4", "mp4"}));

TEST(ColourTags, StandInTheBitstreamOfH264AsWell) {
    const ScratchFolder folder;
    const std::string path = folder.File("out.mp4");
    VideoShape shape;
    shape.colour = {AVCOL_PRI_BT709, AVCOL_TRC_BT709, AVCOL_SPC_BT709, AVCOL_RANGE_MPEG};
    WriteFile(path, "mp4", {VideoEncoder(MakeVideo(shape), Description("h264"))});
    // The decoder takes them from the stream's own headers.
    const DecodedFile file = Decode(path);
    EXPECT_EQ(file.Video().pictures.at(0)->colorspace, AVCOL_SPC_BT709);
    EXPECT_EQ(file.Video().pictures.at(0)->color_primaries, AVCOL_PRI_BT709);
    EXPECT_EQ(file.Video().pictures.at(0)->color_trc, AVCOL_TRC_BT709);
    EXPECT_EQ(file.Video().pictures.at(0)->color_range, AVCOL_RANGE_MPEG);
}
