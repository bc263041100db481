// SPDX-License-Identifier: GPL-3.0-or-later
// Qualities and single settings, measured in the files that come out.
#include "Program.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/MediaProbe.h"
#include <gtest/gtest.h>

using TestCli::Result;
using TestMedia::ProbedMedia;

namespace {

constexpr int SECONDS = 4;

/// Noise in picture and sound, which takes whatever bits it is given.
class Settings : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = new TestMedia::Folder;
        makeNoise("noise.mkv", SECONDS);
    }
    static void TearDownTestSuite() { delete folder; }

    static void makeNoise(const std::string& name, int seconds) {
        const std::string length = std::to_string(seconds);
        TestMedia::runFfmpeg({"-f", "lavfi", "-i", "testsrc2=s=160x90:r=25:d=" + length + ",noise=alls=15:allf=t", "-f",
                              "lavfi", "-i", "anoisesrc=r=48000:d=" + length + ":a=0.4", "-ac", "2", "-c:v", "ffv1",
                              "-c:a", "pcm_s16le", *folder / name});
    }

    std::string output(const std::string& extension) const { return place / ("film." + extension); }
    /// The finished file's length in bits a second.
    double rate(const std::string& preset, const std::string& extension, const std::vector<std::string>& more) const {
        render(preset, extension, more);
        return TestFiles::read(output(extension)).size() * 8.0 / seconds;
    }
    ProbedMedia probe(const std::string& preset, const std::string& extension,
                      const std::vector<std::string>& more) const {
        render(preset, extension, more);
        return TestMedia::probe(output(extension));
    }
    void render(const std::string& preset, const std::string& extension, const std::vector<std::string>& more) const {
        std::vector<std::string> arguments{"render",          "-p",          preset,       "-o",
                                           output(extension), "--overwrite", "--progress", "none"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        arguments.push_back(*folder / clip);
        const Result result = TestCli::run(arguments);
        ASSERT_EQ(result.code, 0) << result.errors.toStdString();
    }

    static TestMedia::Folder* folder;
    const TestMedia::Folder place;
    std::string clip = "noise.mkv";
    int seconds = SECONDS;
};

TestMedia::Folder* Settings::folder = nullptr;

#define EXPECT_ABOUT(value, expected, share) EXPECT_NEAR(value, expected, (share) * (expected))

TEST_F(Settings, SizeAndRatesAreThoseAskedFor) {
    const ProbedMedia media = probe("mp4-h264-720p", "mp4",
                                    {"--set", "size=256x200", "--set", "frame-rate=30000/1001", "--set",
                                     "sample-rate=44.1k", "--set", "channels=mono"});
    ASSERT_TRUE(media.video && media.audio);
    EXPECT_EQ(media.video->width, 256);
    EXPECT_EQ(media.video->height, 200);
    EXPECT_EQ(media.video->rate, boost::rational<long long>(30000, 1001));
    EXPECT_EQ(media.video->frames.size(), 120U);
    EXPECT_TRUE(media.video->sampleAspect == 1 || media.video->sampleAspect == 0);
    EXPECT_EQ(media.audio->sampleRate, 44'100);
    EXPECT_EQ(media.audio->channels, 1);
    EXPECT_EQ(media.decodeErrors, 0);
}

TEST_F(Settings, OneSideKeepsTheShapeAndMayEnlarge) {
    const ProbedMedia narrow = probe("mp4-h264-720p", "mp4", {"--set", "width=128"});
    EXPECT_EQ(narrow.video->width, 128);
    EXPECT_EQ(narrow.video->height, 72);
    const ProbedMedia high = probe("mp4-mpeg4-720p", "mp4", {"--set", "height=180", "--set", "bitrate=250k"});
    EXPECT_EQ(high.video->width, 320);
    EXPECT_EQ(high.video->height, 180);
}

TEST_F(Settings, EveryVideoCodecTakesSizeAndFrameRate) {
    const std::vector<std::pair<const char*, const char*>> presets = {{"mp4-hevc-1080p", "mp4"},
                                                                      {"mp4-mpeg4-720p", "mp4"},
                                                                      {"webm-vp9-720p", "webm"},
                                                                      {"mov-prores-1080p", "mov"},
                                                                      {"mkv-ffv1-flac", "mkv"}};
    for (const auto& [preset, extension] : presets) {
        const ProbedMedia media = probe(preset, extension, {"--set", "size=128x96", "--set", "frame-rate=12"});
        ASSERT_TRUE(media.video) << preset;
        EXPECT_EQ(media.video->width, 128) << preset;
        EXPECT_EQ(media.video->height, 96) << preset;
        EXPECT_EQ(media.video->frames.size(), 48U) << preset;
    }
}

// Rate control in one pass takes some seconds to settle.
TEST_F(Settings, TheBitratesAreMet) {
    clip = "long.mkv";
    seconds = 12;
    makeNoise(clip, seconds);
    const double low = rate("mp4-h264-720p", "mp4", {"--set", "bitrate=200k", "--set", "audio-bitrate=64k"});
    EXPECT_ABOUT(low, 264'000, 0.08);
    const double high = rate("mp4-h264-720p", "mp4", {"--set", "bitrate=0.8M", "--set", "audio-bitrate=128k"});
    EXPECT_ABOUT(high, 928'000, 0.08);
    EXPECT_ABOUT(rate("webm-vp9-720p", "webm", {"--set", "bitrate=160000", "--set", "audio-bitrate=96k"}), 256'000,
                 0.08);
}

TEST_F(Settings, TheBitrateOfSoundAloneIsMet) {
    EXPECT_ABOUT(rate("mp3", "mp3", {"--set", "audio-bitrate=96k"}), 96'000, 0.05);
    EXPECT_ABOUT(rate("mp3", "mp3", {"--set", "audio-bitrate=160k", "--set", "sample-rate=22050"}), 160'000, 0.05);
    EXPECT_ABOUT(rate("m4a-aac", "m4a", {"--set", "audio-bitrate=160k"}), 160'000, 0.1);
}

TEST_F(Settings, AQualityOnTheCodecsScaleDecidesTheSize) {
    const double fine = rate("mp4-h264-720p", "mp4", {"--set", "quality=20"});
    const double coarse = rate("mp4-h264-720p", "mp4", {"--set", "quality=40"});
    EXPECT_GT(fine, 3 * coarse);
    EXPECT_GT(rate("mp4-mpeg4-720p", "mp4", {"--set", "quality=3"}),
              2 * rate("mp4-mpeg4-720p", "mp4", {"--set", "quality=20"}));
}

TEST_F(Settings, RatesAndChannelsOfSoundAreThoseAskedFor) {
    struct Case {
        const char *preset, *extension, *rate, *channels;
        int hertz, count;
    };
    const Case cases[] = {{"m4a-aac", "m4a", "32000", "5.1", 32'000, 6},
                          {"mp3", "mp3", "11025", "1", 11'025, 1},
                          {"flac", "flac", "96k", "7.1", 96'000, 8},
                          {"wav", "wav", "22050", "quad", 22'050, 4},
                          {"webm-vp9-720p", "webm", "48000", "6", 48'000, 6}};
    for (const Case& wanted : cases) {
        const ProbedMedia media = probe(
            wanted.preset, wanted.extension,
            {"--set", std::string("sample-rate=") + wanted.rate, "--set", std::string("channels=") + wanted.channels});
        ASSERT_TRUE(media.audio) << wanted.preset;
        EXPECT_EQ(media.audio->sampleRate, wanted.hertz) << wanted.preset;
        EXPECT_EQ(media.audio->channels, wanted.count) << wanted.preset;
    }
}

TEST_F(Settings, QualitiesOfAPresetDifferInSize) {
    const double low = rate("mp4-h264-720p", "mp4", {"--quality", "low"});
    const double medium = rate("mp4-h264-720p", "mp4", {"--quality", "medium"});
    const double high = rate("mp4-h264-720p", "mp4", {"--quality", "high"});
    EXPECT_GT(medium, 1.3 * low);
    EXPECT_GT(high, 1.3 * medium);
    EXPECT_ABOUT(rate("mp4-h264-720p", "mp4", {}), medium, 0.02);
    EXPECT_GT(rate("mov-prores-1080p", "mov", {"--quality", "high"}),
              1.5 * rate("mov-prores-1080p", "mov", {"--quality", "draft"}));
}

TEST_F(Settings, QualitiesOfALosslessPresetAreFormats) {
    EXPECT_EQ(probe("mkv-ffv1-flac", "mkv", {"--quality", "high"}).video->pixelFormat, "yuv444p10le");
    EXPECT_EQ(probe("mkv-ffv1-flac", "mkv", {"--quality", "low"}).video->pixelFormat, "yuv420p");
}

TEST_F(Settings, SettingsCountMoreThanTheQuality) {
    // Of the quality "low" stays the bitrate of 128 kbit/s, whatever the order.
    EXPECT_ABOUT(rate("mp3", "mp3", {"--set", "channels=mono", "--quality", "low"}), 128'000, 0.05);
    EXPECT_EQ(TestMedia::probe(output("mp3")).audio->channels, 1);
    EXPECT_ABOUT(rate("mp3", "mp3", {"--set", "audio-bitrate=64k", "--quality", "high"}), 64'000, 0.05);
    const double small =
        rate("mp4-h264-720p", "mp4", {"--quality", "high", "--set", "bitrate=300k", "--set", "audio-bitrate=64k"});
    EXPECT_ABOUT(small, 364'000, 0.15);
}

TEST_F(Settings, ASettingIsOfOneArgument) {
    // What follows is an input.
    render("wav", "wav", {"--set", "channels=mono", *folder / "noise.mkv"});
    const ProbedMedia media = TestMedia::probe(output("wav"));
    EXPECT_EQ(media.audio->samples, 8 * 48'000);
}

TEST_F(Settings, ATwoPassPresetMeetsABitrateToo) {
    EXPECT_ABOUT(rate("mp4-h264-1080p-2pass", "mp4", {"--set", "bitrate=700k", "--set", "audio-bitrate=64k"}), 764'000,
                 0.1);
}

} // namespace
