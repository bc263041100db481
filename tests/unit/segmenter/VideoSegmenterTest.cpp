// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Base/Time.h"
#include "Kestra/Proc/Interrupted.h"
#include "Kestra/Proc/ProcException.h"
#include "Kestra/Proc/Segmenter.h"
#include "fakes/kestra/FakeStreamVideo.h"
#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>

namespace Kestra::Proc {
namespace {

using Fakes::FakeFrame;
using Fakes::FakeStreamVideo;

/// Twenty-five frames a second; one frame.
constexpr std::int64_t FRAME = TIME_BASE / 25;

struct Picture {
    int number;
    std::int64_t time;
    std::int64_t duration;

    friend bool operator==(const Picture& a, const Picture& b) {
        return a.number == b.number && a.time == b.time && a.duration == b.duration;
    }
    friend std::ostream& operator<<(std::ostream& out, const Picture& picture) {
        return out << "frame " << picture.number << " at " << picture.time << " for " << picture.duration;
    }
};

Picture ToPicture(const boost::intrusive_ptr<IDataVideo>& frame) {
    const auto& fake = dynamic_cast<const FakeFrame&>(*frame);
    return {fake.GetNumber(), frame->GetTime(), frame->GetDuration()};
}

std::vector<Picture> ReadAll(IStreamVideo& stream) {
    std::vector<Picture> pictures;
    while (const auto frame = stream.ReadVideo()) {
        pictures.push_back(ToPicture(frame));
    }
    return pictures;
}

class VideoSegmenter : public testing::TestWithParam<bool> {
protected:
    void SetUp() override { source->SetSeekable(GetParam()); }

    const boost::intrusive_ptr<FakeStreamVideo> source{new FakeStreamVideo(10)};
};

TEST_P(VideoSegmenter, GivesTheFramesOfTheWindowFromTimeZero) {
    const auto segment = CreateVideoSegmenter(source, 3 * FRAME, 5 * FRAME);
    EXPECT_EQ(ReadAll(*segment), (std::vector<Picture>{{3, 0, FRAME}, {4, FRAME, FRAME}}));
}

TEST_P(VideoSegmenter, ShortensTheFramesAcrossItsCuts) {
    const auto segment = CreateVideoSegmenter(source, 3 * FRAME + FRAME / 4, 5 * FRAME + FRAME / 2);
    EXPECT_EQ(ReadAll(*segment),
              (std::vector<Picture>{{3, 0, FRAME * 3 / 4}, {4, FRAME * 3 / 4, FRAME}, {5, FRAME * 7 / 4, FRAME / 2}}));
}

TEST_P(VideoSegmenter, CutsBothEndsOfASingleFrame) {
    const auto segment = CreateVideoSegmenter(source, 3 * FRAME + FRAME / 4, 3 * FRAME + FRAME / 2);
    EXPECT_EQ(ReadAll(*segment), (std::vector<Picture>{{3, 0, FRAME / 4}}));
}

TEST_P(VideoSegmenter, OverTheWholeStreamChangesNothing) {
    const auto segment = CreateVideoSegmenter(source, 0, 10 * FRAME);
    const auto pictures = ReadAll(*segment);
    ASSERT_EQ(pictures.size(), 10u);
    EXPECT_EQ(pictures[9], (Picture{9, 9 * FRAME, FRAME}));
}

TEST_P(VideoSegmenter, EndsWithItsSource) {
    const auto segment = CreateVideoSegmenter(source, 8 * FRAME, 100 * FRAME);
    EXPECT_EQ(ReadAll(*segment), (std::vector<Picture>{{8, 0, FRAME}, {9, FRAME, FRAME}}));
    EXPECT_EQ(segment->GetDuration(), 2 * FRAME);
}

TEST_P(VideoSegmenter, BeyondItsSourceIsEmpty) {
    const auto segment = CreateVideoSegmenter(source, 20 * FRAME, 30 * FRAME);
    EXPECT_EQ(segment->GetDuration(), 0);
    EXPECT_TRUE(ReadAll(*segment).empty());
}

TEST_P(VideoSegmenter, AnswersNullOnEveryReadAfterTheEnd) {
    const auto segment = CreateVideoSegmenter(source, FRAME, 2 * FRAME);
    ReadAll(*segment);
    EXPECT_EQ(segment->ReadVideo(), nullptr);
    EXPECT_EQ(segment->ReadData(), nullptr);
}

TEST_P(VideoSegmenter, ReadsNoFrameBeyondItsEnd) {
    const auto segment = CreateVideoSegmenter(source, 2 * FRAME, 4 * FRAME);
    ReadAll(*segment);
    EXPECT_FALSE(source->GetScript()->GetLog()->Contains("ReadVideo 4"));
}

TEST_P(VideoSegmenter, CountsItsPositionFromItsStart) {
    const auto segment = CreateVideoSegmenter(source, 3 * FRAME + FRAME / 2, 6 * FRAME);
    EXPECT_EQ(segment->GetPosition(), 0);
    segment->ReadVideo();
    EXPECT_EQ(segment->GetPosition(), FRAME / 2);
    segment->ReadVideo();
    EXPECT_EQ(segment->GetPosition(), FRAME * 3 / 2);
    ReadAll(*segment);
    EXPECT_EQ(segment->GetPosition(), segment->GetDuration());
}

TEST_P(VideoSegmenter, ReadsTheSameAgainAfterAReset) {
    const auto segment = CreateVideoSegmenter(source, 3 * FRAME, 5 * FRAME);
    const auto first = ReadAll(*segment);
    segment->Reset();
    EXPECT_EQ(segment->GetPosition(), 0);
    EXPECT_EQ(ReadAll(*segment), first);
}

INSTANTIATE_TEST_SUITE_P(OverASource, VideoSegmenter, testing::Bool(),
                         [](const auto& testCase) { return testCase.param ? "ThatSeeks" : "ThatOnlyReads"; });

class VideoSegmenterSeek : public testing::Test {
protected:
    const boost::intrusive_ptr<FakeStreamVideo> source{new FakeStreamVideo(10)};
    const boost::intrusive_ptr<IStreamVideo> segment = CreateVideoSegmenter(source, 3 * FRAME + FRAME / 4, 7 * FRAME);
};

TEST_F(VideoSegmenterSeek, LandsOnTheFrameThatCoversTheTime) {
    segment->Seek(FRAME, SeekMode::Exact);
    EXPECT_EQ(segment->GetPosition(), FRAME);
    EXPECT_EQ(ToPicture(segment->ReadVideo()), (Picture{4, FRAME * 3 / 4, FRAME}));
}

TEST_F(VideoSegmenterSeek, BackToTheStartShortensTheFirstFrameAgain) {
    ReadAll(*segment);
    segment->Seek(0, SeekMode::Exact);
    EXPECT_EQ(ToPicture(segment->ReadVideo()), (Picture{3, 0, FRAME * 3 / 4}));
}

TEST_F(VideoSegmenterSeek, IsClampedToTheWindow) {
    segment->Seek(-5 * FRAME, SeekMode::Exact);
    EXPECT_EQ(segment->GetPosition(), 0);
    EXPECT_EQ(ToPicture(segment->ReadVideo()).number, 3);
    segment->Seek(50 * FRAME, SeekMode::Exact);
    EXPECT_EQ(segment->GetPosition(), segment->GetDuration());
    EXPECT_EQ(segment->ReadVideo(), nullptr);
}

TEST_F(VideoSegmenterSeek, IsNotUndoneByTheFirstRead) {
    segment->Seek(2 * FRAME, SeekMode::Exact);
    EXPECT_EQ(ToPicture(segment->ReadVideo()).number, 5);
}

TEST_F(VideoSegmenterSeek, TakesTheSourceToTheWindowAgainAfterAReset) {
    ReadAll(*segment);
    segment->Reset();
    ReadAll(*segment);
    EXPECT_EQ(source->GetScript()->GetLog()->Count("Seek " + std::to_string(3 * FRAME + FRAME / 4)), 2u);
}

TEST_F(VideoSegmenterSeek, IsSparedWhenTheSourceStandsThereAlready) {
    const auto fromStart = CreateVideoSegmenter(source, 0, 5 * FRAME);
    ReadAll(*fromStart);
    for (const std::string& call : source->GetScript()->GetLog()->Get()) {
        EXPECT_NE(call.substr(0, 4), "Seek");
    }
}

TEST(VideoSegmenterForwards, WhatItHasNoPartIn) {
    const boost::intrusive_ptr<FakeStreamVideo> source(new FakeStreamVideo(10));
    const auto segment = CreateVideoSegmenter(source, FRAME, 2 * FRAME);
    segment->Prepare();
    segment->Interrupt();
    segment->PreferFormat(*Conf::IFormatCodecVideo::Create());
    EXPECT_EQ(source->GetScript()->GetLog()->Get(), (Fakes::CallLog::Calls{"Prepare", "Interrupt", "PreferFormat"}));
    EXPECT_THROW(segment->ReadVideo(), Interrupted);
    EXPECT_TRUE(segment->IsSeekable());
    source->SetSeekable(false);
    EXPECT_FALSE(segment->IsSeekable());
    boost::intrusive_ptr<Conf::IFormatCodecVideo> format;
    segment->GetVideoFormat(format);
    EXPECT_EQ(format->GetFrameInfo(), (Conf::FrameInfo{64, 36, 16, 9}));
    EXPECT_NE(segment->Describe().find("fake video"), std::string::npos);
}

TEST(VideoSegmenterForwards, AnInterruptionIsNoEnd) {
    const boost::intrusive_ptr<FakeStreamVideo> source(new FakeStreamVideo(10));
    const auto segment = CreateVideoSegmenter(source, FRAME, 3 * FRAME);
    segment->Interrupt();
    EXPECT_THROW(segment->ReadVideo(), Interrupted);
    segment->Reset();
    EXPECT_EQ(ReadAll(*segment).size(), 2u);
}

TEST(VideoSegmenterForwards, ErrorsOfItsSource) {
    const boost::intrusive_ptr<FakeStreamVideo> source(new FakeStreamVideo(10));
    source->GetScript()->ThrowAt("ReadVideo 1", std::make_exception_ptr(ProcException("broken")));
    const auto segment = CreateVideoSegmenter(source, 0, 3 * FRAME);
    segment->ReadVideo();
    EXPECT_THROW(segment->ReadVideo(), ProcException);
}

TEST(VideoSegmenterRefuses, NullAndWindowsThatAreNone) {
    const boost::intrusive_ptr<IStreamVideo> source(new FakeStreamVideo(10));
    EXPECT_THROW(CreateVideoSegmenter(nullptr, 0, 1), std::invalid_argument);
    EXPECT_THROW(CreateVideoSegmenter(source, -1, 1), std::invalid_argument);
    EXPECT_THROW(CreateVideoSegmenter(source, 5, 5), std::invalid_argument);
    EXPECT_THROW(CreateVideoSegmenter(source, 5, 4), std::invalid_argument);
}

TEST(VideoSegmenterRefuses, Settings) {
    const auto segment = CreateVideoSegmenter(boost::intrusive_ptr<IStreamVideo>(new FakeStreamVideo(1)), 0, 1);
    EXPECT_THROW(segment->Initialize(Core::Property()), FilterException);
    EXPECT_THROW(segment->GetSettings(), FilterException);
}

TEST(VideoSegmenterDuration, IsUnknownWhenItsSourcesIs) {
    const boost::intrusive_ptr<FakeStreamVideo> source(new FakeStreamVideo(10));
    source->SetDurationKnown(false);
    EXPECT_EQ(CreateVideoSegmenter(source, 0, FRAME)->GetDuration(), TIME_UNKNOWN);
}

TEST(VideoSegmenterDuration, IsTheWindowsWithinItsSource) {
    const boost::intrusive_ptr<IStreamVideo> source(new FakeStreamVideo(10));
    EXPECT_EQ(CreateVideoSegmenter(source, FRAME, 4 * FRAME)->GetDuration(), 3 * FRAME);
}

} // namespace
} // namespace Kestra::Proc
