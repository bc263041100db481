// SPDX-License-Identifier: GPL-3.0-or-later
// The engine's pieces of which an outro is made, each by itself.
#include "Kestra/Base/Time.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/FF/Av/FramePool.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "Kestra/Proc/Filters/StreamOneFrameVideo.h"
#include "Kestra/Proc/IDataVideoFFFactory.h"
#include "Kestra/Proc/IEffectFactory.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Kestra/Proc/Interrupted.h"
#include "Kestra/Proc/ProcException.h"
#include "fakes/kestra/FakeStreamVideo.h"
#include <array>
#include <boost/exception/get_error_info.hpp>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace {

using namespace Kestra;
using Conf::PixelFormat;
using Fakes::FakeStreamVideo;
using Proc::ImplNames;
using Proc::SeekMode;
using Frame = boost::intrusive_ptr<Proc::IDataVideo>;
using Video = boost::intrusive_ptr<Proc::IStreamVideo>;
using Effect = Proc::IEffectFactory::Effect;

Core::CoreManager& core() {
    return Core::CoreManager::Instance();
}

/// A flat picture; the bytes are those of one pixel.
Frame still(std::array<std::uint8_t, 4> pixel, std::uint32_t width = 6, std::uint32_t height = 4,
            PixelFormat format = PixelFormat::BGRA) {
    return core().GetDataVideoFFFactory().CreateDataVideo(
        {width, height, 0, 0}, format, [&](std::uint8_t* pixels, std::ptrdiff_t stride) {
            for (std::uint32_t y = 0; y < height; ++y)
                for (std::uint32_t x = 0; x < width; ++x)
                    std::memcpy(pixels + y * stride + 4 * x, pixel.data(), pixel.size());
        });
}

std::array<std::uint8_t, 4> lastPixel(const Proc::IDataVideo& frame) {
    const AVFrame& picture = FF::FrameOf(frame);
    std::array<std::uint8_t, 4> pixel{};
    std::memcpy(pixel.data(), picture.data[0] + (picture.height - 1) * picture.linesize[0] + 4 * (picture.width - 1),
                4);
    return pixel;
}

const std::uint8_t* pixelsOf(const Frame& frame) {
    return FF::FrameOf(*frame).data[0];
}

Effect converter(PixelFormat format, bool keepAlpha) {
    return core().GetEffectFactory().CreateColorspaceConverter(Proc::SettingsColorspaceConverter(format, keepAlpha),
                                                               ImplNames::DEFAULT);
}

Effect envelope(const Proc::TimeToProgress::Function& function) {
    Proc::TimeToProgress progress(function);
    progress.SetEnd(TIME_BASE);
    return core().GetEffectFactory().CreateEffect(Proc::SettingsEffectVideoAlphaEnvelope::CLASS_ID, progress,
                                                  ImplNames::DEFAULT);
}

Effect constant(double opacity) {
    return envelope([opacity](const std::int64_t&, const std::int64_t&, const std::int64_t&) { return opacity; });
}

TEST(StreamOneFrame, GivesItsPictureOnce) {
    const Frame frame = still({1, 2, 3, 4});
    const Video stream = Proc::StreamOneFrameVideo::Create(frame);
    const Frame first = stream->ReadVideo();
    ASSERT_TRUE(first);
    EXPECT_EQ(pixelsOf(first), pixelsOf(frame));
    EXPECT_FALSE(stream->ReadVideo());
    EXPECT_FALSE(stream->ReadData());
}

TEST(StreamOneFrame, GivesItAgainAsItWasAfterASeekOrAReset) {
    const Video stream = Proc::StreamOneFrameVideo::Create(still({1, 2, 3, 4}));
    stream->ReadVideo()->SetTime(99);
    stream->Seek(12345, SeekMode::Exact);
    const Frame second = stream->ReadVideo();
    ASSERT_TRUE(second);
    EXPECT_EQ(second->GetTime(), 0);
    stream->Interrupt();
    stream->Seek(0, SeekMode::Exact);
    EXPECT_TRUE(stream->ReadVideo()) << "it is at hand: there is nothing to interrupt";
    EXPECT_FALSE(stream->ReadVideo());
    stream->Reset();
    EXPECT_TRUE(stream->ReadVideo());
}

TEST(StreamOneFrame, HasThePicturesFormatAndNoRate) {
    const Video stream = Proc::StreamOneFrameVideo::Create(still({1, 2, 3, 4}, 32, 16));
    boost::intrusive_ptr<Conf::IFormatCodecVideo> format;
    stream->GetVideoFormat(format);
    EXPECT_EQ(format->GetFrameInfo().width, 32U);
    EXPECT_EQ(format->GetFrameInfo().height, 16U);
    EXPECT_EQ(format->GetPixelFormat(), PixelFormat::BGRA);
    EXPECT_EQ(format->GetFrameRate(), boost::rational<long long>(0));
    EXPECT_TRUE(stream->IsSeekable());
}

TEST(StreamOneFrame, RefusesNull) {
    EXPECT_THROW(Proc::StreamOneFrameVideo::Create(nullptr), std::invalid_argument);
}

TEST(TimeToProgress, HandsTheTimeAndItsRangeToItsFunction) {
    Proc::TimeToProgress progress([](const std::int64_t& time, const std::int64_t& start, const std::int64_t& end) {
        return static_cast<double>(time * 10000 + start * 100 + end);
    });
    EXPECT_EQ(progress.GetProgress(0), 0.0);
    progress.SetStart(2);
    progress.SetEnd(50);
    EXPECT_EQ(progress.GetProgress(7), 70250.0);
    EXPECT_EQ(progress.GetProgress(1), 20250.0) << "not before the start";
    EXPECT_EQ(progress.GetProgress(51), 500250.0) << "not behind the end";
    EXPECT_THROW(Proc::TimeToProgress(nullptr), std::invalid_argument);
}

TEST(AlphaEnvelope, MultipliesAlphaAlone) {
    const Frame frame = still({10, 20, 30, 200});
    const Frame faded = constant(0.5)->Apply(frame);
    EXPECT_EQ(lastPixel(*faded), (std::array<std::uint8_t, 4>{10, 20, 30, 100}));
    EXPECT_EQ(lastPixel(*frame)[3], 200) << "the source's pixels are not touched";
}

TEST(AlphaEnvelope, RoundsToTheNearestValue) {
    EXPECT_EQ(lastPixel(*constant(0.25)->Apply(still({0, 0, 0, 255})))[3], 64);
    EXPECT_EQ(lastPixel(*constant(1.0 / 255)->Apply(still({0, 0, 0, 255})))[3], 1);
}

TEST(AlphaEnvelope, PassesOpaqueTimesOnTheSamePixels) {
    const Frame frame = still({10, 20, 30, 200});
    EXPECT_EQ(constant(1)->Apply(frame), frame);
    EXPECT_EQ(constant(17)->Apply(frame), frame);
}

TEST(AlphaEnvelope, ShowsNothingAtZeroAndBelow) {
    for (const double opacity : {0.0, -3.0, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(lastPixel(*constant(opacity)->Apply(still({10, 20, 30, 255})))[3], 0) << opacity;
}

TEST(AlphaEnvelope, FollowsTheTimeOfThePicture) {
    const Effect effect = envelope([](const std::int64_t& time, const std::int64_t&, const std::int64_t& end) {
        return static_cast<double>(time) / static_cast<double>(end);
    });
    const Frame frame = still({0, 0, 0, 200});
    for (int step = 0; step < 5; ++step) {
        frame->SetTime(step * TIME_BASE / 4);
        frame->SetDuration(77);
        const Frame faded = effect->Apply(frame);
        EXPECT_EQ(lastPixel(*faded)[3], 50 * step);
        EXPECT_EQ(faded->GetTime(), frame->GetTime());
        EXPECT_EQ(faded->GetDuration(), 77);
    }
}

TEST(AlphaEnvelope, FadesWhatHasNoAlphaToo) {
    FF::FrameHandle grey = FF::FramePool().Get(AV_PIX_FMT_GRAY8, 4, 4);
    std::memset(grey->data[0], 120, static_cast<std::size_t>(grey->linesize[0]) * 4);
    grey->color_range = AVCOL_RANGE_JPEG;
    const Frame frame = new FF::DataVideoFF(std::move(grey), 0, 1);
    const Frame faded = constant(0.5)->Apply(frame);
    EXPECT_EQ(faded->GetPixelFormat(), PixelFormat::BGRA);
    EXPECT_EQ(lastPixel(*faded)[3], 128);
    EXPECT_NEAR(lastPixel(*faded)[0], 120, 1);
}

TEST(AlphaEnvelope, FadesPlanarAndDeepPictures) {
    for (const AVPixelFormat format : {AV_PIX_FMT_YUVA420P, AV_PIX_FMT_YUVA444P10, AV_PIX_FMT_GBRAP}) {
        FF::FrameHandle picture = FF::FramePool().Get(format, 4, 4);
        const bool deep = av_pix_fmt_desc_get(format)->comp[3].depth > 8;
        for (int y = 0; y < 4; ++y)
            for (int x = 0; x < 4; ++x)
                if (deep)
                    reinterpret_cast<std::uint16_t*>(picture->data[3] + y * picture->linesize[3])[x] = 1000;
                else
                    picture->data[3][y * picture->linesize[3] + x] = 100;
        const Frame faded = constant(0.5)->Apply(new FF::DataVideoFF(std::move(picture), 0, 1));
        const std::uint8_t* row = FF::FrameOf(*faded).data[3] + 3 * FF::FrameOf(*faded).linesize[3];
        EXPECT_EQ(deep ? reinterpret_cast<const std::uint16_t*>(row)[3] : row[3], deep ? 500 : 50) << format;
    }
}

TEST(ColorspaceConverter, PassesItsOwnFormatOnTheSamePixels) {
    const Frame frame = still({10, 20, 30, 40});
    EXPECT_EQ(converter(PixelFormat::BGRA, true)->Apply(frame), frame);
}

TEST(ColorspaceConverter, KeepsAlphaWhereItIsToldTo) {
    const Frame result = converter(PixelFormat::RGBA, true)->Apply(still({10, 20, 30, 40}));
    EXPECT_EQ(result->GetPixelFormat(), PixelFormat::RGBA);
    EXPECT_EQ(lastPixel(*result), (std::array<std::uint8_t, 4>{30, 20, 10, 40}));
}

TEST(ColorspaceConverter, BlendsOverBlackWhereItIsToldTo) {
    const Frame result = converter(PixelFormat::BGRA, false)->Apply(still({100, 200, 50, 128}));
    const auto pixel = lastPixel(*result);
    EXPECT_NEAR(pixel[0], 50, 1);
    EXPECT_NEAR(pixel[1], 100, 1);
    EXPECT_NEAR(pixel[2], 25, 1);
    EXPECT_EQ(pixel[3], 255);
}

TEST(ColorspaceConverter, BlendsOverBlackForAFormatWithoutAlpha) {
    const Frame result = converter(PixelFormat::YUV444P, true)->Apply(still({255, 255, 255, 0}));
    EXPECT_EQ(FF::FrameOf(*result).data[0][0], 16);
}

TEST(ColorspaceConverter, ConvertsAPictureThatComesAgainOnce) {
    const Effect effect = converter(PixelFormat::RGBA, true);
    const Frame frame = still({1, 2, 3, 4});
    const Frame first = effect->Apply(frame);
    const Frame again = frame->Share();
    again->SetTime(5);
    const Frame second = effect->Apply(again);
    EXPECT_EQ(pixelsOf(first), pixelsOf(second));
    EXPECT_EQ(second->GetTime(), 5);
    EXPECT_EQ(first->GetTime(), 0);
    EXPECT_EQ(lastPixel(*effect->Apply(still({9, 2, 3, 4})))[2], 9) << "other pixels are converted";
}

TEST(EffectFactory, RefusesWhatThereIsNot) {
    auto& effects = core().GetEffectFactory();
    const Proc::TimeToProgress progress(
        [](const std::int64_t&, const std::int64_t&, const std::int64_t&) { return 1.0; });
    const char* const id = Proc::SettingsEffectVideoAlphaEnvelope::CLASS_ID;
    EXPECT_THROW(effects.CreateEffect("another", progress, ImplNames::DEFAULT), Proc::FilterException);
    EXPECT_THROW(effects.CreateEffect(id, progress, "another"), Proc::FilterException);
    EXPECT_THROW(effects.CreateColorspaceConverter({PixelFormat::BGRA, true}, "another"), Proc::FilterException);
    EXPECT_THROW(effects.CreateColorspaceConverter({PixelFormat::Unknown, true}, ImplNames::DEFAULT),
                 std::invalid_argument);
}

TEST(FilterFactory, RefusesAnImplementationThatThereIsNot) {
    auto& filters = core().GetFilterFactory();
    const Video source = new FakeStreamVideo(1);
    EXPECT_THROW(filters.CreateResizer(source, {}, "another"), Proc::FilterException);
    EXPECT_THROW(filters.CreateFrameRate(source, "another"), Proc::FilterException);
    EXPECT_THROW(filters.CreateFrameRate(source, {}, "another"), Proc::FilterException);
    EXPECT_THROW(filters.CreateEffectHost(source, "another"), Proc::FilterException);
    EXPECT_THROW(filters.CreateConcatenation("another"), Proc::FilterException);
    EXPECT_THROW(filters.CreateDurationTrimmer(nullptr, {}, "another"), Proc::FilterException);
    EXPECT_TRUE(filters.CreateFrameRate(source, ImplNames::DEFAULT));
}

TEST(EffectHost, AppliesItsEffectsInOrder) {
    const auto host = core().GetFilterFactory().CreateEffectHost(
        Proc::StreamOneFrameVideo::Create(still({10, 20, 30, 200})), ImplNames::DEFAULT);
    host->AddEffect(converter(PixelFormat::RGBA, true));
    host->AddEffect(constant(0.5));
    const Frame frame = host->ReadVideo();
    ASSERT_TRUE(frame);
    EXPECT_EQ(lastPixel(*frame), (std::array<std::uint8_t, 4>{30, 20, 10, 100}));
    EXPECT_FALSE(host->ReadVideo());
}

TEST(EffectHost, DescribesWhatItsEffectsMake) {
    const auto host = core().GetFilterFactory().CreateEffectHost(Video(new FakeStreamVideo(1)), ImplNames::DEFAULT);
    host->AddEffect(converter(PixelFormat::BGRA, true));
    host->AddEffect(constant(0.5));
    boost::intrusive_ptr<Conf::IFormatCodec> format;
    host->GetFormatCodec(format);
    const auto& video = dynamic_cast<const Conf::IFormatCodecVideo&>(*format);
    EXPECT_EQ(video.GetPixelFormat(), PixelFormat::BGRA);
    EXPECT_EQ(video.GetFrameInfo().width, 64U);
    EXPECT_EQ(video.GetColour().range, 2);
}

TEST(ColorspaceConverter, WishesForItsOwnFormatAndNoOtherColour) {
    const auto wish = Conf::IFormatCodecVideo::Create();
    wish->SetPixelFormat(PixelFormat::YUV420P);
    wish->SetColour({1, 1, 1, 1});
    wish->SetFrameRate(30);
    converter(PixelFormat::BGRA, true)->ChangePreference(*wish);
    EXPECT_EQ(wish->GetPixelFormat(), PixelFormat::BGRA);
    EXPECT_EQ(wish->GetColour(), Conf::ColourInfo()) << "another would only be converted back";
    EXPECT_EQ(wish->GetFrameRate(), boost::rational<long long>(30)) << "not its concern";
}

TEST(AlphaEnvelope, WishesForAFormatWithAlpha) {
    const auto wish = Conf::IFormatCodecVideo::Create();
    wish->SetPixelFormat(PixelFormat::YUV420P);
    constant(1)->ChangePreference(*wish);
    EXPECT_EQ(wish->GetPixelFormat(), PixelFormat::BGRA);
    wish->SetPixelFormat(PixelFormat::YUVA444P);
    constant(1)->ChangePreference(*wish);
    EXPECT_EQ(wish->GetPixelFormat(), PixelFormat::YUVA444P);
}

TEST(EffectHost, TellsItsSourceWhatItsEffectsNeed) {
    const Video still16 = Proc::StreamOneFrameVideo::Create(still({10, 20, 30, 40}, 16, 16));
    Proc::SettingsResizer settings;
    settings.target = {8, 8, 0, 0};
    const Video resized = core().GetFilterFactory().CreateResizer(still16, settings);
    const auto host = core().GetFilterFactory().CreateEffectHost(resized);
    host->AddEffect(constant(0.5));
    const auto wish = Conf::IFormatCodecVideo::Create();
    wish->SetPixelFormat(PixelFormat::YUV420P);
    host->PreferFormat(*wish);
    boost::intrusive_ptr<Conf::IFormatCodecVideo> format;
    resized->GetVideoFormat(format);
    EXPECT_EQ(format->GetPixelFormat(), PixelFormat::BGRA);
    EXPECT_EQ(lastPixel(*host->ReadVideo())[3], 20);
}

TEST(EffectHost, TakesEffectsBeforeTheFirstReadOnly) {
    const auto host = core().GetFilterFactory().CreateEffectHost(Video(new FakeStreamVideo(2)));
    EXPECT_THROW(host->AddEffect(nullptr), std::invalid_argument);
    host->ReadVideo();
    EXPECT_THROW(host->AddEffect(constant(1)), Proc::FilterException);
    EXPECT_THROW(host->Initialize({}), Proc::FilterException);
    EXPECT_THROW(host->GetSettings(), Proc::FilterException);
}

Video paced(const Video& source) {
    return core().GetFilterFactory().CreateFrameRate(source, ImplNames::DEFAULT);
}

void prefer(Proc::IStreamVideo& stream, const boost::rational<long long>& rate) {
    const auto format = Conf::IFormatCodecVideo::Create();
    format->SetFrameRate(rate);
    stream.PreferFormat(*format);
}

boost::rational<long long> rateOf(const Proc::IStreamVideo& stream) {
    boost::intrusive_ptr<Conf::IFormatCodecVideo> format;
    stream.GetVideoFormat(format);
    return format->GetFrameRate();
}

struct Read {
    std::size_t frames = 0;
    std::int64_t end = 0;
};

/// Reads to the end; frames have to follow each other without a gap.
Read readOn(Proc::IStreamVideo& stream, std::int64_t from = 0) {
    Read result{0, from};
    while (const Frame frame = stream.ReadVideo()) {
        EXPECT_EQ(frame->GetTime(), result.end);
        result.end = frame->GetTime() + frame->GetDuration();
        ++result.frames;
    }
    return result;
}

/// Says that its one frame lasts long, as a stretched picture does.
Video longStill(std::int64_t duration) {
    const Frame frame = still({1, 2, 3, 4});
    frame->SetDuration(duration);
    return Proc::StreamOneFrameVideo::Create(frame);
}

TEST(PreferredFrameRate, FollowsTheConsumersRate) {
    for (const auto& rate : {boost::rational<long long>(24000, 1001), boost::rational<long long>(25),
                             boost::rational<long long>(30000, 1001), boost::rational<long long>(60)}) {
        const Video stream = paced(longStill(5 * TIME_BASE));
        prefer(*stream, rate);
        EXPECT_EQ(rateOf(*stream), rate);
        const Read read = readOn(*stream);
        EXPECT_EQ(read.frames, static_cast<std::size_t>(TimeToFrames(5 * TIME_BASE, rate))) << rate;
        EXPECT_EQ(read.end, 5 * TIME_BASE) << "as long as its source";
        EXPECT_EQ(stream->GetDuration(), 5 * TIME_BASE);
    }
}

TEST(PreferredFrameRate, ShowsAStillWithoutAWishAt25) {
    const Video stream = paced(longStill(2 * TIME_BASE));
    EXPECT_EQ(rateOf(*stream), boost::rational<long long>(25));
    EXPECT_EQ(readOn(*stream).frames, 50U);
}

TEST(PreferredFrameRate, PassesPicturesThatHaveARateAsTheyAre) {
    const Video stream = paced(new FakeStreamVideo(7, 30));
    EXPECT_EQ(rateOf(*stream), boost::rational<long long>(30));
    EXPECT_EQ(readOn(*stream).frames, 7U);
}

TEST(PreferredFrameRate, SharesTheStillsPixels) {
    const Video stream = paced(longStill(TIME_BASE));
    const Frame first = stream->ReadVideo();
    EXPECT_EQ(pixelsOf(first), pixelsOf(stream->ReadVideo()));
}

TEST(PreferredFrameRate, KeepsItsPlaceWhenAnotherRateIsPreferred) {
    const Video stream = paced(new FakeStreamVideo(50, 25));
    prefer(*stream, 25);
    stream->Seek(TIME_BASE, SeekMode::Exact);
    prefer(*stream, 50);
    EXPECT_EQ(stream->GetPosition(), TIME_BASE);
    EXPECT_EQ(readOn(*stream, TIME_BASE).frames, 50U);
}

TEST(PreferredFrameRate, StartsOverAfterAReset) {
    const Video stream = paced(new FakeStreamVideo(10, 25));
    prefer(*stream, 50);
    stream->ReadVideo();
    stream->Reset();
    EXPECT_EQ(stream->GetPosition(), 0);
    EXPECT_EQ(readOn(*stream).frames, 20U) << "the wish stays";
    EXPECT_EQ(stream->GetPosition(), stream->GetDuration());
}

TEST(PreferredFrameRate, RepeatsWhatItHasAndThenIsInterrupted) {
    const Video stream = paced(new FakeStreamVideo(10, 25));
    prefer(*stream, 50);
    EXPECT_TRUE(stream->ReadVideo());
    stream->Interrupt();
    EXPECT_THROW(readOn(*stream, TIME_BASE / 50), Proc::Interrupted)
        << "an interruption is no end to stretch the last picture to";
    stream->Reset();
    EXPECT_EQ(readOn(*stream).frames, 20U);
}

TEST(PreferredFrameRate, SeeksToTheFrameThatCoversTheTime) {
    const Video stream = paced(longStill(4 * TIME_BASE));
    prefer(*stream, 10);
    stream->Seek(TIME_BASE + 3, SeekMode::Exact);
    EXPECT_EQ(stream->ReadVideo()->GetTime(), TIME_BASE);
    stream->Seek(9 * TIME_BASE, SeekMode::Exact);
    EXPECT_FALSE(stream->ReadVideo());
    stream->Seek(-1, SeekMode::Exact);
    EXPECT_EQ(stream->ReadVideo()->GetTime(), 0);
}

} // namespace
