// SPDX-License-Identifier: GPL-3.0-or-later
// Animated WebP files, as people order them and as libwebp shows them.
#include "support/AnimatedWebP.h"
#include "Program.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/MediaProbe.h"
#include <cmath>
#include <csignal>
#include <gmock/gmock.h>

using TestCli::Program;
using TestCli::Result;
using ::testing::HasSubstr;
using ::testing::Not;
using TestMedia::AnimatedWebP;
using TestMedia::ShownPicture;

namespace {

class Animations : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = new TestMedia::Folder;
        TestMedia::FlashBeep media;
        media.width = 160;
        media.height = 90;
        media.rate = {30000, 1001};
        media.frames = 300;
        media.more = {"-metadata", "title=A film"};
        TestMedia::makeFlashBeep(*folder / "clip.mov", media);
    }
    static void TearDownTestSuite() { delete folder; }

    Result run(const std::vector<std::string>& arguments) {
        const Result result = TestCli::run(arguments);
        said = result.errors.toStdString();
        return result;
    }
    /// Made by ffmpeg, without loss; `filter` gives its pictures.
    std::string make(const std::string& name, const std::string& filter, const std::vector<std::string>& more) const {
        std::vector<std::string> arguments{"-y", "-f", "lavfi", "-i", filter, "-frames:v", "2"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        arguments.push_back(*folder / name);
        TestMedia::runFfmpeg(arguments);
        return *folder / name;
    }
    AnimatedWebP exported(const std::string& source, const char* quality) {
        const Result result = run({"render", source, "-o", output, "-p", "webp-webp-720p", "--quality", quality,
                                   "--overwrite", "--progress", "none"});
        EXPECT_EQ(result.code, 0) << said;
        return result.code == 0 ? AnimatedWebP::read(output) : AnimatedWebP{};
    }

    static TestMedia::Folder* folder;
    const std::string clip = *folder / "clip.mov";
    const TestMedia::Folder place;
    const std::string output = place / "out.webp";
    std::string said;
};

TestMedia::Folder* Animations::folder = nullptr;

TEST_F(Animations, AreChosenByTheirExtensionAndHoldEachFrameAtItsTime) {
    const Result result = run({clip, output, "--progress", "none"});
    ASSERT_EQ(result.code, 0) << said;
    EXPECT_THAT(said, HasSubstr("The preset is webp-webp-720p, the default for .webp"));
    EXPECT_THAT(said, HasSubstr("left out: 1 sound track (1)"));
    EXPECT_THAT(said, HasSubstr("The title is left out: the file has no place for it"));
    EXPECT_THAT(result.output.toStdString(), HasSubstr("webp 160x90, 300 frames"));
    const AnimatedWebP file = AnimatedWebP::read(output);
    EXPECT_EQ(file.plays, 0);
    ASSERT_EQ(file.pictures.size(), 300U);
    for (std::size_t frame = 0; frame < 300; ++frame)
        ASSERT_EQ(file.pictures[frame].start, std::lround(static_cast<double>(frame) * 1001 / 30)) << frame;
    EXPECT_EQ(file.pictures.back().end, 10010);
    const std::vector<int> numbers = TestMedia::probe(output).numbers();
    for (std::size_t frame = 0; frame < 300; ++frame)
        ASSERT_EQ(numbers[frame], frame % 25 < 2 ? -1 : static_cast<int>(frame % 16)) << frame;
}

TEST_F(Animations, KeepTransparencyInEveryQuality) {
    // A half transparent square that moves over nothing.
    const std::string source = make("clear.mov",
                                    "color=c=0xC83C28@0.5:s=64x64:r=25,format=rgba,pad=192:64:0:0:color=black@0,"
                                    "geq=r='if(between(X,64*N,64*N+63),200,0)':g='if(between(X,64*N,64*N+63),60,0)':"
                                    "b='if(between(X,64*N,64*N+63),40,0)':a='if(between(X,64*N,64*N+63),128,0)'",
                                    {"-c:v", "png"});
    for (const char* const quality : {"best", "high", "medium", "low"}) {
        const AnimatedWebP file = exported(source, quality);
        ASSERT_EQ(file.pictures.size(), 2U);
        EXPECT_TRUE(file.transparent);
        for (int index = 0; index < 2; ++index) {
            const ShownPicture& picture = file.pictures[static_cast<std::size_t>(index)];
            const int x = 64 * index + 32;
            EXPECT_NEAR(picture.at(x, 32, 0), 200, 8) << quality;
            EXPECT_NEAR(picture.at(x, 32, 1), 60, 8) << quality;
            EXPECT_NEAR(picture.at(x, 32, 2), 40, 8) << quality;
            EXPECT_NEAR(picture.at(x, 32, 3), 128, 2) << quality;
            EXPECT_EQ(picture.at(64 * (1 - index) + 32, 32, 3), 0) << quality << ": nothing of the other picture";
        }
    }
}

TEST_F(Animations, ShowColoursOfHighDefinitionAsTheyWere) {
    const std::string source =
        make("hd.mkv", "color=c=0xC83C28:s=1280x720:r=25,scale=out_color_matrix=bt709:out_range=tv,format=yuv420p",
             {"-c:v", "ffv1", "-colorspace", "bt709", "-color_primaries", "bt709", "-color_trc", "bt709",
              "-color_range", "tv"});
    for (const char* const quality : {"best", "medium"}) {
        const AnimatedWebP file = exported(source, quality);
        ASSERT_EQ(file.pictures.size(), 2U);
        EXPECT_NEAR(file.pictures[0].at(640, 360, 0), 200, 4) << quality;
        EXPECT_NEAR(file.pictures[0].at(640, 360, 1), 60, 4) << quality;
        EXPECT_NEAR(file.pictures[0].at(640, 360, 2), 40, 4) << quality;
    }
}

TEST_F(Animations, ShowAHighRangeAsPicturesOfComputersDo) {
    const std::string source = make("hdr.mkv", "color=c=0x703C28:s=640x360:r=25,format=yuv420p10le",
                                    {"-c:v", "ffv1", "-colorspace", "bt2020nc", "-color_primaries", "bt2020",
                                     "-color_trc", "smpte2084", "-color_range", "tv"});
    const Result pictures = run({source, place / "frames/", "-p", "png-sequence", "--progress", "none"});
    ASSERT_EQ(pictures.code, 0) << said;
    const std::string raw = place / "frame.rgb";
    TestMedia::runFfmpeg({"-y", "-i", place / "frames/frame_00000.png", "-f", "rawvideo", "-pix_fmt", "rgb24", raw});
    const QByteArray expected = TestFiles::read(raw);
    for (const char* const quality : {"best", "medium"}) {
        const AnimatedWebP file = exported(source, quality);
        ASSERT_EQ(file.pictures.size(), 2U);
        for (int component = 0; component < 3; ++component)
            EXPECT_NEAR(file.pictures[0].at(320, 180, component),
                        static_cast<std::uint8_t>(expected[3 * (180 * 640 + 320) + component]), 4)
                << quality << ' ' << component;
    }
}

TEST_F(Animations, KeepOddSides) {
    const std::string source = make("odd.mkv", "testsrc2=size=161x91:rate=25,format=gbrp", {"-c:v", "ffv1"});
    for (const char* const quality : {"best", "medium"}) {
        const AnimatedWebP file = exported(source, quality);
        EXPECT_EQ(file.width, 161) << quality;
        EXPECT_EQ(file.height, 91) << quality;
    }
}

TEST_F(Animations, AStopLeavesTheOldFile) {
    TestFiles::write(output, "old");
    std::vector<std::string> command{"render"};
    command.resize(9, clip);
    command.insert(command.end(), {"-o", output, "-p", "webp-webp-720p", "--overwrite", "--progress", "json",
                                   "--quality", "best", "--set", "size=1280x720"});
    Program program(command);
    program.start();
    ASSERT_TRUE(program.waitForError(QStringLiteral("progress")));
    program.signal(SIGTERM);
    EXPECT_EQ(program.finish().code, 128 + SIGTERM);
    EXPECT_EQ(TestFiles::read(output), "old");
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(QStringLiteral("out.webp")));
}

TEST_F(Animations, AreWrittenAndNotReadAndThatIsSaid) {
    ASSERT_EQ(run({clip, output, "--duration", "0.2", "--progress", "none"}).code, 0) << said;
    EXPECT_NE(run({"info", output}).code, 0);
    EXPECT_THAT(said, HasSubstr("it is an animated WebP file, a kind that is written and not read"));
    EXPECT_NE(run({output, place / "film.mp4", "--progress", "none"}).code, 0);
    EXPECT_THAT(said, HasSubstr("it is an animated WebP file, a kind that is written and not read"));
    // A picture that does not move is an input like others.
    const std::string still =
        make("still.webp", "testsrc2=size=64x48", {"-frames:v", "1", "-c:v", "libwebp", "-f", "webp"});
    EXPECT_EQ(run({"info", still}).code, 0) << said;
}

TEST_F(Animations, AreRefusedAtRatesThatBrowsersShowTooSlowly) {
    const Result result = run({clip, output, "--set", "frame-rate=100", "--progress", "none"});
    EXPECT_NE(result.code, 0);
    EXPECT_THAT(said, HasSubstr("webp does not take 100; the nearest that it takes is"));
    const std::string fast = make("fast.mkv", "testsrc2=size=64x48:rate=120", {"-c:v", "ffv1"});
    EXPECT_EQ(run({fast, output, "--progress", "none"}).code, 1);
    EXPECT_THAT(said, HasSubstr("libwebp refuses 120 frames a second"));
    EXPECT_EQ(run({fast, output, "--set", "frame-rate=60", "--progress", "none"}).code, 0) << said;
}

TEST_F(Animations, TakeAQualityOfWhichMoreIsBetter) {
    EXPECT_EQ(run({clip, output, "--set", "quality=101"}).code, 2);
    EXPECT_THAT(said, HasSubstr("webp takes 1 to 100"));
    const std::string grain = make("grain.mkv", "testsrc2=size=160x90:rate=25,noise=alls=30", {"-c:v", "ffv1"});
    std::size_t last = 0;
    for (const char* const quality : {"20", "95"}) {
        run({"render", grain, "-o", output, "-p", "webp-webp-480p", "--set", std::string("quality=") + quality,
             "--overwrite", "--progress", "none"});
        EXPECT_GT(static_cast<std::size_t>(TestFiles::read(output).size()), last) << quality;
        last = static_cast<std::size_t>(TestFiles::read(output).size());
    }
    const QString preset = run({"presets", "webp-webp-480p"}).output;
    EXPECT_TRUE(preset.contains(QStringLiteral("higher is better"))) << preset.toStdString();
    int place = 0;
    for (const char* const quality : {"best: ", "high: ", "medium", "low: "}) {
        EXPECT_GT(preset.indexOf(QLatin1String(quality)), place) << preset.toStdString();
        place = preset.indexOf(QLatin1String(quality));
    }
}

} // namespace
