// SPDX-License-Identifier: GPL-3.0-or-later
#include "Program.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/MediaProbe.h"
#include <filesystem>
#include <gtest/gtest.h>

using TestCli::Result;
using TestCli::run;

namespace {

class Render : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = new TestMedia::Folder;
        TestMedia::makeFlashBeep(*folder / "clip.mov", {});
    }
    static void TearDownTestSuite() { delete folder; }

    static TestMedia::Folder* folder;
    const std::string clip = *folder / "clip.mov";
    const TestMedia::Folder place;
};

TestMedia::Folder* Render::folder = nullptr;

TEST_F(Render, MakesARightFileAndPrintsItsFacts) {
    const std::string output = place / "film.mp4";
    const Result result = run({"render", clip, "-p", "mp4-h264-720p", "-o", output, "--progress", "none"});
    EXPECT_EQ(result.code, 0) << result.errors.toStdString();
    EXPECT_EQ(result.output.count(QLatin1Char('\n')), 1);
    EXPECT_TRUE(result.output.startsWith(QString::fromStdString(output) +
                                         QStringLiteral(": 00:00:04.000, h264 320x180, 100 frames, aac 48000 Hz")))
        << result.output.toStdString();
    EXPECT_TRUE(result.errors.isEmpty()) << result.errors.toStdString();
    const TestMedia::ProbedMedia media = TestMedia::probe(output);
    ASSERT_TRUE(media.video && media.audio);
    EXPECT_EQ(media.video->frames.size(), 100U);
    EXPECT_EQ(media.decodeErrors, 0);
    EXPECT_NE(media.video->matrix, 2);
    EXPECT_NE(media.video->range, 0);
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(QStringLiteral("film.mp4")));
}

TEST_F(Render, TakesTwoNamesAloneAndSaysWhichPreset) {
    const std::string output = place / "film.mp4";
    const Result result = run({clip, output});
    EXPECT_EQ(result.code, 0) << result.errors.toStdString();
    EXPECT_TRUE(result.errors.contains(QStringLiteral("note: The preset is mp4-h264-1080p, the default for .mp4")))
        << result.errors.toStdString();
    EXPECT_EQ(TestMedia::probe(output).video->frames.size(), 100U);
    const auto before = TestFiles::read(output);
    const Result again = run({clip, output});
    EXPECT_EQ(again.code, 2);
    EXPECT_TRUE(again.errors.contains(QStringLiteral("is a file already"))) << again.errors.toStdString();
    EXPECT_EQ(TestFiles::read(output), before);
}

TEST_F(Render, TakesTheLastOfSeveralNamesForTheOutputAndATagForItsDefault) {
    const std::string output = place / "both.m4a";
    const Result result = run({"-p", "audio", clip, clip, output, "--progress", "none"});
    EXPECT_EQ(result.code, 0) << result.errors.toStdString();
    EXPECT_TRUE(result.errors.contains(QStringLiteral("m4a-aac, the default of \"audio\"")))
        << result.errors.toStdString();
    EXPECT_EQ(TestMedia::probe(output).audio->samples, 8 * 48000);
}

TEST_F(Render, CutsAtFramesAndForADurationAndEndsWithItsInputs) {
    const std::string output = place / "cut.mp4";
    const auto framesOf = [&](const std::vector<std::string>& points) {
        std::vector<std::string> arguments{"render", clip,          "-p",         "mp4-h264-480p", "-o",
                                           output,   "--overwrite", "--progress", "none"};
        arguments.insert(arguments.end(), points.begin(), points.end());
        const Result result = run(arguments);
        EXPECT_EQ(result.code, 0) << result.errors.toStdString();
        EXPECT_EQ(result.errors.contains(QStringLiteral("The inputs end before the out point, at 00:00:04.000")),
                  points.back() == "1:00")
            << result.errors.toStdString();
        return TestMedia::probe(output).video->frames.size();
    };
    EXPECT_EQ(framesOf({"--in", "10f", "--out", "30f"}), 20U);
    EXPECT_EQ(framesOf({"--in", "0:01", "--duration", "1.2s"}), 30U);
    EXPECT_EQ(framesOf({"--out", "3", "--duration", "25f"}), 25U);
    EXPECT_EQ(framesOf({"--in", "3", "--out", "1:00"}), 25U);
}

TEST_F(Render, AFewSamplesOfSoundMakeAWholeFile) {
    for (const int samples : {1, 47, 480}) {
        const std::string input = place / "short.wav", output = place / "short.mp3";
        const std::string cut = "atrim=end_sample=" + std::to_string(samples);
        TestMedia::runFfmpeg({"-f", "lavfi", "-i", "sine=r=48000", "-af", cut, input});
        const Result result = run({"render", input, "-p", "mp3", "-o", output, "--overwrite", "--progress", "none"});
        EXPECT_EQ(result.code, 0) << result.errors.toStdString();
        EXPECT_EQ(TestMedia::probe(output).audio->samples, samples);
    }
}

TEST_F(Render, NamesOutsideAsciiWorkInEveryLocale) {
    const std::string input = place / "Улица – été.mov", output = place / "映画 100%d.mp4";
    TestFiles::write(input, TestFiles::read(clip));
    const Result result = run({"render", input, "-p", "mp4-h264-480p", "-o", output});
    EXPECT_EQ(result.code, 0) << result.errors.toStdString();
    EXPECT_EQ(TestMedia::probe(output).video->frames.size(), 100U);
}

TEST_F(Render, AnAudioPresetKeepsTheSoundOnly) {
    const std::string output = place / "sound.flac";
    const Result result = run({"render", clip, "-p", "flac", "-o", output});
    EXPECT_EQ(result.code, 0) << result.errors.toStdString();
    const TestMedia::ProbedMedia media = TestMedia::probe(output);
    EXPECT_FALSE(media.video);
    EXPECT_EQ(media.audio->samples, 4 * media.audio->sampleRate);
}

TEST_F(Render, InAndOutCutToTheFrame) {
    const std::string output = place / "cut.mkv";
    const Result result =
        run({"render", clip, "-p", "mkv-ffv1-flac", "-o", output, "--in", "00:00:01.000", "--out", "2.4"});
    EXPECT_EQ(result.code, 0) << result.errors.toStdString();
    const std::vector<int> numbers = TestMedia::probe(output).numbers();
    ASSERT_EQ(numbers.size(), 35U);
    // Frame 25 and 26 are a flash; 27 is the first that tells its number.
    EXPECT_EQ(numbers[0], -1);
    for (std::size_t i = 2; i < 25; ++i)
        EXPECT_EQ(numbers[i], static_cast<int>((25 + i) % 16)) << i;
}

TEST_F(Render, OverwritingReplacesTheOldFileAndKeepsItsMode) {
    const std::string output = place / "film.mp4";
    TestFiles::write(output, "old");
    ASSERT_EQ(chmod(output.c_str(), 0600), 0);
    const Result result = run({"render", clip, "-p", "mp4-h264-480p", "-o", output, "--overwrite"});
    EXPECT_EQ(result.code, 0) << result.errors.toStdString();
    EXPECT_EQ(TestFiles::modeOf(output), 0600U);
    EXPECT_EQ(TestMedia::probe(output).video->frames.size(), 100U);
}

TEST_F(Render, TwoRunsInOneFolderDoNotDisturbEachOther) {
    TestCli::Program first({"render", clip, "-p", "mp4-h264-480p", "-o", place / "first.mp4"});
    TestCli::Program second({"render", clip, "-p", "mp4-h264-480p", "-o", place / "second.mp4"});
    first.start();
    second.start();
    EXPECT_EQ(first.finish().code, 0);
    EXPECT_EQ(second.finish().code, 0);
    EXPECT_EQ(TestFiles::namesIn(place / "").size(), 2);
}

TEST_F(Render, ARelativeOutputLandsInTheCurrentFolder) {
    TestCli::Program program({"render", clip, "-p", "wav", "-o", "here.wav"});
    program.setWrapper({QStringLiteral("env"), QStringLiteral("-C"), QString::fromStdString(place / "")});
    EXPECT_EQ(program.run().code, 0);
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(QStringLiteral("here.wav")));
}

TEST_F(Render, TakesWhatStandsBehindTheEndOfOptionsForNames) {
    std::filesystem::copy_file(clip, place / "-x.mov");
    TestCli::Program program({"-p", "wav", "--", "-x.mov", "-y.wav"});
    program.setWrapper({QStringLiteral("env"), QStringLiteral("-C"), QString::fromStdString(place / "")});
    const Result result = program.run();
    EXPECT_EQ(result.code, 0) << result.errors.toStdString();
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList({QStringLiteral("-x.mov"), QStringLiteral("-y.wav")}));
}

TEST_F(Render, VerboseWritesTheLogAndQuietDoesNot) {
    const Result verbose = run({"--verbose", "render", clip, "-p", "wav", "-o", place / "a.wav"});
    EXPECT_TRUE(verbose.errors.contains(QStringLiteral("EXPORT: Started"))) << verbose.errors.toStdString();
    const Result quiet = run({"render", clip, "-p", "mkv-ffv1-flac", "-o", place / "b.mkv", "--progress", "none"});
    EXPECT_TRUE(quiet.errors.isEmpty()) << quiet.errors.toStdString();
}

TEST_F(Render, StandardOutputThatIsFullIsAFailureButTheFileStands) {
    TestCli::Program full({"render", clip, "-p", "wav", "-o", place / "a.wav"});
    full.setWrapper({QStringLiteral("sh"), QStringLiteral("-c"), QStringLiteral("exec \"$0\" \"$@\" > /dev/full")});
    const Result result = full.run();
    EXPECT_EQ(result.code, 1);
    EXPECT_TRUE(result.errors.contains(QStringLiteral("standard output")));
    EXPECT_EQ(TestFiles::namesIn(place / "").size(), 1);
}

} // namespace
