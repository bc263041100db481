// SPDX-License-Identifier: GPL-3.0-or-later
// An outro made by the engine's own filters, read as an encoder reads it.
#include "Branding/BrandingController.h"
#include "Kestra/Base/Time.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "Kestra/Proc/Filters/FiltersSpecial/FrameStretch.h"
#include "Kestra/Proc/Filters/StreamOneFrameVideo.h"
#include "Kestra/Proc/IDataVideoFFFactory.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Kestra/Proc/Interrupted.h"
#include "Kestra/Proc/Segmenter.h"
#include "Kestra/Util/ImageUtils.h"
#include "fakes/streams/SyntheticAudio.h"
#include "fakes/streams/SyntheticVideo.h"
#include <QImage>
#include <gtest/gtest.h>
#include <set>

namespace {

using namespace Kestra;
using Proc::SeekMode;
using Rate = boost::rational<long long>;
using Frame = boost::intrusive_ptr<Proc::IDataVideo>;
using Video = boost::intrusive_ptr<Proc::IStreamVideo>;
using Audio = boost::intrusive_ptr<Proc::IStreamAudio>;

QPixmap flat(int width, int height, QColor colour = Qt::white) {
    QPixmap pixmap(width, height);
    pixmap.fill(colour);
    return pixmap;
}

Video branded(const Video& video, const QPixmap& picture) {
    BrandingController controller;
    controller.setBranding(picture);
    return controller.addBranding(video);
}

Fakes::VideoShape shapeOf(int frames, const Rate& rate = 25, int width = 160, int height = 90) {
    Fakes::VideoShape shape;
    shape.frames = frames;
    shape.rate = rate;
    shape.width = width;
    shape.height = height;
    return shape;
}

/// Blue, green, red, alpha.
std::array<int, 4> pixelAt(const Frame& frame, int x, int y) {
    const AVFrame& picture = FF::FrameOf(*frame);
    const std::uint8_t* pixel = picture.data[0] + y * picture.linesize[0] + 4 * x;
    return {pixel[0], pixel[1], pixel[2], pixel[3]};
}

Frame frameAt(Proc::IStreamVideo& stream, std::int64_t time) {
    stream.Seek(time, SeekMode::Exact);
    return stream.ReadVideo();
}

TEST(BrandedVideo, LastsFiveSecondsLonger) {
    const Video stream = branded(Fakes::MakeVideo(shapeOf(50)), flat(16, 9));
    EXPECT_EQ(stream->GetDuration(), 7 * TIME_BASE);
}

TEST(BrandedVideo, HasFramesWithoutGapAtTheVideosRate) {
    for (const Rate& rate : {Rate(24000, 1001), Rate(25), Rate(30000, 1001), Rate(50), Rate(60)}) {
        const Video stream = branded(Fakes::MakeVideo(shapeOf(7, rate)), flat(16, 9));
        std::int64_t end = 0;
        std::int64_t count = 0;
        while (const Frame frame = stream->ReadVideo()) {
            EXPECT_EQ(frame->GetTime(), end);
            end = frame->GetTime() + frame->GetDuration();
            ++count;
        }
        EXPECT_EQ(count, 7 + TimeToFrames(5 * TIME_BASE, rate)) << rate;
        EXPECT_EQ(end, stream->GetDuration()) << rate;
    }
}

TEST(BrandedVideo, FollowsTheRateThatAConsumerPrefers) {
    const Video stream = branded(Fakes::MakeVideo(shapeOf(25)), flat(16, 9));
    const auto wish = Conf::IFormatCodecVideo::Create();
    wish->SetFrameRate(50);
    wish->SetPixelFormat(Conf::PixelFormat::YUV420P);
    stream->PreferFormat(*wish);
    EXPECT_EQ(frameAt(*stream, TIME_BASE + 1)->GetDuration(), TIME_BASE / 50);
    EXPECT_EQ(stream->ReadVideo()->GetPixelFormat(), Conf::PixelFormat::BGRA) << "alpha is not lost to the wish";
}

TEST(BrandedVideo, KeepsTheFormatOfTheVideo) {
    const Video stream = branded(Fakes::MakeVideo(shapeOf(5, 30, 320, 240)), flat(16, 9));
    boost::intrusive_ptr<Conf::IFormatCodecVideo> format;
    stream->GetVideoFormat(format);
    EXPECT_EQ(format->GetFrameInfo().width, 320U);
    EXPECT_EQ(format->GetFrameRate(), Rate(30));
}

TEST(BrandedVideo, FadesAlphaInAndOut) {
    const Video stream = branded(Fakes::MakeVideo(shapeOf(25, 20)), flat(160, 90));
    const std::int64_t start = FramesToTime(25, 20);
    const std::pair<int, int> expected[] = {{0, 0},      {250, 64},   {500, 128}, {950, 242}, {1000, 255},
                                            {2500, 255}, {4000, 255}, {4750, 64}, {4950, 13}};
    for (const auto& [milliseconds, alpha] : expected) {
        const Frame frame = frameAt(*stream, start + milliseconds * TICKS_PER_MILLISECOND);
        ASSERT_TRUE(frame) << milliseconds;
        EXPECT_NEAR(pixelAt(frame, 80, 45)[3], alpha, 1) << milliseconds;
        EXPECT_EQ(pixelAt(frame, 80, 45)[0], 255) << "colour is not faded on its own";
    }
}

TEST(BrandedVideo, FadesSmoothly) {
    const Video stream = branded(Fakes::MakeVideo(shapeOf(5, 50)), flat(16, 9));
    std::set<int> steps;
    stream->Seek(FramesToTime(5, 50), SeekMode::Exact);
    for (int index = 0; index < 50; ++index)
        steps.insert(pixelAt(stream->ReadVideo(), 80, 45)[3]);
    EXPECT_EQ(steps.size(), 50U) << "every frame of a fade has an opacity of its own";
}

TEST(BrandedVideo, KeepsThePicturesOwnAlpha) {
    const Video stream = branded(Fakes::MakeVideo(shapeOf(5)), flat(160, 90, QColor(200, 100, 50, 128)));
    const auto pixel = pixelAt(frameAt(*stream, FramesToTime(5, 25) + 2 * TIME_BASE), 80, 45);
    EXPECT_NEAR(pixel[0], 50, 2);
    EXPECT_NEAR(pixel[1], 100, 2);
    EXPECT_NEAR(pixel[2], 200, 2);
    EXPECT_NEAR(pixel[3], 128, 1);
}

// Over black, each pixel of an edge has to show as much of the colour as it covers.
TEST(BrandedVideo, ScalesTransparentEdgesWithoutADarkFringe) {
    QImage image(80, 45, QImage::Format_ARGB32);
    image.fill(qRgba(0, 0, 0, 0));
    for (int y = 0; y < 45; ++y)
        for (int x = 40; x < 80; ++x)
            image.setPixel(x, y, qRgba(255, 255, 255, 255));
    const Video stream = branded(Fakes::MakeVideo(shapeOf(5)), QPixmap::fromImage(image));
    const Frame frame = frameAt(*stream, FramesToTime(5, 25) + 2 * TIME_BASE);
    int between = 0;
    for (int x = 70; x < 90; ++x) {
        const auto pixel = pixelAt(frame, x, 45);
        if (pixel[3] < 12 || pixel[3] > 243)
            continue;
        ++between;
        EXPECT_GE(pixel[1], 240) << "column " << x << ", alpha " << pixel[3];
    }
    EXPECT_GT(between, 0);
}

/// The part of a row or column of the outro's middle frame that is not black.
struct Extent {
    int first = -1;
    int last = -1;
};

Extent extent(const Frame& frame, bool horizontal) {
    const AVFrame& picture = FF::FrameOf(*frame);
    Extent found;
    for (int i = 0; i < (horizontal ? picture.width : picture.height); ++i) {
        const auto pixel = horizontal ? pixelAt(frame, i, picture.height / 2) : pixelAt(frame, picture.width / 2, i);
        if (pixel[0] < 128)
            continue;
        found.first = found.first < 0 ? i : found.first;
        found.last = i;
    }
    return found;
}

void expectPlace(const QPixmap& picture, Extent across, Extent down) {
    const Video stream = branded(Fakes::MakeVideo(shapeOf(5)), picture);
    const Frame frame = frameAt(*stream, FramesToTime(5, 25) + 2 * TIME_BASE);
    EXPECT_NEAR(extent(frame, true).first, across.first, 1);
    EXPECT_NEAR(extent(frame, true).last, across.last, 1);
    EXPECT_NEAR(extent(frame, false).first, down.first, 1);
    EXPECT_NEAR(extent(frame, false).last, down.last, 1);
    const auto corner = pixelAt(frame, 0, 0);
    EXPECT_EQ(corner[3], 255) << "bars are black, not transparent";
}

TEST(BrandedVideo, ShowsTheWholePictureInItsShape) {
    expectPlace(flat(160, 90), {0, 159}, {0, 89});
    expectPlace(flat(1600, 900), {0, 159}, {0, 89});
    expectPlace(flat(100, 100), {35, 124}, {0, 89});
    expectPlace(flat(400, 100), {0, 159}, {25, 64});
    expectPlace(flat(90, 160), {55, 104}, {0, 89});
    expectPlace(flat(1, 1), {35, 124}, {0, 89});
}

TEST(BrandedVideo, ShowsThePictureInItsShapeOnPixelsThatAreNotSquare) {
    Fakes::VideoShape shape = shapeOf(5, 25, 80, 90);
    shape.aspect = {16, 9};
    const Video stream = branded(Fakes::MakeVideo(shape), flat(100, 100));
    const Frame frame = frameAt(*stream, FramesToTime(5, 25) + 2 * TIME_BASE);
    const Extent across = extent(frame, true);
    EXPECT_NEAR(across.last - across.first + 1, 45, 2);
}

TEST(BrandedVideo, SharesOnePictureBetweenTheFades) {
    const Video stream = branded(Fakes::MakeVideo(shapeOf(5)), flat(16, 9));
    stream->Seek(FramesToTime(5, 25) + TIME_BASE, SeekMode::Exact);
    std::set<const std::uint8_t*> pictures;
    for (int index = 0; index <= 75; ++index)
        pictures.insert(FF::FrameOf(*stream->ReadVideo()).data[0]);
    EXPECT_EQ(pictures.size(), 1U);
}

std::vector<std::int64_t> fingerprint(Proc::IStreamVideo& stream) {
    std::vector<std::int64_t> result;
    while (const Frame frame = stream.ReadVideo()) {
        const AVFrame& picture = FF::FrameOf(*frame);
        result.push_back(frame->GetTime());
        result.push_back(picture.data[0][picture.linesize[0] * 45 + 3]);
    }
    return result;
}

TEST(BrandedVideo, ReadsTheSameAgainAfterAReset) {
    const Video stream = branded(Fakes::MakeVideo(shapeOf(10)), flat(16, 9));
    const auto first = fingerprint(*stream);
    EXPECT_EQ(first.size(), 2U * (10 + 125));
    EXPECT_FALSE(stream->ReadVideo());
    stream->Reset();
    EXPECT_EQ(stream->GetPosition(), 0);
    EXPECT_EQ(fingerprint(*stream), first);
    stream->Reset();
    for (int index = 0; index < 40; ++index)
        stream->ReadVideo();
    stream->Reset();
    EXPECT_EQ(fingerprint(*stream), first) << "from the middle of the outro too";
}

TEST(BrandedVideo, CanBeReadAfterAnInterruptionAndAReset) {
    const Video stream = branded(Fakes::MakeVideo(shapeOf(10)), flat(16, 9));
    for (int index = 0; index < 5; ++index)
        ASSERT_TRUE(stream->ReadVideo());
    stream->Interrupt();
    EXPECT_THROW(fingerprint(*stream), Proc::Interrupted) << "an interrupted part has not ended: no outro follows";
    stream->Reset();
    EXPECT_EQ(fingerprint(*stream).size(), 2U * (10 + 125));
}

TEST(BrandedVideo, SeeksBackAndForthAcrossTheSeam) {
    const Video stream = branded(Fakes::MakeVideo(shapeOf(10)), flat(16, 9));
    EXPECT_TRUE(stream->IsSeekable());
    for (const int index : {70, 3, 10, 9, 134, 0}) {
        const Frame frame = frameAt(*stream, FramesToTime(index, 25));
        ASSERT_TRUE(frame);
        EXPECT_EQ(frame->GetTime(), FramesToTime(index, 25));
    }
    EXPECT_FALSE(frameAt(*stream, stream->GetDuration()));
    stream->Seek(FramesToTime(8, 25), SeekMode::Exact);
    EXPECT_EQ(fingerprint(*stream).size(), 2U * (2 + 125));
}

TEST(BrandedVideo, CanBeCutWithinTheOutro) {
    const Video stream = branded(Fakes::MakeVideo(shapeOf(25)), flat(16, 9));
    const Video cut = Proc::CreateVideoSegmenter(stream, TIME_BASE + TIME_BASE / 2, 2 * TIME_BASE);
    const Frame first = cut->ReadVideo();
    ASSERT_TRUE(first);
    EXPECT_EQ(first->GetTime(), 0);
    EXPECT_NEAR(pixelAt(first, 80, 45)[3], 128, 6);
}

TEST(BrandedVideo, TakesPicturesOfAnySize) {
    QImage grey(300, 200, QImage::Format_Grayscale8);
    grey.fill(90);
    const QPixmap pictures[] = {flat(1, 1), flat(1, 3000), flat(3000, 1), flat(5000, 4000),
                                QPixmap::fromImage(grey, Qt::NoFormatConversion)};
    for (const QPixmap& picture : pictures) {
        const Video stream = branded(Fakes::MakeVideo(shapeOf(2)), picture);
        const Frame frame = frameAt(*stream, 2 * TIME_BASE);
        ASSERT_TRUE(frame);
        EXPECT_EQ(frame->GetFrameInfo().width, 160U);
        EXPECT_GT(pixelAt(frame, 80, 44)[1] + pixelAt(frame, 79, 45)[1], 0) << picture.width();
    }
}

TEST(BrandedVideo, TakesVideosOfAnyPixelFormat) {
    for (const AVPixelFormat format : {AV_PIX_FMT_YUV420P, AV_PIX_FMT_YUV422P10, AV_PIX_FMT_YUVA444P, AV_PIX_FMT_GRAY8,
                                       AV_PIX_FMT_RGB24, AV_PIX_FMT_NV12}) {
        Fakes::VideoShape shape = shapeOf(3);
        shape.format = format;
        shape.paint = [](AVFrame&, int) {};
        const Video stream = branded(Fakes::MakeVideo(shape), flat(16, 9));
        EXPECT_EQ(fingerprint(*stream).size(), 2U * (3 + 125)) << format;
    }
}

TEST(LongOutro, RepeatsItsFrameLazily) {
    constexpr std::int64_t TEN_HOURS = 36000 * TIME_BASE;
    auto& core = Core::CoreManager::Instance();
    const Frame picture = Util::ImageUtils::PixmapToFrame(flat(640, 360), core.GetDataVideoFFFactory());
    const Video stretch = Proc::CreateFrameStretch(Proc::StreamOneFrameVideo::Create(picture), TEN_HOURS);
    const Video stream = core.GetFilterFactory().CreateFrameRate(stretch, Proc::ImplNames::DEFAULT);
    EXPECT_EQ(stream->GetDuration(), TEN_HOURS);
    std::vector<Frame> held;
    for (int index = 0; index < 10'000; ++index)
        held.push_back(stream->ReadVideo());
    EXPECT_EQ(FF::FrameOf(*held.front()).data[0], FF::FrameOf(*held.back()).data[0]);
    const Frame last = frameAt(*stream, TEN_HOURS - 1);
    ASSERT_TRUE(last);
    EXPECT_EQ(last->GetTime() + last->GetDuration(), TEN_HOURS);
    EXPECT_FALSE(stream->ReadVideo());
}

TEST(BrandedAudio, EndsInFiveSecondsOfSilence) {
    for (const int rate : {8000, 44100, 48000, 96000}) {
        Fakes::AudioShape shape;
        shape.rate = rate;
        shape.samples = rate * 2 + 7;
        shape.wave = [](int, std::int64_t) { return 0.5; };
        BrandingController controller;
        controller.setBranding(flat(4, 4));
        const Audio stream = controller.addBranding(Audio(Fakes::MakeAudio(shape)));
        EXPECT_EQ(stream->GetDuration(), SamplesToTime(shape.samples, rate) + 5 * TIME_BASE);
        std::int64_t samples = 0, loud = 0;
        while (const auto block = stream->ReadAudio()) {
            const AVFrame& frame = FF::FrameOf(*block);
            const auto* values = reinterpret_cast<const float*>(frame.data[0]);
            for (int index = 0; index < frame.nb_samples; ++index, ++samples) {
                const bool sounds = values[index] > 0.4F;
                loud += sounds ? 1 : 0;
                if (sounds != (samples < shape.samples)) {
                    ADD_FAILURE() << "sample " << samples << " at " << rate;
                    return;
                }
            }
        }
        EXPECT_EQ(loud, shape.samples);
        EXPECT_EQ(samples, shape.samples + 5LL * rate);
    }
}

} // namespace
