// SPDX-License-Identifier: GPL-3.0-or-later
// What opening a file finds out once, and what decoding alone can tell of its beginning.
#include "Kestra/FF/Demux/Demuxer.h"
#include "unit/source/SourceFixture.h"
#include <cstdio>
#include <filesystem>
#include <malloc.h>
#include <tuple>

namespace TestMedia {
namespace {

using Kestra::FF::Demuxer;

class OpeningAgain : public SourceTest {
protected:
    std::string makeMp4(const std::string& name, const std::string& codec) {
        return make(name, join(pictures("24000/1001", 30), {"-c:v", codec, "-bf", "2"}));
    }

    static std::size_t countOf(const char* what) {
        const std::filesystem::directory_iterator entries(std::string("/proc/self/") + what);
        return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
    }

    const std::atomic<bool> never{false};
};

TEST_F(OpeningAgain, OfAnMp4FileFindsItsStreamsKnown) {
    const std::string path = makeMp4("a.mp4", "libx264");
    Demuxer first(ioPath(path), never);
    ASSERT_TRUE(first.GetStreamInfoCache());
    Demuxer second(ioPath(path), never, {}, first.GetStreamInfoCache());
    EXPECT_EQ(second.GetStreamInfoCache(), first.GetStreamInfoCache());
    const AVStream& found = first.GetStream(0);
    const AVStream& known = second.GetStream(0);
    EXPECT_EQ(known.codecpar->format, AV_PIX_FMT_YUV420P);
    EXPECT_EQ(known.codecpar->video_delay, found.codecpar->video_delay);
    EXPECT_GT(known.codecpar->video_delay, 0);
    EXPECT_EQ(av_cmp_q(known.avg_frame_rate, found.avg_frame_rate), 0);
    EXPECT_EQ(av_cmp_q(known.r_frame_rate, found.r_frame_rate), 0);
    EXPECT_EQ(known.start_time, found.start_time);
    EXPECT_EQ(known.duration, found.duration);
    EXPECT_EQ(second.GetContext().duration, first.GetContext().duration);
}

TEST_F(OpeningAgain, OfAnotherFileInItsPlaceFindsThatOnesStreams) {
    const std::string path = makeMp4("a.mp4", "libx264");
    const std::string other = makeMp4("b.mp4", "mpeg4");
    Demuxer first(ioPath(path), never);
    ASSERT_EQ(std::rename(other.c_str(), path.c_str()), 0);
    Demuxer second(ioPath(path), never, {}, first.GetStreamInfoCache());
    EXPECT_NE(second.GetStreamInfoCache(), first.GetStreamInfoCache());
    EXPECT_EQ(second.GetStream(0).codecpar->codec_id, AV_CODEC_ID_MPEG4);
    EXPECT_EQ(second.GetStream(0).codecpar->format, AV_PIX_FMT_YUV420P);
}

TEST_F(OpeningAgain, OfContainersWithoutAnIndexLooksAgain) {
    const std::string path = make("a.mkv", join(pictures("25", 10), {"-c:v", "libx264"}));
    EXPECT_FALSE(Demuxer(ioPath(path), never).GetStreamInfoCache());
}

TEST_F(OpeningAgain, GoesOnWithThePicturesOfTheFirstOpening) {
    const intrusive_ptr<IMediaSource> source = open(makeMp4("a.mp4", "libx264"));
    for (int reader = 0; reader < 2; ++reader) {
        const auto read = readPictures(*source->CreateVideoStream());
        ASSERT_EQ(read.size(), 30u);
        for (int number = 0; number < 30; ++number)
            EXPECT_EQ(read[static_cast<std::size_t>(number)].number, number);
    }
}

TEST_F(OpeningAgain, IsHowAMediumIsReadOfWhichOpeningKeepsLittle) {
    constexpr int MANY = 100;
    constexpr std::size_t LITTLE = 24 * 1024;
    const std::string path = makeMp4("a.mp4", "libx264");
    const auto before = open(path); // what is made once is there
    const std::size_t files = countOf("fd"), memory = mallinfo2().uordblks;
    std::vector<intrusive_ptr<IMediaSource>> sources;
    for (int i = 0; i < MANY; ++i)
        sources.push_back(open(path));
    EXPECT_EQ(countOf("fd"), files);
    EXPECT_LT((mallinfo2().uordblks - memory) / MANY, LITTLE);
}

TEST_F(OpeningAgain, AmongManyStartsFewerThreads) {
    const auto source = open(makeMp4("a.mp4", "libx264"));
    const auto threadsOf = [&source](int among) {
        const std::size_t before = countOf("task");
        const auto stream = source->CreateVideoStreamAmong(among);
        EXPECT_TRUE(stream->ReadVideo());
        return countOf("task") - before;
    };
    const std::size_t alone = threadsOf(1);
    EXPECT_GE(alone, 2U);
    EXPECT_EQ(threadsOf(4), alone);
    EXPECT_LE(6 * threadsOf(6), 4 * alone);
    EXPECT_EQ(threadsOf(20), 0U) << "the one that reads decodes";
}

/// Codec and container.
class Beginning : public SourceTest, public testing::WithParamInterface<std::tuple<std::string, std::string>> {
protected:
    /// Sixty pictures in groups of twenty. Three are stored behind the keyframe of each group, but shown before it.
    std::string makeWhole(const std::string& codec) {
        const std::vector<std::string> settings =
            codec == "libx264"
                ? std::vector<std::string>{"-g", "20", "-bf", "3", "-qp", "10", "-x264-params", "open-gop=1:scenecut=0"}
                : std::vector<std::string>{"-x265-params", "log-level=none:keyint=20:min-keyint=20:bframes=3:radl=3:"
                                                           "open-gop=0:scenecut=0:qp=10"};
        return make("whole.mkv", join(join(pictures("25", 60), {"-c:v", codec}), settings));
    }
    /// In transport streams, the decoder's settings have to stand before each keyframe.
    static std::string filterFor(const std::string& codec, const std::string& container) {
        return container != "ts"    ? "null"
               : codec == "libx264" ? "h264_mp4toannexb,dump_extra=freq=keyframe"
                                    : "hevc_mp4toannexb,dump_extra=freq=keyframe";
    }
};

TEST_P(Beginning, IsTheFirstPictureThatCanBeShown) {
    const auto [codec, container] = GetParam();
    make("part%d." + container, {"-i", makeWhole(codec), "-c", "copy", "-bsf:v", filterFor(codec, container), "-f",
                                 "segment", "-segment_time", "0.6"});
    const intrusive_ptr<IMediaSource> source = open(folder / ("part1." + container));
    const auto read = readPictures(*source->CreateVideoStream());
    ASSERT_FALSE(read.empty());
    EXPECT_EQ(read.front().time, 0);
    // Numbered on from the first. What cannot be decoded without the pictures of the part before is not shown at all.
    for (std::size_t place = 1; place < read.size(); ++place) {
        EXPECT_EQ(read[place].number, read.front().number + static_cast<int>(place));
        EXPECT_EQ(read[place].time, FramesToTime(static_cast<long long>(place), 25));
    }
    EXPECT_EQ(source->GetInfo().duration, FramesToTime(static_cast<long long>(read.size()), 25));
    // H.265 tells which of those before the keyframe can do without the part before; MP4 cuts them off all the same.
    if (codec == "libx265" && container != "mp4") {
        EXPECT_EQ(read.size(), 20u);
    }
}

INSTANTIATE_TEST_SUITE_P(Parts, Beginning,
                         testing::Combine(testing::Values("libx264", "libx265"),
                                          testing::Values("mp4", "ts", "nut", "mkv")));

} // namespace
} // namespace TestMedia
