// SPDX-License-Identifier: GPL-3.0-or-later
// Counts, times and seeks of decoded pictures.
#include "Kestra/FF/Source/InterruptibleRead.h"
#include "unit/source/SourceFixture.h"
#include <fstream>
#include <random>
#include <tuple>

namespace TestMedia {
namespace {

const std::vector<std::string> H264{"-c:v", "libx264", "-preset", "veryfast", "-g", "24", "-bf", "3", "-qp", "10"};

struct Coding {
    std::string name;
    std::string file;
    std::vector<std::string> arguments;
    /// How far the container's clock lets times be off.
    std::int64_t rounding;
};

void PrintTo(const Coding& coding, std::ostream* out) {
    *out << coding.name;
}

std::vector<Coding> codings() {
    const std::int64_t millisecond = TIME_BASE / 1000;
    return {
        {"H264InMp4", "a.mp4", H264, 1},
        {"H264InMkv", "a.mkv", H264, millisecond},
        {"H264InTs", "a.ts", H264, TIME_BASE / 90000},
        {"OpenGopH264InMov",
         "a.mov",
         {"-c:v", "libx264", "-g", "20", "-bf", "3", "-qp", "10", "-x264-params", "open-gop=1"},
         1},
        {"OpenGopHevcInMp4",
         "b.mp4",
         {"-c:v", "libx265", "-preset", "ultrafast", "-x265-params",
          "log-level=none:keyint=20:min-keyint=20:bframes=3:open-gop=1:qp=10"},
         1},
        {"Mpeg2InTs", "b.ts", {"-c:v", "mpeg2video", "-g", "15", "-bf", "2", "-q:v", "2"}, TIME_BASE / 90000},
        {"Mpeg2InMpg", "b.mpg", {"-c:v", "mpeg2video", "-g", "15", "-bf", "2", "-q:v", "2"}, TIME_BASE / 90000},
        {"Mpeg4InAvi", "a.avi", {"-c:v", "mpeg4", "-g", "20", "-bf", "2", "-q:v", "2"}, 1},
        {"Vp9InWebm",
         "a.webm",
         {"-c:v", "libvpx-vp9", "-deadline", "realtime", "-cpu-used", "8", "-g", "30", "-crf", "10"},
         millisecond},
        {"Av1InMp4", "c.mp4", {"-c:v", "libsvtav1", "-preset", "12", "-g", "30", "-crf", "10"}, 1},
        {"ProResInMov", "b.mov", {"-c:v", "prores_ks"}, 1},
    };
}

std::string nameOf(const testing::TestParamInfo<Coding>& info) {
    return info.param.name;
}

class CodedPictures : public SourceTest, public testing::WithParamInterface<Coding> {
protected:
    static constexpr int FRAMES = 130;
    std::string makeMedia(const std::string& rate) {
        return make(GetParam().file, join(pictures(rate, FRAMES), GetParam().arguments));
    }
};

TEST_P(CodedPictures, ComeOnceEachInOrderAndTouch) {
    const auto stream = open(makeMedia("30000/1001"))->CreateVideoStream();
    const auto read = readPictures(*stream);
    ASSERT_EQ(read.size(), FRAMES);
    for (int index = 0; index < FRAMES; ++index) {
        EXPECT_EQ(read[index].number, index);
        EXPECT_NEAR(read[index].time, FramesToTime(index, Rate(30000, 1001)), GetParam().rounding);
        const std::int64_t end = index + 1 < FRAMES ? read[index + 1].time : stream->GetDuration();
        EXPECT_EQ(read[index].time + read[index].duration, end);
    }
    EXPECT_NEAR(stream->GetDuration(), FramesToTime(FRAMES, Rate(30000, 1001)), GetParam().rounding);
    EXPECT_FALSE(stream->ReadVideo());
}

TEST_P(CodedPictures, AreFoundExactlyByASeek) {
    const auto stream = open(makeMedia("25"))->CreateVideoStream();
    std::mt19937 random(4);
    for (int round = 0; round < 40; ++round) {
        const int number = static_cast<int>(random() % FRAMES);
        // Any instant within the frame, away from the clock's rounding.
        const std::int64_t time = FramesToTime(number, 25) + FramesToTime(1, 25) * (1 + random() % 8) / 10;
        stream->Seek(time, SeekMode::Exact);
        EXPECT_EQ(stream->GetPosition(), time);
        const auto read = readPictures(*stream, 3);
        ASSERT_EQ(read.size(), static_cast<std::size_t>(std::min(3, FRAMES - number))) << "seek to " << number;
        for (std::size_t index = 0; index < read.size(); ++index)
            ASSERT_EQ(read[index].number, number + static_cast<int>(index)) << "seek to " << number;
        EXPECT_NEAR(read[0].time, FramesToTime(number, 25), GetParam().rounding);
    }
}

TEST_P(CodedPictures, AreTheSameAgainAfterAReset) {
    const auto source = open(makeMedia("25"));
    const auto stream = source->CreateVideoStream();
    EXPECT_EQ(readPictures(*stream).size(), FRAMES);
    stream->Reset();
    EXPECT_EQ(stream->GetPosition(), 0);
    const auto again = readPictures(*stream);
    ASSERT_EQ(again.size(), FRAMES);
    EXPECT_EQ(again.front().number, 0);
    EXPECT_EQ(again.back().number, FRAMES - 1);
    EXPECT_TRUE(source->TakeDamageReports().empty());
}

INSTANTIATE_TEST_SUITE_P(Codings, CodedPictures, testing::ValuesIn(codings()), nameOf);

class ConstantRate : public SourceTest, public testing::WithParamInterface<Rate> {};

TEST_P(ConstantRate, IsToldAndGivesTheExactDuration) {
    const std::string rate = std::to_string(GetParam().numerator()) + "/" + std::to_string(GetParam().denominator());
    const int frames = 150;
    for (const char* file : {"a.mp4", "a.mkv"}) {
        const auto source = open(make(file, join(pictures(rate, frames), H264)));
        ASSERT_TRUE(source->GetInfo().video);
        EXPECT_EQ(source->GetInfo().video->frameRate, GetParam()) << file;
        EXPECT_FALSE(source->GetInfo().video->variableFrameRate) << file;
        EXPECT_NEAR(source->GetInfo().duration, FramesToTime(frames, GetParam()),
                    file[2] == 'm' && file[3] == 'k' ? TIME_BASE / 1000 : 0)
            << file;
        EXPECT_EQ(Kestra::TimeToFrames(source->GetInfo().duration, GetParam()), frames) << file;
        EXPECT_EQ(readPictures(*source->CreateVideoStream()).size(), frames) << file;
    }
}

INSTANTIATE_TEST_SUITE_P(Rates, ConstantRate,
                         testing::Values(Rate(24000, 1001), Rate(24), Rate(25), Rate(30000, 1001), Rate(30), Rate(50),
                                         Rate(60000, 1001), Rate(60)));

class Pictures : public SourceTest {};

TEST_F(Pictures, KeepTheirOwnDurationsAtAVariableRate) {
    // Frame n begins at n * n / 100 s.
    const std::string input = numberedPictures("25", 40) + ",settb=1/1000,setpts=N*N*10";
    const auto source = open(make("a.mp4", {"-f", "lavfi", "-i", input, "-c:v", "libx264", "-bf", "2", "-qp", "10",
                                            "-vsync", "vfr", "-video_track_timescale", "1000"}));
    EXPECT_TRUE(source->GetInfo().video->variableFrameRate);
    const auto stream = source->CreateVideoStream();
    const auto read = readPictures(*stream);
    ASSERT_EQ(read.size(), 40U);
    for (int index = 0; index < 40; ++index) {
        EXPECT_EQ(read[index].number, index);
        EXPECT_EQ(read[index].time, TIME_BASE / 100 * index * index);
    }
    // The last frame before a long pause is referred to by nothing, and still covers it.
    for (int number = 38; number >= 0; --number) {
        // Just before the next one.
        stream->Seek(TIME_BASE / 100 * (number * number + 2 * number) + TIME_BASE / 200, SeekMode::Exact);
        EXPECT_EQ(readPictures(*stream, 1).at(0).number, number);
    }
}

TEST_F(Pictures, ThatBeginLateAreShownFromTheStart) {
    constexpr std::int64_t LATE = TIME_BASE * 8 / 5;
    const auto source =
        open(make("a.mp4", {"-itsoffset", "1.6", "-f", "lavfi", "-i", numberedPictures("25", 50), "-f", "lavfi", "-i",
                            numberedSamples(48000, 96000), "-c:v", "libx264", "-c:a", "aac", "-vsync", "vfr"}));
    EXPECT_EQ(source->GetInfo().video->start, LATE);
    EXPECT_EQ(source->GetInfo().audio->start, 0);
    EXPECT_EQ(source->GetInfo().duration, LATE + 2 * TIME_BASE);
    const auto stream = source->CreateVideoStream();
    const auto read = readPictures(*stream, 2);
    EXPECT_EQ(read.at(0).time, 0);
    EXPECT_EQ(read.at(0).number, 0);
    EXPECT_EQ(read.at(0).duration, LATE + FramesToTime(1, 25));
    EXPECT_EQ(read.at(1).time, LATE + FramesToTime(1, 25));
    stream->Seek(TIME_BASE, SeekMode::Exact);
    EXPECT_EQ(readPictures(*stream, 1).at(0).number, 0);
}

TEST_F(Pictures, OfATransportStreamBeginAtZeroThoughItsClockDoesNot) {
    const auto source =
        open(make("a.ts", join(pictures("25", 60), join(H264, {"-muxdelay", "3", "-output_ts_offset", "90"}))));
    const auto stream = source->CreateVideoStream();
    const auto read = readPictures(*stream);
    ASSERT_EQ(read.size(), 60U);
    EXPECT_EQ(read.front().time, 0);
    EXPECT_EQ(stream->GetDuration(), FramesToTime(60, 25));
}

TEST_F(Pictures, BeforeTheCutOfAnEditListAreNotShown) {
    const std::string whole =
        make("a.mp4", join(pictures("25", 120), {"-c:v", "libx264", "-g", "50", "-bf", "2", "-qp", "10"}));
    const auto source = open(make("b.mp4", {"-ss", "2.6", "-i", whole, "-c", "copy"}));
    const auto read = readPictures(*source->CreateVideoStream());
    ASSERT_EQ(read.size(), 55U);
    EXPECT_EQ(read.front().number, 65);
    EXPECT_EQ(read.front().time, 0);
    EXPECT_EQ(read.back().number, 119);
}

TEST_F(Pictures, AreCountedWhereTheHeaderHoldsNoDuration) {
    const std::string path = folder / "a.mkv";
    runFfmpeg(join(pictures("25", 70), join(H264, {"-f", "matroska", "-live", "1", path})));
    const auto source = open(path);
    EXPECT_EQ(Kestra::TimeToFrames(source->GetInfo().duration, 25), 70);
    EXPECT_EQ(readPictures(*source->CreateVideoStream()).size(), 70U);
}

TEST_F(Pictures, KeepTheInterlacedFlag) {
    const auto source = open(make(
        "a.ts", join(pictures("25", 20), {"-c:v", "mpeg2video", "-flags", "+ilme+ildct", "-top", "1", "-q:v", "2"})));
    EXPECT_TRUE(source->GetInfo().video->interlaced);
    EXPECT_EQ(source->GetInfo().video->frameRate, Rate(25));
}

TEST_F(Pictures, CarryTheDisplayAspect) {
    const auto source = open(make("a.mp4", join(pictures("25", 5), join(H264, {"-vf", "setsar=16/11"}))));
    EXPECT_EQ(source->GetInfo().video->frame, (Kestra::Conf::FrameInfo{64, 64, 16, 11}));
    EXPECT_EQ(source->CreateVideoStream()->ReadVideo()->GetFrameInfo(), (Kestra::Conf::FrameInfo{64, 64, 16, 11}));
}

TEST_F(Pictures, ComeFromTheDefaultTrackOfTwo) {
    const auto source = open(make("a.mkv", {"-f", "lavfi", "-i", "color=red:s=320x240:r=25:d=1", "-f", "lavfi", "-i",
                                            numberedPictures("25", 25), "-map", "0", "-map", "1", "-disposition:v:0",
                                            "0", "-disposition:v:1", "default"}));
    EXPECT_EQ(source->GetInfo().videoTracks, 2);
    EXPECT_EQ(source->GetInfo().video->index, 1);
    EXPECT_EQ(source->GetInfo().video->frame.width, 64U);
}

TEST_F(Pictures, AreNotTheCoverOfASong) {
    const std::string cover = make("cover.png", {"-f", "lavfi", "-i", "color=red:s=64x64", "-frames:v", "1"});
    const auto source = open(make("a.mp3", {"-f", "lavfi", "-i", numberedSamples(44100, 44100), "-i", cover, "-map",
                                            "0", "-map", "1", "-c:v", "copy", "-disposition:v", "attached_pic"}));
    EXPECT_FALSE(source->GetInfo().video);
    EXPECT_EQ(source->GetInfo().videoTracks, 0);
    EXPECT_THROW(source->CreateVideoStream(), Kestra::Proc::ProcException);
}

TEST_F(Pictures, OfAStillComeOnce) {
    for (const char* name : {"a.png", "50%d.jpg", "c.bmp"}) {
        // Written under a plain name: the program takes a percent sign for a pattern.
        const std::string extension = std::string(name).substr(std::string(name).size() - 4);
        const std::string plain =
            make("plain" + extension, {"-f", "lavfi", "-i", "color=red:s=64x48", "-frames:v", "1"});
        const std::string path = folder / name;
        ASSERT_EQ(std::rename(plain.c_str(), path.c_str()), 0);
        const auto source = open(path);
        EXPECT_TRUE(source->GetInfo().video->stillPicture) << name;
        const auto stream = source->CreateVideoStream();
        EXPECT_TRUE(stream->ReadVideo()) << name;
        EXPECT_FALSE(stream->ReadVideo()) << name;
    }
}

TEST_F(Pictures, WithAlphaKeepIt) {
    const auto opened = open(make("a.webm", {"-f", "lavfi", "-i", "color=red@0.5:s=64x64:r=25:d=0.4,format=yuva420p",
                                             "-c:v", "libvpx-vp9", "-auto-alt-ref", "0"}));
    EXPECT_EQ(opened->GetInfo().video->pixelFormat, "yuva420p");
    EXPECT_EQ(opened->CreateVideoStream()->ReadVideo()->GetPixelFormat(), Kestra::Conf::PixelFormat::YUVA420P);
    const auto argb =
        open(make("a.mov", {"-f", "lavfi", "-i", "color=red@0.5:s=64x64:r=25:d=0.4,format=argb", "-c:v", "qtrle"}));
    EXPECT_EQ(argb->GetInfo().video->pixelFormat, "argb");
}

TEST_F(Pictures, OfGrayAreOfTheFullRangeUnlessTheirCodecSaysOtherwise) {
    constexpr int full = 2;
    constexpr int limited = 1;
    const std::vector<std::tuple<std::string, std::string, int>> kinds{{"a.mkv", "ffv1", full},
                                                                       {"b.mkv", "ffvhuff", full},
                                                                       {"d.mkv", "libx265", limited},
                                                                       {"e.mkv", "libx264", limited}};
    for (const auto& [name, codec, range] : kinds) {
        const std::string path = make(name, {"-f", "lavfi", "-i", "testsrc=s=64x48:r=25:d=0.2,format=gray", "-c:v",
                                             codec, "-pix_fmt", "gray", "-x265-params", "log-level=none"});
        EXPECT_EQ(open(path)->GetInfo().video->colour.range, range) << codec;
    }
    // What is told holds.
    const std::string told = make(
        "f.mkv", {"-f", "lavfi", "-i", "testsrc=s=64x48:r=25:d=0.2,format=gray", "-c:v", "ffv1", "-color_range", "tv"});
    EXPECT_EQ(open(told)->GetInfo().video->colour.range, limited);
}

TEST_F(Pictures, OfAnotherSizeOnTheWayAreNoted) {
    const std::vector<std::string> coding{"-c:v", "mpeg2video", "-g", "10", "-output_ts_offset"};
    const auto part = [&](const std::string& name, const std::string& size, const std::string& offset) {
        return make(name, join({"-f", "lavfi", "-i", "testsrc=r=25:d=1:s=" + size}, join(coding, {offset})));
    };
    const std::string first = part("a.ts", "64x48", "0");
    std::ofstream(folder / "c.ts", std::ios::binary)
        << std::ifstream(first, std::ios::binary).rdbuf()
        << std::ifstream(part("b.ts", "128x96", "1"), std::ios::binary).rdbuf();
    const auto source = open(folder / "c.ts");
    const auto stream = source->CreateVideoStream();
    EXPECT_TRUE(stream->ReadVideo());
    EXPECT_TRUE(source->TakeNotes().empty()) << "not before it changes";
    while (stream->ReadVideo()) {
    }
    const auto notes = source->TakeNotes();
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].what, "its pictures change to 128x96 on the way; they are fitted like those of 64x48 with which "
                             "it begins");
    const auto same = open(first);
    const auto whole = same->CreateVideoStream();
    while (whole->ReadVideo()) {
    }
    EXPECT_TRUE(same->TakeNotes().empty());
}

TEST_F(Pictures, AreInterruptedUntilReset) {
    const auto stream = open(make("a.mp4", join(pictures("25", 30), H264)))->CreateVideoStream();
    EXPECT_TRUE(stream->ReadVideo());
    stream->Interrupt();
    EXPECT_THROW(stream->ReadVideo(), Kestra::Proc::Interrupted);
    stream->Seek(0, SeekMode::Exact);
    EXPECT_THROW(stream->ReadVideo(), Kestra::Proc::Interrupted);
    stream->Reset();
    EXPECT_EQ(readPictures(*stream).size(), 30U);
    EXPECT_FALSE(stream->ReadVideo());
}

TEST(InterruptibleReading, TellsNoFaultOfTheFileOnceItIsInterrupted) {
    std::atomic<bool> interrupted{false};
    const auto fail = [] { KESTRA_THROW(Kestra::Proc::ProcException("broken off")); };
    EXPECT_THROW(Kestra::FF::InterruptibleRead(interrupted, fail), Kestra::Proc::ProcException);
    const auto failInterrupted = [&] {
        interrupted = true;
        fail();
    };
    EXPECT_THROW(Kestra::FF::InterruptibleRead(interrupted, failInterrupted), Kestra::Proc::Interrupted);
}

TEST_F(Pictures, AreInterruptedBeforeTheirFileIsOpened) {
    const std::string path = make("a.mp4", join(pictures("25", 30), H264));
    const auto stream = open(path)->CreateVideoStream();
    stream->Interrupt();
    EXPECT_THROW(stream->Prepare(), Kestra::Proc::Interrupted) << "no fault of the file";
    stream->Reset();
    stream->Prepare();
    EXPECT_EQ(readPictures(*stream).size(), 30U);
}

TEST_F(Pictures, AreAtHandAfterASeekBeyondEitherEnd) {
    const auto stream = open(make("a.mp4", join(pictures("25", 30), H264)))->CreateVideoStream();
    stream->Seek(10 * TIME_BASE, SeekMode::Exact);
    EXPECT_EQ(stream->GetPosition(), stream->GetDuration());
    EXPECT_FALSE(stream->ReadVideo());
    stream->Seek(-5, SeekMode::Exact);
    EXPECT_EQ(stream->GetPosition(), 0);
    EXPECT_EQ(readPictures(*stream, 1).at(0).number, 0);
}

} // namespace
} // namespace TestMedia
