// SPDX-License-Identifier: GPL-3.0-or-later
// Lossless sound keeps its samples, their bits and where they are heard.
#include "../sync/Exported.h"
#include "Raw.h"
#include "support/FlashBeep.h"
#include <gtest/gtest.h>
#include <tuple>

namespace {

using ExportCore::ExportOutcome;
using Status = ExportOutcome::Status;

/// A tone of its own for each channel.
std::string tones(const std::string& layout, int channels, const std::string& sampleFormat) {
    std::string expressions;
    for (int channel = 0; channel < channels; ++channel)
        expressions += (channel ? "|" : "") + std::string("0.3*sin(") + std::to_string(1000 + 700 * channel) + "*t)";
    return "aevalsrc=exprs='" + expressions + "':s=48000:d=0.25:c=" + layout + ",aformat=sample_fmts=" + sampleFormat;
}

void make(const std::string& path, const std::string& tones, const std::string& codec) {
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", tones, "-c:a", codec, path});
}

struct Layout {
    const char* name;
    int channels;
};

std::ostream& operator<<(std::ostream& stream, const Layout& layout) {
    return stream << layout.name;
}

class KeptLayout : public ::testing::TestWithParam<Layout> {
protected:
    ExportOutcome exported(const char* preset, const std::string& to) const {
        make(source, tones(GetParam().name, GetParam().channels, "s16"), "pcm_s16le");
        return TestExport::run(TestExport::requestOf(source, preset, to));
    }
    void expectKept(const ExportOutcome& outcome, const std::string& file, const std::string& layout) const {
        ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
        EXPECT_EQ(TestKept::told(file, "a", "channels,channel_layout").toStdString(),
                  std::to_string(GetParam().channels) + "," + layout);
        EXPECT_EQ(TestKept::sound(file), TestKept::sound(source));
        EXPECT_TRUE(outcome.notes.isEmpty()) << outcome.notes.join(QLatin1Char('\n')).toStdString();
    }

    TestMedia::Folder media;
    const std::string source = media / "source.wav";
};

TEST_P(KeptLayout, InFlac) {
    expectKept(exported("flac", media / "out.flac"), media / "out.flac", GetParam().name);
}

TEST_P(KeptLayout, InWav) {
    // The plain header of WAV, for one and two channels, tells no layout.
    expectKept(exported("wav", media / "out.wav"), media / "out.wav",
               GetParam().channels <= 2 ? "unknown" : GetParam().name);
}

constexpr Layout LAYOUTS[] = {
    {"mono", 1}, {"stereo", 2},     {"2.1", 3},       {"3.0", 3},       {"3.0(back)", 3}, {"4.0", 4},
    {"quad", 4}, {"quad(side)", 4}, {"3.1", 4},       {"5.0", 5},       {"5.0(side)", 5}, {"4.1", 5},
    {"5.1", 6},  {"5.1(side)", 6},  {"6.0", 6},       {"hexagonal", 6}, {"6.1", 7},       {"6.1(back)", 7},
    {"7.0", 7},  {"7.1", 8},        {"7.1(wide)", 8}, {"octagonal", 8},
};

INSTANTIATE_TEST_SUITE_P(All, KeptLayout, ::testing::ValuesIn(LAYOUTS), [](const auto& which) {
    std::string name;
    for (const char* letter = which.param.name; *letter; ++letter)
        name += std::isalnum(static_cast<unsigned char>(*letter)) ? *letter : '_';
    return name;
});

struct Bits {
    const char* codec;
    const char* sampleFormat;
};

std::ostream& operator<<(std::ostream& stream, const Bits& bits) {
    return stream << bits.codec;
}

class KeptBits : public ::testing::TestWithParam<Bits> {};

TEST_P(KeptBits, OfPcmInWav) {
    const TestMedia::Folder media;
    const std::string source = media / "source.wav";
    const std::string file = media / "out.wav";
    make(source, tones("5.1", 6, GetParam().sampleFormat), GetParam().codec);
    const auto outcome = TestExport::run(TestExport::requestOf(source, "wav", file));
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    EXPECT_EQ(TestKept::told(file, "a", "codec_name").toStdString(), GetParam().codec);
    EXPECT_EQ(TestKept::sound(file), TestKept::sound(source));
    EXPECT_TRUE(outcome.notes.isEmpty()) << outcome.notes.join(QLatin1Char('\n')).toStdString();
}

INSTANTIATE_TEST_SUITE_P(All, KeptBits,
                         ::testing::Values(Bits{"pcm_u8", "u8"}, Bits{"pcm_s16le", "s16"}, Bits{"pcm_s24le", "s32"},
                                           Bits{"pcm_s32le", "s32"}, Bits{"pcm_f32le", "flt"},
                                           Bits{"pcm_f64le", "dbl"}),
                         [](const auto& which) { return std::string(which.param.codec); });

TEST(KeptSound, OfWavPackHasItsOwnBits) {
    // The codec can lose something as well, which its name does not tell.
    struct {
        const char* format;
        const char* bits;
        const char* codec; // of the file
    } const cases[] = {{"s16p", "16", "pcm_s16le"}, {"s32p", "24", "pcm_s24le"}, {"s32p", "32", "pcm_s32le"}};
    for (const auto& each : cases) {
        const TestMedia::Folder media;
        make(media / "plain.wav", tones("stereo", 2, "s32"), each.codec);
        TestMedia::runFfmpeg({"-i", media / "plain.wav", "-c:a", "wavpack", "-sample_fmt", each.format,
                              "-bits_per_raw_sample", each.bits, media / "source.wv"});
        const auto outcome = TestExport::run(TestExport::requestOf(media / "source.wv", "wav", media / "out.wav"));
        ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
        EXPECT_EQ(TestKept::told(media / "out.wav", "a", "codec_name").toStdString(), each.codec);
        EXPECT_EQ(TestKept::sound(media / "out.wav"), TestKept::sound(media / "plain.wav"));
        EXPECT_TRUE(outcome.notes.isEmpty()) << outcome.notes.join(QLatin1Char('\n')).toStdString();
    }
}

TEST(KeptSound, OfDtsWithoutALosslessPartComesWithSixteenBits) {
    const TestMedia::Folder media;
    TestMedia::runFfmpeg(
        {"-f", "lavfi", "-i", tones("stereo", 2, "s32"), "-c:a", "dca", "-strict", "-2", media / "source.dts"});
    const auto outcome = TestExport::run(TestExport::requestOf(media / "source.dts", "wav", media / "out.wav"));
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    EXPECT_EQ(TestKept::told(media / "out.wav", "a", "codec_name"), QLatin1String("pcm_s16le"));
}

TEST(KeptSound, OfLossyCodecsComesWithSixteenBits) {
    const TestMedia::Folder media;
    make(media / "source.mp3", tones("stereo", 2, "fltp"), "libmp3lame");
    const auto outcome = TestExport::run(TestExport::requestOf(media / "source.mp3", "wav", media / "out.wav"));
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    EXPECT_EQ(TestKept::told(media / "out.wav", "a", "codec_name"), QLatin1String("pcm_s16le"));
}

TEST(KeptSound, BitsThatFlacCannotHoldAreNamed) {
    const TestMedia::Folder media;
    make(media / "source.wav", tones("stereo", 2, "s32"), "pcm_s32le");
    const auto outcome = TestExport::run(TestExport::requestOf(media / "source.wav", "flac", media / "out.flac"));
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    ASSERT_EQ(outcome.notes.size(), 1);
    EXPECT_TRUE(outcome.notes.front().contains(QLatin1String("32 bits of each sample became 24")))
        << outcome.notes.front().toStdString();
}

/// Twice full scale, which floating point alone can hold.
constexpr const char* LOUD =
    "aevalsrc=exprs='2*sin(1000*t)|2*sin(1000*t)':s=48000:d=0.25:c=stereo,aformat=sample_fmts=";

TEST(KeptSound, OfFloatingPointStaysAboveFullScaleBesideIntegers) {
    struct {
        const char* beside;
        const char* format;
        const char* codec; // of the file
    } const cases[] = {{"pcm_s24le", "s32", "pcm_f32le"}, {"pcm_s32le", "s32", "pcm_f64le"}};
    for (const auto& each : cases) {
        const TestMedia::Folder media;
        make(media / "loud.wav", std::string(LOUD) + "flt", "pcm_f32le");
        make(media / "beside.wav", tones("stereo", 2, each.format), each.beside);
        ExportCore::ExportRequest request = TestExport::requestOf(media / "beside.wav", "wav", media / "out.wav");
        request.inputs << QString::fromStdString(media / "loud.wav");
        const auto outcome = TestExport::run(request);
        ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
        EXPECT_EQ(TestKept::told(media / "out.wav", "a", "codec_name").toStdString(), each.codec);
        TestMedia::runFfmpeg({"-i", media / "beside.wav", "-i", media / "loud.wav", "-filter_complex",
                              "[0]aformat=sample_fmts=dbl[a];[1]aformat=sample_fmts=dbl[b];[a][b]concat=v=0:a=1",
                              "-c:a", "pcm_f64le", media / "joined.wav"});
        EXPECT_EQ(TestKept::sound(media / "out.wav"), TestKept::sound(media / "joined.wav"));
        EXPECT_TRUE(outcome.notes.isEmpty()) << outcome.notes.join(QLatin1Char('\n')).toStdString();
    }
}

TEST(KeptSound, HasOnlyTheDepthOfWhatIsInTheRange) {
    const TestMedia::Folder media;
    make(media / "plain.wav", tones("stereo", 2, "s16"), "pcm_s16le");
    make(media / "loud.wav", std::string(LOUD) + "flt", "pcm_f32le");
    make(media / "mono.wav", tones("mono", 1, "s32"), "pcm_s24le");
    ExportCore::ExportRequest request = TestExport::requestOf(media / "loud.wav", "wav", media / "out.wav");
    request.inputs << QString::fromStdString(media / "plain.wav") << QString::fromStdString(media / "mono.wav");
    request.in = KTime(250);
    request.out = KTime(500);
    const auto outcome = TestExport::run(request);
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    EXPECT_EQ(TestKept::told(media / "out.wav", "a", "codec_name"), QLatin1String("pcm_s16le"));
    EXPECT_EQ(TestKept::sound(media / "out.wav"), TestKept::sound(media / "plain.wav"));
    request.in = KTime(500);
    request.out = std::nullopt;
    request.overwrite = true;
    EXPECT_EQ(TestExport::run(request).status, Status::Done);
    EXPECT_EQ(TestKept::told(media / "out.wav", "a", "codec_name"), QLatin1String("pcm_s24le"));
    EXPECT_EQ(TestKept::told(media / "out.wav", "a", "channels"), QLatin1String("1"));
}

TEST(KeptSound, OfFloatingPointThatBecomesIntegersIsNamed) {
    for (const auto& [name, format, codec] :
         {std::tuple("loud.wav", "flt", "pcm_f32le"), std::tuple("loud.wv", "fltp", "wavpack")}) {
        const TestMedia::Folder media;
        make(media / name, std::string(LOUD) + format, codec);
        const auto outcome = TestExport::run(TestExport::requestOf(media / name, "flac", media / "out.flac"));
        ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
        ASSERT_EQ(outcome.notes.size(), 1) << name;
        EXPECT_TRUE(outcome.notes.front().contains(QLatin1String("cut off what lies above full scale")))
            << outcome.notes.front().toStdString();
    }
}

TEST(KeptSound, MoreChannelsThanFlacHoldsAreRefusedByName) {
    const TestMedia::Folder media;
    make(media / "source.mov", tones("hexadecagonal", 16, "s16"), "pcm_s16le");
    const auto outcome = TestExport::run(TestExport::requestOf(media / "source.mov", "flac", media / "out.flac"));
    EXPECT_EQ(outcome.status, Status::Failed);
    const std::string words = outcome.error.GetDescription();
    EXPECT_NE(words.find("16 channels"), std::string::npos) << words;
    EXPECT_NE(words.find("preset \"wav\""), std::string::npos) << words;
}

TEST(KeptSound, SixteenChannelsGoIntoWavWhichSaysThatItCannotPlaceThem) {
    const TestMedia::Folder media;
    const std::string file = media / "out.wav";
    make(media / "source.mov", tones("hexadecagonal", 16, "s16"), "pcm_s16le");
    const auto outcome = TestExport::run(TestExport::requestOf(media / "source.mov", "wav", file));
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    EXPECT_EQ(TestKept::told(file, "a", "channels"), QLatin1String("16"));
    ASSERT_EQ(outcome.notes.size(), 1);
    EXPECT_TRUE(outcome.notes.front().contains(QLatin1String("hexadecagonal"))) << outcome.notes.front().toStdString();
}

TEST(KeptSound, ChannelsWithoutSpeakersStaySeparate) {
    const TestMedia::Folder media;
    const std::string source = media / "source.mkv"; // the container counts channels only
    make(source, tones("6.0", 6, "s16"), "pcm_s16le");
    for (const char* const preset : {"wav", "flac"}) {
        const std::string file = media / (std::string("out.") + preset);
        const auto outcome = TestExport::run(TestExport::requestOf(source, preset, file));
        ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
        EXPECT_EQ(TestKept::sound(file), TestKept::sound(source)) << preset;
        // FLAC says where channels are heard, whether one knows it or not.
        ASSERT_EQ(outcome.notes.size(), preset == std::string("flac") ? 1 : 0);
    }
}

} // namespace
