// SPDX-License-Identifier: GPL-3.0-or-later
// Frames mixed and laid over each other, against formulas in double precision.
#include "Kestra/Conf/BlendFormats.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/FramePool.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Kestra/Proc/ProcException.h"
#include <boost/exception/get_error_info.hpp>
#include <cmath>
#include <gtest/gtest.h>
#include <optional>
#include <random>
#include <stdexcept>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra {
namespace {

using Conf::PixelFormat;
using Frame = Proc::IFrameBlender::Frame;

constexpr int WIDTH = 37;
constexpr int HEIGHT = 19;

const AVPixFmtDescriptor& descriptorOf(const AVFrame& frame) {
    return *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
}

boost::intrusive_ptr<Conf::IFormatCodecVideo> formatOf(PixelFormat pixels, int range = AVCOL_RANGE_MPEG) {
    const auto format = Conf::IFormatCodecVideo::Create();
    format->InitByFrameAspect(WIDTH, HEIGHT, 0, 0);
    format->SetPixelFormat(pixels);
    Conf::ColourInfo colour;
    colour.primaries = AVCOL_PRI_BT709;
    colour.matrix = AVCOL_SPC_BT709;
    colour.range = range;
    format->SetColour(colour);
    return format;
}

boost::intrusive_ptr<Proc::IFrameBlender> blenderFor(PixelFormat pixels, int range = AVCOL_RANGE_MPEG) {
    return Core::CoreManager::Instance().GetFilterFactory().CreateFrameBlender(formatOf(pixels, range));
}

/// How the samples of one plane lie.
struct Plane {
    Plane(const AVFrame& frame, int number)
        : number(number)
        , descriptor(descriptorOf(frame)) {
        const bool chroma = (number == 1 || number == 2) && !(descriptor.flags & AV_PIX_FMT_FLAG_RGB);
        shiftX = chroma ? descriptor.log2_chroma_w : 0;
        shiftY = chroma ? descriptor.log2_chroma_h : 0;
        width = AV_CEIL_RSHIFT(frame.width, shiftX);
        height = AV_CEIL_RSHIFT(frame.height, shiftY);
    }

    bool isFloat() const { return (descriptor.flags & AV_PIX_FMT_FLAG_FLOAT) != 0; }
    double highest() const { return isFloat() ? 1 : std::pow(2, descriptor.comp[0].depth) - 1; }

    void set(AVFrame& frame, int x, int y, double value) const {
        std::uint8_t* const row = frame.data[number] + static_cast<std::ptrdiff_t>(y) * frame.linesize[number];
        if (isFloat())
            reinterpret_cast<float*>(row)[x] = static_cast<float>(value);
        else if (descriptor.comp[0].depth > 8)
            reinterpret_cast<std::uint16_t*>(row)[x] = static_cast<std::uint16_t>(value);
        else
            row[x] = static_cast<std::uint8_t>(value);
    }
    double get(const AVFrame& frame, int x, int y) const {
        const std::uint8_t* const row = frame.data[number] + static_cast<std::ptrdiff_t>(y) * frame.linesize[number];
        if (isFloat())
            return reinterpret_cast<const float*>(row)[x];
        return descriptor.comp[0].depth > 8 ? reinterpret_cast<const std::uint16_t*>(row)[x] : row[x];
    }

    int number;
    const AVPixFmtDescriptor& descriptor;
    int shiftX, shiftY, width, height;
};

/// Noise in every plane, alpha included; every value, the ends of the range among them, may come.
Frame noise(PixelFormat format, unsigned seed, std::int64_t time = 0) {
    FF::FrameHandle picture = FF::FramePool().Get(FF::ToAv(format), WIDTH, HEIGHT);
    std::mt19937 random(seed);
    const AVPixFmtDescriptor& descriptor = descriptorOf(*picture);
    for (int number = 0; number < descriptor.nb_components; ++number) {
        const Plane plane(*picture, number);
        for (int y = 0; y < plane.height; ++y)
            for (int x = 0; x < plane.width; ++x) {
                const double value = std::clamp(random() % 1200 / 1000.0 - 0.1, 0.0, 1.0);
                plane.set(*picture, x, y, plane.isFloat() ? value : std::round(value * plane.highest()));
            }
    }
    return new FF::DataVideoFF(std::move(picture), time, 10);
}

/// What is expected of one pixel: how much there is of `to`, and of both.
struct Weights {
    double to;
    double whole;
};
using Rule = Weights (*)(double from, double to);
constexpr double WEIGHT = 0.3;
Weights mixed(double from, double to) {
    return {to * WEIGHT, to * WEIGHT + from * (1 - WEIGHT)};
}
Weights laid(double from, double to) {
    return {to, to + from * (1 - to)};
}

double alphaAt(const Frame& frame, int x, int y) {
    if (!frame)
        return 0;
    const AVFrame& picture = FF::FrameOf(*frame);
    if (descriptorOf(picture).nb_components < 4)
        return 1;
    const Plane alpha(picture, 3);
    return alpha.get(picture, x, y) / alpha.highest();
}

/// The mean of the pixels that a sample covers.
Weights weightsAt(const Frame& from, const Frame& to, const Plane& plane, int column, int row, Rule rule) {
    Weights sum{0, 0};
    int count = 0;
    for (int y = row << plane.shiftY; y < std::min((row + 1) << plane.shiftY, HEIGHT); ++y)
        for (int x = column << plane.shiftX; x < std::min((column + 1) << plane.shiftX, WIDTH); ++x, ++count) {
            const Weights one = rule(alphaAt(from, x, y), alphaAt(to, x, y));
            sum.to += one.to;
            sum.whole += one.whole;
        }
    return {sum.to / count, sum.whole / count};
}

/// The greatest difference of any sample from the formula, in code values (of 8 bits for floating point). Colours that
/// nobody sees are not compared.
double worstError(const Frame& result, const Frame& from, const Frame& to, Rule rule) {
    const AVFrame& picture = FF::FrameOf(*result);
    double worst = 0;
    for (int number = 0; number < descriptorOf(picture).nb_components; ++number) {
        const Plane plane(picture, number);
        for (int y = 0; y < plane.height; ++y)
            for (int x = 0; x < plane.width; ++x) {
                const Weights weights = weightsAt(from, to, plane, x, y, rule);
                const double before = from && number < 3 ? plane.get(FF::FrameOf(*from), x, y) : 0;
                const double after = to && number < 3 ? plane.get(FF::FrameOf(*to), x, y) : 0;
                const double colour = (before * (weights.whole - weights.to) + after * weights.to) / weights.whole;
                const double expected = number == 3 ? weights.whole * plane.highest() : colour;
                if (number == 3 || weights.whole > 1e-6)
                    worst = std::max(worst, std::abs(plane.get(picture, x, y) - expected));
            }
    }
    return Plane(picture, 0).isFloat() ? worst * 255 : worst;
}

bool samePixels(const Frame& a, const Frame& b) {
    return FF::FrameOf(*a).data[0] == FF::FrameOf(*b).data[0] &&
           FF::FrameOf(*a).buf[0]->buffer == FF::FrameOf(*b).buf[0]->buffer;
}

class BlenderFormat : public testing::TestWithParam<const char*> {
protected:
    const Conf::BlendFormats formats = Conf::BlendFormatsFor(Conf::PixelFormatFromString(GetParam()));
    const boost::intrusive_ptr<Proc::IFrameBlender> blender = blenderFor(formats.opaque);
    const Frame opaque = noise(formats.opaque, 1);
    const Frame other = noise(formats.opaque, 2);
    const Frame clear = noise(formats.alpha, 3);
    const Frame glass = noise(formats.alpha, 4);
    /// Half a code value of rounding; a weight is a whole number of 65536th parts.
    const double rounding = 0.5 + 0.51 * std::pow(2, Conf::PixelFormatRecord::Find(formats.opaque)->bits - 16);
};

} // namespace

TEST_P(BlenderFormat, MixesAsTheFormulaSays) {
    EXPECT_EQ(blender->Mix(opaque, other, WEIGHT)->GetPixelFormat(), formats.opaque);
    EXPECT_LE(worstError(blender->Mix(opaque, other, WEIGHT), opaque, other, mixed), rounding);
    for (const auto& [from, to] : {std::pair{opaque, clear}, {clear, opaque}, {clear, glass}}) {
        EXPECT_EQ(blender->Mix(from, to, WEIGHT)->GetPixelFormat(), formats.alpha);
        EXPECT_LE(worstError(blender->Mix(from, to, WEIGHT), from, to, mixed), rounding);
    }
}

TEST_P(BlenderFormat, MixesWithWhatIsNotThereIntoAlpha) {
    for (const auto& [from, to] : {std::pair{Frame(), other}, {opaque, Frame()}, {clear, Frame()}, {Frame(), glass}}) {
        EXPECT_EQ(blender->Mix(from, to, WEIGHT)->GetPixelFormat(), formats.alpha);
        EXPECT_LE(worstError(blender->Mix(from, to, WEIGHT), from, to, mixed), rounding);
    }
}

TEST_P(BlenderFormat, LaysOneOverTheOtherAsTheFormulaSays) {
    EXPECT_EQ(blender->Over(opaque, clear)->GetPixelFormat(), formats.opaque);
    EXPECT_EQ(blender->Over(glass, clear)->GetPixelFormat(), formats.alpha);
    // Alpha that chroma shares is rounded itself.
    EXPECT_LE(worstError(blender->Over(opaque, clear), opaque, clear, laid), 2 * rounding);
    EXPECT_LE(worstError(blender->Over(glass, clear), glass, clear, laid), rounding);
}

TEST_P(BlenderFormat, HasTheMeanOfBothInTheMiddleOfADissolve) {
    const Frame middle = blender->Mix(opaque, other, 0.5);
    const Plane luma(FF::FrameOf(*middle), 0);
    for (int x = 0; x < WIDTH; ++x) {
        const double mean = (luma.get(FF::FrameOf(*opaque), x, 3) + luma.get(FF::FrameOf(*other), x, 3)) / 2;
        EXPECT_NEAR(luma.get(FF::FrameOf(*middle), x, 3), mean, 0.5);
    }
}

TEST_P(BlenderFormat, FlattensOverTheBlackOfItsRange) {
    const Frame black = blender->Flatten({});
    const bool limited = !Plane(FF::FrameOf(*black), 0).isFloat() &&
                         !(descriptorOf(FF::FrameOf(*black)).flags & AV_PIX_FMT_FLAG_RGB) &&
                         !Conf::PixelFormatRecord::Find(formats.opaque)->fullRange;
    const int depth = descriptorOf(FF::FrameOf(*black)).comp[0].depth;
    for (const auto& [number, value] :
         {std::pair{0, limited ? 16 << (depth - 8) : 0},
          {1, descriptorOf(FF::FrameOf(*black)).flags & AV_PIX_FMT_FLAG_RGB ? 0 : 1 << (depth - 1)}}) {
        const Plane plane(FF::FrameOf(*black), number);
        EXPECT_EQ(plane.get(FF::FrameOf(*black), plane.width - 1, plane.height - 1), value);
    }
    EXPECT_EQ(blender->Flatten(clear)->GetPixelFormat(), formats.opaque);
    EXPECT_LE(worstError(blender->Flatten(clear), black, clear, laid), 2 * rounding);
    EXPECT_TRUE(samePixels(blender->Flatten(opaque), opaque));
}

TEST_P(BlenderFormat, SharesThePixelsWhereOneIsSeenAlone) {
    EXPECT_TRUE(samePixels(blender->Mix(opaque, clear, 0), opaque));
    EXPECT_TRUE(samePixels(blender->Mix(opaque, clear, 1), clear));
    EXPECT_TRUE(samePixels(blender->Over(clear, opaque), opaque));
    EXPECT_TRUE(samePixels(blender->Over({}, clear), clear));
    EXPECT_TRUE(samePixels(blender->Over(opaque, {}), opaque));
}

INSTANTIATE_TEST_SUITE_P(All, BlenderFormat,
                         testing::Values("yuv420p", "yuvj420p", "yuv444p", "yuv422p10", "yuv444p12", "yuv420p16",
                                         "gbrp", "gbrp10", "gbrp16", "gbrpf32"),
                         [](const auto& one) { return std::string(one.param); });

TEST(FrameBlender, GivesNothingForNothing) {
    const auto blender = blenderFor(PixelFormat::YUV420P);
    EXPECT_FALSE(blender->Mix({}, {}, 0.5));
    EXPECT_FALSE(blender->Over({}, {}));
    EXPECT_FALSE(blender->Mix({}, noise(PixelFormat::YUV420P, 1), 0));
}

TEST(FrameBlender, TakesTheTimesOfTheFirstFrameThatIsThere) {
    const auto blender = blenderFor(PixelFormat::YUV420P);
    const Frame early = noise(PixelFormat::YUV420P, 1, 100);
    const Frame late = noise(PixelFormat::YUVA420P, 2, 200);
    for (const double weight : {0.0, 0.4, 1.0}) {
        EXPECT_EQ(blender->Mix(early, late, weight)->GetTime(), 100);
        EXPECT_EQ(blender->Mix(early, late, weight)->GetDuration(), 10);
    }
    EXPECT_EQ(blender->Mix({}, late, 0.4)->GetTime(), 200);
    EXPECT_EQ(blender->Over(early, late)->GetTime(), 100);
    EXPECT_EQ(blender->Over({}, late)->GetTime(), 200);
    EXPECT_EQ(blender->Flatten(late)->GetTime(), 200);
    EXPECT_EQ(early->GetTime(), 100);
}

TEST(FrameBlender, TagsWhatComesAsItsFormatSays) {
    const auto blender = blenderFor(PixelFormat::YUV420P);
    const Frame frame = noise(PixelFormat::YUV420P, 1);
    const Frame glass = noise(PixelFormat::YUVA420P, 2);
    for (const Frame& result : {blender->Mix(frame, frame, 0), blender->Mix(frame, glass, 0.5),
                                blender->Over(frame, glass), blender->Flatten({})}) {
        EXPECT_EQ(FF::FrameOf(*result).colorspace, AVCOL_SPC_BT709);
        EXPECT_EQ(FF::FrameOf(*result).color_primaries, AVCOL_PRI_BT709);
        EXPECT_EQ(FF::FrameOf(*result).color_range, AVCOL_RANGE_MPEG);
    }
    EXPECT_EQ(FF::FrameOf(*frame).colorspace, AVCOL_SPC_UNSPECIFIED);
    EXPECT_EQ(FF::FrameOf(*blenderFor(PixelFormat::YUVJ420P, AVCOL_RANGE_UNSPECIFIED)->Flatten({})).color_range,
              AVCOL_RANGE_JPEG);
}

TEST(FrameBlender, FlattensOverTheBlackOfAFullRangeThatIsTagged) {
    const Frame black = blenderFor(PixelFormat::YUV420P, AVCOL_RANGE_JPEG)->Flatten({});
    EXPECT_EQ(Plane(FF::FrameOf(*black), 0).get(FF::FrameOf(*black), 0, 0), 0);
}

TEST(FrameBlender, IsOfTwoFieldsWhereOneOfTheFramesIs) {
    const auto blender = blenderFor(PixelFormat::YUV420P);
    const Frame progressive = noise(PixelFormat::YUV420P, 1);
    FF::FrameHandle woven = FF::MakeFrameReference(FF::FrameOf(*noise(PixelFormat::YUVA420P, 2)));
    woven->interlaced_frame = 1;
    woven->top_field_first = 1;
    const Frame fields = new FF::DataVideoFF(std::move(woven), 0, 10);
    EXPECT_FALSE(FF::FrameOf(*blender->Mix(progressive, progressive, 0.5)).interlaced_frame);
    for (const Frame& result : {blender->Mix(progressive, fields, 0.5), blender->Over(progressive, fields)}) {
        EXPECT_TRUE(FF::FrameOf(*result).interlaced_frame);
        EXPECT_TRUE(FF::FrameOf(*result).top_field_first);
    }
}

TEST(FrameBlender, RefusesFramesThatItWasNotMadeFor) {
    const auto blender = blenderFor(PixelFormat::YUV420P);
    const Frame frame = noise(PixelFormat::YUV420P, 1);
    EXPECT_THROW(blender->Mix(frame, noise(PixelFormat::YUV422P, 2), 0.5), std::invalid_argument);
    const Frame large = new FF::DataVideoFF(FF::FramePool().Get(AV_PIX_FMT_YUV420P, WIDTH + 1, HEIGHT), 0, 0);
    EXPECT_THROW(blender->Over(frame, large), std::invalid_argument);
}

TEST(FrameBlender, IsNotMadeForFormatsThatAreOfNoPair) {
    try {
        blenderFor(PixelFormat::NV12);
        ADD_FAILURE() << "frames of nv12 cannot be blended";
    } catch (const Proc::ProcException& error) {
        EXPECT_EQ(error.what(), std::string("Pictures of the pixel format \"nv12\" cannot be blended"));
        ASSERT_TRUE(boost::get_error_info<TagErrorCode>(error));
        EXPECT_EQ(*boost::get_error_info<TagErrorCode>(error), static_cast<int>(Proc::TranscodingError::NotSupported));
    }
    Proc::IFilterFactory& filters = Core::CoreManager::Instance().GetFilterFactory();
    EXPECT_THROW(filters.CreateFrameBlender({}), std::invalid_argument);
    EXPECT_THROW(filters.CreateFrameBlender(Conf::IFormatCodecVideo::Create()), std::invalid_argument);
}

} // namespace Kestra
