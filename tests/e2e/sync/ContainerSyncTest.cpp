// SPDX-License-Identifier: GPL-3.0-or-later
// Sound and picture of whatever containers and codecs people have, measured by decoding what was exported.
#include "Exported.h"
#include "support/FlashBeep.h"
#include "support/MediaProbe.h"
#include <cctype>
#include <cmath>
#include <gtest/gtest.h>

using ExportCore::ExportOutcome;
using TestMedia::FlashBeep;
using TestMedia::ProbedMedia;
using Rate = boost::rational<long long>;

namespace {

struct Packaging {
    const char* extension;
    const char* audioCodec;
    Rate rate;
    const char* videoCodec = "libx264";
    int reordered = 0; ///< pictures in a row that are decoded later than shown
    double late = 0;   ///< seconds that the encoder put in front, which nothing tells
};

std::ostream& operator<<(std::ostream& stream, const Packaging& packaging) {
    return stream << packaging.extension << " " << packaging.audioCodec << " " << packaging.rate;
}

const Packaging PACKAGINGS[] = {{"ts", "aac", 25},
                                {"ts", "mp2", {30000, 1001}},
                                {"ts", "ac3", 50},
                                {"ts", "libmp3lame", 60},
                                {"flv", "aac", {30000, 1001}},
                                {"mkv", "aac", 25},
                                {"mkv", "aac", {60000, 1001}},
                                {"mkv", "libmp3lame", 50},
                                {"mkv", "ac3", {24000, 1001}},
                                {"mkv", "libvorbis", 30},
                                {"mp4", "aac", 50},
                                {"mp4", "libmp3lame", 25},
                                {"mp4", "ac3", 60},
                                {"mov", "aac", {30000, 1001}},
                                {"webm", "libvorbis", 25, "libvpx"},
                                {"avi", "aac", 25},
                                {"avi", "aac", {24000, 1001}, "mpeg4"},
                                {"avi", "libmp3lame", 60, "mpeg4"},
                                {"avi", "libmp3lame", {30000, 1001}, "libx264", 2},
                                {"avi", "aac", 25, "mpeg4", 2},
                                {"avi", "pcm_s16le", 25, "mpeg4", 2},
                                {"avi", "ac3", 25, "mpeg4"},
                                {"avi", "mp2", {30000, 1001}, "mpeg4"},
                                {"avi", "mp2", 60, "libx264"},
                                {"avi", "eac3", 25, "mpeg4"},
                                {"avi", "dca", {30000, 1001}, "mpeg4", 0, 512.0 / 48000},
                                {"avi", "aac", 50, "mpeg4", 2},
                                {"avi", "mp2", 25, "libx264", 2}};

class Container : public ::testing::TestWithParam<Packaging> {
protected:
    static constexpr int SECONDS = 3;

    int period() const { return static_cast<int>(std::lround(boost::rational_cast<double>(GetParam().rate))); }
    int frames() const { return SECONDS * period(); }

    ProbedMedia exported(const FlashBeep& media) const {
        const std::string input = folder / (std::string("in.") + GetParam().extension);
        TestMedia::makeFlashBeep(input, media);
        const std::string output = folder / "out.mkv";
        const ExportOutcome outcome = TestExport::run(TestExport::requestOf(input, "mkv-ffv1-flac", output));
        EXPECT_EQ(outcome.status, ExportOutcome::Status::Done) << outcome.error.GetDescription();
        EXPECT_TRUE(outcome.notes.isEmpty()) << outcome.notes.join(QLatin1Char('\n')).toStdString();
        return TestMedia::probe(output);
    }

    FlashBeep flashBeep() const {
        FlashBeep media;
        media.width = 160;
        media.height = 96;
        media.rate = GetParam().rate;
        media.frames = frames();
        media.period = period();
        media.audioCodec = GetParam().audioCodec;
        media.videoCodec = GetParam().videoCodec;
        if (GetParam().reordered > 0)
            media.more = {"-bf", std::to_string(GetParam().reordered)};
        if (GetParam().videoCodec == std::string("mpeg4"))
            media.more.insert(media.more.end(), {"-q:v", "3"});
        if (GetParam().audioCodec == std::string("dca"))
            media.more.insert(media.more.end(), {"-strict", "experimental"});
        if (GetParam().extension == std::string("flv"))
            media.sampleRate = 44100;
        return media;
    }

    const TestMedia::Folder folder;
};

TEST_P(Container, ComesOutFrameByFrameWithItsSoundInStepAndNoLonger) {
    const ProbedMedia result = exported(flashBeep());
    const std::vector<int> numbers = result.numbers();
    ASSERT_EQ(numbers.size(), static_cast<std::size_t>(frames()));
    for (int frame = 0; frame < frames(); ++frame)
        ASSERT_EQ(numbers[static_cast<std::size_t>(frame)], frame % period() < 2 ? -1 : frame % 16)
            << "frame " << frame;
    const double seconds = frames() / boost::rational_cast<double>(GetParam().rate);
    EXPECT_NEAR(static_cast<double>(result.audio->samples) / result.audio->sampleRate, seconds, 0.0001);
    const std::vector<double> offsets = result.offsets();
    EXPECT_EQ(offsets.size(), static_cast<std::size_t>(SECONDS));
    for (const double offset : offsets)
        EXPECT_LE(std::abs(offset - GetParam().late), 0.001) << "sound minus picture";
}

INSTANTIATE_TEST_SUITE_P(Packagings, Container, ::testing::ValuesIn(PACKAGINGS),
                         [](const ::testing::TestParamInfo<Packaging>& entry) {
                             return std::string(entry.param.extension) + "_" + entry.param.audioCodec + "_" +
                                    std::to_string(entry.param.rate.numerator()) +
                                    (entry.param.rate.denominator() > 1 ? "_1001_" : "_") + entry.param.videoCodec +
                                    (entry.param.reordered > 0 ? "_reordered" : "");
                         });

struct Generation {
    const char* preset;
    const char* extension;
};

class Generations : public ::testing::TestWithParam<Generation> {};

TEST_P(Generations, KeepCountAndLengthThroughTenExports) {
    constexpr int FRAMES = 73;
    const TestMedia::Folder folder;
    std::string input = folder / "in.mov";
    FlashBeep media;
    media.width = 160;
    media.height = 96;
    media.rate = 50;
    media.frames = FRAMES;
    media.period = 20;
    TestMedia::makeFlashBeep(input, media);
    for (int generation = 1; generation <= 10; ++generation) {
        const std::string output = folder / (std::to_string(generation) + "." + GetParam().extension);
        const ExportOutcome outcome = TestExport::run(TestExport::requestOf(input, GetParam().preset, output));
        ASSERT_EQ(outcome.status, ExportOutcome::Status::Done) << outcome.error.GetDescription();
        ASSERT_EQ(outcome.facts.frames, FRAMES) << "generation " << generation;
        ASSERT_EQ(outcome.facts.durationMs, FRAMES * 20) << "generation " << generation;
        input = output;
    }
    const ProbedMedia last = TestMedia::probe(input);
    EXPECT_EQ(last.video->frames.size(), static_cast<std::size_t>(FRAMES));
    const std::vector<double> offsets = last.offsets();
    EXPECT_EQ(offsets.size(), 4U);
    for (const double offset : offsets)
        EXPECT_LE(std::abs(offset), 0.002) << "sound minus picture";
}

INSTANTIATE_TEST_SUITE_P(Presets, Generations,
                         ::testing::Values(Generation{"mp4-h264-720p", "mp4"}, Generation{"webm-vp9-720p", "webm"},
                                           Generation{"mov-prores-1080p", "mov"}, Generation{"mkv-ffv1-flac", "mkv"}),
                         [](const ::testing::TestParamInfo<Generation>& entry) { return entry.param.extension; });

TEST(Joined, ClipsGainNoFrame) {
    constexpr int CLIPS = 40, FRAMES = 11;
    const TestMedia::Folder folder;
    FlashBeep media;
    media.width = 160;
    media.height = 96;
    media.rate = {30000, 1001};
    media.frames = FRAMES;
    media.period = 30;
    media.audioCodec = "aac";
    ExportCore::ExportRequest request = TestExport::requestOf(folder / "in.mp4", "mkv-ffv1-flac", folder / "out.mkv");
    TestMedia::makeFlashBeep(folder / "in.mp4", media);
    for (int more = 1; more < CLIPS; ++more)
        request.inputs << request.inputs.front();
    const ExportOutcome outcome = TestExport::run(request);
    ASSERT_EQ(outcome.status, ExportOutcome::Status::Done) << outcome.error.GetDescription();
    const ProbedMedia result = TestMedia::probe(folder / "out.mkv");
    EXPECT_EQ(result.video->frames.size(), static_cast<std::size_t>(CLIPS * FRAMES));
    EXPECT_EQ(result.audio->samples, std::llround(CLIPS * FRAMES * 1001 / 30000.0 * 48000));
}

} // namespace
