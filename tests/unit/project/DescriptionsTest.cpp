// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorProject/Descriptions.h"
#include "EditorProject/ExportWindow.h"
#include "EditorProject/SquarePixels.h"
#include "Kestra/Proc/ProcException.h"
#include "Timeline/DocumentEdit.h"
#include "fakes/project/RenderFixture.h"
#include <array>

namespace Project::Tests {
namespace {

using Kestra::Ticks;
using Kestra::TIME_BASE;

class DescriptionsTest : public RenderFixture {};

Contents clip(int frames, std::int64_t samples, const Rate& rate = 25, int sampleRate = 48000) {
    Contents contents;
    contents.frames = frames;
    contents.rate = rate;
    contents.samples = samples;
    contents.sampleRate = sampleRate;
    return contents;
}

TEST_F(DescriptionsTest, ClipsFollowEachOtherExactly) {
    const auto line = timeline({clip(100, 0), clip(0, 44101, 25, 44100), clip(30, 0, {30000, 1001})});
    ASSERT_EQ(line.document->tracks->tracks().front().items().size(), 3U);
    EXPECT_EQ(startOf(line, 1), 4 * TIME_BASE);
    EXPECT_EQ(startOf(line, 2), 4 * TIME_BASE + 44101 * 16000);
    EXPECT_EQ(line.document->duration().Value(), 4 * TIME_BASE + 44101 * 16000 + 30 * (TIME_BASE / 30000 * 1001));
}

TEST_F(DescriptionsTest, AFileThatIsNamedTwiceIsOpenedOnce) {
    auto paths = put({clip(10, 0), clip(5, 0)});
    paths.push_back(paths.front());
    const auto line = Render::Sequence::ofFiles(paths);
    EXPECT_EQ(media->opened(), 2);
    EXPECT_EQ(line.media->sources().size(), 2U);
}

TEST_F(DescriptionsTest, WhatCannotBeOpenedIsNamed) {
    try {
        Render::Sequence::ofFiles({Kestra::ioPath("missing.mov")});
        FAIL();
    } catch (const Kestra::Proc::ProcException& error) {
        EXPECT_NE(std::string(error.what()).find("missing.mov"), std::string::npos);
    }
    EXPECT_THROW(Render::Sequence::ofFiles({}), Kestra::Proc::ProcException);
}

TEST_F(DescriptionsTest, AFileWithoutLengthIsRefusedByName) {
    try {
        timeline({clip(0, 0)});
        FAIL();
    } catch (const Kestra::Proc::ProcException& error) {
        EXPECT_NE(std::string(error.what()).find("\"1\""), std::string::npos);
    }
}

TEST_F(DescriptionsTest, TheFirstPictureAndTheFirstSoundDescribeTheComposition) {
    const auto line = timeline({clip(0, 44100, 25, 44100), clip(50, 0, {30000, 1001}), clip(50, 48000)});
    const Media::Video video = describeVideo(line);
    EXPECT_EQ(video.width, 64U);
    EXPECT_EQ(video.height, 36U);
    EXPECT_EQ(video.frameRateNumerator, 30000U);
    EXPECT_EQ(video.frameRateDenominator, 1001U);
    EXPECT_EQ(video.aspectNumerator, 16U);
    EXPECT_EQ(describeAudio(line).sampleRate, 44100);
    EXPECT_EQ(describeAudio(line).sampleFormat, Kestra::Conf::SAMPLE_FORMAT_S16);
}

TEST_F(DescriptionsTest, InSquarePixelsTheShortSideGrowsAndOddSquareOnesStay) {
    const auto described = [](std::uint32_t width, std::uint32_t height, std::uint32_t across, std::uint32_t down) {
        Media::Video video;
        video.width = width;
        video.height = height;
        video.aspectNumerator = across;
        video.aspectDenominator = down;
        const Media::Video square = inSquarePixels(video);
        return std::array<std::uint32_t, 4>{square.width, square.height, square.aspectNumerator,
                                            square.aspectDenominator};
    };
    using Frame = std::array<std::uint32_t, 4>;
    EXPECT_EQ(described(720, 576, 16, 9), (Frame{1024, 576, 16, 9}));
    EXPECT_EQ(described(576, 720, 9, 16), (Frame{576, 1024, 9, 16}));
    EXPECT_EQ(described(720, 480, 4, 3), (Frame{720, 540, 4, 3})) << "no line is lost";
    EXPECT_EQ(described(161, 121, 161, 121), (Frame{161, 121, 161, 121}));
    EXPECT_EQ(described(853, 480, 16, 9), (Frame{853, 480, 853, 480})) << "but for rounding they are square";
}

TEST_F(DescriptionsTest, OnlyClipsInTheRangeDescribeIt) {
    Contents deep = clip(0, 48000);
    deep.sampleFormat = Kestra::Conf::SAMPLE_FORMAT_DBL;
    const auto line = timeline({clip(50, 88200, 25, 44100), clip(50, 96000, {30000, 1001}), deep});
    EXPECT_EQ(describeVideo(line, milliseconds(0, 2010)).frameRateNumerator, 25U);
    EXPECT_EQ(describeAudio(line, milliseconds(0, 2010)).sampleRate, 44100);
    EXPECT_EQ(describeVideo(line, milliseconds(2010, 3000)).frameRateNumerator, 30000U);
    EXPECT_EQ(describeAudio(line, milliseconds(2010, 3000)).sampleRate, 48000);
    EXPECT_EQ(describeAudio(line, milliseconds(2010, 3000)).sampleFormat, Kestra::Conf::SAMPLE_FORMAT_S16);
    EXPECT_EQ(describeAudio(line).sampleFormat, Kestra::Conf::SAMPLE_FORMAT_DBL);
    // It has no picture of its own.
    EXPECT_EQ(describeVideo(line, milliseconds(4000, 4500)).frameRateNumerator, 25U);
    EXPECT_EQ(describeAudio(line, milliseconds(4000, 4500)).sampleFormat, Kestra::Conf::SAMPLE_FORMAT_DBL);
    EXPECT_THROW(describeAudio(line, milliseconds(60000, 61000)), Kestra::Proc::ProcException);
}

/// The clips of `line` with their times told in those rates.
Render::Sequence told(Render::Sequence line, const std::vector<Rate>& rates) {
    for (std::size_t index = 0; index < rates.size(); ++index) {
        Timeline::Item item = line.document->tracks->tracks().front().items()[index];
        std::get<Timeline::Clip>(item.content).rate = rates[index];
        line.document = Timeline::withItem(*line.document, {0, index}, item);
    }
    return line;
}

TEST_F(DescriptionsTest, StillPicturesHaveTheRateOfTheirPlace) {
    Contents still = clip(1, 0);
    still.still = true;
    EXPECT_EQ(describeVideo(timeline({still, clip(50, 0, 30)})).frameRateNumerator, 25U) << "nothing tells one";
    const Media::Video video = describeVideo(told(timeline({still, clip(50, 0, 30)}), {{24000, 1001}, 50}));
    EXPECT_EQ(Rate(video.frameRateNumerator, video.frameRateDenominator), Rate(24000, 1001));
    EXPECT_EQ(describeVideo(told(timeline({clip(50, 0, 30), still}), {24, 24})).frameRateNumerator, 30U)
        << "moving ones have their own";
    EXPECT_EQ(describeVideo(told(timeline({still}), {1000000})).frameRateNumerator, 25U) << "that is none";
}

TEST_F(DescriptionsTest, WithoutPictureOrSoundTheDescriptionsAreTheDefaults) {
    const Media::Video video = describeVideo(timeline({clip(0, 48000)}));
    EXPECT_EQ(video.width, 1920U);
    EXPECT_EQ(video.height, 1080U);
    EXPECT_EQ(video.frameRateNumerator, 25U);
    const Media::Audio audio = describeAudio(timeline({clip(10, 0)}));
    EXPECT_EQ(audio.sampleRate, 48000);
    EXPECT_EQ(audio.channelLayout, Kestra::Conf::CHANNEL_LAYOUT_STEREO);
}

const Ticks TEN_SECONDS(10 * TIME_BASE);
const Kestra::FrameGrid GRID(25);

TEST(ExportWindow, AnEmptyOrInvertedRangeIsTheWhole) {
    for (const Types::Range& range :
         {Types::Range(), Types::Range{KTime(500), KTime(500)}, Types::Range{KTime(900), KTime(100)}}) {
        const ExportWindow window(range, TEN_SECONDS, GRID);
        EXPECT_EQ(window.start().Value(), 0);
        EXPECT_EQ(window.frames().Value(), 250);
        EXPECT_EQ(window.samples(Kestra::SampleGrid(48000)).Value(), 480000);
    }
}

TEST(ExportWindow, TheStartMovesToTheNearestFrameForPictureAndSound) {
    const ExportWindow window({KTime(1013), KTime(2013)}, TEN_SECONDS, GRID);
    EXPECT_EQ(window.firstFrame().Value(), 25);
    EXPECT_EQ(window.start().Value(), TIME_BASE);
    EXPECT_EQ(window.frames().Value(), 25);                              // 1.013 s
    EXPECT_EQ(window.samples(Kestra::SampleGrid(48000)).Value(), 48624); // 1.013 s
    EXPECT_EQ(ExportWindow({KTime(1020), KTime(2013)}, TEN_SECONDS, GRID).firstFrame().Value(), 26);
    const ExportWindow ntsc({KTime(1000), KTime(2000)}, TEN_SECONDS, Kestra::FrameGrid({30000, 1001}));
    EXPECT_EQ(ntsc.firstFrame().Value(), 30);
    EXPECT_EQ(ntsc.start().Value(), 30 * (TIME_BASE / 30000 * 1001));
}

TEST(ExportWindow, WithoutPicturesTheStartStaysExact) {
    EXPECT_EQ(ExportWindow({KTime(1013), KTime(2013)}, TEN_SECONDS, std::nullopt).start().Value(),
              1013 * Kestra::TICKS_PER_MILLISECOND);
}

TEST(ExportWindow, AnEndAtTheRoundedDurationIsTheExactEnd) {
    const Ticks duration = TEN_SECONDS + Ticks(Kestra::TICKS_PER_MILLISECOND / 3);
    EXPECT_EQ(ExportWindow({KTime(0), KTime(10000)}, duration, std::nullopt).end(), duration);
    EXPECT_EQ(ExportWindow({KTime(0), KTime(99999)}, duration, std::nullopt).end(), duration);
    EXPECT_EQ(ExportWindow({KTime(0), KTime(9999)}, duration, std::nullopt).end(),
              Ticks(9999 * Kestra::TICKS_PER_MILLISECOND));
}

TEST(ExportWindow, ANegativeStartIsTheBeginning) {
    EXPECT_EQ(ExportWindow({KTime(-700), KTime(1000)}, TEN_SECONDS, GRID).start().Value(), 0);
}

TEST(ExportWindow, ARangeOutsideIsRefused) {
    using Kestra::Proc::ProcException;
    EXPECT_THROW(ExportWindow({KTime(10000), KTime(11000)}, TEN_SECONDS, GRID), ProcException);
    EXPECT_THROW(ExportWindow({KTime(-900), KTime(-100)}, TEN_SECONDS, GRID), ProcException);
    EXPECT_THROW(ExportWindow({KTime(1000), KTime(1010)}, TEN_SECONDS, GRID), ProcException); // no whole frame
}

} // namespace
} // namespace Project::Tests
