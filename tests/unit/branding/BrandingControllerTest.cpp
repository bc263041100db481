// SPDX-License-Identifier: GPL-3.0-or-later
#include "Branding/BrandingController.h"

#include "Kestra/Base/Time.h"
#include "Kestra/Proc/ProcException.h"
#include "fakes/branding/RecordingFactories.h"
#include "fakes/branding/RecordingVideo.h"
#include "fakes/kestra/FakeStreamAudio.h"
#include <gtest/gtest.h>
#include <stdexcept>
#include <type_traits>

namespace {

using namespace Kestra;
using Fakes::CallLog;
using Fakes::FakeStreamAudio;
using Fakes::RecordingFactories;
using Fakes::RecordingVideo;
using Video = boost::intrusive_ptr<Proc::IStreamVideo>;
using Audio = boost::intrusive_ptr<Proc::IStreamAudio>;

constexpr std::int64_t SECOND = TIME_BASE;

QPixmap picture(int width = 40, int height = 30) {
    QPixmap pixmap(width, height);
    pixmap.fill(Qt::red);
    return pixmap;
}

class Branding : public ::testing::Test {
protected:
    Branding() { controller.setBranding(picture()); }

    const std::shared_ptr<RecordingFactories> record = std::make_shared<RecordingFactories>();
    const RecordingFactories::Installed installed{record};
    BrandingController controller;
    boost::intrusive_ptr<RecordingVideo> video = new RecordingVideo(50);
    boost::intrusive_ptr<FakeStreamAudio> audio = new FakeStreamAudio(48000 * 3);
};

TEST_F(Branding, ReturnsTheVeryStreamsWithoutAPicture) {
    BrandingController plain;
    EXPECT_EQ(plain.addBranding(Video(video)), video);
    EXPECT_EQ(plain.addBranding(Audio(audio)), audio);
    plain.setBranding(picture());
    plain.setBranding(QPixmap());
    EXPECT_EQ(plain.addBranding(Video(video)), video);
    EXPECT_EQ(plain.addBranding(Audio(audio)), audio);
    EXPECT_EQ(record->log.Get(), CallLog::Calls());
    EXPECT_EQ(video->GetLog().Get(), CallLog::Calls());
}

TEST_F(Branding, ReturnsNullForANullStream) {
    EXPECT_EQ(controller.addBranding(Video()), nullptr);
    EXPECT_EQ(controller.addBranding(Audio()), nullptr);
    EXPECT_EQ(record->log.Get(), CallLog::Calls());
}

TEST_F(Branding, LengthensSoundByTheOutro) {
    const Audio result = controller.addBranding(Audio(audio));
    EXPECT_EQ(record->log.Get(), CallLog::Calls{"CreateDurationTrimmer default"});
    EXPECT_EQ(record->trimmerSource, audio);
    ASSERT_TRUE(record->trimmer);
    EXPECT_EQ(record->trimmer->GetDuration(), 8 * SECOND);
    EXPECT_EQ(result, record->trimmed);
}

TEST_F(Branding, BuildsTheOutroInOrder) {
    controller.addBranding(Video(video));
    const std::string outro = "effects on frame rate of resizer of one picture";
    EXPECT_EQ(record->log.Get(),
              (CallLog::Calls{"CreateDataVideo 40x30", "CreateResizer default", "CreateFrameRate default",
                              "CreateEffectHost default", "CreateColorspaceConverter default", "AddEffect converter",
                              "CreateEffect effect.video.alpha-envelope default", "AddEffect envelope",
                              "CreateConcatenation default", "Append recorded", "Append " + outro}));
}

TEST_F(Branding, AsksTheVideoForItsFormatFirst) {
    record->failures = {{"CreateDataVideo", std::make_exception_ptr(std::runtime_error("no picture"))}};
    EXPECT_THROW(controller.addBranding(Video(video)), std::runtime_error);
    EXPECT_EQ(video->GetLog().Get(), CallLog::Calls{"GetVideoFormat"}) << "ahead of the picture";
}

TEST_F(Branding, AppendsTheOutroBehindTheVideo) {
    const Video result = controller.addBranding(Video(video));
    EXPECT_EQ(result, record->concatenation);
    ASSERT_EQ(record->appended.size(), 2U);
    EXPECT_EQ(record->appended[0], video);
    EXPECT_EQ(record->appended[1]->GetDuration(), 5 * SECOND);
    EXPECT_EQ(result->GetDuration(), 7 * SECOND);
}

TEST_F(Branding, ShowsThePictureAsAFrameWithAlpha) {
    controller.addBranding(Video(video));
    ASSERT_TRUE(record->pictureFrame);
    EXPECT_EQ(record->pictureFrame->width, 40U);
    EXPECT_EQ(record->pictureFrame->height, 30U);
    EXPECT_EQ(static_cast<int>(*record->pictureFormat), 25);
}

TEST_F(Branding, StretchesThePictureOverFiveSeconds) {
    controller.addBranding(Video(video));
    Proc::IStreamVideo& stretched = *record->resizerSource;
    EXPECT_EQ(stretched.GetDuration(), 5 * SECOND);
    const auto frame = stretched.ReadVideo();
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->GetTime(), 0);
    EXPECT_EQ(frame->GetDuration(), 5 * SECOND);
    EXPECT_FALSE(stretched.ReadVideo());
}

TEST_F(Branding, ResizesToTheVideosFrame) {
    controller.addBranding(Video(video));
    ASSERT_TRUE(record->resizer);
    const Proc::SettingsResizer& settings = *record->resizer;
    EXPECT_EQ(settings.target, (Conf::FrameInfo{64, 36, 16, 9}));
    EXPECT_EQ(static_cast<int>(settings.aspectMode), 4);
    EXPECT_EQ(static_cast<int>(settings.interpolation), 3);
    EXPECT_EQ(settings.cropLeft, 0U);
    EXPECT_EQ(settings.cropTop, 0U);
    EXPECT_EQ(settings.cropRight, 0U);
    EXPECT_EQ(settings.cropBottom, 0U);
}

// The rate that the video has is looked at and handed to nobody.
TEST_F(Branding, LeavesTheFrameRateToItsFilter) {
    controller.addBranding(Video(video));
    EXPECT_EQ(record->log.Count("CreateFrameRate with settings default"), 0U);
    EXPECT_EQ(record->log.Count("CreateFrameRate default"), 1U);
}

TEST_F(Branding, KeepsAlphaInTheFormatWithAlpha) {
    controller.addBranding(Video(video));
    ASSERT_TRUE(record->converter);
    EXPECT_EQ(static_cast<int>(record->converter->GetPixelFormat()), 25);
    EXPECT_TRUE(record->converter->KeepsAlpha());
}

TEST_F(Branding, IsUnchangedByItsUse) {
    controller.addBranding(Video(video));
    controller.addBranding(Video(new RecordingVideo(10)));
    EXPECT_EQ(record->log.Count("CreateDataVideo 40x30"), 2U);
}

TEST_F(Branding, CopiesAndMovesThePicture) {
    static_assert(std::is_nothrow_move_constructible_v<BrandingController>);
    static_assert(std::is_nothrow_move_assignable_v<BrandingController>);
    BrandingController copy(controller);
    copy.addBranding(Video(video));
    EXPECT_EQ(record->log.Count("CreateDataVideo 40x30"), 1U);
    controller.addBranding(Video(video));
    EXPECT_EQ(record->log.Count("CreateDataVideo 40x30"), 2U) << "the original keeps its own";

    BrandingController moved(std::move(copy));
    moved.addBranding(Video(video));
    EXPECT_EQ(record->log.Count("CreateDataVideo 40x30"), 3U);

    BrandingController other;
    other.setBranding(picture(7, 5));
    moved = other;
    moved.addBranding(Video(video));
    EXPECT_EQ(record->log.Count("CreateDataVideo 7x5"), 1U);
    moved = BrandingController();
    EXPECT_EQ(moved.addBranding(Video(video)), video);
    moved = std::move(other);
    moved.addBranding(Video(video));
    EXPECT_EQ(record->log.Count("CreateDataVideo 7x5"), 2U);
}

TEST_F(Branding, PassesFailuresOfTheEngineOn) {
    const char* const calls[] = {"CreateDataVideo",
                                 "CreateResizer",
                                 "CreateFrameRate",
                                 "CreateEffectHost",
                                 "CreateColorspaceConverter",
                                 "AddEffect",
                                 "CreateConcatenation",
                                 "Append",
                                 "CreateEffect effect.video.alpha-envelope"};
    for (const char* call : calls) {
        record->failures = {{call, std::make_exception_ptr(std::runtime_error(call))}};
        EXPECT_THROW(controller.addBranding(Video(video)), std::runtime_error) << call;
    }
    record->failures = {{"CreateDurationTrimmer", std::make_exception_ptr(42)}};
    EXPECT_THROW(controller.addBranding(Audio(audio)), int) << "of whatever type";
    EXPECT_EQ(video->GetRefCount(), 1) << "no reference is left behind";
}

class Envelope : public Branding {
protected:
    Envelope() { controller.addBranding(Video(video)); }
    /// Opacity at that many milliseconds of the outro.
    double at(std::int64_t milliseconds) const {
        return record->progress->GetProgress(milliseconds * TICKS_PER_MILLISECOND);
    }
};

TEST_F(Envelope, ReachesFromZeroToTheEndOfTheOutro) {
    EXPECT_EQ(record->progress->GetStart(), 0);
    EXPECT_EQ(record->progress->GetEnd(), 5 * SECOND);
}

TEST_F(Envelope, RisesWithinTheFirstSecond) {
    EXPECT_DOUBLE_EQ(at(0), 0.0);
    EXPECT_DOUBLE_EQ(at(250), 0.25);
    EXPECT_DOUBLE_EQ(at(500), 0.5);
    EXPECT_DOUBLE_EQ(at(999), 0.999);
    EXPECT_DOUBLE_EQ(at(1000), 1.0);
}

TEST_F(Envelope, StaysOpaqueUntilTheLastSecond) {
    EXPECT_DOUBLE_EQ(at(2000), 1.0);
    EXPECT_DOUBLE_EQ(at(2500), 1.0);
    EXPECT_DOUBLE_EQ(at(4000), 1.0);
}

TEST_F(Envelope, FallsWithinTheLastSecond) {
    EXPECT_DOUBLE_EQ(at(4001), 0.999);
    EXPECT_DOUBLE_EQ(at(4750), 0.25);
    EXPECT_DOUBLE_EQ(at(5000), 0.0);
}

TEST_F(Envelope, MultipliesFadesThatOverlap) {
    record->progress->SetEnd(SECOND);
    EXPECT_DOUBLE_EQ(at(250), 0.25 * 0.75);
    EXPECT_DOUBLE_EQ(at(500), 0.25);
    record->progress->SetStart(2 * SECOND);
    record->progress->SetEnd(3 * SECOND);
    EXPECT_DOUBLE_EQ(at(2500), 0.25) << "counted from the range's start";
}

} // namespace
