// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of one colour in another, held against the standards' formulas.
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Picture/ColourConverter.h"
#include "Kestra/FF/Picture/FrameConverter.h"
#include "Kestra/FF/Picture/HdrMetadata.h"
#include "unit/filters/ColourReference.h"
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <vector>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {
namespace {

using ColourReference::Code;
using Conf::ColourInfo;

constexpr int LIMITED = AVCOL_RANGE_MPEG;
constexpr int FULL = AVCOL_RANGE_JPEG;
const ColourInfo BT709{1, 1, 1, LIMITED};
const ColourInfo BT601_625{5, 6, 5, LIMITED};
const ColourInfo BT601_525{6, 6, 6, LIMITED};
const ColourInfo BT2020{9, 14, 9, LIMITED};
const ColourInfo PQ{9, 16, 9, LIMITED};
const ColourInfo HLG{9, 18, 9, LIMITED};

constexpr int BAR = 16;

void put(AVFrame& picture, int plane, int x, int y, double value) {
    std::uint8_t* row = picture.data[plane] + static_cast<std::ptrdiff_t>(y) * picture.linesize[plane];
    const long code = std::lround(value);
    if (picture.format == AV_PIX_FMT_YUV444P || picture.format == AV_PIX_FMT_YUV420P)
        row[x] = static_cast<std::uint8_t>(code);
    else
        reinterpret_cast<std::uint16_t*>(row)[x] = static_cast<std::uint16_t>(code);
}

double get(const AVFrame& picture, int plane, int x, int y) {
    const std::uint8_t* row = picture.data[plane] + static_cast<std::ptrdiff_t>(y) * picture.linesize[plane];
    const bool narrow = picture.format == AV_PIX_FMT_YUV444P || picture.format == AV_PIX_FMT_YUV420P;
    return narrow ? row[x] : reinterpret_cast<const std::uint16_t*>(row)[x];
}

/// Upright bars of those codes in 4:4:4.
FrameHandle bars(const std::vector<Code>& codes, AVPixelFormat format, const ColourInfo& colour) {
    FramePool pool;
    FrameHandle picture = pool.Get(format, BAR * static_cast<int>(codes.size()), 8);
    for (int plane = 0; plane < 3; ++plane)
        for (int y = 0; y < picture->height; ++y)
            for (int x = 0; x < picture->width; ++x)
                put(*picture, plane, x, y, codes[static_cast<std::size_t>(x / BAR)][static_cast<std::size_t>(plane)]);
    picture->color_primaries = static_cast<AVColorPrimaries>(colour.primaries);
    picture->color_trc = static_cast<AVColorTransferCharacteristic>(colour.transfer);
    picture->colorspace = static_cast<AVColorSpace>(colour.matrix);
    picture->color_range = static_cast<AVColorRange>(colour.range);
    picture->sample_aspect_ratio = {1, 1};
    return picture;
}

FrameHandle converted(const AVFrame& picture, AVPixelFormat format, const ColourInfo& colour) {
    FrameTarget target;
    target.width = picture.width;
    target.height = picture.height;
    target.format = format;
    target.colour = colour;
    target.source = target.place = {0, 0, picture.width, picture.height};
    return FrameConverter().Convert(picture, target);
}

Code middleOf(const AVFrame& picture, std::size_t bar) {
    const int x = BAR * static_cast<int>(bar) + BAR / 2;
    return {get(picture, 0, x, 4), get(picture, 1, x, 4), get(picture, 2, x, 4)};
}

void expectNear(const Code& found, const Code& expected, double tolerance, const std::string& where) {
    for (std::size_t plane = 0; plane < 3; ++plane)
        EXPECT_NEAR(found[plane], expected[plane], tolerance) << where << ", plane " << plane;
}

/// 75 % bars, a skin and a dark tone as BT.709 has them in limited range.
const std::vector<Code> TONES{{180, 128, 128}, {168, 44, 136}, {145, 147, 44},  {133, 63, 52},  {63, 193, 204},
                              {51, 109, 212},  {28, 212, 120}, {150, 108, 150}, {40, 130, 125}, {16, 128, 128}};

struct Named {
    const char* name;
    ColourInfo colour;
};
const std::vector<Named> STANDARDS{{"709", BT709}, {"601/625", BT601_625}, {"601/525", BT601_525}, {"2020", BT2020}};

TEST(Colours, APaletteIsReadAsTheColoursThatItHolds) {
    const FrameHandle green(av_frame_alloc());
    green->format = AV_PIX_FMT_PAL8;
    green->width = 2 * BAR;
    green->height = 8;
    ASSERT_EQ(av_frame_get_buffer(green.get(), 0), 0);
    std::fill_n(green->data[0], green->linesize[0] * 8, std::uint8_t{3});
    reinterpret_cast<std::uint32_t*>(green->data[1])[3] = 0xFF00FF00;
    const FrameHandle yuv = converted(*green, AV_PIX_FMT_YUV444P, BT709);
    expectNear(middleOf(*yuv, 0), {173, 42, 26}, 1.01, "4:4:4");
    const FrameHandle rgb = converted(*green, AV_PIX_FMT_GBRP, {});
    EXPECT_EQ(rgb->data[0][0], 255);
    EXPECT_EQ(rgb->data[1][0], 0);
    EXPECT_EQ(rgb->data[2][0], 0);
}

TEST(Colours, BarsOfEveryStandardAndRangeComeOutInEveryOtherWithinOneCodeValue) {
    for (const Named& from : STANDARDS)
        for (const Named& to : STANDARDS)
            for (const int range : {LIMITED, FULL})
                for (const int rangeAfter : {LIMITED, FULL}) {
                    ColourInfo before = from.colour;
                    ColourInfo after = to.colour;
                    before.range = range;
                    after.range = rangeAfter;
                    const FrameHandle source = bars(TONES, AV_PIX_FMT_YUV444P, before);
                    const FrameHandle result = converted(*source, AV_PIX_FMT_YUV444P, after);
                    for (std::size_t bar = 0; bar < TONES.size(); ++bar)
                        expectNear(middleOf(*result, bar), ColourReference::convert(TONES[bar], 8, before, 8, after),
                                   1.01,
                                   std::string(from.name) + " to " + to.name + ", ranges " + std::to_string(range) +
                                       " to " + std::to_string(rangeAfter) + ", bar " + std::to_string(bar));
                    EXPECT_EQ(result->color_primaries, after.primaries);
                    EXPECT_EQ(result->color_trc, after.transfer);
                    EXPECT_EQ(result->colorspace, after.matrix);
                    EXPECT_EQ(result->color_range, after.range);
                }
}

TEST(Colours, PicturesOfTheWantedColourKeepTheirPixels) {
    const FrameHandle source = bars(TONES, AV_PIX_FMT_YUV444P, BT601_525);
    EXPECT_EQ(converted(*source, AV_PIX_FMT_YUV444P, BT601_525)->data[0], source->data[0]);
    // One transfer under several names.
    const ColourInfo alike{6, 1, 5, LIMITED};
    EXPECT_EQ(converted(*source, AV_PIX_FMT_YUV444P, alike)->data[0], source->data[0]);
}

TEST(Colours, WhiterThanWhiteSurvivesAnotherMatrix) {
    const std::vector<Code> codes{{235, 128, 128}, {250, 128, 128}, {4, 128, 128}, {240, 120, 140}};
    ColourInfo matrixAlone = BT601_525;
    matrixAlone.primaries = 1;
    const FrameHandle source = bars(codes, AV_PIX_FMT_YUV444P, matrixAlone);
    const FrameHandle result = converted(*source, AV_PIX_FMT_YUV444P, BT709);
    for (std::size_t bar = 0; bar < codes.size(); ++bar)
        expectNear(middleOf(*result, bar), ColourReference::convert(codes[bar], 8, matrixAlone, 8, BT709), 1.01,
                   "bar " + std::to_string(bar));
}

Code grey(double luminance, const ColourInfo& colour) {
    return {ColourReference::greyCode(luminance, 10, colour), 512, 512};
}

TEST(Colours, OfAHighRangeFollowTheCurveIntoAStandardOne) {
    for (const Named& from : {Named{"PQ", PQ}, Named{"HLG", HLG}}) {
        const double peak = from.colour == PQ ? 10000 : 1000;
        // Dark, below the knee, the reference white, and nearly the brightest that both know.
        const std::vector<Code> codes{grey(1, from.colour),
                                      grey(40, from.colour),
                                      grey(203, from.colour),
                                      grey(900, from.colour),
                                      {500, 480, 560}};
        const FrameHandle source = bars(codes, AV_PIX_FMT_YUV444P10, from.colour);
        const FrameHandle result = converted(*source, AV_PIX_FMT_YUV444P, BT709);
        for (std::size_t bar = 0; bar < codes.size(); ++bar) {
            Code told{};
            for (std::size_t plane = 0; plane < 3; ++plane)
                told[plane] = std::round(codes[bar][plane]);
            expectNear(middleOf(*result, bar), ColourReference::convert(told, 10, from.colour, 8, BT709, peak), 1.01,
                       std::string(from.name) + ", bar " + std::to_string(bar));
        }
        EXPECT_EQ(result->color_trc, AVCOL_TRC_BT709);
        EXPECT_EQ(result->color_primaries, AVCOL_PRI_BT709);
        EXPECT_EQ(result->colorspace, AVCOL_SPC_BT709);
        // The numbers that the documentation names: reference white, and what is dark stays as it is.
        EXPECT_NEAR(middleOf(*result, 2)[0], from.colour == PQ ? 200 : 203, 1.01);
        EXPECT_NEAR(middleOf(*result, 1)[0], 16 + 219 * std::pow(40.0 / 203, 1 / 2.4), 1.01);
    }
}

void grade(AVFrame& picture, unsigned brightest) {
    AVMasteringDisplayMetadata& display = *av_mastering_display_metadata_create_side_data(&picture);
    display.max_luminance = {4000, 1};
    display.has_luminance = 1;
    if (brightest > 0)
        av_content_light_metadata_create_side_data(&picture)->MaxCLL = brightest;
}

TEST(Colours, TheBrightestThatIsToldBecomesWhite) {
    for (const unsigned brightest : {1000U, 0U}) {
        const double peak = brightest > 0 ? brightest : 4000;
        const FrameHandle source = bars({grey(peak, PQ)}, AV_PIX_FMT_YUV444P10, PQ);
        grade(*source, brightest);
        EXPECT_EQ(ColourConverter::PeakOf(*source, AVCOL_TRC_SMPTE2084), peak);
        const FrameHandle result = converted(*source, AV_PIX_FMT_YUV444P, BT709);
        EXPECT_NEAR(middleOf(*result, 0)[0], 235, 1.01) << peak;
        EXPECT_TRUE(HdrMetadataOf(*result).IsEmpty()) << "of a range that is gone";
    }
}

TEST(Colours, AMasteringDisplayThatDoesNotReachWhiteTellsNothing) {
    const FrameHandle source = bars({grey(4000, PQ)}, AV_PIX_FMT_YUV444P10, PQ);
    grade(*source, 0);
    auto* const side = av_frame_get_side_data(source.get(), AV_FRAME_DATA_MASTERING_DISPLAY_METADATA);
    auto& white = reinterpret_cast<AVMasteringDisplayMetadata*>(side->data)->max_luminance;
    for (const AVRational implausible : {AVRational{1, 10}, AVRational{0, 1}, AVRational{-5, 1}, AVRational{100, 1}}) {
        white = implausible;
        EXPECT_EQ(ColourConverter::PeakOf(*source, AVCOL_TRC_SMPTE2084), 10000) << av_q2d(implausible);
    }
    white = {400, 1};
    EXPECT_EQ(ColourConverter::PeakOf(*source, AVCOL_TRC_SMPTE2084), 400);
}

TEST(Colours, OfAStandardRangeStandAtReferenceWhiteInAHighOne) {
    for (const ColourInfo& to : {PQ, HLG}) {
        const FrameHandle source = bars(TONES, AV_PIX_FMT_YUV444P, BT709);
        const FrameHandle result = converted(*source, AV_PIX_FMT_YUV444P10, to);
        for (std::size_t bar = 0; bar < TONES.size(); ++bar)
            expectNear(middleOf(*result, bar), ColourReference::convert(TONES[bar], 8, BT709, 10, to), 3.01,
                       std::to_string(to.transfer) + ", bar " + std::to_string(bar));
        const FrameHandle white =
            converted(*bars({{235, 128, 128}}, AV_PIX_FMT_YUV444P, BT709), AV_PIX_FMT_YUV444P10, to);
        EXPECT_NEAR(middleOf(*white, 0)[0], ColourReference::greyCode(203, 10, to), 1.01);
    }
}

TEST(Colours, OfBothHighRangesHaveTheSameLight) {
    const auto expectLight = [](double luminance, const ColourInfo& from, const ColourInfo& to) {
        const FrameHandle source = bars({grey(luminance, from)}, AV_PIX_FMT_YUV444P10, from);
        grade(*source, 1000);
        const FrameHandle result = converted(*source, AV_PIX_FMT_YUV444P10, to);
        EXPECT_NEAR(middleOf(*result, 0)[0], ColourReference::greyCode(luminance, 10, to), 2.01)
            << luminance << " to " << to.transfer;
        EXPECT_EQ(result->color_trc, to.transfer);
        EXPECT_TRUE(HdrMetadataOf(*result).IsEmpty());
    };
    for (const double luminance : {5.0, 203.0, 800.0}) {
        expectLight(luminance, PQ, HLG);
        expectLight(luminance, HLG, PQ);
    }
}

TEST(Colours, PqThatIsTooBrightForHlgIsCompressedRatherThanClipped) {
    const FrameHandle source = bars({grey(203, PQ), grey(1500, PQ), grey(4000, PQ)}, AV_PIX_FMT_YUV444P10, PQ);
    grade(*source, 0);
    const FrameHandle result = converted(*source, AV_PIX_FMT_YUV444P10, HLG);
    EXPECT_NEAR(middleOf(*result, 0)[0], ColourReference::greyCode(203, 10, HLG), 2.01);
    EXPECT_LT(middleOf(*result, 1)[0] + 10, middleOf(*result, 2)[0]);
    EXPECT_NEAR(middleOf(*result, 2)[0], 940, 2.01);
}

TEST(Colours, FieldsAreNotMixed) {
    FramePool pool;
    FrameHandle picture = pool.Get(AV_PIX_FMT_YUV420P, 64, 32);
    for (int plane = 0; plane < 3; ++plane)
        for (int y = 0; y < (plane ? 16 : 32); ++y)
            for (int x = 0; x < (plane ? 32 : 64); ++x)
                put(*picture, plane, x, y,
                    y % 2 ? TONES[1][static_cast<std::size_t>(plane)] : TONES[4][static_cast<std::size_t>(plane)]);
    picture->color_primaries = AVCOL_PRI_SMPTE170M;
    picture->color_trc = AVCOL_TRC_SMPTE170M;
    picture->colorspace = AVCOL_SPC_SMPTE170M;
    picture->color_range = AVCOL_RANGE_MPEG;
    picture->interlaced_frame = 1;
    const FrameHandle result = converted(*picture, AV_PIX_FMT_YUV420P, BT709);
    EXPECT_EQ(result->interlaced_frame, 1);
    for (const int line : {8, 9}) {
        const Code expected = ColourReference::convert(line % 2 ? TONES[1] : TONES[4], 8, BT601_525, 8, BT709);
        for (int plane = 0; plane < 3; ++plane)
            EXPECT_NEAR(get(*result, plane, 16, line), expected[static_cast<std::size_t>(plane)], 1.01)
                << line << " " << plane;
    }
}

/// Of every colour, so that each row of chroma has another one above and below.
FrameHandle noise(AVPixelFormat format, int width, int height, const ColourInfo& colour) {
    FramePool pool;
    FrameHandle picture = pool.Get(format, width, height);
    const int deepest = (1 << av_pix_fmt_desc_get(format)->comp[0].depth) - 1;
    std::uint32_t state = 1;
    for (int plane = 0; plane < 3; ++plane)
        for (int y = 0; y < (plane > 0 ? height / 2 : height); ++y)
            for (int x = 0; x < (plane > 0 ? width / 2 : width); ++x)
                put(*picture, plane, x, y, (state = state * 1664525 + 1013904223) >> 16 & deepest);
    SetColour(*picture, colour);
    picture->sample_aspect_ratio = {1, 1};
    return picture;
}

::testing::AssertionResult areSame(const AVFrame& a, const AVFrame& b) {
    for (int plane = 0; plane < 3; ++plane)
        for (int y = 0; y < (plane > 0 ? a.height / 2 : a.height); ++y)
            for (int x = 0; x < (plane > 0 ? a.width / 2 : a.width); ++x)
                if (get(a, plane, x, y) != get(b, plane, x, y))
                    return ::testing::AssertionFailure() << "plane " << plane << ", " << x << ", " << y;
    return ::testing::AssertionSuccess();
}

TEST(Colours, AreTheSameOnAnyNumberOfThreads) {
    for (const bool interlaced : {false, true}) {
        const FrameHandle picture = noise(AV_PIX_FMT_YUV420P10, 320, 212, PQ);
        picture->interlaced_frame = interlaced ? 1 : 0;
        const FrameHandle one = ColourConverter(1).Convert(*picture, {PQ, BT709}, AV_PIX_FMT_YUV420P);
        for (const int threads : {2, 3, 8, 40})
            EXPECT_TRUE(areSame(*one, *ColourConverter(threads).Convert(*picture, {PQ, BT709}, AV_PIX_FMT_YUV420P)))
                << threads;
    }
}

// To both ends of what a component can hold, a tenth beyond black and white of RGB.
TEST(Colours, OfWhatRgbCannotHoldComeOutWithinOneCodeValueHoweverTheyAreComputed) {
    std::vector<Code> codes;
    for (double luma = 16; luma <= 235; luma += 219.0 / 8)
        for (double blue = -0.5; blue <= 0.5; blue += 0.125)
            for (double red = -0.5; red <= 0.5; red += 0.125) {
                const double light = (luma - 16) / 219;
                const double r = light + 1.5748 * red;
                const double b = light + 1.8556 * blue;
                const double g = (light - 0.2126 * r - 0.0722 * b) / 0.7152;
                if (std::min({r, g, b}) > -0.1 && std::max({r, g, b}) < 1.1)
                    codes.push_back({std::round(luma), std::round(128 + 224 * blue), std::round(128 + 224 * red)});
            }
    ASSERT_GT(codes.size(), 100U);
    const FrameHandle source = bars(codes, AV_PIX_FMT_YUV444P, BT709);
    for (const Named& to : STANDARDS) {
        const FrameHandle result = converted(*source, AV_PIX_FMT_YUV444P, to.colour);
        for (std::size_t bar = 0; bar < codes.size(); ++bar) {
            Code wanted = ColourReference::convert(codes[bar], 8, BT709, 8, to.colour);
            for (double& code : wanted)
                code = std::clamp(code, 0.0, 255.0);
            expectNear(middleOf(*result, bar), wanted, 1.01, std::string(to.name) + ", bar " + std::to_string(bar));
        }
    }
}

TEST(Colours, OfOddSizesAndUnusualFormatsAreConvertedToo) {
    const auto expectBt709Grey = [](AVPixelFormat format, int width, int height, AVPixelFormat after) {
        FramePool pool;
        FrameHandle picture = pool.Get(format, width, height);
        FrameTarget target;
        target.width = width;
        target.height = height;
        target.format = format;
        target.source = target.place = {0, 0, width, height};
        target.colour = BT601_525;
        const FrameHandle grey = bars({{126, 128, 128}}, AV_PIX_FMT_YUV444P, BT601_525);
        FrameTarget spread = target;
        spread.source = {0, 0, BAR, 8};
        picture = FrameConverter().Convert(*grey, spread);
        const FrameHandle result = converted(*picture, after, BT709);
        EXPECT_EQ(result->format, after);
        EXPECT_EQ(result->width, width);
        EXPECT_EQ(result->colorspace, after == AV_PIX_FMT_BGRA ? AVCOL_SPC_RGB : AVCOL_SPC_BT709);
        const double expected = after == AV_PIX_FMT_BGRA ? (126 - 16) * 255 / 219.0 : 126;
        EXPECT_NEAR(result->data[0][4], expected, 1.01) << format << " to " << after;
    };
    expectBt709Grey(AV_PIX_FMT_YUV420P, 161, 121, AV_PIX_FMT_YUV420P);
    expectBt709Grey(AV_PIX_FMT_NV12, 160, 120, AV_PIX_FMT_YUV420P);
    expectBt709Grey(AV_PIX_FMT_YUV420P, 160, 120, AV_PIX_FMT_NV12);
    expectBt709Grey(AV_PIX_FMT_RGB24, 160, 120, AV_PIX_FMT_YUV422P);
    expectBt709Grey(AV_PIX_FMT_GRAY8, 160, 120, AV_PIX_FMT_YUV420P);
    expectBt709Grey(AV_PIX_FMT_YUV420P, 160, 120, AV_PIX_FMT_BGRA);
}

} // namespace
} // namespace Kestra::FF
