// SPDX-License-Identifier: GPL-3.0-or-later
#include "Program.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <cstring>
#include <gtest/gtest.h>
#include <sys/stat.h>

using TestCli::Program;
using TestCli::Result;

namespace {

/// Every run is over an older file, which has to survive, in a folder that has to stay as it was.
class BadInput : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = new TestMedia::Folder;
        TestMedia::FlashBeep media;
        media.more = {"-movflags", "+faststart"};
        TestMedia::makeFlashBeep(*folder / "clip.mov", media);
    }
    static void TearDownTestSuite() { delete folder; }

    BadInput() {
        TestFiles::write(output, "old");
        chmod((place / "").c_str(), 0777);
    }

    std::vector<std::string> command(const std::string& input, const std::vector<std::string>& more = {}) const {
        std::vector<std::string> arguments{"render", input,         "-p",         "mp4-h264-720p", "-o",
                                           output,   "--overwrite", "--progress", "none"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return arguments;
    }

    void expectRefused(Program& program, int code, const std::vector<std::string>& words) const {
        const Result result = program.run();
        EXPECT_TRUE(result.ended);
        EXPECT_EQ(result.code, code);
        EXPECT_EQ(result.errorLines().size(), 1) << result.errors.toStdString();
        for (const std::string& word : words)
            EXPECT_TRUE(result.errors.contains(QString::fromStdString(word)))
                << word << " in " << result.errors.toStdString();
        EXPECT_TRUE(result.output.isEmpty());
        EXPECT_EQ(TestFiles::read(output), "old");
        EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(QStringLiteral("film.mp4")));
    }
    void expectRefused(const std::vector<std::string>& arguments, int code,
                       const std::vector<std::string>& words) const {
        Program program(arguments);
        expectRefused(program, code, words);
    }

    static TestMedia::Folder* folder;
    const std::string clip = *folder / "clip.mov";
    const TestMedia::Folder place;
    const TestMedia::Folder sources;
    const std::string output = place / "film.mp4";
};

TestMedia::Folder* BadInput::folder = nullptr;

TEST_F(BadInput, AMissingFile) {
    expectRefused(command(sources / "none.mov"), 2, {"none.mov", "No such file"});
}

TEST_F(BadInput, AFolder) {
    expectRefused(command(sources / ""), 2, {"it is a folder"});
}

TEST_F(BadInput, AnEmptyFile) {
    TestFiles::write(sources / "empty.mov", "");
    expectRefused(command(sources / "empty.mov"), 2, {"empty.mov", "it is empty"});
}

TEST_F(BadInput, ATextFile) {
    TestFiles::write(sources / "notes.txt", "This is no film.\nIt is a text.\n");
    expectRefused(command(sources / "notes.txt"), 2, {"notes.txt"});
}

TEST_F(BadInput, NoiseThatLooksLikeAFilm) {
    QByteArray noise(100'000, '\0');
    for (int i = 0; i < noise.size(); ++i)
        noise[i] = static_cast<char>(i * 7919 >> 3);
    TestFiles::write(sources / "noise.mp4", noise);
    expectRefused(command(sources / "noise.mp4"), 2, {"noise.mp4"});
}

TEST_F(BadInput, APipe) {
    ASSERT_EQ(mkfifo((sources / "pipe.mov").c_str(), 0600), 0);
    expectRefused(command(sources / "pipe.mov"), 2, {"pipe.mov", "it is a pipe"});
}

TEST_F(BadInput, AFileThatMayNotBeRead) {
    const std::string secret = sources / "secret.mov";
    TestFiles::write(secret, TestFiles::read(clip));
    ASSERT_EQ(chmod(secret.c_str(), 0), 0);
    ASSERT_EQ(chmod((sources / "").c_str(), 0755), 0);
    ASSERT_EQ(chmod(output.c_str(), 0666), 0);
    Program program(command(secret));
    program.dropRights();
    expectRefused(program, 2, {"secret.mov", "Permission denied"});
}

TEST_F(BadInput, AFilmCutOffBeforeItsIndex) {
    const std::string half = sources / "half.mov";
    TestMedia::makeFlashBeep(half, {});
    const QByteArray whole = TestFiles::read(half);
    TestFiles::write(half, whole.left(whole.size() / 2));
    expectRefused(command(half), 2, {"half.mov"});
}

TEST_F(BadInput, AFilmCutOffBehindItsIndexIsDamaged) {
    const std::string half = sources / "half.mov";
    const QByteArray whole = TestFiles::read(clip);
    TestFiles::write(half, whole.left(whole.size() / 2));
    expectRefused(command(half), 1, {"half.mov", "source damaged"});
}

TEST_F(BadInput, AMatroskaFilmCutOffIsDamaged) {
    const std::string half = sources / "half.mkv";
    TestMedia::makeFlashBeep(half, {});
    const QByteArray whole = TestFiles::read(half);
    TestFiles::write(half, whole.left(whole.size() / 2));
    expectRefused(command(half), 1, {"half.mkv", "source damaged"});
}

TEST_F(BadInput, NeitherPictureNorSound) {
    TestFiles::write(sources / "words.srt", "1\n00:00:00,000 --> 00:00:01,000\nWords\n");
    const std::string film = sources / "words.mkv";
    TestMedia::runFfmpeg({"-i", sources / "words.srt", film});
    expectRefused(command(film), 2, {"words.mkv"});
}

TEST_F(BadInput, OneBadFileAmongGoodOnes) {
    expectRefused(command(clip, {sources / "none.mov"}), 2, {"none.mov"});
}

TEST_F(BadInput, AnUnknownPresetWithNearNames) {
    expectRefused({"render", clip, "-p", "mp4-h264-702p", "-o", output, "--overwrite"}, 2,
                  {"mp4-h264-702p", "did you mean mp4-h264-720p"});
}

TEST_F(BadInput, ALimitThatIsNoWholeNumber) {
    for (const char* const limit : {"many", "2.5", "0", "1000001", "3x"})
        for (const char* const option : {"--max-tracks", "--max-picture"})
            expectRefused(command(clip, {option, limit}), 2,
                          {option, '"' + std::string(limit) + "\" is no whole number from 1 to 1000000"});
}

TEST_F(BadInput, AllOfItIsToldAtOnce) {
    const std::string text = sources / "text.mov", empty = sources / "empty.mov", gone = sources / "gone.mov";
    TestFiles::write(text, "This is no film, and it is not meant to be one.");
    TestFiles::write(empty, "");
    expectRefused(command(clip, {gone, empty}), 2, {"gone.mov", "; ", "empty.mov\": it is empty"});
    const std::string other = sources / "other.mov";
    TestFiles::write(other, "Nor is this.");
    expectRefused(command(text, {clip, other}), 2, {"text.mov", "; ", "other.mov"});
    expectRefused(command(text, {clip, gone}), 2, {"text.mov", "; ", "gone.mov"});
    for (const char* const preset : {"nonsense-preset", "mp4-h264-720p"})
        expectRefused({"render", gone, text, clip, "-p", preset, "--quality", "nonsense-quality", "-o", output, "-y"},
                      2, {"nonsense-", "; ", "gone.mov", "text.mov"});
    expectRefused({"render", text, "-p", "nonsense-preset", "-o", output, "-y"}, 2,
                  {"nonsense-preset", "; ", "text.mov"});
}

TEST_F(BadInput, PointsInvertedOrOutside) {
    expectRefused(command(clip, {"--in", "3", "--out", "2"}), 2, {"00:00:03.000", "00:00:02.000"});
    expectRefused(command(clip, {"--in", "2", "--out", "2"}), 2, {"does not lie after"});
    expectRefused(command(clip, {"--in", "4"}), 2, {"00:00:04.000", "outside"});
    expectRefused(command(clip, {"--in", "2", "--out", "3", "--duration", "1"}), 2, {"two of them say"});
    expectRefused(command(clip, {"--in", "50f", "--out", "2"}), 2, {"00:00:02.000", "does not lie after"});
    expectRefused(command(clip, {"--out", "1", "--duration", "1:00"}), 2,
                  {"The duration 00:01:00.000 up to the out point, 00:00:01.000, would begin before the start"});
    expectRefused(command(clip, {"--out", "100", "--duration", "6"}), 2,
                  {"The duration 00:00:06.000 up to the inputs' end, 00:00:04.000, would begin before the start"});
    expectRefused(command(clip, {"--in", "2", "--out", "2.001"}), 2, {"2000 to 2001 ms", "shorter than one frame"});
}

TEST_F(BadInput, SoundShorterThanAFrameForPictures) {
    const std::string sound = sources / "short.wav";
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "sine=r=48000:d=0.01", sound});
    expectRefused(command(sound), 2, {"lasts 10 ms", "shorter than one frame"});
}

class BadSettings : public BadInput {
protected:
    void expectSettingRefused(const std::string& preset, const std::string& setting,
                              const std::vector<std::string>& words) const {
        expectRefused(
            {"render", clip, "-p", preset, "-o", output, "--overwrite", "--progress", "none", "--set", setting}, 2,
            words);
    }
};

TEST_F(BadSettings, AnUnknownQualityWithTheKnownOnes) {
    expectRefused(command(clip, {"--quality", "hgih"}), 2,
                  {"mp4-h264-720p", "\"hgih\"", "did you mean high?", "high, medium, low"});
    expectRefused(command(clip, {"--quality", ""}), 2, {"--quality needs a value, which is empty"});
    expectRefused({"render", clip, "-p", "flac", "-o", output, "--overwrite", "--quality", "high"}, 2,
                  {"\"flac\" has no qualities", "; leave the quality out; presets that have some: "});
}

TEST_F(BadSettings, AnUnknownKeyWithNearNames) {
    expectSettingRefused("mp4-h264-720p", "bitrat=1M", {"\"bitrat\"", "did you mean bitrate", "audio-bitrate"});
    expectSettingRefused("mp4-h264-720p", "crf=20", {"\"crf\"", "the settings are size"});
    expectSettingRefused("mp4-h264-720p", "bitrate", {"\"bitrate\" is no setting", "KEY=VALUE"});
}

TEST_F(BadSettings, AValueThatDoesNotParse) {
    for (const char* const setting :
         {"size=big", "size=1280", "width=-640", "frame-rate=30fps", "frame-rate=25/0", "bitrate=fast", "bitrate=-1",
          "quality=nan", "sample-rate=0x10", "channels=3", "audio-bitrate="})
        expectSettingRefused("mp4-h264-720p", setting, {"Cannot set", "write "});
}

TEST_F(BadSettings, AValueOutsideTheLimits) {
    for (const char* const setting :
         {"size=0x0", "size=1281x720", "size=1282x722", "width=99999999999999999999", "height=722", "frame-rate=0",
          "frame-rate=301", "bitrate=0", "bitrate=100", "bitrate=1G", "bitrate=999M", "bitrate=99999999999999999999M",
          "quality=0", "quality=52", "sample-rate=0", "sample-rate=48001", "audio-bitrate=1", "audio-bitrate=600k"})
        expectSettingRefused("mp4-h264-720p", setting, {"Cannot set"});
    expectSettingRefused("mp4-h264-720p", "bitrate=100", {"h264 at 320x180 takes", "bit/s"});
    expectSettingRefused("mp4-h264-720p", "quality=51.5", {"Cannot set quality to 51.5: h264 takes 1 to 51"});
}

TEST_F(BadSettings, AKeyThatDoesNotApplyToThePreset) {
    for (const char* const setting :
         {"size=320x180", "width=320", "height=180", "frame-rate=25", "bitrate=1M", "quality=20"})
        expectSettingRefused("mp3", setting, {"\"mp3\" has no picture"});
    expectSettingRefused("flac", "audio-bitrate=500k", {"flac"});
    expectSettingRefused("mov-prores-1080p", "bitrate=50M", {"prores"});
    expectSettingRefused("mkv-ffv1-flac", "quality=1", {"ffv1"});
    expectSettingRefused("mp4-h264-1080p-2pass", "quality=20", {"two passes"});
}

TEST_F(BadSettings, SettingsThatExcludeEachOther) {
    expectRefused(command(clip, {"--set", "bitrate=1M", "--set", "quality=20"}), 2, {"bitrate", "quality"});
    expectRefused(command(clip, {"--set", "width=320", "--set", "width=160"}), 2, {"width", "twice"});
    expectRefused(command(clip, {"--set", "size=320x180", "--set", "width=160"}), 2, {"size", "width"});
}

class BadCatalogue : public BadInput {
protected:
    /// The shipped catalogue with one text replaced.
    std::string changed(const char* text, const char* replacement) const {
        QByteArray catalogue = TestFiles::read(EDITOR_EXPORT_CATALOGUE);
        const int at = catalogue.indexOf(text);
        EXPECT_GE(at, 0) << text;
        catalogue.replace(at, static_cast<int>(std::strlen(text)), replacement);
        const std::string path = sources / "presets.json";
        TestFiles::write(path, catalogue);
        return path;
    }
    void expectRefusedWith(const std::string& catalogue, int code, const std::vector<std::string>& words,
                           const std::string& preset = "mp4-h264-720p") const {
        Program program({"render", clip, "-p", preset, "-o", output, "--overwrite", "--progress", "none"});
        program.setEnvironment("EDITOR_EXPORT_PRESETS", catalogue);
        expectRefused(program, code, words);
    }
};

TEST_F(BadCatalogue, IsRefusedWithFilePointerAndReason) {
    expectRefusedWith(changed("\"codec\": \"h264\"", "\"codec\": \"h265b\""), 2,
                      {"presets.json", "/presets/0/video/codec", "h265b"});
    expectRefusedWith(changed("\"bitrate\": 192000", "\"bitrate\": -1"), 2,
                      {"presets.json", "/presets/0/audio/bitrate"});
    expectRefusedWith(changed("\"version\": 1", "\"version\": 1,"), 2, {"presets.json"});
    expectRefusedWith(sources / "no-presets.json", 2, {"no-presets.json"});
}

TEST_F(BadCatalogue, OptionsThatTheEncoderDoesNotHaveAreRefused) {
    const std::string catalogue =
        changed("\"codec\": \"ffv1\"", "\"codec\": \"ffv1\", \"options\": {\"nonsense\": \"1\"}");
    expectRefusedWith(catalogue, 2, {"nonsense"}, "mkv-ffv1-flac");
    expectRefusedWith(changed("\"codec\": \"ffv1\"", "\"codec\": \"ffv1\", \"options\": {\"slices\": 7}"), 2, {"ffv1"},
                      "mkv-ffv1-flac");
}

TEST_F(BadCatalogue, OptionsThatTheMuxerDoesNotHaveAreRefused) {
    expectRefusedWith(
        changed("\"container\": {\"id\": \"mkv\"}", "\"container\": {\"id\": \"mkv\", \"options\": {\"nonsense\": 1}}"),
        2, {"nonsense"}, "mkv-hevc-2160p");
}

} // namespace
