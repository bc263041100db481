// SPDX-License-Identifier: GPL-3.0-or-later
// The resizer for layers: what does not fill the frame lets through what lies below.
#include "Kestra/Core/CoreManager.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/FramePool.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "Kestra/FF/Picture/FrameGeometry.h"
#include "Kestra/Proc/Filters/StreamOneFrameVideo.h"
#include "Kestra/Proc/Filters/VideoFilterBase.h"
#include "Kestra/Proc/IFilterFactory.h"
#include <cmath>
#include <gtest/gtest.h>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra {
namespace {

using Conf::PixelFormat;
using Video = boost::intrusive_ptr<Proc::IStreamVideo>;

constexpr int WIDE = 160;
constexpr int NARROW = 40;
constexpr int HEIGHT = 60;

/// White, with this alpha (of 255) where the format has one.
FF::FrameHandle white(AVPixelFormat format, int width, int alpha = 255) {
    FF::FrameHandle picture = FF::FramePool().Get(format, width, HEIGHT);
    picture->sample_aspect_ratio = {1, 1};
    const bool rgb = (av_pix_fmt_desc_get(format)->flags & AV_PIX_FMT_FLAG_RGB) != 0;
    picture->color_range = rgb ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
    picture->colorspace = rgb ? AVCOL_SPC_RGB : AVCOL_SPC_BT709;
    FF::FillBlack(*picture, {0, 0, width, HEIGHT});
    for (int y = 0; y < HEIGHT; ++y)
        for (int x = 0; x < width; ++x) {
            std::uint8_t* const pixel = picture->data[0] + y * picture->linesize[0] + x * (rgb ? 4 : 1);
            std::fill_n(pixel, rgb ? 3 : 1, std::uint8_t{235});
            if (rgb)
                pixel[3] = static_cast<std::uint8_t>(alpha);
            else if (FF::HasAlpha(format))
                picture->data[3][y * picture->linesize[3] + x] = static_cast<std::uint8_t>(alpha);
        }
    return picture;
}

/// Tells the colour of its source, too.
class Tagged final : public Proc::VideoFilterBase {
public:
    Tagged(const Video& source, const Conf::ColourInfo& colour)
        : VideoFilterBase(source, "tags")
        , colour(colour) {}

    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override {
        source->GetVideoFormat(format);
        format->SetColour(colour);
    }

private:
    const Conf::ColourInfo colour;
};

Video resized(FF::FrameHandle picture, PixelFormat wish = PixelFormat::Unknown, const Conf::ColourInfo& colour = {},
              bool transparent = true) {
    Proc::SettingsResizer settings;
    settings.target = {WIDE, HEIGHT, 0, 0};
    settings.aspectMode = Proc::AspectMode::Letterbox;
    settings.interpolation = Proc::Interpolation::Bicubic;
    settings.transparentBars = transparent;
    const Conf::ColourInfo own = FF::ColourOf(*picture);
    const auto one = Proc::StreamOneFrameVideo::Create(new FF::DataVideoFF(std::move(picture), 0, 10));
    const Video stream = Core::CoreManager::Instance().GetFilterFactory().CreateResizer(new Tagged(one, own), settings);
    const auto preferred = Conf::IFormatCodecVideo::Create();
    preferred->SetPixelFormat(wish);
    preferred->SetColour(colour);
    stream->PreferFormat(*preferred);
    return stream;
}

/// The number of a component, alpha is 3, at a pixel of full resolution.
int valueAt(const AVFrame& frame, int component, int x) {
    const AVComponentDescriptor& one = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format))->comp[component];
    const std::uint8_t* const sample =
        frame.data[one.plane] + (HEIGHT / 2) * frame.linesize[one.plane] + x * one.step + one.offset;
    if (av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format))->flags & AV_PIX_FMT_FLAG_BE)
        return sample[0] * 256 + sample[1];
    return one.depth > 8 ? *reinterpret_cast<const std::uint16_t*>(sample) : *sample;
}

constexpr int IN_BAR = 20;
constexpr int IN_PICTURE = WIDE / 2;

} // namespace

TEST(TransparentBars, StandAroundThePictureInItsSiblingWithAlpha) {
    const auto picture = resized(white(AV_PIX_FMT_YUV420P, NARROW))->ReadVideo();
    const AVFrame& frame = FF::FrameOf(*picture);
    EXPECT_EQ(picture->GetPixelFormat(), PixelFormat::YUVA420P);
    for (const int x : {0, IN_BAR, 59, 100, WIDE - 1}) {
        EXPECT_EQ(valueAt(frame, 3, x), 0) << x;
        EXPECT_EQ(valueAt(frame, 0, x), 16) << x;
    }
    for (const int x : {60, IN_PICTURE, 99}) {
        EXPECT_EQ(valueAt(frame, 3, x), 255) << x;
        EXPECT_NEAR(valueAt(frame, 0, x), 235, 1) << x;
    }
}

TEST(TransparentBars, ComeInTheWishOrItsSibling) {
    for (const auto& [wish, made] : {std::pair{"yuv420p", "yuva420p"},
                                     {"yuv422p10", "yuva422p10le"},
                                     {"yuva444p12", "yuva444p12le"},
                                     {"yuv420p12", "yuva420p16le"},
                                     {"nv12", "yuva420p"},
                                     {"gbrp", "gbrap"},
                                     {"bgra", "bgra"},
                                     {"rgba64", "rgba64le"}}) {
        const auto picture = resized(white(AV_PIX_FMT_YUV420P, NARROW), Conf::PixelFormatFromString(wish))->ReadVideo();
        const AVFrame& frame = FF::FrameOf(*picture);
        EXPECT_STREQ(PixelFormatToString(picture->GetPixelFormat()), made) << wish;
        const int depth = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format))->comp[3].depth;
        EXPECT_EQ(valueAt(frame, 3, IN_BAR), 0) << wish;
        EXPECT_EQ(valueAt(frame, 3, IN_PICTURE), (1 << depth) - 1) << wish;
    }
}

TEST(TransparentBars, AreNoneWhereThePictureFillsTheFrame) {
    FF::FrameHandle picture = white(AV_PIX_FMT_YUV420P, WIDE);
    const std::uint8_t* const pixels = picture->data[0];
    const auto same = resized(std::move(picture), PixelFormat::YUV420P)->ReadVideo();
    EXPECT_EQ(same->GetPixelFormat(), PixelFormat::YUV420P);
    EXPECT_EQ(FF::FrameOf(*same).data[0], pixels);
}

TEST(TransparentBars, LeaveThePicturesOwnAlphaAlone) {
    for (const PixelFormat wish : {PixelFormat::Unknown, PixelFormat::YUV420P, PixelFormat::YUV420P10})
        for (const int width : {NARROW, WIDE}) {
            const auto picture = resized(white(AV_PIX_FMT_YUVA420P, width, 77), wish)->ReadVideo();
            const AVFrame& frame = FF::FrameOf(*picture);
            const int scale = wish == PixelFormat::YUV420P10 ? 4 : 1;
            EXPECT_TRUE(HasAlpha(picture->GetPixelFormat()));
            EXPECT_NEAR(valueAt(frame, 3, IN_PICTURE), 77 * scale, scale);
            EXPECT_NEAR(valueAt(frame, 0, IN_PICTURE), 235 * scale, 1);
        }
}

TEST(TransparentBars, SurviveAChangeOfColour) {
    Conf::ColourInfo colour;
    colour.primaries = AVCOL_PRI_BT2020;
    colour.transfer = AVCOL_TRC_BT709;
    colour.matrix = AVCOL_SPC_BT2020_NCL;
    colour.range = AVCOL_RANGE_MPEG;
    for (const AVPixelFormat source : {AV_PIX_FMT_YUV420P, AV_PIX_FMT_BGRA}) {
        const auto picture = resized(white(source, NARROW), PixelFormat::YUV420P10, colour)->ReadVideo();
        const AVFrame& frame = FF::FrameOf(*picture);
        EXPECT_EQ(frame.format, AV_PIX_FMT_YUVA420P10);
        EXPECT_EQ(frame.colorspace, AVCOL_SPC_BT2020_NCL);
        EXPECT_EQ(valueAt(frame, 3, IN_BAR), 0);
        EXPECT_EQ(valueAt(frame, 3, IN_PICTURE), 1023);
    }
}

TEST(Alpha, IsOpaqueAndHalfInWhateverDepthItBecomes) {
    constexpr int OTHER_COLOUR = AVCOL_PRI_BT2020;
    for (const auto& [wish, primaries] : {std::pair{"yuva420p10", 2},
                                          {"yuva420p10", OTHER_COLOUR},
                                          {"yuva422p12", 2},
                                          {"yuva420p16", 2},
                                          {"gbrap16", 2},
                                          {"rgba64", 2},
                                          {"rgba64be", 2}})
        for (const AVPixelFormat source : {AV_PIX_FMT_YUVA420P, AV_PIX_FMT_BGRA})
            for (const int alpha : {0, 127, 255}) {
                Conf::ColourInfo colour;
                colour.primaries = primaries;
                const auto picture =
                    resized(white(source, WIDE, alpha), Conf::PixelFormatFromString(wish), colour)->ReadVideo();
                const AVFrame& frame = FF::FrameOf(*picture);
                const int depth = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format))->comp[3].depth;
                const double made = valueAt(frame, 3, IN_PICTURE) / (std::pow(2, depth) - 1);
                EXPECT_NEAR(made, alpha / 255.0, alpha == 127 ? 0.003 : 0.0001) << wish << " " << primaries;
            }
}

TEST(TransparentBars, AreInTheFormatThatIsTold) {
    for (const PixelFormat wish : {PixelFormat::Unknown, PixelFormat::YUVJ420P})
        for (const int width : {NARROW, WIDE}) {
            const Video stream = resized(white(AV_PIX_FMT_YUV420P, width), wish);
            boost::intrusive_ptr<Conf::IFormatCodecVideo> told;
            stream->GetVideoFormat(told);
            const auto picture = stream->ReadVideo();
            EXPECT_EQ(told->GetPixelFormat(), picture->GetPixelFormat());
            EXPECT_EQ(told->GetColour().range, FF::FrameOf(*picture).color_range);
            // The wish for a format of full range is one for that range.
            EXPECT_EQ(told->GetColour().range, wish == PixelFormat::YUVJ420P ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG);
        }
}

TEST(TransparentBars, AreBlackUnlessOrdered) {
    const auto picture = resized(white(AV_PIX_FMT_YUVA420P, NARROW, 77), PixelFormat::YUV420P, {}, false)->ReadVideo();
    EXPECT_EQ(picture->GetPixelFormat(), PixelFormat::YUV420P);
    EXPECT_EQ(valueAt(FF::FrameOf(*picture), 0, IN_BAR), 16);
    EXPECT_NEAR(valueAt(FF::FrameOf(*picture), 0, IN_PICTURE), 16 + 219 * 77 / 255, 1);
    const auto kept = resized(white(AV_PIX_FMT_YUVA420P, NARROW, 77), PixelFormat::YUVA420P, {}, false)->ReadVideo();
    EXPECT_EQ(valueAt(FF::FrameOf(*kept), 3, IN_BAR), 255);
    EXPECT_NEAR(valueAt(FF::FrameOf(*kept), 3, IN_PICTURE), 77, 1);
}

} // namespace Kestra
