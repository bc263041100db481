// SPDX-License-Identifier: GPL-3.0-or-later
// Filters over pixels: the resizer, its converter, and black.
#include "Kestra/FF/Filter/Resizer.h"
#include "Kestra/Base/Time.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "fakes/kestra/FakeStreamVideo.h"
#include <cmath>
#include <gtest/gtest.h>
#include <stdexcept>

namespace Kestra {
namespace {

using Conf::ColourInfo;
using Conf::FrameInfo;
using Conf::PixelFormat;
using FF::FrameHandle;
using FF::FrameRect;
using Proc::AspectMode;
using Proc::SettingsResizer;

/// A picture whose planes have one value each, alpha included.
FrameHandle makePicture(AVPixelFormat format, int width, int height, const std::vector<int>& values) {
    FF::FramePool pool;
    FrameHandle picture = pool.Get(format, width, height);
    for (std::size_t plane = 0; plane < values.size(); ++plane) {
        const bool chroma = values.size() > 2 && (plane == 1 || plane == 2) && format != AV_PIX_FMT_GBRP &&
                            format != AV_PIX_FMT_YUV444P;
        const int rows = chroma ? (height + 1) / 2 : height;
        std::fill_n(picture->data[plane], static_cast<std::ptrdiff_t>(rows) * picture->linesize[plane],
                    static_cast<std::uint8_t>(values[plane]));
    }
    picture->sample_aspect_ratio = {1, 1};
    picture->color_range = AVCOL_RANGE_MPEG;
    picture->colorspace = AVCOL_SPC_BT709;
    return picture;
}

/// Gives the same picture again and again.
class OnePicture final : public Fakes::FakeStreamVideo {
public:
    OnePicture(FrameHandle frame, FrameInfo info)
        : FakeStreamVideo(5, 25, info)
        , frame(std::move(frame)) {}

    boost::intrusive_ptr<Proc::IDataVideo> ReadVideo() override {
        const auto fake = FakeStreamVideo::ReadVideo();
        if (!fake)
            return {};
        return new FF::DataVideoFF(FF::MakeFrameReference(*frame), fake->GetTime(), fake->GetDuration());
    }

private:
    FrameHandle frame;
};

boost::intrusive_ptr<Proc::IStreamVideo> resize(FrameHandle picture, const SettingsResizer& settings,
                                                PixelFormat preferred = PixelFormat::Unknown,
                                                const ColourInfo& colour = {}) {
    const FrameInfo info{static_cast<std::uint32_t>(picture->width), static_cast<std::uint32_t>(picture->height), 0, 0};
    const auto stream = Core::CoreManager::Instance().GetFilterFactory().CreateResizer(
        new OnePicture(std::move(picture), info), settings);
    const auto format = Conf::IFormatCodecVideo::Create();
    format->SetPixelFormat(preferred);
    format->SetColour(colour);
    stream->PreferFormat(*format);
    return stream;
}

SettingsResizer target(std::uint32_t width, std::uint32_t height, AspectMode mode) {
    SettingsResizer settings;
    settings.target = {width, height, 0, 0};
    settings.aspectMode = mode;
    settings.interpolation = Proc::Interpolation::Bicubic;
    return settings;
}

int lumaAt(const Proc::IDataVideo& picture, int x, int y) {
    const AVFrame& frame = FF::FrameOf(picture);
    return frame.data[0][y * frame.linesize[0] + x];
}

TEST(FitFrame, CentresTheWholePictureBetweenBars) {
    EXPECT_EQ(FF::FitFrame({640, 480, 0, 0}, {1920, 1080, 0, 0}, target(1920, 1080, AspectMode::Letterbox)).place,
              (FrameRect{240, 0, 1440, 1080}));
    EXPECT_EQ(FF::FitFrame({1920, 800, 0, 0}, {1920, 1080, 0, 0}, target(1920, 1080, AspectMode::Letterbox)).place,
              (FrameRect{0, 140, 1920, 800}));
    EXPECT_EQ(FF::FitFrame({1280, 720, 0, 0}, {1920, 1080, 0, 0}, target(1920, 1080, AspectMode::Letterbox)).place,
              (FrameRect{0, 0, 1920, 1080}));
}

TEST(FitFrame, KnowsTheShapeOfPixels) {
    // 720 x 576 shown as 16:9 fills a frame of 16:9.
    EXPECT_EQ(FF::FitFrame({720, 576, 16, 9}, {1280, 720, 0, 0}, target(1280, 720, AspectMode::Letterbox)).place,
              (FrameRect{0, 0, 1280, 720}));
    EXPECT_EQ(FF::FitFrame({720, 576, 4, 3}, {1280, 720, 0, 0}, target(1280, 720, AspectMode::Letterbox)).place,
              (FrameRect{160, 0, 960, 720}));
}

TEST(FitFrame, CutsWhatStandsOver) {
    const auto fitting = FF::FitFrame({640, 480, 0, 0}, {1920, 1080, 0, 0}, target(1920, 1080, AspectMode::Crop));
    EXPECT_EQ(fitting.source, (FrameRect{0, 60, 640, 360}));
    EXPECT_EQ(fitting.place, (FrameRect{0, 0, 1920, 1080}));
}

TEST(FitFrame, TakesTheCropFirst) {
    SettingsResizer settings = target(100, 100, AspectMode::Stretch);
    settings.cropLeft = 10;
    settings.cropTop = 20;
    settings.cropRight = 30;
    settings.cropBottom = 40;
    EXPECT_EQ(FF::FitFrame({640, 480, 0, 0}, {100, 100, 0, 0}, settings).source, (FrameRect{10, 20, 600, 420}));
}

TEST(Resizer, PassesAPictureThatFitsOnTheSamePixels) {
    FrameHandle picture = makePicture(AV_PIX_FMT_YUV420P, 64, 36, {100, 128, 128});
    const std::uint8_t* pixels = picture->data[0];
    const auto stream = resize(std::move(picture), target(64, 36, AspectMode::Letterbox), PixelFormat::YUV420P);
    EXPECT_EQ(FF::FrameOf(*stream->ReadVideo()).data[0], pixels);
}

TEST(Resizer, ScalesARepeatedPictureOnce) {
    const auto stream =
        resize(makePicture(AV_PIX_FMT_YUV420P, 64, 36, {100, 128, 128}), target(32, 18, AspectMode::Stretch));
    const auto first = stream->ReadVideo();
    const auto second = stream->ReadVideo();
    EXPECT_EQ(FF::FrameOf(*first).data[0], FF::FrameOf(*second).data[0]);
    EXPECT_EQ(second->GetTime(), FramesToTime(1, 25));
}

TEST(Resizer, ScalesForADraftStraightToItsSize) {
    const auto stream =
        resize(makePicture(AV_PIX_FMT_YUV420P, 80, 120, {200, 90, 160}), target(320, 120, AspectMode::Letterbox));
    const auto format = Conf::IFormatCodecVideo::Create();
    Conf::Draft::TellIn(*format, Conf::Draft{160, 60});
    stream->PreferFormat(*format);
    boost::intrusive_ptr<Conf::IFormatCodecVideo> offered;
    stream->GetVideoFormat(offered);
    EXPECT_EQ(offered->GetFrameInfo().width, 320U);
    const auto draft = stream->ReadVideo();
    EXPECT_EQ(draft->GetFrameInfo().width, 160U);
    EXPECT_EQ(draft->GetFrameInfo().height, 60U);
    for (const int x : {0, 30, 59, 100, 159})
        EXPECT_EQ(lumaAt(*draft, x, 30), 16) << x;
    for (const int x : {60, 80, 99})
        EXPECT_EQ(lumaAt(*draft, x, 30), 200) << x;
    stream->Reset();
    Conf::Draft::TellIn(*format, std::nullopt);
    stream->PreferFormat(*format);
    EXPECT_EQ(stream->ReadVideo()->GetFrameInfo().width, 320U);
}

TEST(Resizer, DrawsBarsInTheBlackOfTheRange) {
    for (const int range : {AVCOL_RANGE_MPEG, AVCOL_RANGE_JPEG}) {
        FrameHandle picture = makePicture(AV_PIX_FMT_YUV420P, 40, 60, {200, 90, 160});
        picture->color_range = static_cast<AVColorRange>(range);
        const auto stream = resize(std::move(picture), target(160, 60, AspectMode::Letterbox));
        const auto result = stream->ReadVideo();
        EXPECT_EQ(result->GetFrameInfo().width, 160U);
        const int black = range == AVCOL_RANGE_JPEG ? 0 : 16;
        for (const int x : {0, 30, 59, 100, 159})
            EXPECT_EQ(lumaAt(*result, x, 30), black) << x;
        for (const int x : {60, 80, 99})
            EXPECT_EQ(lumaAt(*result, x, 30), 200) << x;
        const AVFrame& frame = FF::FrameOf(*result);
        EXPECT_EQ(frame.data[1][10 * frame.linesize[1] + 10], 128);
        EXPECT_EQ(frame.data[1][10 * frame.linesize[1] + 40], 90);
        EXPECT_EQ(frame.color_range, range);
    }
}

TEST(Resizer, BlendsAlphaOverBlackWhereTheConsumerHasNone) {
    const auto stream = resize(makePicture(AV_PIX_FMT_YUVA420P, 64, 64, {216, 200, 60, 128}),
                               target(64, 64, AspectMode::Stretch), PixelFormat::YUV420P);
    const auto result = stream->ReadVideo();
    EXPECT_EQ(result->GetPixelFormat(), PixelFormat::YUV420P);
    EXPECT_NEAR(lumaAt(*result, 20, 20), 16 + 100, 1);
    const AVFrame& frame = FF::FrameOf(*result);
    EXPECT_NEAR(frame.data[1][5 * frame.linesize[1] + 5], 128 + 36, 1);
    EXPECT_NEAR(frame.data[2][5 * frame.linesize[2] + 5], 128 - 34, 1);
}

TEST(Resizer, KeepsAlphaWhereTheConsumerSaysNothing) {
    const auto stream =
        resize(makePicture(AV_PIX_FMT_YUVA420P, 64, 64, {216, 200, 60, 77}), target(32, 32, AspectMode::Stretch));
    const auto result = stream->ReadVideo();
    EXPECT_EQ(result->GetPixelFormat(), PixelFormat::YUVA420P);
    const AVFrame& frame = FF::FrameOf(*result);
    EXPECT_NEAR(frame.data[3][5 * frame.linesize[3] + 5], 77, 1);
}

TEST(Resizer, ConvertsTheMatrixThatTheConsumerAsksFor) {
    // A saturated green of BT.601, in BT.709's terms.
    FrameHandle picture = makePicture(AV_PIX_FMT_YUV420P, 64, 64, {145, 54, 34});
    picture->colorspace = AVCOL_SPC_SMPTE170M;
    picture->color_primaries = AVCOL_PRI_BT709;
    const auto stream =
        resize(std::move(picture), target(64, 64, AspectMode::Stretch), PixelFormat::YUV420P, {1, 1, 1, 1});
    const auto result = stream->ReadVideo();
    const AVFrame& frame = FF::FrameOf(*result);
    EXPECT_EQ(frame.colorspace, AVCOL_SPC_BT709);
    EXPECT_NEAR(lumaAt(*result, 20, 20), 173, 3);
    EXPECT_NEAR(frame.data[1][5 * frame.linesize[1] + 5], 42, 3);
    EXPECT_NEAR(frame.data[2][5 * frame.linesize[2] + 5], 26, 3);
}

TEST(Resizer, TurnsRedIntoTheRedOfTheMatrix) {
    FrameHandle picture = makePicture(AV_PIX_FMT_GBRP, 64, 64, {0, 0, 255});
    picture->colorspace = AVCOL_SPC_RGB;
    picture->color_range = AVCOL_RANGE_JPEG;
    const auto stream =
        resize(std::move(picture), target(32, 32, AspectMode::Stretch), PixelFormat::YUV420P, {1, 1, 1, 1});
    const auto result = stream->ReadVideo();
    const AVFrame& frame = FF::FrameOf(*result);
    EXPECT_NEAR(lumaAt(*result, 10, 10), 63, 1);
    EXPECT_NEAR(frame.data[1][5 * frame.linesize[1] + 5], 102, 1);
    EXPECT_NEAR(frame.data[2][5 * frame.linesize[2] + 5], 240, 1);
    EXPECT_EQ(frame.color_range, AVCOL_RANGE_MPEG);
}

TEST(Resizer, TellsTheFormatThatItsPicturesHave) {
    const auto stream = resize(makePicture(AV_PIX_FMT_YUV420P, 64, 36, {100, 128, 128}),
                               target(48, 48, AspectMode::Letterbox), PixelFormat::YUV422P, {1, 1, 1, 1});
    boost::intrusive_ptr<Conf::IFormatCodecVideo> format;
    stream->GetVideoFormat(format);
    const auto picture = stream->ReadVideo();
    EXPECT_EQ(format->GetPixelFormat(), picture->GetPixelFormat());
    EXPECT_EQ(format->GetFrameInfo().width, picture->GetFrameInfo().width);
    EXPECT_EQ(format->GetFrameInfo().height, picture->GetFrameInfo().height);
    EXPECT_EQ(format->GetColour().matrix, FF::FrameOf(*picture).colorspace);
    EXPECT_EQ(format->GetColour().range, FF::FrameOf(*picture).color_range);
}

TEST(FrameConverter, BlendsEveryValueWithEveryAlphaExactly) {
    FrameHandle picture = makePicture(AV_PIX_FMT_YUVA444P, 256, 256, {0, 0, 0, 0});
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x)
            for (int plane = 0; plane < 4; ++plane)
                picture->data[plane][y * picture->linesize[plane] + x] = static_cast<std::uint8_t>(plane == 3 ? y : x);
    FF::FrameTarget wanted;
    wanted.width = wanted.height = 256;
    wanted.source = wanted.place = {0, 0, 256, 256};
    wanted.format = AV_PIX_FMT_YUV444P;
    const FrameHandle result = FF::FrameConverter().Convert(*picture, wanted);
    for (int alpha = 0; alpha < 256; ++alpha)
        for (int value = 0; value < 256; ++value) {
            ASSERT_EQ(result->data[0][alpha * result->linesize[0] + value],
                      std::lround(16 + (value - 16) * alpha / 255.0));
            ASSERT_EQ(result->data[1][alpha * result->linesize[1] + value],
                      std::lround(128 + (value - 128) * alpha / 255.0));
        }
}

TEST(FrameConverter, ScalesFieldsOfInterlacedPicturesApart) {
    // Even rows white, odd rows black: mixed, they would be grey.
    FrameHandle picture = makePicture(AV_PIX_FMT_YUV420P, 64, 64, {16, 128, 128});
    for (int y = 0; y < 64; y += 2)
        std::fill_n(picture->data[0] + y * picture->linesize[0], 64, std::uint8_t{235});
    picture->interlaced_frame = 1;
    FF::FrameTarget wanted;
    wanted.width = 32;
    wanted.height = 32;
    wanted.source = {0, 0, 64, 64};
    wanted.place = {0, 0, 32, 32};
    const FrameHandle result = FF::FrameConverter().Convert(*picture, wanted);
    for (int y = 0; y < 32; ++y)
        EXPECT_NEAR(result->data[0][y * result->linesize[0] + 16], y % 2 == 0 ? 235 : 16, 1) << y;
    EXPECT_TRUE(result->interlaced_frame);
}

TEST(FrameConverter, GivesTheSamePixelsOnSeveralThreads) {
    // RGB is libswscale's, which is the one that has threads.
    const FrameHandle picture = FF::FramePool().Get(AV_PIX_FMT_BGR24, 640, 360);
    for (int y = 0; y < 360; ++y)
        for (int x = 0; x < 3 * 640; ++x)
            picture->data[0][y * picture->linesize[0] + x] = static_cast<std::uint8_t>(x * 3 + y * 5 + x * y / 7);
    FF::FrameTarget wanted;
    wanted.width = 320;
    wanted.height = 180;
    wanted.source = {0, 0, 640, 360};
    wanted.place = {0, 0, 320, 180};
    wanted.format = AV_PIX_FMT_YUV420P;
    wanted.colour = {1, 1, AVCOL_SPC_SMPTE170M, 1};
    const FrameHandle one = FF::FrameConverter().Convert(*picture, wanted);
    wanted.threads = 3;
    const FrameHandle three = FF::FrameConverter().Convert(*picture, wanted);
    for (int plane = 0; plane < 3; ++plane)
        for (int y = 0; y < (plane > 0 ? 90 : 180); ++y) {
            const std::uint8_t* const row = one->data[plane] + y * one->linesize[plane];
            ASSERT_TRUE(std::equal(row, row + (plane > 0 ? 160 : 320), three->data[plane] + y * three->linesize[plane]))
                << plane << ", " << y;
        }
}

boost::intrusive_ptr<Conf::IFormatCodecVideo> blackFormat() {
    const auto format = Conf::IFormatCodecVideo::Create();
    format->InitByFrameAspect(64, 36, 16, 9);
    format->SetFrameRate(25, 1);
    return format;
}

TEST(Black, LastsAsLongAsItShould) {
    const auto stream =
        Core::CoreManager::Instance().GetFilterFactory().CreateBlack(blackFormat(), FramesToTime(10, 25) + 5);
    std::int64_t end = 0;
    int count = 0;
    while (const auto picture = stream->ReadVideo()) {
        EXPECT_EQ(picture->GetTime(), end);
        end += picture->GetDuration();
        EXPECT_EQ(lumaAt(*picture, 3, 3), 16);
        ++count;
    }
    EXPECT_EQ(count, 10);
    EXPECT_EQ(end, stream->GetDuration());
    stream->Seek(FramesToTime(4, 25) + 7, Proc::SeekMode::Exact);
    EXPECT_EQ(stream->ReadVideo()->GetTime(), FramesToTime(4, 25));
}

TEST(Black, RefusesWhatCannotBe) {
    EXPECT_THROW(Core::CoreManager::Instance().GetFilterFactory().CreateBlack(nullptr, 5), std::invalid_argument);
    EXPECT_THROW(Core::CoreManager::Instance().GetFilterFactory().CreateBlack(blackFormat(), -1),
                 std::invalid_argument);
}

} // namespace
} // namespace Kestra
